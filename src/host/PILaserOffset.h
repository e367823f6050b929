#pragma once

#include "host/UniqueID.h"

namespace PIData
{

/// One time-stamped offset of a laser from its host, metres in the host's body frame.
struct PILaserOffset
{
  double x = PI_INVALID_DOUBLE;    ///< metres
  double y = PI_INVALID_DOUBLE;    ///< metres
  double z = PI_INVALID_DOUBLE;    ///< metres
  double time = PI_INVALID_DOUBLE; ///< seconds since the reference year
};

} // namespace PIData
