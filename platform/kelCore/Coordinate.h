#pragma once

#include "kelCore/CoordinateSystem.h"
#include "kelCore/Vec3.h"

namespace kelCore
{

/**
 * @brief A position with optional orientation, velocity and acceleration, in one system.
 *
 * Orientation is yaw, pitch, roll in radians (ZYX Euler angles of the body relative to the
 * system's own level frame: the local north-east-down at the point for LLA and the flat-earth
 * systems, the tangent plane's north-east-down for XEAST and GTP, the system's axes for ECEF
 * and ECI). Velocity is metres per second along the system's axes; in LLA it is east, north, up.
 */
class Coordinate
{
public:
  Coordinate() = default;
  /// @param system the system @param position the position in it @param elapsedEciTime seconds since the ECI epoch
  Coordinate(CoordinateSystem system, const Vec3& position, double elapsedEciTime = 0.0)
    : system_(system), position_(position), elapsedEciTime_(elapsedEciTime)
  {
  }
  /// As above, with an orientation: yaw, pitch, roll in radians.
  Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation, double elapsedEciTime = 0.0)
    : Coordinate(system, position, elapsedEciTime)
  {
    setOrientation(orientation);
  }
  /// As above, with an orientation and a velocity in m/s.
  Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation, const Vec3& velocity,
             double elapsedEciTime = 0.0)
    : Coordinate(system, position, orientation, elapsedEciTime)
  {
    setVelocity(velocity);
  }

  CoordinateSystem coordinateSystem() const { return system_; }
  void setCoordinateSystem(CoordinateSystem system) { system_ = system; }

  const Vec3& position() const { return position_; }
  void setPosition(const Vec3& position) { position_ = position; }

  bool hasOrientation() const { return hasOrientation_; }
  const Vec3& orientation() const { return orientation_; }
  void setOrientation(const Vec3& orientation)
  {
    orientation_ = orientation;
    hasOrientation_ = true;
  }
  void clearOrientation() { hasOrientation_ = false; orientation_ = Vec3(); }

  bool hasVelocity() const { return hasVelocity_; }
  const Vec3& velocity() const { return velocity_; }
  void setVelocity(const Vec3& velocity)
  {
    velocity_ = velocity;
    hasVelocity_ = true;
  }
  void clearVelocity() { hasVelocity_ = false; velocity_ = Vec3(); }

  bool hasAcceleration() const { return hasAcceleration_; }
  const Vec3& acceleration() const { return acceleration_; }
  void setAcceleration(const Vec3& acceleration)
  {
    acceleration_ = acceleration;
    hasAcceleration_ = true;
  }
  void clearAcceleration() { hasAcceleration_ = false; acceleration_ = Vec3(); }

  /// @return seconds since the ECI epoch, which turns ECI against ECEF.
  double elapsedEciTime() const { return elapsedEciTime_; }
  void setElapsedEciTime(double seconds) { elapsedEciTime_ = seconds; }

private:
  CoordinateSystem system_ = CoordinateSystem::NONE;
  Vec3 position_;
  Vec3 orientation_;
  Vec3 velocity_;
  Vec3 acceleration_;
  bool hasOrientation_ = false;
  bool hasVelocity_ = false;
  bool hasAcceleration_ = false;
  double elapsedEciTime_ = 0.0;
};

} // namespace kelCore
