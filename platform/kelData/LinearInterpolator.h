#pragma once

#include "kelData/PlatformUpdate.h"

namespace kelData
{

/**
 * Interpolates platform updates whose positions are ECEF (metres). The position is linear in
 * ECEF with its geodetic altitude linear between the two altitudes, so a straight chord does
 * not dip below a track flown at constant height; angles follow the shorter arc; velocity is
 * linear. A group is interpolated only when both updates have it.
 */
class LinearInterpolator
{
public:
  /**
   * @param time the time wanted, seconds @param before the update at or before time
   * @param after the update after time @param result receives the interpolated update
   * @return false when result is null or the two updates have one time
   */
  bool interpolate(double time, const PlatformUpdate& before, const PlatformUpdate& after,
                   PlatformUpdate* result) const;
};

} // namespace kelData
