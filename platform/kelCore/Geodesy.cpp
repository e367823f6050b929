#include "kelCore/Geodesy.h"

#include "kelCore/Angle.h"
#include "kelCore/CoordinateConverter.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/Geodesic.hpp>

#include <cmath>

namespace kelCore
{

namespace
{

constexpr double RAD2DEG = 180.0 / M_PI;
constexpr double DEG2RAD = M_PI / 180.0;

double inverse(const GeographicLib::Geodesic& geodesic, double lat1, double lon1, double lat2, double lon2,
               double* azimuth, double* backAzimuth)
{
  double distance = 0.0, azi1 = 0.0, azi2 = 0.0;
  geodesic.Inverse(lat1 * RAD2DEG, lon1 * RAD2DEG, lat2 * RAD2DEG, lon2 * RAD2DEG, distance, azi1, azi2);
  if (azimuth)
    *azimuth = angFix(azi1 * DEG2RAD, AngleExtents::TWOPI);
  // GeographicLib gives the forward azimuth at the second point; the way back is opposite.
  if (backAzimuth)
    *backAzimuth = angFix(azi2 * DEG2RAD + M_PI, AngleExtents::TWOPI);
  return distance;
}

} // namespace

int calculateVelFromGeodeticPos(const Vec3& current, const Vec3& previous, double dt, Vec3& velocity)
{
  if (dt == 0.0 || !std::isfinite(dt))
  {
    velocity = Vec3();
    return 1;
  }
  Vec3 a, b;
  CoordinateConverter::convertGeodeticPosToEcef(previous, a);
  CoordinateConverter::convertGeodeticPosToEcef(current, b);
  const Vec3 ecef = (b - a) / dt;
  double ned[3][3];
  CoordinateConverter::setLocalToEarthMatrix(current.x, current.y, ned);
  const double north = ned[0][0] * ecef.x + ned[0][1] * ecef.y + ned[0][2] * ecef.z;
  const double east = ned[1][0] * ecef.x + ned[1][1] * ecef.y + ned[1][2] * ecef.z;
  const double down = ned[2][0] * ecef.x + ned[2][1] * ecef.y + ned[2][2] * ecef.z;
  velocity = {east, north, -down};
  return 0;
}

void calculateFlightPathAngles(const Vec3& velocity, Vec3& angles)
{
  const double horizontal = std::hypot(velocity.x, velocity.y);
  angles = {angFix(std::atan2(velocity.x, velocity.y), AngleExtents::TWOPI), std::atan2(velocity.z, horizontal), 0.0};
}

double calculateGroundDist(const Vec3& from, const Vec3& to, double* azimuth, double* backAzimuth)
{
  return inverse(GeographicLib::Geodesic::WGS84(), from.x, from.y, to.x, to.y, azimuth, backAzimuth);
}

double sodanoInverse(double lat1, double lon1, double alt1, double lat2, double lon2, double* azimuth,
                     double* backAzimuth)
{
  if (alt1 == 0.0)
    return inverse(GeographicLib::Geodesic::WGS84(), lat1, lon1, lat2, lon2, azimuth, backAzimuth);
  const GeographicLib::Geodesic raised(GeographicLib::Constants::WGS84_a() + alt1,
                                       GeographicLib::Constants::WGS84_f());
  return inverse(raised, lat1, lon1, lat2, lon2, azimuth, backAzimuth);
}

} // namespace kelCore
