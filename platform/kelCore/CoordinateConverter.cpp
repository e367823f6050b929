#include "kelCore/CoordinateConverter.h"

#include "kelCore/Angle.h"
#include "kelCore/VectorMath.h"

#include <GeographicLib/Constants.hpp>
#include <GeographicLib/Geocentric.hpp>

#include <algorithm>
#include <cmath>

namespace kelCore
{

namespace
{

constexpr double RAD2DEG = 180.0 / M_PI;
constexpr double DEG2RAD = M_PI / 180.0;
// Keeps east distances finite at a reference origin on a pole.
constexpr double MIN_COS_LATITUDE = 1e-12;

struct Mat3
{
  double m[3][3];

  static Mat3 identity() { return {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}; }
  static Mat3 of(const double m[3][3])
  {
    Mat3 r;
    std::copy(&m[0][0], &m[0][0] + 9, &r.m[0][0]);
    return r;
  }
  static Mat3 fromEuler(const Vec3& ypr)
  {
    Mat3 r;
    const double e[3] = {ypr.x, ypr.y, ypr.z};
    d3EulertoDCM(e, r.m);
    return r;
  }
  static Mat3 nedFromEcef(double lat, double lon)
  {
    Mat3 r;
    CoordinateConverter::setLocalToEarthMatrix(lat, lon, r.m);
    return r;
  }
  // Rotation of ECI against ECEF: r_eci = rotZ(theta) * r_ecef.
  static Mat3 rotZ(double theta)
  {
    const double c = std::cos(theta), s = std::sin(theta);
    return {{{c, -s, 0}, {s, c, 0}, {0, 0, 1}}};
  }
  Vec3 toEuler() const
  {
    double e[3];
    d3DCMtoEuler(m, e);
    return {e[0], e[1], e[2]};
  }
  Mat3 operator*(const Mat3& o) const
  {
    Mat3 r;
    d3MMmult(m, o.m, r.m);
    return r;
  }
  Vec3 operator*(const Vec3& v) const
  {
    return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
            m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
  }
  Mat3 transposed() const
  {
    Mat3 r;
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j)
        r.m[i][j] = m[j][i];
    return r;
  }
};

// ENU and NED swap into each other by this symmetric matrix.
const Mat3 NED_FROM_ENU = {{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}};

// North, east, up of a flat-earth position, and back.
Vec3 flatToNeu(CoordinateSystem system, const Vec3& p)
{
  switch (system)
  {
  case CoordinateSystem::NED:
    return {p.x, p.y, -p.z};
  case CoordinateSystem::NWU:
    return {p.x, -p.y, p.z};
  default:
    return {p.y, p.x, p.z};
  }
}

Vec3 neuToFlat(CoordinateSystem system, const Vec3& neu)
{
  switch (system)
  {
  case CoordinateSystem::NED:
    return {neu.x, neu.y, -neu.z};
  case CoordinateSystem::NWU:
    return {neu.x, -neu.y, neu.z};
  default:
    return {neu.y, neu.x, neu.z};
  }
}

// Flat-earth velocity along the system's axes to local east, north, up, and back.
Vec3 flatToEnuVector(CoordinateSystem system, const Vec3& v)
{
  const Vec3 neu = flatToNeu(system, v);
  return {neu.y, neu.x, neu.z};
}

Vec3 enuToFlatVector(CoordinateSystem system, const Vec3& enu) { return neuToFlat(system, {enu.y, enu.x, enu.z}); }

bool isFlatEarth(CoordinateSystem s)
{
  return s == CoordinateSystem::NED || s == CoordinateSystem::NWU || s == CoordinateSystem::ENU;
}

bool isKnown(CoordinateSystem s) { return static_cast<int>(s) >= 1 && static_cast<int>(s) <= 8; }

} // namespace

struct CoordinateConverter::EcefState
{
  Vec3 position;
  Vec3 velocity;
  Vec3 acceleration;
  Mat3 bodyFromEcef = Mat3::identity();
  bool hasOrientation = false;
  bool hasVelocity = false;
  bool hasAcceleration = false;
  double elapsedEciTime = 0.0;
};

CoordinateConverter::CoordinateConverter() { setReferenceOrigin(0.0, 0.0, 0.0); }

void CoordinateConverter::setReferenceOrigin(double lat, double lon, double alt)
{
  refLat_ = lat;
  refLon_ = lon;
  refAlt_ = alt;
  convertGeodeticPosToEcef({lat, lon, alt}, refEcef_);
  setLocalToEarthMatrix(lat, lon, refNedFromEcef_);
  const double a = GeographicLib::Constants::WGS84_a();
  const double f = GeographicLib::Constants::WGS84_f();
  const double e2 = f * (2.0 - f);
  const double s = std::sin(lat);
  const double w = 1.0 - e2 * s * s;
  primeVerticalRadius_ = a / std::sqrt(w);
  meridianRadius_ = a * (1.0 - e2) / (w * std::sqrt(w));
}

void CoordinateConverter::setTangentPlaneOffsets(double x, double y, double angle)
{
  tpX_ = x;
  tpY_ = y;
  tpAngle_ = angle;
}

void CoordinateConverter::setLocalToEarthMatrix(double lat, double lon, double matrix[3][3])
{
  const double sl = std::sin(lat), cl = std::cos(lat);
  const double so = std::sin(lon), co = std::cos(lon);
  const double rows[3][3] = {{-sl * co, -sl * so, cl}, {-so, co, 0.0}, {-cl * co, -cl * so, -sl}};
  std::copy(&rows[0][0], &rows[0][0] + 9, &matrix[0][0]);
}

void CoordinateConverter::convertEcefToGeodeticPos(const Vec3& ecef, Vec3& lla)
{
  double lat = 0, lon = 0, alt = 0;
  GeographicLib::Geocentric::WGS84().Reverse(ecef.x, ecef.y, ecef.z, lat, lon, alt);
  lla = {lat * DEG2RAD, lon * DEG2RAD, alt};
}

void CoordinateConverter::convertGeodeticPosToEcef(const Vec3& lla, Vec3& ecef)
{
  GeographicLib::Geocentric::WGS84().Forward(lla.x * RAD2DEG, lla.y * RAD2DEG, lla.z, ecef.x, ecef.y, ecef.z);
}

int CoordinateConverter::convert(const Coordinate& in, Coordinate& out, CoordinateSystem system) const
{
  if (!isKnown(in.coordinateSystem()) || !isKnown(system))
    return 1;
  if (in.coordinateSystem() == system)
  {
    out = in;
    return 0;
  }
  // Flat-earth systems are defined on latitude and longitude, so they meet LLA directly.
  const bool geodeticOnly = (in.coordinateSystem() == CoordinateSystem::LLA || isFlatEarth(in.coordinateSystem())) &&
                            (system == CoordinateSystem::LLA || isFlatEarth(system));
  if (geodeticOnly)
  {
    Coordinate lla;
    toLla_(in, lla);
    return fromLla_(lla, out, system);
  }
  EcefState state;
  toEcef_(in, state);
  fromEcef_(state, out, system);
  return 0;
}

int CoordinateConverter::toLla_(const Coordinate& in, Coordinate& lla) const
{
  lla = in;
  lla.setCoordinateSystem(CoordinateSystem::LLA);
  if (!isFlatEarth(in.coordinateSystem()))
    return 0;
  const Vec3 neu = flatToNeu(in.coordinateSystem(), in.position());
  const double cosLat = std::max(std::cos(refLat_), MIN_COS_LATITUDE);
  lla.setPosition({refLat_ + neu.x / meridianRadius_,
                   angFix(refLon_ + neu.y / (primeVerticalRadius_ * cosLat), AngleExtents::PI), refAlt_ + neu.z});
  if (in.hasVelocity())
    lla.setVelocity(flatToEnuVector(in.coordinateSystem(), in.velocity()));
  if (in.hasAcceleration())
    lla.setAcceleration(flatToEnuVector(in.coordinateSystem(), in.acceleration()));
  return 0;
}

int CoordinateConverter::fromLla_(const Coordinate& lla, Coordinate& out, CoordinateSystem system) const
{
  Coordinate result = lla;
  result.setCoordinateSystem(system);
  if (isFlatEarth(system))
  {
    const Vec3& p = lla.position();
    const double cosLat = std::max(std::cos(refLat_), MIN_COS_LATITUDE);
    // The longitude difference is folded so that a track across the date line stays continuous.
    const Vec3 neu{(p.x - refLat_) * meridianRadius_,
                   angFix(p.y - refLon_, AngleExtents::PI) * primeVerticalRadius_ * cosLat, p.z - refAlt_};
    result.setPosition(neuToFlat(system, neu));
    if (lla.hasVelocity())
      result.setVelocity(enuToFlatVector(system, lla.velocity()));
    if (lla.hasAcceleration())
      result.setAcceleration(enuToFlatVector(system, lla.acceleration()));
  }
  out = result;
  return 0;
}

bool CoordinateConverter::toEcef_(const Coordinate& in, EcefState& state) const
{
  Coordinate source = in;
  if (isFlatEarth(in.coordinateSystem()))
    toLla_(in, source);
  state.elapsedEciTime = in.elapsedEciTime();
  state.hasOrientation = source.hasOrientation();
  state.hasVelocity = source.hasVelocity();
  state.hasAcceleration = source.hasAcceleration();
  const Vec3& p = source.position();
  Mat3 ecefFromSystem = Mat3::identity();         // turns vectors of the system into ECEF
  Mat3 levelFromEcef = Mat3::identity();          // ECEF into the frame the Euler angles refer to
  switch (source.coordinateSystem())
  {
  case CoordinateSystem::LLA: {
    convertGeodeticPosToEcef(p, state.position);
    levelFromEcef = Mat3::nedFromEcef(p.x, p.y);
    ecefFromSystem = (NED_FROM_ENU * levelFromEcef).transposed();
    break;
  }
  case CoordinateSystem::ECEF:
    state.position = p;
    break;
  case CoordinateSystem::ECI: {
    const Mat3 ecefFromEci = Mat3::rotZ(EARTH_ROTATION_RATE * in.elapsedEciTime()).transposed();
    state.position = ecefFromEci * p;
    ecefFromSystem = ecefFromEci;
    levelFromEcef = ecefFromEci.transposed();
    break;
  }
  case CoordinateSystem::XEAST:
  case CoordinateSystem::GTP: {
    const Mat3 refNed = Mat3::of(refNedFromEcef_);
    const Mat3 ecefFromTangent = (NED_FROM_ENU * refNed).transposed();
    Mat3 tangentFromSystem = Mat3::identity();
    Vec3 tangent = p;
    if (source.coordinateSystem() == CoordinateSystem::GTP)
    {
      tangentFromSystem = Mat3::rotZ(tpAngle_);
      tangent = tangentFromSystem * p + Vec3(tpX_, tpY_, 0.0);
    }
    state.position = refEcef_ + ecefFromTangent * tangent;
    ecefFromSystem = ecefFromTangent * tangentFromSystem;
    // The Euler angles refer to the system's own north-east-down.
    levelFromEcef = NED_FROM_ENU * ecefFromSystem.transposed();
    break;
  }
  default:
    return false;
  }
  if (state.hasVelocity)
    state.velocity = ecefFromSystem * source.velocity();
  if (state.hasAcceleration)
    state.acceleration = ecefFromSystem * source.acceleration();
  if (source.coordinateSystem() == CoordinateSystem::ECI && state.hasVelocity)
    state.velocity -= Vec3(0, 0, EARTH_ROTATION_RATE).cross(state.position);
  if (state.hasOrientation)
    state.bodyFromEcef = Mat3::fromEuler(source.orientation()) * levelFromEcef;
  return true;
}

bool CoordinateConverter::fromEcef_(const EcefState& state, Coordinate& out, CoordinateSystem system) const
{
  Coordinate result;
  result.setElapsedEciTime(state.elapsedEciTime);
  Mat3 systemFromEcef = Mat3::identity();
  Mat3 levelFromEcef = Mat3::identity();
  CoordinateSystem target = isFlatEarth(system) ? CoordinateSystem::LLA : system;
  switch (target)
  {
  case CoordinateSystem::LLA: {
    Vec3 lla;
    convertEcefToGeodeticPos(state.position, lla);
    result.setPosition(lla);
    levelFromEcef = Mat3::nedFromEcef(lla.x, lla.y);
    systemFromEcef = NED_FROM_ENU * levelFromEcef;
    break;
  }
  case CoordinateSystem::ECEF:
    result.setPosition(state.position);
    break;
  case CoordinateSystem::ECI: {
    const Mat3 eciFromEcef = Mat3::rotZ(EARTH_ROTATION_RATE * state.elapsedEciTime);
    result.setPosition(eciFromEcef * state.position);
    systemFromEcef = eciFromEcef;
    levelFromEcef = eciFromEcef;
    break;
  }
  case CoordinateSystem::XEAST:
  case CoordinateSystem::GTP: {
    const Mat3 refNed = Mat3::of(refNedFromEcef_);
    const Mat3 tangentFromEcef = NED_FROM_ENU * refNed;
    Vec3 tangent = tangentFromEcef * (state.position - refEcef_);
    systemFromEcef = tangentFromEcef;
    if (target == CoordinateSystem::GTP)
    {
      const Mat3 systemFromTangent = Mat3::rotZ(tpAngle_).transposed();
      tangent = systemFromTangent * (tangent - Vec3(tpX_, tpY_, 0.0));
      systemFromEcef = systemFromTangent * tangentFromEcef;
    }
    result.setPosition(tangent);
    levelFromEcef = NED_FROM_ENU * systemFromEcef;
    break;
  }
  default:
    return false;
  }
  result.setCoordinateSystem(target);
  if (state.hasVelocity)
  {
    Vec3 velocity = state.velocity;
    if (target == CoordinateSystem::ECI)
      velocity += Vec3(0, 0, EARTH_ROTATION_RATE).cross(state.position);
    result.setVelocity(systemFromEcef * velocity);
  }
  if (state.hasAcceleration)
    result.setAcceleration(systemFromEcef * state.acceleration);
  if (state.hasOrientation)
    result.setOrientation((state.bodyFromEcef * levelFromEcef.transposed()).toEuler());
  if (target != system)
    return fromLla_(result, out, system) == 0;
  out = result;
  return true;
}

} // namespace kelCore
