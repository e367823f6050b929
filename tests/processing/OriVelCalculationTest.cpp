#include "actions/CalculateOriVelAction.h"
#include "host/PIData.h"
#include "processing/PUCalculation.h"
#include "support/ServerFixture.h"

#include <cmath>

using namespace QtSep;

namespace
{

constexpr double LAT = 0.5;
constexpr double LON = -2.0;
constexpr double EARTH = 6378137.0;

class OriVel : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::clockSetBegin(-10.0);
    PIData::clockSetEnd(1000.0);
  }

  /// A platform at the given local east and north offsets (metres), one point a second.
  UniqueID_t track(const std::vector<std::pair<double, double>>& eastNorth, double start = 0.0)
  {
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (std::size_t i = 0; i < eastNorth.size(); ++i)
    {
      PIData::PIPlatformPoint point;
      point.time = start + static_cast<double>(i);
      point.position = {LAT + eastNorth[i].second / EARTH, LON + eastNorth[i].first / (EARTH * std::cos(LAT)), 1000.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  std::vector<PIData::PIPlatformPoint> points(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> out;
    PIData::getDataPoints(id, -1e9, 1e9, &out);
    return out;
  }
};

} // namespace

TEST(OriVelMaths, TheRobustMeanLeavesOutTheExtremes)
{
  const double spread[5] = {5, 1, 3, 2, 4};
  double result = 0;
  PUCalculation::bmerge(spread, 5, result);
  EXPECT_DOUBLE_EQ(3.0, result);
  const double same[5] = {7, 7, 7, 7, 7};
  PUCalculation::bmerge(same, 5, result);
  EXPECT_DOUBLE_EQ(7.0, result) << "smallest and largest are one element: the third value";
}

TEST(OriVelMaths, TheCubicFitsDifferentiateACubicExactlyToTheEnds)
{
  std::deque<double> time, values, first, second;
  for (int i = 0; i <= 20; ++i)
  {
    time.push_back(i);
    values.push_back(std::pow(i, 3));
  }
  ASSERT_EQ(0, PUCalculation::d2y_by_dt2(time, values, first, second, 10));
  for (int i : {0, 1, 10, 19, 20})
  {
    EXPECT_NEAR(3.0 * i * i, first[i], 1e-6) << i;
    EXPECT_NEAR(6.0 * i, second[i], 1e-6) << i;
  }
  std::deque<double> shortTime(time.begin(), time.begin() + 5), shortValues(values.begin(), values.begin() + 5);
  EXPECT_EQ(1, PUCalculation::d2y_by_dt2(shortTime, shortValues, first, second, 10)) << "too short for the window";
}

TEST_F(OriVel, TheDeltaMethodUsesHowEachPointWasReached)
{
  std::string error;
  const UniqueID_t pair = track({{0, 0}, {100, 0}});
  ASSERT_EQ(0, PUCalculation::deltaOriVel(pair, true, true, error)) << error;
  const auto two = points(pair);
  EXPECT_NEAR(100.0, two[0].velocity.x, 0.5) << "eastward";
  EXPECT_EQ(two[1].velocity.x, two[0].velocity.x) << "the first takes the second's velocity";
  EXPECT_NEAR(M_PI / 2, two[1].orientation.x, 1e-3) << "heading east";

  // Still for two seconds, then north, then still again: at rest the orientation holds.
  const UniqueID_t pausing = track({{0, 0}, {0, 0}, {0, 0}, {0, 50}, {0, 50}});
  ASSERT_EQ(0, PUCalculation::deltaOriVel(pausing, true, true, error));
  const auto five = points(pausing);
  EXPECT_EQ(0.0, five[0].orientation.x);
  EXPECT_EQ(0.0, five[2].orientation.y);
  EXPECT_NEAR(0.0, five[3].orientation.x, 1e-3) << "heading north";
  EXPECT_EQ(five[3].orientation.x, five[4].orientation.x);

  EXPECT_EQ(1, PUCalculation::deltaOriVel(pair, false, false, error));
  EXPECT_EQ("Neither orientation nor velocity calculations were requested", error);
  EXPECT_EQ(-1, PUCalculation::deltaOriVel(std::vector<std::uint64_t>{pair}, false, false, error));
  EXPECT_EQ(0, PUCalculation::deltaOriVel(std::vector<std::uint64_t>{}, true, false, error));

  const UniqueID_t single = track({{0, 0}});
  EXPECT_EQ(1, PUCalculation::deltaOriVel(single, true, true, error));
  EXPECT_EQ("Not enough data points to perform calculation", error);
  const UniqueID_t site = createStaticPlatform("Site");
  EXPECT_EQ(1, PUCalculation::deltaOriVel(site, true, true, error));
  EXPECT_EQ("Cannot perform calculation on a static platform", error);
}

TEST_F(OriVel, TheLagrangianMethodBanksIntoATurn)
{
  // A level right-hand circle of 5 km at 200 m/s, and a straight run east.
  std::vector<std::pair<double, double>> circle;
  const double radius = 5000.0, speed = 200.0;
  for (int i = 0; i < 60; ++i)
  {
    const double angle = speed / radius * i; // clockwise from north, seen from above
    circle.emplace_back(radius * std::sin(angle), radius * std::cos(angle));
  }
  const UniqueID_t turning = track(circle);
  std::string error;
  ASSERT_EQ(0, PUCalculation::lagrangianOriVel(turning, true, true, 10, error)) << error;
  const auto turned = points(turning);
  const auto& middle = turned[30];
  EXPECT_NEAR(39.3 * M_PI / 180.0, middle.orientation.z, 1.0 * M_PI / 180.0) << "a coordinated bank, to the right";
  EXPECT_NEAR(std::fmod(speed / radius * 30 + M_PI / 2, 2 * M_PI), middle.orientation.x, 0.02) << "tangent heading";
  EXPECT_NEAR(speed, std::hypot(middle.velocity.x, middle.velocity.y), 1.0);

  std::vector<std::pair<double, double>> east;
  for (int i = 0; i < 20; ++i)
    east.emplace_back(150.0 * i, 0.0);
  const UniqueID_t straight = track(east);
  ASSERT_EQ(0, PUCalculation::lagrangianOriVel(straight, true, false, 10, error));
  const auto level = points(straight);
  EXPECT_NEAR(M_PI / 2, level[10].orientation.x, 1e-3);
  EXPECT_NEAR(0.0, level[10].orientation.z, 1e-3) << "no turn, no bank";

  const UniqueID_t shortTrack = track({{0, 0}, {1, 1}, {2, 2}, {3, 3}});
  EXPECT_EQ(1, PUCalculation::lagrangianOriVel(shortTrack, true, true, 10, error));
  EXPECT_EQ("Not enough data points to perform calculation", error);
}

TEST_F(OriVel, TheCommandAuditsSuccessesAndReportsFailures)
{
  const UniqueID_t pair = track({{0, 0}, {100, 0}});
  const UniqueID_t single = track({{0, 0}});
  CalculateOriVelAction::calculate({EntityInfo{pair, PI_PLATFORM_TYPE, "Hawk"}, EntityInfo{single, PI_PLATFORM_TYPE, "Solo"}},
                                   false, true, true, 10);
  std::vector<PIData::PIGenericDataPoint> audit;
  PIData::getDataPoints(pair, &audit);
  ASSERT_EQ(1u, audit.size());
  EXPECT_EQ("Delta position calculation for orientation and velocity ", audit[0].value);
  ASSERT_FALSE(services.notifications.empty());
  EXPECT_EQ("Calculation for platform Solo failed due to: Not enough data points to perform calculation",
            services.notifications.back().first);
  EXPECT_EQ(0, services.waitCursorDepth);
}

TEST(OriVelMaths, EveryWindowUpToTheSeriesLengthStaysInsideTheData)
{
  // A cubic's derivatives are exact under a third-order fit, wherever its nodes lie, so every
  // window that fits gives them exactly; no window reads past the series' ends (windows close to
  // the length once did), and a longer one whose fits cannot stay inside is refused.
  for (const int length : {5, 12, 30, 60})
  {
    std::deque<double> time;
    std::deque<double> values;
    for (int i = 0; i < length; ++i)
    {
      const double t = 100.0 + i;
      time.push_back(t);
      values.push_back(2.0 + 3.0 * t - 0.5 * t * t + 0.01 * t * t * t);
    }
    for (int window = PUCalculation::MINIMUM_POINTS; window <= length + 3; ++window)
    {
      std::deque<double> first;
      std::deque<double> second;
      const int status = PUCalculation::d2y_by_dt2(time, values, first, second, window);
      if (window <= length)
      {
        ASSERT_EQ(0, status) << "window " << window << " of " << length;
      }
      if (status != 0)
        continue;
      ASSERT_EQ(static_cast<std::size_t>(length), first.size());
      for (int i = 0; i < length; ++i)
      {
        const double t = time[i];
        EXPECT_NEAR(3.0 - t + 0.03 * t * t, first[i], 1e-6) << "window " << window << " sample " << i;
        EXPECT_NEAR(-1.0 + 0.06 * t, second[i], 1e-6) << "window " << window << " sample " << i;
      }
    }
  }
}

TEST_F(OriVel, TheLagrangianMethodTakesAnyWindowTheTrackHolds)
{
  std::vector<std::pair<double, double>> climbing;
  for (int i = 0; i < 30; ++i)
    climbing.emplace_back(0.2 * i * i * i, 50.0 * i);
  std::string error;
  for (unsigned int window = 5; window <= 32; ++window)
  {
    const UniqueID_t id = track(climbing);
    const int status = PUCalculation::lagrangianOriVel(id, true, true, window, error);
    if (window > climbing.size())
    {
      EXPECT_EQ(1, status);
      EXPECT_EQ("Not enough data points to perform calculation", error) << "window " << window;
      continue;
    }
    ASSERT_EQ(0, status) << "window " << window << ": " << error;
    for (const auto& point : points(id))
    {
      EXPECT_TRUE(std::isfinite(point.orientation.x) && std::isfinite(point.orientation.z)) << "window " << window;
      EXPECT_TRUE(std::isfinite(point.velocity.x) && std::isfinite(point.velocity.y)) << "window " << window;
    }
  }
}
