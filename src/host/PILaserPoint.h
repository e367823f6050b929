#pragma once

#include "host/UniqueID.h"

namespace PIData
{

/// One time-stamped orientation of a laser.
struct PILaserPoint
{
  double azimuth = PI_INVALID_DOUBLE;   ///< radians
  double elevation = PI_INVALID_DOUBLE; ///< radians
  double roll = PI_INVALID_DOUBLE;      ///< radians; no editor column shows it
  double time = PI_INVALID_DOUBLE;      ///< seconds since the reference year
};

} // namespace PIData
