#include "kelCore/Angle.h"
#include "kelCore/CoordinateConverter.h"
#include "kelCore/VectorMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace kelCore;

namespace
{

constexpr double DEG = M_PI / 180.0;
constexpr double WGS84_A = 6378137.0;
constexpr double WGS84_B = 6356752.314245179;
const std::vector<CoordinateSystem> ALL_SYSTEMS = {CoordinateSystem::NED,  CoordinateSystem::NWU,
                                                    CoordinateSystem::ENU,  CoordinateSystem::LLA,
                                                    CoordinateSystem::ECEF, CoordinateSystem::ECI,
                                                    CoordinateSystem::XEAST, CoordinateSystem::GTP};

// Metres between two LLA positions, near enough for millimetre checks.
double llaDistance(const Vec3& a, const Vec3& b)
{
  Vec3 ea, eb;
  CoordinateConverter::convertGeodeticPosToEcef(a, ea);
  CoordinateConverter::convertGeodeticPosToEcef(b, eb);
  return (ea - eb).length();
}

void expectSameState(const Coordinate& expected, const Coordinate& actual, const std::string& what)
{
  ASSERT_EQ(expected.coordinateSystem(), actual.coordinateSystem()) << what;
  EXPECT_LT(llaDistance(expected.position(), actual.position()), 1e-3) << what;
  ASSERT_TRUE(actual.hasOrientation()) << what;
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(areAnglesEqual(expected.orientation()[i], actual.orientation()[i], 1e-9))
        << what << " angle " << i << ": " << expected.orientation()[i] << " vs " << actual.orientation()[i];
  ASSERT_TRUE(actual.hasVelocity()) << what;
  EXPECT_LT((expected.velocity() - actual.velocity()).length(), 1e-9) << what;
}

class CoordinateConversion : public ::testing::Test
{
protected:
  void SetUp() override
  {
    converter.setReferenceOrigin(35.0 * DEG, -117.0 * DEG, 700.0);
    converter.setTangentPlaneOffsets(250.0, -400.0, 20.0 * DEG);
  }
  CoordinateConverter converter;
};

TEST_F(CoordinateConversion, KnownEarthPositions)
{
  const struct
  {
    Vec3 lla;
    Vec3 ecef;
  } known[] = {
    {{0, 0, 0}, {WGS84_A, 0, 0}},
    {{0, M_PI, 0}, {-WGS84_A, 0, 0}},
    {{0, 90 * DEG, 100}, {0, WGS84_A + 100, 0}},
    {{90 * DEG, 0, 0}, {0, 0, WGS84_B}},
    {{-90 * DEG, 0, 0}, {0, 0, -WGS84_B}},
  };
  for (const auto& k : known)
  {
    Coordinate out;
    ASSERT_EQ(0, converter.convert(Coordinate(CoordinateSystem::LLA, k.lla), out, CoordinateSystem::ECEF));
    EXPECT_LT((out.position() - k.ecef).length(), 1e-6) << k.lla.x << "," << k.lla.y;
    ASSERT_EQ(0, converter.convert(Coordinate(CoordinateSystem::ECEF, k.ecef), out, CoordinateSystem::LLA));
    EXPECT_NEAR(k.lla.x, out.position().x, 1e-12);
    EXPECT_NEAR(k.lla.z, out.position().z, 1e-6);
  }
}

TEST_F(CoordinateConversion, ReferenceOriginIsTheZeroOfEveryLocalSystem)
{
  const Coordinate origin(CoordinateSystem::LLA, {35.0 * DEG, -117.0 * DEG, 700.0});
  converter.setTangentPlaneOffsets(0, 0, 0);
  for (CoordinateSystem s : {CoordinateSystem::NED, CoordinateSystem::NWU, CoordinateSystem::ENU,
                             CoordinateSystem::XEAST, CoordinateSystem::GTP})
  {
    Coordinate out;
    converter.convert(origin, out, s);
    EXPECT_LT(out.position().length(), 1e-6) << static_cast<int>(s);
  }
}

TEST_F(CoordinateConversion, FlatEarthScalesByTheRadiiOfCurvatureAtTheOrigin)
{
  // One kilometre north and east of the origin, and 50 m up.
  Coordinate ned(CoordinateSystem::NED, {1000.0, 1000.0, -50.0});
  Coordinate lla;
  converter.convert(ned, lla, CoordinateSystem::LLA);
  const double lat0 = 35.0 * DEG;
  const double e2 = 0.0066943799901413165;
  const double w = 1 - e2 * std::sin(lat0) * std::sin(lat0);
  const double meridian = WGS84_A * (1 - e2) / std::pow(w, 1.5);
  const double primeVertical = WGS84_A / std::sqrt(w);
  EXPECT_NEAR(lat0 + 1000.0 / meridian, lla.position().x, 1e-15);
  EXPECT_NEAR(-117.0 * DEG + 1000.0 / (primeVertical * std::cos(lat0)), lla.position().y, 1e-15);
  EXPECT_NEAR(750.0, lla.position().z, 1e-9);

  Coordinate enu, nwu;
  converter.convert(ned, enu, CoordinateSystem::ENU);
  converter.convert(ned, nwu, CoordinateSystem::NWU);
  EXPECT_LT((enu.position() - Vec3(1000, 1000, 50)).length(), 1e-9);
  EXPECT_LT((nwu.position() - Vec3(1000, -1000, 50)).length(), 1e-9);
}

TEST_F(CoordinateConversion, FlatEarthStaysContinuousAcrossTheDateLine)
{
  converter.setReferenceOrigin(0.0, 179.99 * DEG, 0.0);
  Coordinate east;
  converter.convert(Coordinate(CoordinateSystem::LLA, {0.0, -179.99 * DEG, 0.0}), east, CoordinateSystem::ENU);
  EXPECT_NEAR(0.02 * DEG * WGS84_A, east.position().x, 1e-3) << "a point just across the line lies just east";
  Coordinate back;
  converter.convert(east, back, CoordinateSystem::LLA);
  EXPECT_NEAR(-179.99 * DEG, back.position().y, 1e-12);
}

TEST_F(CoordinateConversion, EveryPairOfSystemsConvertsAndComesBack)
{
  const std::vector<Coordinate> samples = {
    {CoordinateSystem::LLA, {35.01 * DEG, -116.98 * DEG, 1500.0}, {30 * DEG, 5 * DEG, -2 * DEG}, {120.0, -40.0, 3.0}, 3600.0},
    {CoordinateSystem::LLA, {34.9 * DEG, -117.2 * DEG, 10.0}, {-170 * DEG, -20 * DEG, 45 * DEG}, {-5.0, 0.0, -1.0}, 0.0},
    {CoordinateSystem::LLA, {35.0 * DEG, -117.0 * DEG, 700.0}, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, 86400.0},
  };
  for (const Coordinate& lla : samples)
  {
    for (CoordinateSystem from : ALL_SYSTEMS)
    {
      Coordinate a;
      ASSERT_EQ(0, converter.convert(lla, a, from));
      for (CoordinateSystem to : ALL_SYSTEMS)
      {
        const std::string what = std::to_string(static_cast<int>(from)) + "->" + std::to_string(static_cast<int>(to));
        Coordinate b, backToFrom, backToLla;
        ASSERT_EQ(0, converter.convert(a, b, to)) << what;
        EXPECT_EQ(to, b.coordinateSystem()) << what;
        converter.convert(b, backToFrom, from);
        converter.convert(backToFrom, backToLla, CoordinateSystem::LLA);
        expectSameState(lla, backToLla, what);
        Coordinate direct;
        converter.convert(b, direct, CoordinateSystem::LLA);
        expectSameState(lla, direct, what + " then LLA");
      }
    }
  }
}

TEST_F(CoordinateConversion, EciTurnsWithTheEarthAfterElapsedTime)
{
  const double elapsed = 6 * 3600.0;
  const double theta = EARTH_ROTATION_RATE * elapsed;
  Coordinate ecef(CoordinateSystem::ECEF, {WGS84_A, 0, 0}, {0, 0, 0}, {0, 0, 0}, elapsed);
  Coordinate eci;
  converter.convert(ecef, eci, CoordinateSystem::ECI);
  EXPECT_LT((eci.position() - Vec3(WGS84_A * std::cos(theta), WGS84_A * std::sin(theta), 0)).length(), 1e-6);
  // A point at rest on the earth moves in ECI with the earth's surface.
  const double speed = EARTH_ROTATION_RATE * WGS84_A;
  EXPECT_LT((eci.velocity() - Vec3(-speed * std::sin(theta), speed * std::cos(theta), 0)).length(), 1e-9);
  EXPECT_NEAR(theta, eci.orientation().x, 1e-12) << "the body keeps its heading on the earth";

  Coordinate atEpoch;
  ecef.setElapsedEciTime(0.0);
  converter.convert(ecef, atEpoch, CoordinateSystem::ECI);
  EXPECT_LT((atEpoch.position() - ecef.position()).length(), 1e-9);
}

TEST_F(CoordinateConversion, GenericTangentPlaneIsMovedAndTurnedFromXEast)
{
  converter.setTangentPlaneOffsets(100.0, 0.0, M_PI_2);
  Coordinate xeast(CoordinateSystem::XEAST, {100.0, 10.0, 5.0}, {0.0, 0.0, 0.0}, {0.0, 7.0, 0.0});
  Coordinate gtp;
  converter.convert(xeast, gtp, CoordinateSystem::GTP);
  EXPECT_LT((gtp.position() - Vec3(10.0, 0.0, 5.0)).length(), 1e-9);
  EXPECT_LT((gtp.velocity() - Vec3(7.0, 0.0, 0.0)).length(), 1e-12);
  EXPECT_NEAR(M_PI_2, gtp.orientation().x, 1e-12) << "north is a quarter turn clockwise of the GTP's y axis";
}

TEST_F(CoordinateConversion, OrientationInEcefAtTheEquator)
{
  // Level and facing north at latitude 0, longitude 0: the nose points along ECEF +z.
  Coordinate lla(CoordinateSystem::LLA, {0, 0, 0}, {0, 0, 0});
  Coordinate ecef;
  converter.convert(lla, ecef, CoordinateSystem::ECEF);
  EXPECT_NEAR(-M_PI_2, ecef.orientation().y, 1e-9);
}

TEST_F(CoordinateConversion, UnknownSystemsAreRefusedAndLeaveTheOutputAlone)
{
  Coordinate out(CoordinateSystem::ECEF, {1, 2, 3});
  EXPECT_EQ(1, converter.convert(Coordinate(CoordinateSystem::NONE, {0, 0, 0}), out, CoordinateSystem::LLA));
  EXPECT_EQ(1, converter.convert(Coordinate(CoordinateSystem::LLA, {0, 0, 0}), out, static_cast<CoordinateSystem>(9)));
  EXPECT_EQ(Vec3(1, 2, 3), out.position());
}

TEST_F(CoordinateConversion, PositionOnlyStaysPositionOnly)
{
  Coordinate out;
  converter.convert(Coordinate(CoordinateSystem::LLA, {0.1, 0.2, 3.0}), out, CoordinateSystem::GTP);
  EXPECT_FALSE(out.hasOrientation());
  EXPECT_FALSE(out.hasVelocity());
  EXPECT_FALSE(out.hasAcceleration());
}

} // namespace
