#pragma once

#include "host/UniqueID.h"

/**
 * @brief Three doubles: a position, an orientation (yaw, pitch, roll in radians) or a
 * velocity (metres per second), in the frame its owner names.
 */
struct PIPoint
{
  double x = 0.0; ///< first component
  double y = 0.0; ///< second component
  double z = 0.0; ///< third component

  /// Equal when all three components are exactly equal.
  bool operator==(const PIPoint& other) const { return x == other.x && y == other.y && z == other.z; }
  bool operator!=(const PIPoint& other) const { return !(*this == other); }
};

/// No point: PI_INVALID_DOUBLE in all three places.
constexpr PIPoint PI_INVALID_POINT{PI_INVALID_DOUBLE, PI_INVALID_DOUBLE, PI_INVALID_DOUBLE};
