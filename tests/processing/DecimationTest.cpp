#include "actions/DecimateAction.h"
#include "actions/DecimateDialog.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "processing/ByPointDecimation.h"
#include "processing/ByTimeDecimation.h"
#include "processing/CullAngleDecimation.h"
#include "processing/DistanceDecimation.h"
#include "processing/PUCullAngleDecimation.h"
#include "processing/VisvalingamDecimation.h"
#include "support/ServerFixture.h"

#include <cmath>

using namespace QtSep;

namespace
{

/// A point of an earth-centred track, metres.
PIData::PIPlatformPoint at(double time, double x, double y = 0.0, double z = 0.0)
{
  PIData::PIPlatformPoint point;
  point.time = time;
  point.position = {x, y, z};
  point.frame.coordinateSystem = PI_COORDSYS_ECEF;
  return point;
}

/// A track along x, one point a second, 100 m apart.
std::vector<PIData::PIPlatformPoint> straight(int count)
{
  std::vector<PIData::PIPlatformPoint> track;
  for (int i = 0; i < count; ++i)
    track.push_back(at(i, 100.0 * i));
  return track;
}

std::vector<double> timesOf(DecimateAlgorithm& algorithm, const std::vector<PIData::PIPlatformPoint>& in,
                            int* status = nullptr)
{
  std::vector<PIData::PIPlatformPoint> out;
  const int result = algorithm.execute_(in, out);
  if (status)
    *status = result;
  std::vector<double> times;
  for (const auto& p : out)
    times.push_back(p.time);
  return times;
}

} // namespace

TEST(Decimation, ByPointKeepsEveryNthAndOptionallyTheLast)
{
  ByPointDecimation byPoint;
  byPoint.setKeepEveryNumPoints(2);
  EXPECT_EQ((std::vector<double>{0, 2, 4}), timesOf(byPoint, straight(5)));
  EXPECT_EQ((std::vector<double>{0, 2, 4, 5}), timesOf(byPoint, straight(6)));
  EXPECT_EQ((std::vector<double>{0, 1}), timesOf(byPoint, straight(2))) << "the last of two through keep-last";
  byPoint.setKeepEveryNumPoints(5);
  byPoint.setKeepLastPoint(false);
  EXPECT_EQ((std::vector<double>{0}), timesOf(byPoint, straight(5))) << "N equal to the length";
  byPoint.setKeepEveryNumPoints(0);
  EXPECT_EQ(1u, byPoint.keepEveryNumPoints());
  int status = 0;
  timesOf(byPoint, {}, &status);
  EXPECT_EQ(1, status);
}

TEST(Decimation, ByTimePicksOrResamples)
{
  ByTimeDecimation byTime;
  byTime.setMinimumDataInterval(2.0);
  EXPECT_EQ((std::vector<double>{0, 2, 4, 5}), timesOf(byTime, straight(6)));
  EXPECT_EQ((std::vector<double>{0, 2, 3}), timesOf(byTime, {at(0, 0), at(0, 1), at(2, 2), at(2, 3), at(3, 4)}))
      << "after a kept point, others of its time are dropped";

  byTime.setInterpolate(true);
  byTime.setMinimumDataInterval(2.5);
  std::vector<PIData::PIPlatformPoint> out;
  ASSERT_EQ(0, byTime.execute_({at(0, 0), at(10, 100)}, out));
  ASSERT_EQ(5u, out.size());
  EXPECT_NEAR(25.0, out[1].position.x, 1e-3) << "resampled between the points";
  EXPECT_EQ(10.0, out.back().time) << "the last resample is the last time: keep-last adds nothing";
  EXPECT_EQ(" Time Interpolate: Hawk (2.5s)", byTime.auditText("Hawk"));

  EXPECT_EQ((std::vector<double>{3}), timesOf(byTime, {at(3, 0), at(3, 5), at(3, 9)})) << "identical times";
  byTime.setMinimumDataInterval(0.0);
  int status = 0;
  timesOf(byTime, straight(3), &status);
  EXPECT_EQ(1, status);
}

TEST(Decimation, ByAngleCullsStraightStretchesAndKeepsTurns)
{
  EXPECT_NEAR(0.1, PUCullAngleDecimation::foldAngle(-0.1), 1e-12);
  EXPECT_NEAR(M_PI / 2, PUCullAngleDecimation::foldAngle(1.5 * M_PI), 1e-12);
  EXPECT_NEAR(0.1, PUCullAngleDecimation::foldAngle(2 * M_PI + 0.1), 1e-12);
  EXPECT_EQ(0.0, PUCullAngleDecimation::foldAngle(4 * M_PI));

  CullAngleDecimation byAngle;
  byAngle.setCullAngle(1.0 * M_PI / 180.0);
  // Along x, then a right turn along y at 300 m.
  const std::vector<PIData::PIPlatformPoint> corner = {at(0, 0), at(1, 100), at(2, 200), at(3, 300),
                                                        at(4, 300, 100), at(5, 300, 200)};
  EXPECT_EQ((std::vector<double>{0, 3, 5}), timesOf(byAngle, corner));
  EXPECT_EQ((std::vector<double>{0, 1}), timesOf(byAngle, straight(2))) << "two points as they are";
  EXPECT_EQ((std::vector<double>{0}), timesOf(byAngle, {at(0, 0), at(0, 0), at(0, 0)}))
      << "identical positions give a defined angle, so they are culled; equal times add no last point";
  EXPECT_EQ(" Angle: Hawk (1d)", byAngle.auditText("Hawk"));
}

TEST(Decimation, ByDistanceMeasuresThePathTravelled)
{
  DistanceDecimation byDistance;
  byDistance.setDistance(250.0);
  EXPECT_EQ((std::vector<double>{0, 3, 6, 9, 10}), timesOf(byDistance, straight(11)));
  // Back and forth: the path grows though the place does not.
  EXPECT_EQ((std::vector<double>{0, 2, 3}), timesOf(byDistance, {at(0, 0), at(1, 200), at(2, 0), at(3, 100)}));
  std::vector<PIData::PIPlatformPoint> sameTime = {at(5, 0), at(5, 300), at(5, 600)};
  EXPECT_EQ((std::vector<double>{5, 5, 5}), timesOf(byDistance, sameTime))
      << "the last point's time equals the last kept: nothing appended";
}

TEST(Decimation, ByAreaDropsTheFlattestPointsFirst)
{
  VisvalingamDecimation byArea;
  byArea.setPercentageDrop(0.1);
  EXPECT_EQ((std::vector<double>{0, 1, 2, 3}), timesOf(byArea, straight(4))) << "drop of 0 copies all";
  byArea.setPercentageDrop(0.999);
  EXPECT_EQ((std::vector<double>{0, 999}), timesOf(byArea, straight(1000)));
  byArea.setPercentageDrop(0.2);
  // A zig-zag whose point 3 barely leaves the line goes first; then point 6, whose triangle is
  // the flattest once 3 is gone.
  const std::vector<PIData::PIPlatformPoint> zigzag = {at(0, 0), at(1, 100, 80), at(2, 200), at(3, 300, 1),
                                                        at(4, 400), at(5, 500, -90), at(6, 600), at(7, 700, 70),
                                                        at(8, 800), at(9, 900)};
  EXPECT_EQ((std::vector<double>{0, 1, 2, 4, 5, 7, 8, 9}), timesOf(byArea, zigzag));
  EXPECT_EQ("Area: Hawk (20%)", byArea.auditText("Hawk"));
}

class DecimatingPlatforms : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
  }

  UniqueID_t platform(const std::string& name, int points)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (int i = 0; i < points; ++i)
    {
      PIData::PIPlatformPoint point;
      point.time = i;
      point.position = {0.5 + 1e-5 * i, -2.0, 100.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }
};

TEST_F(DecimatingPlatforms, TheThinnedCopyIsANewPlatformAndTheSourceStays)
{
  const UniqueID_t hawk = platform("Hawk", 10);
  ByPointDecimation byPoint;
  byPoint.setKeepEveryNumPoints(3);
  std::uint64_t made = 99;
  ASSERT_EQ(0, byPoint.execute(hawk, &made, false));
  ASSERT_NE(0u, made);
  PIData::PIPlatformHeader header;
  PIData::getHeader(made, &header);
  EXPECT_EQ("Hawk (Pnt 3)", header.name);
  EXPECT_EQ(4u, PIData::getNumberDataPoints(made)) << "0, 3, 6, 9";
  EXPECT_EQ(10u, PIData::getNumberDataPoints(hawk));
  std::vector<PIData::PIPlatformPoint> kept;
  PIData::getDataPoints(made, -1e9, 1e9, &kept);
  EXPECT_NEAR(0.5 + 3e-5, kept[1].position.x, 1e-12) << "the same place, through the earth-centred frame";

  const UniqueID_t empty = platform("Empty", 0);
  EXPECT_EQ(1, byPoint.execute(empty, &made, false));
  EXPECT_EQ(0u, made);
}

TEST_F(DecimatingPlatforms, AppendingToTheSourceSwapsTheNames)
{
  const UniqueID_t hawk = platform("Hawk", 5);
  DistanceDecimation byDistance;
  byDistance.setAppendToSource(true);
  std::uint64_t made = 0;
  ASSERT_EQ(0, byDistance.execute(hawk, &made, true));
  PIData::PIPlatformHeader header;
  PIData::getHeader(made, &header);
  EXPECT_EQ("Hawk", header.name);
  PIData::getHeader(hawk, &header);
  EXPECT_EQ("Hawk_orig", header.name);
  std::vector<PIData::PICategoryDataPoint> sources;
  PIData::retrieveAllCategoryData(made, &sources);
  ASSERT_EQ(1u, sources.size());
  EXPECT_EQ("Hawk_orig_No_Source_0", sources[0].value);

  // Again from the renamed source: the word alone, and the source keeps its name.
  ASSERT_EQ(0, byDistance.execute(hawk, &made, false));
  PIData::getHeader(made, &header);
  EXPECT_EQ("Hawk", header.name);
  PIData::getHeader(hawk, &header);
  EXPECT_EQ("Hawk_orig", header.name);
  EXPECT_EQ(" Dist: Hawk (1000m)", byDistance.auditText("Hawk_orig"));
  EXPECT_EQ(" Dist: _orig (1000m)", byDistance.auditText("_orig")) << "not longer than the ending";
}

TEST_F(DecimatingPlatforms, TheCommandPassesOverStaticPlatformsAndStopsWhenCancelled)
{
  const UniqueID_t hawk = platform("Hawk", 10);
  const UniqueID_t heron = platform("Heron", 10);
  const UniqueID_t site = createStaticPlatform("Site");
  ByPointDecimation byPoint;
  byPoint.setKeepEveryNumPoints(2);
  const std::size_t before = store.entityCount();
  std::vector<UniqueID_t> announced;
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>& ids) { announced = ids; });

  DecimateAction::decimatePlatforms({EntityInfo{site, PI_PLATFORM_TYPE, "Site"}, EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}},
                                    byPoint);
  EXPECT_EQ(before + 1, store.entityCount()) << "one copy, of Hawk";
  ASSERT_FALSE(services.notifications.empty());
  EXPECT_EQ("Decimation skipping static platform Site\n", services.notifications.front().first);
  const UniqueID_t copy = store.findPlatform("Hawk (Pnt 2)");
  ASSERT_NE(0u, copy);
  std::vector<PIData::PIGenericDataPoint> audit;
  PIData::getDataPoints(copy, &audit);
  ASSERT_EQ(1u, audit.size());
  EXPECT_EQ("Pnts: Hawk (2p)", audit[0].value);
  EXPECT_EQ((std::vector<UniqueID_t>{copy, site, hawk}), announced) << "the trees hear of the copy at once";

  services.cancelProgress = true;
  DecimateAction::decimatePlatforms({EntityInfo{heron, PI_PLATFORM_TYPE, "Heron"}, EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}},
                                    byPoint);
  EXPECT_NE(0u, store.findPlatform("Heron (Pnt 2)")) << "the platform before the cancel stays done";
  EXPECT_EQ(before + 2, store.entityCount()) << "and nothing after it is done";
}

TEST_F(DecimatingPlatforms, TheDialogKeepsOnlyTheChosenMethodsParameter)
{
  DecimateDialog dialog;
  EXPECT_EQ("Decimate Dialog", dialog.objectName());
  DecimateAction::loadFromRegistry_(dialog);
  EXPECT_EQ(0, dialog.type());
  EXPECT_TRUE(dialog.keepLastPoint());
  dialog.setDistance(1234.9);
  EXPECT_EQ(1234.0, dialog.distance()) << "whole metres";
  dialog.setPercentage(0.5);
  EXPECT_DOUBLE_EQ(0.5, dialog.percentage());
  dialog.setType(7);
  EXPECT_EQ(0, dialog.type()) << "out of range: unchanged";

  dialog.setType(3);
  DecimateAction::saveToRegistry_(dialog);
  EXPECT_EQ(1234.0, PURegistry::loadReg(0.0, "Distance"));
  EXPECT_EQ(0.75, PURegistry::loadReg(0.75, "Percentage")) << "other methods' values are not written";
  EXPECT_EQ(3, PURegistry::loadReg(0, "Decimate Type"));
  auto algorithm = DecimateAction::getAlgorithm_(dialog);
  ASSERT_NE(nullptr, algorithm);
  EXPECT_EQ(" Dist: Hawk (1234m)", algorithm->auditText("Hawk"));

  DecimateDialog again;
  DecimateAction::loadFromRegistry_(again);
  EXPECT_EQ(3, again.type());
  EXPECT_EQ(1234.0, again.distance());
}
