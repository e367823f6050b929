#include "utils/PUCoordConvert.h"

#include <array>

namespace PUCoordConvert
{

namespace
{

using kelCore::CoordinateSystem;

bool hasOrigin(const PIData::PICoordReferenceFrame& frame) { return !frame.usesScenarioOrigin(); }

bool hasTangentPlane(const PIData::PICoordReferenceFrame& frame)
{
  return frame.tangentPlaneXOffset != PI_INVALID_DOUBLE && frame.tangentPlaneYOffset != PI_INVALID_DOUBLE &&
         frame.tangentPlaneAngle != PI_INVALID_DOUBLE;
}

PIPoint toPoint(const kelCore::Vec3& v) { return {v.x, v.y, v.z}; }

} // namespace

kelCore::CoordinateSystem convertKelCore(PICoordSystem_t system)
{
  static const std::array<CoordinateSystem, 10> TABLE{
    CoordinateSystem::NED,  CoordinateSystem::NWU, CoordinateSystem::ENU, CoordinateSystem::LLA, CoordinateSystem::ECEF,
    CoordinateSystem::XEAST, CoordinateSystem::LLA, CoordinateSystem::LLA, CoordinateSystem::GTP, CoordinateSystem::ECI};
  const int value = static_cast<int>(system);
  return value >= 0 && value < static_cast<int>(TABLE.size()) ? TABLE[value] : CoordinateSystem::LLA;
}

PICoordSystem_t convertPICoordSystem(kelCore::CoordinateSystem system)
{
  static const std::array<PICoordSystem_t, 9> TABLE{PI_COORDSYS_LLA, PI_COORDSYS_NED,   PI_COORDSYS_NWU,
                                                    PI_COORDSYS_ENU, PI_COORDSYS_LLA,   PI_COORDSYS_ECEF,
                                                    PI_COORDSYS_ECI, PI_COORDSYS_XEAST, PI_COORDSYS_GTP};
  const int value = static_cast<int>(system);
  return value >= 0 && value < static_cast<int>(TABLE.size()) ? TABLE[value] : PI_COORDSYS_LLA;
}

kelCore::CoordinateConverter makeCoordConvert(const PIData::PICoordReferenceFrame& frame,
                                              const kelCore::CoordinateConverter* existing)
{
  const PICoordSystem_t system = frame.coordinateSystem;
  const bool needsNoReference = system == PI_COORDSYS_LLA || system == PI_COORDSYS_ECEF || system == PI_COORDSYS_ECI;
  if (existing)
  {
    const bool sameOrigin = existing->referenceLat() == frame.latOrigin && existing->referenceLon() == frame.lonOrigin &&
                            existing->referenceAlt() == frame.altOrigin;
    const bool samePlane = system != PI_COORDSYS_GTP || (existing->tangentPlaneOffsetX() == frame.tangentPlaneXOffset &&
                                                         existing->tangentPlaneOffsetY() == frame.tangentPlaneYOffset &&
                                                         existing->tangentPlaneAngle() == frame.tangentPlaneAngle);
    if (needsNoReference || !hasOrigin(frame) || (sameOrigin && samePlane))
      return *existing;
  }
  kelCore::CoordinateConverter made;
  if (hasOrigin(frame))
    made.setReference(frame.latOrigin, frame.lonOrigin, frame.altOrigin);
  else
    made.setReference(0.0, 0.0, 0.0);
  if (hasTangentPlane(frame))
    made.setTangentPlaneOffsets(frame.tangentPlaneXOffset, frame.tangentPlaneYOffset, frame.tangentPlaneAngle);
  return made;
}

void convertToRefFrame(double time, const kelCore::Coordinate& coordinate, const PIData::PICoordReferenceFrame& frame,
                       PIData::PIPlatformPoint& point, const kelCore::CoordinateConverter& converter)
{
  kelCore::Coordinate out = coordinate;
  if (frame.coordinateSystem != PI_COORDSYS_LLA)
    converter.convert(coordinate, out, convertKelCore(frame.coordinateSystem));
  point.time = time;
  point.position = toPoint(out.position());
  point.orientation = out.hasOrientation() ? toPoint(out.orientation()) : PI_INVALID_POINT;
  point.velocity = out.hasVelocity() ? toPoint(out.velocity()) : PI_INVALID_POINT;
  point.acceleration = PI_INVALID_POINT;
  point.frame = frame;
  if (!hasOrigin(frame))
  {
    point.frame.latOrigin = converter.referenceLat();
    point.frame.lonOrigin = converter.referenceLon();
    point.frame.altOrigin = converter.referenceAlt();
    point.frame.tangentPlaneXOffset = converter.tangentPlaneOffsetX();
    point.frame.tangentPlaneYOffset = converter.tangentPlaneOffsetY();
    point.frame.tangentPlaneAngle = converter.tangentPlaneAngle();
  }
}

} // namespace PUCoordConvert
