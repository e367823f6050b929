#pragma once

#include "kelCore/Vec3.h"

/// @file Geodesy on the WGS-84 ellipsoid. Positions are latitude, longitude (radians), altitude (metres).

namespace kelCore
{

/**
 * Velocity of a move from previous to current in dt seconds, as east, north, up in m/s at the
 * current position.
 * @return 0 for success; 1 when dt is zero or not finite, with velocity set to zero
 */
int calculateVelFromGeodeticPos(const Vec3& current, const Vec3& previous, double dt, Vec3& velocity);

/**
 * Flight path angles of an east, north, up velocity (m/s): yaw = atan2(east, north) in
 * [0, 2 pi), pitch = atan2(up, horizontal speed), roll 0; all zero for a zero velocity.
 */
void calculateFlightPathAngles(const Vec3& velocity, Vec3& angles);

/**
 * Ground distance along the ellipsoid between two positions (their altitudes are ignored).
 * @param from first position @param to second position
 * @param azimuth receives the initial azimuth at from, radians clockwise from north, if not null
 * @param backAzimuth receives the azimuth from to back to from, radians, if not null
 * @return metres
 */
double calculateGroundDist(const Vec3& from, const Vec3& to, double* azimuth = nullptr, double* backAzimuth = nullptr);

/**
 * Ground distance between two points on the ellipsoid raised to the first point's altitude.
 * @param lat1 latitude of the first point, radians @param lon1 its longitude, radians
 * @param alt1 its altitude, metres, which raises the ellipsoid @param lat2 latitude of the
 * second point, radians @param lon2 its longitude, radians
 * @param azimuth receives the initial azimuth from the first point, radians in [0, 2 pi), if not null
 * @param backAzimuth receives the azimuth from the second point back, radians in [0, 2 pi), if not null
 * @return metres
 */
double sodanoInverse(double lat1, double lon1, double alt1, double lat2, double lon2, double* azimuth = nullptr,
                     double* backAzimuth = nullptr);

} // namespace kelCore
