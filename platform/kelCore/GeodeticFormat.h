#pragma once

namespace kelCore
{

/// Text forms of a latitude, longitude or angle.
enum class GeodeticFormat : int
{
  DEGREES = 0,                 ///< decimal degrees
  DEGREES_MINUTES = 1,         ///< degrees and decimal minutes
  DEGREES_MINUTES_SECONDS = 2, ///< degrees, minutes and decimal seconds
  RADIANS = 3,                 ///< radians
  BAM = 4,                     ///< binary angle measurement
  MIL = 5,                     ///< angular mils
  MILLIRADIANS = 6             ///< milliradians
};

} // namespace kelCore
