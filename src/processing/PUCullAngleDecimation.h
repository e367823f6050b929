#pragma once

#include "host/PIPlatformPoint.h"

#include <vector>

namespace QtSep
{

/**
 * Culls the middle of three successive points when the turn it makes, measured against the
 * direction of the first segment after the last kept point, is within a tolerance.
 */
class PUCullAngleDecimation
{
public:
  /// @param cullAngle tolerance, radians @param keepLastPoint true to end with the track's last point
  PUCullAngleDecimation(double cullAngle, bool keepLastPoint) : cullAngle_(cullAngle), keepLastPoint_(keepLastPoint) {}

  double cullAngle() const { return cullAngle_; }
  bool keepLastPoint() const { return keepLastPoint_; }
  /// Thins a track of earth-centred positions. @return 0; 1 when in and out are the same vector
  int execute(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) const;

  /// @return an angle folded into [0, pi], radians: a turn either way counts the same
  static double foldAngle(double radians);

private:
  double cullAngle_;
  bool keepLastPoint_;
};

} // namespace QtSep
