#pragma once

#include "host/UniqueID.h"

namespace PIData
{

/// One time-stamped pointing of a beam.
struct PIBeamPoint
{
  double azimuth = PI_INVALID_DOUBLE;   ///< radians
  double elevation = PI_INVALID_DOUBLE; ///< radians
  double length = PI_INVALID_DOUBLE;    ///< metres
  double time = PI_INVALID_DOUBLE;      ///< seconds since the reference year
};

} // namespace PIData
