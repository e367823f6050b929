#include "kelCore/CoordinateConverter.h"
#include "kelData/LinearInterpolator.h"
#include "kelData/MemoryDataSlice.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kelData;

namespace
{

PlatformUpdate at(double time, double lat, double lon, double alt)
{
  kelCore::Vec3 ecef;
  kelCore::CoordinateConverter::convertGeodeticPosToEcef({lat, lon, alt}, ecef);
  PlatformUpdate u;
  u.setTime(time);
  u.setPosition(ecef.x, ecef.y, ecef.z);
  return u;
}

TEST(PlatformInterpolation, SliceKeepsTimeOrderAndTheLaterOfEqualTimes)
{
  MemoryDataSlice<PlatformUpdate> slice;
  for (double t : {5.0, 1.0, 3.0, 9.0})
    slice.insert(at(t, 0, 0, t));
  slice.insert(at(3.0, 0, 0, 33.0));
  ASSERT_EQ(4u, slice.size());
  EXPECT_EQ(1.0, slice.firstTime());
  EXPECT_EQ(9.0, slice.lastTime());
  double previous = -1;
  for (const PlatformUpdate& u : slice)
  {
    EXPECT_GT(u.time(), previous);
    previous = u.time();
  }
  kelCore::Vec3 lla;
  kelCore::CoordinateConverter::convertEcefToGeodeticPos({slice.at(1).x(), slice.at(1).y(), slice.at(1).z()}, lla);
  EXPECT_NEAR(33.0, lla.z, 1e-6) << "the later of two equal times survives";
  EXPECT_EQ(5.0, slice.upperBound(3.0)->time());
  EXPECT_EQ(slice.end(), slice.upperBound(9.0));
  EXPECT_EQ(slice.begin(), slice.upperBound(0.5));
}

TEST(PlatformInterpolation, AltitudeIsLinearWhereTheChordWouldDip)
{
  // Ten degrees apart at one altitude: the straight ECEF chord sags tens of kilometres.
  PlatformUpdate before = at(0.0, 0.0, 0.0, 1000.0);
  PlatformUpdate after = at(10.0, 0.0, 10.0 * M_PI / 180.0, 1000.0);
  PlatformUpdate mid;
  ASSERT_TRUE(LinearInterpolator().interpolate(5.0, before, after, &mid));
  kelCore::Vec3 lla;
  kelCore::CoordinateConverter::convertEcefToGeodeticPos({mid.x(), mid.y(), mid.z()}, lla);
  EXPECT_NEAR(1000.0, lla.z, 1e-6);
  EXPECT_NEAR(5.0 * M_PI / 180.0, lla.y, 1e-9);
  EXPECT_EQ(5.0, mid.time());
}

TEST(PlatformInterpolation, AnglesTakeTheShorterArcAndUnsetGroupsStayUnset)
{
  PlatformUpdate before = at(0.0, 0, 0, 0);
  PlatformUpdate after = at(2.0, 0, 0, 0);
  before.setOrientation(static_cast<float>(350 * M_PI / 180), 0.1f, 0.0f);
  after.setOrientation(static_cast<float>(10 * M_PI / 180), 0.3f, 0.0f);
  before.setVelocity(0.0f, 10.0f, 0.0f);
  PlatformUpdate mid;
  ASSERT_TRUE(LinearInterpolator().interpolate(1.0, before, after, &mid));
  EXPECT_NEAR(0.0, mid.yaw(), 1e-6);
  EXPECT_NEAR(0.2f, mid.pitch(), 1e-6);
  EXPECT_FALSE(mid.hasVelocity()) << "one side without velocity leaves it unset";

  after.setVelocity(0.0f, 20.0f, 4.0f);
  LinearInterpolator().interpolate(0.5, before, after, &mid);
  EXPECT_FLOAT_EQ(12.5f, mid.vy());
  EXPECT_FLOAT_EQ(1.0f, mid.vz());

  EXPECT_FALSE(LinearInterpolator().interpolate(1.0, before, before, &mid));
  EXPECT_FALSE(LinearInterpolator().interpolate(1.0, before, after, nullptr));
}

} // namespace
