#include "processing/ByCalculatedSpeed.h"

#include "kelCore/Geodesy.h"

#include <cmath>
#include <limits>

namespace QtSep
{

namespace
{

constexpr double SAME_TIME = 1e-6;

kelCore::Vec3 position(const PIData::PIPlatformPoint& point)
{
  return {point.position.x, point.position.y, point.position.z};
}

} // namespace

double ByCalculatedSpeed::speed(const PIData::PIPlatformPoint& a, const PIData::PIPlatformPoint& b)
{
  const double dt = b.time - a.time;
  if (std::fabs(dt) < SAME_TIME)
    return std::numeric_limits<double>::max();
  kelCore::Vec3 velocity;
  kelCore::calculateVelFromGeodeticPos(position(b), position(a), dt, velocity);
  return velocity.length();
}

void ByCalculatedSpeed::filterPlatform_(const std::vector<PIData::PIPlatformPoint>& in,
                                        std::vector<PIData::PIPlatformPoint>& out) const
{
  out.clear();
  if (in.size() <= 2)
  {
    out = in;
    return;
  }
  std::size_t next = 0;
  if (inRange_(speed(in[0], in[1])))
  {
    out = {in[0], in[1]};
    next = 2;
  }
  else
  {
    // One of the first two is wild: the one whose removal gives the calmer move to the third.
    const bool secondIsWild = speed(in[1], in[2]) > speed(in[0], in[2]);
    out = {secondIsWild ? in[0] : in[1], in[2]};
    next = 3;
  }
  for (std::size_t i = next; i < in.size(); ++i)
  {
    if (inRange_(speed(out.back(), in[i])))
      out.push_back(in[i]);
  }
}

} // namespace QtSep
