#pragma once

#include "host/UniqueID.h"

namespace kelvor
{

/**
 * @brief A platform point as the store keeps it: latitude and longitude (radians), altitude
 * (metres), yaw, pitch, roll (radians), and an east, north, up velocity (m/s). Orientation
 * and velocity hold PI_INVALID_DOUBLE when the point has none. 80 bytes.
 */
struct StoredPlatformPoint
{
  double time = 0.0;
  double lat = 0.0;
  double lon = 0.0;
  double alt = 0.0;
  double yaw = PI_INVALID_DOUBLE;
  double pitch = PI_INVALID_DOUBLE;
  double roll = PI_INVALID_DOUBLE;
  double velEast = PI_INVALID_DOUBLE;
  double velNorth = PI_INVALID_DOUBLE;
  double velUp = PI_INVALID_DOUBLE;

  bool hasOrientation() const { return yaw != PI_INVALID_DOUBLE && pitch != PI_INVALID_DOUBLE && roll != PI_INVALID_DOUBLE; }
  bool hasVelocity() const
  {
    return velEast != PI_INVALID_DOUBLE && velNorth != PI_INVALID_DOUBLE && velUp != PI_INVALID_DOUBLE;
  }
};

} // namespace kelvor
