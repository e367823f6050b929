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
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <set>

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

/**
 * The area method as its rule is written: triangles in a multimap by area (equal areas in the
 * order entered), the smallest taken first, and each neighbour's entry found by a linear walk
 * from the start, erased and entered afresh with its new area. Quadratic; the reference the
 * fast method must match survivor for survivor.
 */
std::vector<double> byAreaAsWritten(const std::vector<PIData::PIPlatformPoint>& in, double fraction)
{
  const std::size_t n = in.size();
  const auto drop = static_cast<std::size_t>(fraction * static_cast<double>(n));
  std::vector<double> times;
  if (n < 4 || drop == 0 || n - 2 <= drop)
  {
    for (std::size_t i = 0; i < n; ++i)
      if (n < 4 || drop == 0 || i == 0 || i == n - 1)
        times.push_back(in[i].time);
    return times;
  }
  struct Triangle
  {
    std::size_t previous, self, next;
    Triangle* previousTriangle = nullptr;
    Triangle* nextTriangle = nullptr;
  };
  const auto area = [&](const Triangle& t) {
    return VisvalingamDecimation::triangleArea(in[t.previous].position, in[t.self].position, in[t.next].position);
  };
  std::vector<std::unique_ptr<Triangle>> triangles;
  for (std::size_t i = 0; i < n - 2; ++i)
  {
    triangles.push_back(std::make_unique<Triangle>(Triangle{i, i + 1, i + 2}));
    if (i > 0)
    {
      triangles[i]->previousTriangle = triangles[i - 1].get();
      triangles[i - 1]->nextTriangle = triangles[i].get();
    }
  }
  std::multimap<double, Triangle*> byArea;
  for (const auto& t : triangles)
    byArea.emplace(area(*t), t.get());
  const auto reenter = [&](Triangle* t) {
    for (auto it = byArea.begin(); it != byArea.end(); ++it)
      if (it->second == t)
      {
        byArea.erase(it);
        break;
      }
    byArea.emplace(area(*t), t);
  };
  for (std::size_t k = 0; k < drop; ++k)
  {
    Triangle* t = byArea.begin()->second;
    byArea.erase(byArea.begin());
    if (Triangle* p = t->previousTriangle)
    {
      p->next = t->next;
      p->nextTriangle = t->nextTriangle;
      reenter(p);
    }
    if (Triangle* q = t->nextTriangle)
    {
      q->previous = t->previous;
      q->previousTriangle = t->previousTriangle;
      reenter(q);
    }
  }
  std::set<std::size_t> kept;
  for (const auto& entry : byArea)
    kept.insert({entry.second->previous, entry.second->self, entry.second->next});
  for (std::size_t i : kept)
    times.push_back(in[i].time);
  return times;
}

/**
 * A track that makes many triangles of equal area: spells standing still (area 0), straight
 * runs at an even pace (area 0), and moves between points of a coarse grid, so that equal
 * areas abound and re-entered triangles tie with waiting ones.
 */
std::vector<PIData::PIPlatformPoint> stationarySpells(std::size_t count, unsigned seed)
{
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> step(-2, 2);
  std::uniform_int_distribution<int> spell(1, 12);
  std::uniform_int_distribution<int> kind(0, 2);
  std::vector<PIData::PIPlatformPoint> track;
  double x = 0.0, y = 0.0, z = 0.0;
  while (track.size() < count)
  {
    const int length = spell(random);
    const int what = kind(random);
    const double dx = 100.0 * step(random), dy = 100.0 * step(random), dz = 10.0 * step(random);
    for (int i = 0; i < length && track.size() < count; ++i)
    {
      if (what == 1) // an even straight run
        x += 100.0;
      else if (what == 2) // wandering on the grid
        x += dx, y += dy, z += dz;
      track.push_back(at(static_cast<double>(track.size()), x, y, z));
    }
  }
  return track;
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

TEST(Decimation, ByAngleKeepsThePointsAroundAnAngleThatIsNotANumber)
{
  // Only an angle within the tolerance culls. A position that is not a number makes every
  // angle it takes part in not a number, so its neighbours stay instead of going with it.
  CullAngleDecimation byAngle;
  byAngle.setCullAngle(1.0 * M_PI / 180.0);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ((std::vector<double>{0, 1, 2, 3, 4}),
            timesOf(byAngle, {at(0, 0), at(1, 100), at(2, nan), at(3, 300), at(4, 400)}));
  EXPECT_EQ((std::vector<double>{0, 4}), timesOf(byAngle, {at(0, 0), at(1, 100), at(2, 200), at(3, 300), at(4, 400)}))
      << "the same track without it is one straight stretch";
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

TEST(Decimation, ByAreaTakesEqualAreasInTheOrderTheyWereEntered)
{
  // Eight points on a line: six triangles of area 0, entered for points 1 to 6. Point 1 goes
  // and point 2 is entered again, behind 3 to 6; then 3 goes (2 and 4 entered again), then 5
  // (4 and 6 again), and then 2, whose entry now stands first. Taking the lowest point among
  // equals would keep 0, 5, 6, 7 instead.
  VisvalingamDecimation byArea;
  byArea.setPercentageDrop(0.5);
  EXPECT_EQ((std::vector<double>{0, 4, 6, 7}), timesOf(byArea, straight(8)));
  EXPECT_EQ(byAreaAsWritten(straight(8), 0.5), timesOf(byArea, straight(8)));
}

TEST(Decimation, ByAreaKeepsTheSurvivorsOfTheRuleAsWrittenOnTracksOfEqualAreas)
{
  VisvalingamDecimation byArea;
  for (unsigned seed = 1; seed <= 6; ++seed)
  {
    const std::vector<PIData::PIPlatformPoint> track = stationarySpells(600 + 350 * seed, seed);
    for (double fraction : {0.05, 0.3, 0.5, 0.75, 0.9, 0.995})
    {
      byArea.setPercentageDrop(fraction);
      const std::vector<double> fast = timesOf(byArea, track);
      ASSERT_EQ(byAreaAsWritten(track, fraction), fast) << "seed " << seed << ", drop " << fraction;
      ASSERT_EQ(track.size() - static_cast<std::size_t>(fraction * track.size()), fast.size());
    }
  }
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
