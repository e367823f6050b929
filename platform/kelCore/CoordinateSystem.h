#pragma once

namespace kelCore
{

/**
 * Coordinate systems. LLA is latitude, longitude (radians) and altitude (metres); NED, NWU and
 * ENU are flat-earth frames about the reference origin; XEAST is the true tangent plane at the
 * origin (east, north, up); GTP is XEAST moved by the tangent-plane offsets and turned by the
 * tangent-plane angle; ECI is ECEF turned about z by the earth's rotation since the ECI epoch.
 */
enum class CoordinateSystem : int
{
  NONE = 0,
  NED = 1,
  NWU = 2,
  ENU = 3,
  LLA = 4,
  ECEF = 5,
  ECI = 6,
  XEAST = 7,
  GTP = 8
};

/// @return true for the systems that are measured from the reference origin.
constexpr bool needsReferenceOrigin(CoordinateSystem system)
{
  return system == CoordinateSystem::NED || system == CoordinateSystem::NWU || system == CoordinateSystem::ENU ||
         system == CoordinateSystem::XEAST || system == CoordinateSystem::GTP;
}

} // namespace kelCore
