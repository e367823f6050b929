#include "kelData/LinearInterpolator.h"

#include "kelCore/Angle.h"
#include "kelCore/CoordinateConverter.h"

namespace kelData
{

namespace
{

double lerp(double a, double b, double f) { return a + (b - a) * f; }

float lerpAngle(float a, float b, double f)
{
  const double shortest = kelCore::angFix(static_cast<double>(b) - a, kelCore::AngleExtents::PI);
  return static_cast<float>(kelCore::angFix(a + shortest * f, kelCore::AngleExtents::PI));
}

} // namespace

bool LinearInterpolator::interpolate(double time, const PlatformUpdate& before, const PlatformUpdate& after,
                                     PlatformUpdate* result) const
{
  if (!result || after.time() == before.time())
    return false;
  const double f = (time - before.time()) / (after.time() - before.time());
  PlatformUpdate out;
  out.setTime(time);

  const kelCore::Vec3 chord{lerp(before.x(), after.x(), f), lerp(before.y(), after.y(), f),
                            lerp(before.z(), after.z(), f)};
  kelCore::Vec3 lla, llaBefore, llaAfter;
  kelCore::CoordinateConverter::convertEcefToGeodeticPos(chord, lla);
  kelCore::CoordinateConverter::convertEcefToGeodeticPos({before.x(), before.y(), before.z()}, llaBefore);
  kelCore::CoordinateConverter::convertEcefToGeodeticPos({after.x(), after.y(), after.z()}, llaAfter);
  lla.z = lerp(llaBefore.z, llaAfter.z, f);
  kelCore::Vec3 ecef;
  kelCore::CoordinateConverter::convertGeodeticPosToEcef(lla, ecef);
  out.setPosition(ecef.x, ecef.y, ecef.z);

  if (before.hasOrientation() && after.hasOrientation())
    out.setOrientation(lerpAngle(before.yaw(), after.yaw(), f), lerpAngle(before.pitch(), after.pitch(), f),
                       lerpAngle(before.roll(), after.roll(), f));
  if (before.hasVelocity() && after.hasVelocity())
    out.setVelocity(static_cast<float>(lerp(before.vx(), after.vx(), f)),
                    static_cast<float>(lerp(before.vy(), after.vy(), f)),
                    static_cast<float>(lerp(before.vz(), after.vz(), f)));
  *result = out;
  return true;
}

} // namespace kelData
