#include "processing/PUCullAngleDecimation.h"

#include "kelCore/VectorMath.h"

#include <cmath>

namespace QtSep
{

namespace
{

constexpr double TWO_PI = 2.0 * M_PI;
constexpr double NEGLIGIBLE = 1e-10;

kelCore::Vec3 positionOf(const PIData::PIPlatformPoint& point)
{
  return {point.position.x, point.position.y, point.position.z};
}

} // namespace

double PUCullAngleDecimation::foldAngle(double radians)
{
  double a = radians;
  if (std::fabs(a) > M_PI && (a < 0.0 || a >= TWO_PI))
  {
    a = std::fmod(a, TWO_PI);
    if (std::fabs(a) < NEGLIGIBLE)
      a = 0.0;
    else if (a < 0.0)
      a += TWO_PI;
  }
  if (a > M_PI)
    a -= TWO_PI;
  return std::fabs(a);
}

int PUCullAngleDecimation::execute(const std::vector<PIData::PIPlatformPoint>& in,
                                   std::vector<PIData::PIPlatformPoint>& out) const
{
  if (&in == &out)
    return 1;
  if (in.size() < 3)
  {
    out = in;
    return 0;
  }
  const double tolerance = foldAngle(cullAngle_);
  out.push_back(in[0]);
  kelCore::Vec3 anchor = positionOf(in[0]);
  std::size_t mid = 1;
  kelCore::Vec3 midPos = positionOf(in[1]);
  kelCore::Vec3 reference = midPos - anchor;
  for (std::size_t next = 2; next < in.size(); ++next)
  {
    const kelCore::Vec3 nextPos = positionOf(in[next]);
    const double angle = foldAngle(kelCore::v3Angle(reference, nextPos - anchor));
    // Only an angle within the tolerance culls: one that is not a number (a position that is
    // not one) keeps the middle point rather than hiding it.
    if (!(tolerance >= angle))
    {
      // The turn is real: the middle point stays and starts the next reference segment.
      out.push_back(in[mid]);
      anchor = midPos;
      reference = nextPos - midPos;
    }
    mid = next;
    midPos = nextPos;
  }
  if (in.back().time != out.back().time && keepLastPoint_)
    out.push_back(in.back());
  return 0;
}

} // namespace QtSep
