#pragma once

#include "kelCore/Coordinate.h"

namespace kelCore
{

/**
 * @brief Converts coordinates between every pair of systems, carrying orientation, velocity
 * and acceleration with the position.
 *
 * The flat-earth systems (NED, NWU, ENU) scale latitude and longitude differences by the
 * earth's radii of curvature at the reference origin: cheap, and exact at the origin. Their
 * orientation and velocity are relative to the local level at the point, as in LLA. XEAST is
 * the true tangent plane at the origin; GTP is XEAST moved by the tangent-plane offsets and
 * turned counter-clockwise by the tangent-plane angle.
 */
class CoordinateConverter
{
public:
  /// A converter whose reference origin is latitude 0, longitude 0, altitude 0.
  CoordinateConverter();

  /// Sets the reference origin. @param lat latitude, radians @param lon longitude, radians @param alt altitude, metres
  void setReferenceOrigin(double lat, double lon, double alt);
  /// The same as setReferenceOrigin.
  void setReference(double lat, double lon, double alt) { setReferenceOrigin(lat, lon, alt); }
  /**
   * Sets the generic tangent plane relative to XEAST.
   * @param x east offset of the GTP origin, metres @param y north offset, metres
   * @param angle counter-clockwise turn of the GTP axes from east-north, radians
   */
  void setTangentPlaneOffsets(double x, double y, double angle);

  double referenceLat() const { return refLat_; } ///< radians
  double referenceLon() const { return refLon_; } ///< radians
  double referenceAlt() const { return refAlt_; } ///< metres
  double tangentPlaneOffsetX() const { return tpX_; } ///< metres
  double tangentPlaneOffsetY() const { return tpY_; } ///< metres
  double tangentPlaneAngle() const { return tpAngle_; } ///< radians

  /**
   * Converts in into system, writing out (which may be in).
   * @return 0 for success; 1 when either system is NONE or unknown, leaving out alone
   */
  int convert(const Coordinate& in, Coordinate& out, CoordinateSystem system) const;

  /**
   * The matrix whose rows are the local north, east and down axes in ECEF at a position: it
   * takes an ECEF vector into local north-east-down.
   * @param lat latitude, radians @param lon longitude, radians @param matrix the matrix, row major
   */
  static void setLocalToEarthMatrix(double lat, double lon, double matrix[3][3]);
  /// WGS-84 geodetic latitude, longitude (radians) and altitude (metres) of an ECEF position (metres).
  static void convertEcefToGeodeticPos(const Vec3& ecef, Vec3& lla);
  /// ECEF position (metres) of a WGS-84 geodetic latitude, longitude (radians) and altitude (metres).
  static void convertGeodeticPosToEcef(const Vec3& lla, Vec3& ecef);

private:
  struct EcefState;

  int toLla_(const Coordinate& in, Coordinate& lla) const;
  int fromLla_(const Coordinate& lla, Coordinate& out, CoordinateSystem system) const;
  bool toEcef_(const Coordinate& in, EcefState& state) const;
  bool fromEcef_(const EcefState& state, Coordinate& out, CoordinateSystem system) const;

  double refLat_ = 0.0;
  double refLon_ = 0.0;
  double refAlt_ = 0.0;
  double tpX_ = 0.0;
  double tpY_ = 0.0;
  double tpAngle_ = 0.0;
  Vec3 refEcef_;
  double refNedFromEcef_[3][3]; // ECEF to north-east-down at the origin
  double meridianRadius_ = 0.0;
  double primeVerticalRadius_ = 0.0;
};

} // namespace kelCore
