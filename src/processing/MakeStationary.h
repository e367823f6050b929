#pragma once

#include "host/PIPoint.h"

#include <cstdint>

namespace QtSep
{

/**
 * @brief Decides whether a platform stays within given deltas over its points, and rewrites a
 * platform into a stationary form: one static point, or two equal points bounding its life.
 *
 * The deltas bound each quantity's wander from its first valid value, not the step between
 * neighbours. Only the points within the clock's span as it was when the object was made count.
 */
class MakeStationary
{
public:
  MakeStationary();
  virtual ~MakeStationary() = default;

  /// @param enabled use the criterion @param metres the ground distance a platform stays within
  void setDistance(bool enabled, int metres);
  /// @param enabled use the criterion @param degrees how far the angle may wander from its first value
  void setYaw(bool enabled, int degrees);
  void setPitch(bool enabled, int degrees);
  void setRoll(bool enabled, int degrees);

  /**
   * \returns whether the platform stays within every enabled delta over its points in the span;
   * false without points and for a platform that is static already (one point at -1); true for
   * one point at a time, and with no criterion enabled for any platform with points
   */
  bool isStationary(std::uint64_t id) const;

  /**
   * Rewrites the platform to its first point: static (time -1), or, with maintainLifeSpan and a
   * life of more than an instant, that point at its first and at its latest time.
   * \returns 0; 1 when the first point cannot be read, with nothing changed
   */
  int execute(std::uint64_t id, bool maintainLifeSpan);

  /// The angle that marks a component as unset.
  static constexpr double UNSET = -999999999.0;

private:
  /// @return whether the ground distance from the reference to the point is below the limit
  bool isStationary_(const PIPoint& reference, const PIPoint& point) const;
  /// @return whether an angle stays within limit of the reference, which the first valid angle sets
  static bool isStationary_(bool enabled, double limit, double& reference, double angle);

  bool useDistance_ = false;
  double distance_ = 100.0; ///< metres
  bool useYaw_ = false;
  double yaw_;              ///< radians
  bool usePitch_ = false;
  double pitch_;            ///< radians
  bool useRoll_ = false;
  double roll_;             ///< radians
  double beginTime_;        ///< seconds since the reference year
  double endTime_;          ///< seconds since the reference year
};

} // namespace QtSep
