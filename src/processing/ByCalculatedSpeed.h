#pragma once

#include "processing/SpeedFilter.h"

namespace QtSep
{

/**
 * Judges each point by the speed from the last kept point to it, computed from their geodetic
 * positions, so that one wild point does not condemn its successor. The first three points
 * decide which of the first two is wild.
 */
class ByCalculatedSpeed : public SpeedFilter
{
public:
  std::string description() const override { return "by calculated velocity "; }
  void filterPlatform_(const std::vector<PIData::PIPlatformPoint>& in,
                       std::vector<PIData::PIPlatformPoint>& out) const override;

  /// @return the speed from a to b in m/s; the largest double when they are less than 1e-6 s apart
  static double speed(const PIData::PIPlatformPoint& a, const PIData::PIPlatformPoint& b);
};

} // namespace QtSep
