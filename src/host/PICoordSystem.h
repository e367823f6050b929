#pragma once

/// Coordinate system of a reference frame, as the host numbers it.
enum PICoordSystem_t : int
{
  PI_COORDSYS_NED = 0,      ///< north, east, down about the origin
  PI_COORDSYS_NWU = 1,      ///< north, west, up about the origin
  PI_COORDSYS_ENU = 2,      ///< east, north, up about the origin
  PI_COORDSYS_LLA = 3,      ///< latitude, longitude (radians), altitude (metres)
  PI_COORDSYS_ECEF = 4,     ///< earth-centred earth-fixed, metres
  PI_COORDSYS_XEAST = 5,    ///< true tangent plane about the origin
  PI_COORDSYS_LLA_6 = 6,    ///< treated as LLA; never produced by the editor
  PI_COORDSYS_LLA_7 = 7,    ///< treated as LLA; never produced by the editor
  PI_COORDSYS_GTP = 8,      ///< generic tangent plane: X-East moved and turned by the offsets
  PI_COORDSYS_ECI = 9       ///< earth-centred inertial
};
