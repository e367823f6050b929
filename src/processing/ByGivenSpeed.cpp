#include "processing/ByGivenSpeed.h"

#include <cmath>

namespace QtSep
{

void ByGivenSpeed::filterPlatform_(const std::vector<PIData::PIPlatformPoint>& in,
                                   std::vector<PIData::PIPlatformPoint>& out) const
{
  out.clear();
  for (const PIData::PIPlatformPoint& point : in)
  {
    const PIPoint& v = point.velocity;
    if (v.x == PI_INVALID_DOUBLE || v.y == PI_INVALID_DOUBLE || v.z == PI_INVALID_DOUBLE)
    {
      out.push_back(point); // no stored velocity to judge by
      continue;
    }
    // A NaN speed fails both comparisons and is dropped.
    if (inRange_(std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z)))
      out.push_back(point);
  }
}

} // namespace QtSep
