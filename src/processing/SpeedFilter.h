#pragma once

#include "host/PIPlatformPoint.h"

#include <string>
#include <vector>

namespace QtSep
{

/// Keeps the points of a track whose speed lies within [minVelocityMs, maxVelocityMs], both inclusive.
class SpeedFilter
{
public:
  virtual ~SpeedFilter() = default;

  /// @return how the speed is taken, for the audit line: "by given velocity " or "by calculated velocity "
  virtual std::string description() const = 0;
  /**
   * Keeps the points that pass. @param in the track in time order, positions as latitude and
   * longitude (radians) and altitude (metres) @param out receives the kept points, in order
   */
  virtual void filterPlatform_(const std::vector<PIData::PIPlatformPoint>& in,
                               std::vector<PIData::PIPlatformPoint>& out) const = 0;

  double minVelocityMs = 0.0;  ///< least speed kept, m/s
  double maxVelocityMs = 10.0; ///< greatest speed kept, m/s

protected:
  bool inRange_(double speed) const { return speed <= maxVelocityMs && speed >= minVelocityMs; }
};

} // namespace QtSep
