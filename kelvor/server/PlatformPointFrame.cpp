#include "server/PlatformPointFrame.h"

#include <cmath>

namespace kelvor
{

namespace
{

bool isSet(const PIPoint& p)
{
  return p.x != PI_INVALID_DOUBLE && p.y != PI_INVALID_DOUBLE && p.z != PI_INVALID_DOUBLE && std::isfinite(p.x) &&
         std::isfinite(p.y) && std::isfinite(p.z);
}

PIData::PICoordReferenceFrame withScenarioOrigin(PIData::PICoordReferenceFrame frame, const ScenarioProperties& s)
{
  if (frame.usesScenarioOrigin())
  {
    frame.latOrigin = s.latOrigin;
    frame.lonOrigin = s.lonOrigin;
    frame.altOrigin = s.altOrigin;
    frame.tangentPlaneXOffset = s.tangentPlaneX;
    frame.tangentPlaneYOffset = s.tangentPlaneY;
    frame.tangentPlaneAngle = s.tangentPlaneAngle;
  }
  return frame;
}

StoredPlatformPoint storedFromLla(const PIData::PIPlatformPoint& point)
{
  StoredPlatformPoint s;
  s.time = point.time;
  s.lat = point.position.x;
  s.lon = point.position.y;
  s.alt = point.position.z;
  if (isSet(point.orientation))
    s.yaw = point.orientation.x, s.pitch = point.orientation.y, s.roll = point.orientation.z;
  if (isSet(point.velocity))
    s.velEast = point.velocity.x, s.velNorth = point.velocity.y, s.velUp = point.velocity.z;
  return s;
}

} // namespace

kelCore::CoordinateSystem PlatformPointFrame::kelCoreSystem(int piSystem)
{
  static const kelCore::CoordinateSystem TABLE[] = {
    kelCore::CoordinateSystem::NED,   kelCore::CoordinateSystem::NWU,  kelCore::CoordinateSystem::ENU,
    kelCore::CoordinateSystem::LLA,   kelCore::CoordinateSystem::ECEF, kelCore::CoordinateSystem::XEAST,
    kelCore::CoordinateSystem::LLA,   kelCore::CoordinateSystem::LLA,  kelCore::CoordinateSystem::GTP,
    kelCore::CoordinateSystem::ECI};
  return piSystem >= 0 && piSystem <= 9 ? TABLE[piSystem] : kelCore::CoordinateSystem::LLA;
}

PlatformPointFrame::PlatformPointFrame(const PIData::PICoordReferenceFrame& frame, const ScenarioProperties& scenario)
  : frame_(withScenarioOrigin(frame, scenario)), system_(kelCoreSystem(frame.coordinateSystem))
{
  converter_.setReferenceOrigin(frame_.latOrigin, frame_.lonOrigin, frame_.altOrigin);
  converter_.setTangentPlaneOffsets(frame_.tangentPlaneXOffset, frame_.tangentPlaneYOffset, frame_.tangentPlaneAngle);
}

double PlatformPointFrame::elapsedEci_(double time) const
{
  return time < 0.0 ? 0.0 : std::max(0.0, time - frame_.eciReferenceTime);
}

PIData::PIPlatformPoint PlatformPointFrame::toRecord(const StoredPlatformPoint& s) const
{
  PIData::PIPlatformPoint point;
  point.time = s.time;
  point.frame = frame_;
  if (system_ == kelCore::CoordinateSystem::LLA)
  {
    point.position = {s.lat, s.lon, s.alt};
    if (s.hasOrientation())
      point.orientation = {s.yaw, s.pitch, s.roll};
    if (s.hasVelocity())
      point.velocity = {s.velEast, s.velNorth, s.velUp};
    return point;
  }
  kelCore::Coordinate lla(kelCore::CoordinateSystem::LLA, {s.lat, s.lon, s.alt}, elapsedEci_(s.time));
  if (s.hasOrientation())
    lla.setOrientation({s.yaw, s.pitch, s.roll});
  if (s.hasVelocity())
    lla.setVelocity({s.velEast, s.velNorth, s.velUp});
  kelCore::Coordinate out;
  converter_.convert(lla, out, system_);
  point.position = {out.position().x, out.position().y, out.position().z};
  if (out.hasOrientation())
    point.orientation = {out.orientation().x, out.orientation().y, out.orientation().z};
  if (out.hasVelocity())
    point.velocity = {out.velocity().x, out.velocity().y, out.velocity().z};
  return point;
}

StoredPlatformPoint PlatformPointFrame::fromRecord(const PIData::PIPlatformPoint& point, const ScenarioProperties& scenario)
{
  // In LLA the record is the stored point: no frame to set up.
  if (kelCoreSystem(point.frame.coordinateSystem) == kelCore::CoordinateSystem::LLA)
    return storedFromLla(point);
  return PlatformPointFrame(point.frame, scenario).fromRecordInFrame(point);
}

StoredPlatformPoint PlatformPointFrame::fromRecordInFrame(const PIData::PIPlatformPoint& point) const
{
  const kelCore::CoordinateSystem system = kelCoreSystem(point.frame.coordinateSystem);
  if (system == kelCore::CoordinateSystem::LLA)
    return storedFromLla(point);
  StoredPlatformPoint s;
  s.time = point.time;
  kelCore::Coordinate in(system, {point.position.x, point.position.y, point.position.z}, elapsedEci_(point.time));
  if (isSet(point.orientation))
    in.setOrientation({point.orientation.x, point.orientation.y, point.orientation.z});
  if (isSet(point.velocity))
    in.setVelocity({point.velocity.x, point.velocity.y, point.velocity.z});
  kelCore::Coordinate lla;
  converter_.convert(in, lla, kelCore::CoordinateSystem::LLA);
  s.lat = lla.position().x;
  s.lon = lla.position().y;
  s.alt = lla.position().z;
  if (lla.hasOrientation())
    s.yaw = lla.orientation().x, s.pitch = lla.orientation().y, s.roll = lla.orientation().z;
  if (lla.hasVelocity())
    s.velEast = lla.velocity().x, s.velNorth = lla.velocity().y, s.velUp = lla.velocity().z;
  return s;
}

} // namespace kelvor
