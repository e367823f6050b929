#pragma once

#include "host/PICoordReferenceFrame.h"

namespace PIData
{

/**
 * @brief One time-stamped position of a platform (a TSPI point).
 *
 * Position, orientation (yaw, pitch, roll, radians) and velocity are in the system that the
 * frame names; for LLA the position is latitude and longitude in radians and altitude in
 * metres, the velocity east, north, up in metres per second. A point may carry position only.
 */
struct PIPlatformPoint
{
  PIPoint position = PI_INVALID_POINT;     ///< position in the frame's system
  PIPoint orientation = PI_INVALID_POINT;  ///< yaw, pitch, roll, radians
  PIPoint velocity = PI_INVALID_POINT;     ///< velocity in the frame's system, m/s
  PIPoint acceleration = PI_INVALID_POINT; ///< acceleration in the frame's system, m/s^2
  double time = PI_INVALID_DOUBLE;         ///< seconds since the reference year; -1 for static
  PICoordReferenceFrame frame;             ///< frame of all the values above
};

} // namespace PIData
