#pragma once

#include "host/UniqueID.h"

namespace PIData
{

/// One time-stamped field of view of a projector.
struct PIProjectorPoint
{
  double time = PI_INVALID_DOUBLE;        ///< seconds since the reference year
  double fieldOfView = PI_INVALID_DOUBLE; ///< radians
};

} // namespace PIData
