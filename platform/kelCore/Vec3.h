#pragma once

#include <cmath>

namespace kelCore
{

/// Three doubles: a position, an orientation (yaw, pitch, roll) or a velocity, in the frame of its owner.
struct Vec3
{
  double x = 0.0; ///< first component
  double y = 0.0; ///< second component
  double z = 0.0; ///< third component

  constexpr Vec3() = default;
  constexpr Vec3(double x0, double y0, double z0) : x(x0), y(y0), z(z0) {}

  double& operator[](int i) { return i == 0 ? x : (i == 1 ? y : z); }
  double operator[](int i) const { return i == 0 ? x : (i == 1 ? y : z); }

  Vec3 operator+(const Vec3& o) const { return {x + o.x, y + o.y, z + o.z}; }
  Vec3 operator-(const Vec3& o) const { return {x - o.x, y - o.y, z - o.z}; }
  Vec3 operator-() const { return {-x, -y, -z}; }
  Vec3 operator*(double s) const { return {x * s, y * s, z * s}; }
  Vec3 operator/(double s) const { return {x / s, y / s, z / s}; }
  Vec3& operator+=(const Vec3& o) { return *this = *this + o; }
  Vec3& operator-=(const Vec3& o) { return *this = *this - o; }
  Vec3& operator*=(double s) { return *this = *this * s; }
  bool operator==(const Vec3& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(const Vec3& o) const { return !(*this == o); }

  /// @return the dot product with o.
  double dot(const Vec3& o) const { return x * o.x + y * o.y + z * o.z; }
  /// @return the cross product this x o.
  Vec3 cross(const Vec3& o) const { return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x}; }
  /// @return the Euclidean length.
  double length() const { return std::sqrt(dot(*this)); }
};

inline Vec3 operator*(double s, const Vec3& v) { return v * s; }

} // namespace kelCore
