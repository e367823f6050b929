#pragma once

#include "host/UniqueID.h"

namespace PIData
{

/// One time-stamped gate.
struct PIGatePoint
{
  double azimuth = PI_INVALID_DOUBLE;   ///< radians
  double elevation = PI_INVALID_DOUBLE; ///< radians
  double width = PI_INVALID_DOUBLE;     ///< radians
  double height = PI_INVALID_DOUBLE;    ///< radians
  double minRange = PI_INVALID_DOUBLE;  ///< metres
  double maxRange = PI_INVALID_DOUBLE;  ///< metres
  double centroid = PI_INVALID_DOUBLE;  ///< metres
  double time = PI_INVALID_DOUBLE;      ///< seconds since the reference year
};

} // namespace PIData
