#include "host/GenericDataTags.h"
#include "host/PIBeamHeader.h"
#include "host/PICustomRenderingHeader.h"
#include "host/PIGateHeader.h"
#include "host/PILaserHeader.h"
#include "host/PILobDrawStyle.h"
#include "host/PILobHeader.h"
#include "host/PIPlatformHeader.h"
#include "host/PIPlatformPoint.h"
#include "host/PIProjectorHeader.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/PI_DATA_STRUCT.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace
{

void expectStamp(const PI_DATA_BASE_CLASS& record)
{
  const int expected[] = {0, 0, 2, 2, 2, 2, 2, 2, 0};
  for (int i = 0; i < PI_DATA_BASE_CLASS::STAMP_SIZE; ++i)
    EXPECT_EQ(expected[i], record.stamp()[i]) << i;
}

TEST(ScenarioRecords, EveryRecordCarriesItsOwnLayoutStamp)
{
  PIData::PI_DATA_STRUCT entity;
  PI_DATA_CATCHALL catchall = PI_DATA_CATCHALL::withSelector(4);
  expectStamp(entity);
  expectStamp(catchall);

  PI_DATA_CATCHALL copy = catchall;
  copy = catchall;
  expectStamp(copy);
  EXPECT_NE(copy.stamp(), catchall.stamp());
  EXPECT_EQ((std::vector<std::int64_t>{4, 0}), copy.integers);
}

TEST(ScenarioRecords, EntityRequestDefaultsMarkUnsetArguments)
{
  PIData::PI_DATA_STRUCT r;
  EXPECT_EQ(0u, r.entityId);
  EXPECT_EQ(0u, r.secondId);
  EXPECT_EQ(PI_INVALID_DOUBLE, r.double1);
  EXPECT_EQ(PI_INVALID_DOUBLE, r.double2);
  EXPECT_EQ(PI_INVALID_DOUBLE, r.double3);
  EXPECT_EQ(nullptr, r.pointer1);
  EXPECT_EQ(0, r.status);
  EXPECT_EQ(0.0, r.time);
  EXPECT_EQ(0, r.objectType);
}

TEST(ScenarioRecords, FrameDefaultsToLlaWithTheScenarioOrigin)
{
  PIData::PICoordReferenceFrame frame;
  EXPECT_EQ(PI_COORDSYS_LLA, frame.coordinateSystem);
  EXPECT_TRUE(frame.usesScenarioOrigin());
  EXPECT_EQ(1, frame.verticalDatum);
  EXPECT_EQ(1, frame.magneticVariance);

  frame.altOrigin = 0.0;
  EXPECT_FALSE(frame.usesScenarioOrigin()) << "an origin with any value set is the frame's own";
  EXPECT_NE(frame, PIData::PICoordReferenceFrame());
}

TEST(ScenarioRecords, PointsCarryNoOrientationVelocityOrAccelerationUnlessSet)
{
  PIData::PIPlatformPoint point;
  EXPECT_EQ(PI_INVALID_POINT, point.orientation);
  EXPECT_EQ(PI_INVALID_POINT, point.velocity);
  EXPECT_EQ(PI_INVALID_POINT, point.acceleration);
  EXPECT_TRUE(point.frame.usesScenarioOrigin());
}

TEST(ScenarioRecords, HeadersHaveTheHostsDefaults)
{
  EXPECT_EQ("Unknown", PIData::PIPlatformHeader().name);
  EXPECT_EQ("UnknownV.png", PIData::PIPlatformHeader().iconFile);
  PIData::PIBeamHeader beam;
  EXPECT_EQ("UNKNOWN", beam.name);
  EXPECT_EQ(PI_INVALID_DOUBLE, beam.horizontalBeamWidth) << "not the 5 degrees of a newly added beam";
  EXPECT_EQ(PI_INVALID_DOUBLE, beam.verticalBeamWidth);
  EXPECT_EQ(0, beam.beamType);
  EXPECT_EQ("UNKNOWN", PIData::PIGateHeader().name);
  EXPECT_EQ("", PIData::PILaserHeader().name);
  EXPECT_FALSE(PIData::PILaserHeader().relative);
  EXPECT_EQ(2, PIData::PILobHeader().lobType);
  EXPECT_EQ("Unknown", PIData::PIProjectorHeader().name);
  EXPECT_EQ("Unknown", PIData::PICustomRenderingHeader().renderer);

  PIData::PILobDrawStyle style;
  EXPECT_EQ(0x00FF00FFu, style.color1);
  EXPECT_EQ(0xFF0000FFu, style.color2);
  EXPECT_EQ(0xFF00, style.stipple1);
  EXPECT_EQ(0x00FF, style.stipple2);
  EXPECT_EQ(2, style.pixelWidth);
}

TEST(ScenarioRecords, HostTagsAreDistinctAndCarryTheHostPrefix)
{
  std::set<std::string> tags(std::begin(KELVOR_GD_ALL_TAGS), std::end(KELVOR_GD_ALL_TAGS));
  EXPECT_EQ(29u, tags.size());
  for (const std::string& tag : tags)
    EXPECT_TRUE(tag == KELVOR_GD_CLEAR || tag.rfind(KELVOR_GD_KEYWORD, 0) == 0) << tag;
  EXPECT_STREQ("KELVOR_TrackColor", KELVOR_GD_TRACKCOLOR);
  EXPECT_STREQ("arialbd.ttf 50", GENDATA_TITLEFONT);
}

} // namespace
