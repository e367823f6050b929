#pragma once

#include <limits>

namespace kelData
{

/**
 * @brief One time-stamped state of a platform: position in doubles, orientation and velocity
 * in floats. A float group that was never set holds the float maximum in all three places.
 */
class PlatformUpdate
{
public:
  /// The value of an unset orientation or velocity component.
  static constexpr float UNSET = std::numeric_limits<float>::max();

  double time() const { return time_; } ///< seconds since the reference year
  void setTime(double time) { time_ = time; }

  double x() const { return position_[0]; } ///< position, metres or radians as the owner's system has it
  double y() const { return position_[1]; }
  double z() const { return position_[2]; }
  void setPosition(double x, double y, double z)
  {
    position_[0] = x;
    position_[1] = y;
    position_[2] = z;
  }

  float yaw() const { return orientation_[0]; } ///< radians
  float pitch() const { return orientation_[1]; }
  float roll() const { return orientation_[2]; }
  void setOrientation(float yaw, float pitch, float roll)
  {
    orientation_[0] = yaw;
    orientation_[1] = pitch;
    orientation_[2] = roll;
  }
  /// @return true when all three orientation components are set.
  bool hasOrientation() const { return orientation_[0] != UNSET && orientation_[1] != UNSET && orientation_[2] != UNSET; }

  float vx() const { return velocity_[0]; } ///< metres per second
  float vy() const { return velocity_[1]; }
  float vz() const { return velocity_[2]; }
  void setVelocity(float vx, float vy, float vz)
  {
    velocity_[0] = vx;
    velocity_[1] = vy;
    velocity_[2] = vz;
  }
  /// @return true when all three velocity components are set.
  bool hasVelocity() const { return velocity_[0] != UNSET && velocity_[1] != UNSET && velocity_[2] != UNSET; }

private:
  double time_ = 0.0;
  double position_[3] = {0.0, 0.0, 0.0};
  float orientation_[3] = {UNSET, UNSET, UNSET};
  float velocity_[3] = {UNSET, UNSET, UNSET};
};

} // namespace kelData
