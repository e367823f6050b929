#pragma once

#include "host/UniqueID.h"

#include <cstdint>
#include <string>

namespace QtSep
{

/**
 * A stretch of a platform's track: either a hole with no data (a dropout, with "N/A" as its
 * source), or the piece of another platform's track that fills part of one.
 */
class DropOut
{
public:
  virtual ~DropOut() = default;

  /// Orders by start time alone.
  bool operator<(const DropOut& other) const { return startTime < other.startTime; }
  /// @return true for the same stretch of time; a NaN makes it false
  bool operator==(const DropOut& other) const
  {
    return this == &other || (startTime == other.startTime && endTime == other.endTime);
  }

  std::string sourceName = "N/A"; ///< platform whose points fill the stretch; "N/A" for an unfilled gap
  UniqueID_t sourceId = 0;        ///< that platform; 0 for an unfilled gap
  UniqueID_t originalId = 0;      ///< that platform's original ID; 0 for none
  double startTime = 0.0;         ///< first time of the stretch, seconds since the reference year
  double endTime = 0.0;           ///< last time of the stretch, seconds since the reference year
  std::int32_t numberOfPoints = 0; ///< source points in the stretch; 0 for an unfilled gap
  double gapStart = 0.0;          ///< start of the whole dropout this stretch helps to fill, seconds
  double gapDuration = 0.0;       ///< length of that dropout, seconds
  std::uint64_t colorIndex = 0;   ///< index of the stretch's colour: the source's priority, capped at the last colour
};

} // namespace QtSep
