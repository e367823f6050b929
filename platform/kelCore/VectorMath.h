#pragma once

#include "kelCore/Vec3.h"

/// @file Vector and direction cosine matrix operations.

namespace kelCore
{

/// WGS-84 earth rotation rate, radians per second.
constexpr double EARTH_ROTATION_RATE = 7.292115e-5;

/// @return the angle between a and b in radians, 0 to pi; 0 when either has no length.
double v3Angle(const Vec3& a, const Vec3& b);

/**
 * Direction cosine matrix of ZYX Euler angles: the matrix that takes a vector from the
 * reference frame into the body frame.
 * @param euler yaw, pitch, roll in radians @param dcm the matrix, row major
 */
void d3EulertoDCM(const double euler[3], double dcm[3][3]);

/// Euler angles (yaw, pitch, roll in radians; yaw in (-pi, pi]) of a direction cosine matrix.
void d3DCMtoEuler(const double dcm[3][3], double euler[3]);

/// c = a * b for 3x3 matrices; c may be a or b.
void d3MMmult(const double a[3][3], const double b[3][3], double c[3][3]);

} // namespace kelCore
