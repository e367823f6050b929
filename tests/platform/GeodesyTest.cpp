#include "kelCore/CoordinateConverter.h"
#include "kelCore/Geodesy.h"
#include "kelCore/VectorMath.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kelCore;

namespace
{

constexpr double DEG = M_PI / 180.0;

TEST(Geodesy, VelocityFromTwoPositionsIsEastNorthUp)
{
  const Vec3 start{10 * DEG, 20 * DEG, 1000.0};
  Coordinate moved;
  CoordinateConverter converter;
  converter.setReferenceOrigin(start.x, start.y, start.z);
  converter.convert(Coordinate(CoordinateSystem::ENU, {0.0, 1000.0, 20.0}), moved, CoordinateSystem::LLA);
  Vec3 velocity;
  ASSERT_EQ(0, calculateVelFromGeodeticPos(moved.position(), start, 10.0, velocity));
  // Flat-earth north is scaled at sea level while the track flies at 700 m, hence the slack.
  EXPECT_NEAR(0.0, velocity.x, 1e-3);
  EXPECT_NEAR(100.0, velocity.y, 5e-2);
  EXPECT_NEAR(2.0, velocity.z, 1e-2);

  Vec3 climb;
  calculateVelFromGeodeticPos({start.x, start.y, start.z + 50.0}, start, 5.0, climb);
  EXPECT_LT((climb - Vec3(0.0, 0.0, 10.0)).length(), 1e-9);

  Vec3 untouched{1, 2, 3};
  EXPECT_EQ(1, calculateVelFromGeodeticPos(moved.position(), start, 0.0, untouched));
  EXPECT_EQ(Vec3(), untouched);
}

TEST(Geodesy, FlightPathAnglesOfAVelocity)
{
  Vec3 angles;
  calculateFlightPathAngles({10.0, 0.0, 0.0}, angles);
  EXPECT_NEAR(M_PI_2, angles.x, 1e-15);
  calculateFlightPathAngles({-10.0, 0.0, 0.0}, angles);
  EXPECT_NEAR(3 * M_PI_2, angles.x, 1e-15) << "west is 270 degrees, not -90";
  calculateFlightPathAngles({0.0, 10.0, 10.0}, angles);
  EXPECT_NEAR(0.0, angles.x, 1e-15);
  EXPECT_NEAR(M_PI_4, angles.y, 1e-15);
  EXPECT_EQ(0.0, angles.z);
  calculateFlightPathAngles({0.0, 0.0, 0.0}, angles);
  EXPECT_EQ(Vec3(0, 0, 0), angles);
}

TEST(Geodesy, GroundDistanceAndAzimuthsOnTheEllipsoid)
{
  double azimuth = 0, back = 0;
  const double d = calculateGroundDist({0, 0, 500}, {0, 1 * DEG, 0}, &azimuth, &back);
  EXPECT_NEAR(111319.490793, d, 1e-5) << "one degree of the equator";
  EXPECT_NEAR(M_PI_2, azimuth, 1e-12);
  EXPECT_NEAR(3 * M_PI_2, back, 1e-12);
  EXPECT_NEAR(0.0, calculateGroundDist({0.5, 0.5, 0}, {0.5, 0.5, 0}), 1e-9);
  // Across the date line the short way round.
  EXPECT_NEAR(2 * 111319.490793 / 10, calculateGroundDist({0, 179.9 * DEG, 0}, {0, -179.9 * DEG, 0}), 1e-3);
}

TEST(Geodesy, SodanoInverseRaisesTheEllipsoidToTheFirstAltitude)
{
  double azimuth = -1;
  const double ground = sodanoInverse(0, 0, 0, 0, 1 * DEG, &azimuth);
  const double raised = sodanoInverse(0, 0, 10000.0, 0, 1 * DEG);
  EXPECT_NEAR(111319.490793, ground, 1e-5);
  EXPECT_NEAR(ground * (6378137.0 + 10000.0) / 6378137.0, raised, 1e-3);
  EXPECT_NEAR(M_PI_2, azimuth, 1e-12);
}

TEST(VectorMath, AngleBetweenVectorsIsDefinedForEveryPair)
{
  EXPECT_EQ(0.0, v3Angle({0, 0, 0}, {1, 0, 0})) << "identical positions give a zero vector";
  EXPECT_NEAR(M_PI_2, v3Angle({1, 0, 0}, {0, 5, 0}), 1e-15);
  EXPECT_NEAR(M_PI, v3Angle({1, 0, 0}, {-2, 0, 0}), 1e-15);
  EXPECT_NEAR(1e-9, v3Angle({1, 0, 0}, {1, 1e-9, 0}), 1e-20) << "accurate for nearly parallel vectors";
}

TEST(VectorMath, EulerAnglesSurviveTheirDirectionCosineMatrix)
{
  const double euler[3] = {2.5, -0.4, 1.1};
  double dcm[3][3], back[3];
  d3EulertoDCM(euler, dcm);
  d3DCMtoEuler(dcm, back);
  for (int i = 0; i < 3; ++i)
    EXPECT_NEAR(euler[i], back[i], 1e-12);

  double product[3][3];
  double transposed[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      transposed[i][j] = dcm[j][i];
  d3MMmult(dcm, transposed, product);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      EXPECT_NEAR(i == j ? 1.0 : 0.0, product[i][j], 1e-15);
  d3MMmult(dcm, transposed, dcm);
  EXPECT_NEAR(1.0, dcm[0][0], 1e-15) << "the product may overwrite an operand";
}

TEST(VectorMath, LocalToEarthMatrixTakesEcefIntoNorthEastDown)
{
  double m[3][3];
  CoordinateConverter::setLocalToEarthMatrix(0.0, 0.0, m);
  // At latitude 0, longitude 0: north is ECEF +z, east is +y, down is -x.
  EXPECT_NEAR(1.0, m[0][2], 1e-15);
  EXPECT_NEAR(1.0, m[1][1], 1e-15);
  EXPECT_NEAR(-1.0, m[2][0], 1e-15);
}

} // namespace
