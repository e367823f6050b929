#include "actions/VelocityAction.h"
#include "actions/VelocityDialog.h"
#include "host/PIData.h"
#include "processing/ByCalculatedSpeed.h"
#include "processing/ByGivenSpeed.h"
#include "support/ServerFixture.h"

#include <QComboBox>
#include <QSpinBox>

#include <cmath>

using namespace QtSep;

namespace
{

// About 63.7 m of latitude, so one step a second is about 63.7 m/s.
constexpr double STEP = 1e-5;

PIData::PIPlatformPoint at(double time, double steps, PIPoint velocity = PI_INVALID_POINT)
{
  PIData::PIPlatformPoint point;
  point.time = time;
  point.position = {0.5 + steps * STEP, -2.0, 100.0};
  point.velocity = velocity;
  return point;
}

std::vector<double> timesOf(const std::vector<PIData::PIPlatformPoint>& points)
{
  std::vector<double> times;
  for (const auto& p : points)
    times.push_back(p.time);
  return times;
}

template <typename Filter>
std::vector<double> filtered(double min, double max, const std::vector<PIData::PIPlatformPoint>& in)
{
  Filter filter;
  filter.minVelocityMs = min;
  filter.maxVelocityMs = max;
  std::vector<PIData::PIPlatformPoint> out;
  filter.filterPlatform_(in, out);
  return timesOf(out);
}

} // namespace

TEST(SpeedFilters, GivenSpeedKeepsTheBoundsAndPointsWithoutAVelocity)
{
  const std::vector<PIData::PIPlatformPoint> track = {
    at(0, 0, {3, 4, 0}),             // 5 m/s: the minimum
    at(1, 0, {0, 0, 10}),            // 10 m/s: the maximum
    at(2, 0, {0, 0, 10.5}),          // over
    at(3, 0),                        // no velocity
    at(4, 0, {PI_INVALID_DOUBLE, 0, 0}), // no velocity either
    at(5, 0, {std::nan(""), 0, 0})}; // no speed to judge: dropped
  EXPECT_EQ((std::vector<double>{0, 1, 3, 4}), filtered<ByGivenSpeed>(5, 10, track));
  EXPECT_EQ((std::vector<double>{3, 4}), filtered<ByGivenSpeed>(20, 10, track)) << "minimum over maximum";
  EXPECT_TRUE(filtered<ByGivenSpeed>(0, 10, {}).empty());
}

TEST(SpeedFilters, CalculatedSpeedMeasuresFromTheLastKeptPoint)
{
  EXPECT_EQ((std::vector<double>{0, 1}), filtered<ByCalculatedSpeed>(0, 1, {at(0, 0), at(1, 100)}))
      << "two points pass whatever the limits";
  // A wild jump at 2 is dropped and 3 is judged from 1, so it stays.
  EXPECT_EQ((std::vector<double>{0, 1, 3, 4}),
            filtered<ByCalculatedSpeed>(0, 100, {at(0, 0), at(1, 1), at(2, 50), at(3, 3), at(4, 4)}));
  EXPECT_EQ((std::vector<double>{0, 1}),
            filtered<ByCalculatedSpeed>(0, 100, {at(0, 0), at(1, 1), at(2, 90), at(3, 180)}))
      << "everything after the seed out of range";

  // The seed: a wild first point goes, a wild second point goes.
  EXPECT_EQ((std::vector<double>{1, 2, 3}),
            filtered<ByCalculatedSpeed>(0, 100, {at(0, 80), at(1, 1), at(2, 2), at(3, 3)}));
  EXPECT_EQ((std::vector<double>{0, 2, 3}),
            filtered<ByCalculatedSpeed>(0, 100, {at(0, 0), at(1, 80), at(2, 2), at(3, 3)}));
  EXPECT_EQ(std::numeric_limits<double>::max(), ByCalculatedSpeed::speed(at(5, 0), at(5, 1)));
  EXPECT_EQ((std::vector<double>{0, 2}), filtered<ByCalculatedSpeed>(0, 100, {at(0, 0), at(0, 0), at(2, 1)}))
      << "two leading points at one time: the first goes, the third is kept untested";
}

class VelocityFiltering : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    hawk = PIData::createPlatform(&header, nullptr);
    for (const auto& point : {at(0, 0, {1, 0, 0}), at(1, 0, {50, 0, 0}), at(2, 0, {2, 0, 0})})
      PIData::addDataPoint(hawk, &point);
  }
  UniqueID_t hawk = 0;
};

TEST_F(VelocityFiltering, PlatformsAreFilteredInPlaceWithTheirAuditLine)
{
  ByGivenSpeed filter;
  filter.minVelocityMs = 0.9;
  filter.maxVelocityMs = 10.7;
  const std::vector<unsigned long> changed =
    VelocityAction::filterPlatforms({EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, filter);
  EXPECT_EQ(std::vector<unsigned long>{hawk}, changed);
  EXPECT_EQ(2u, PIData::getNumberDataPoints(hawk));
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(hawk, &items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ("Qt Scenario Editor 1", items[0].tag);
  EXPECT_EQ("Filtered by by given velocity  with limit of [0,10] m/s", items[0].value);

  filter.minVelocityMs = 100;
  VelocityAction::filterPlatforms({EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, filter);
  EXPECT_EQ(0u, PIData::getNumberDataPoints(hawk)) << "nothing passes: nothing stays";
}

TEST_F(VelocityFiltering, TheDialogShowsSpeedsInItsUnitsAndKeepsThem)
{
  VelocityDialog dialog;
  EXPECT_EQ("Velocity Dialog", dialog.objectName());
  EXPECT_EQ("Velocity Filter", dialog.windowTitle());
  dialog.loadSettings();
  EXPECT_EQ(500.0, dialog.maxVelocityMs());
  EXPECT_EQ("m/s", dialog.maxUnits());

  dialog.setMaxUnits("km/hr");
  auto* maxSpin = dialog.findChild<QSpinBox*>("maxSpeedSpinBox");
  EXPECT_EQ(1800, maxSpin->value()) << "500 m/s shown in km/h";
  EXPECT_NEAR(500.0, dialog.maxVelocityMs(), 1e-9);
  dialog.setMaxUnits("deg");
  EXPECT_EQ("km/hr", dialog.maxUnits()) << "not a speed: ignored";
  dialog.setMinVelocityMs(12.9);
  EXPECT_EQ(12, dialog.findChild<QSpinBox*>("minSpeedSpinBox")->value()) << "truncated";
  dialog.setUsePlatformPosition(true);
  dialog.saveSettings();

  VelocityDialog again;
  again.loadSettings();
  EXPECT_EQ("km/hr", again.maxUnits());
  EXPECT_EQ(12.0, again.minVelocityMs());
  EXPECT_TRUE(again.usePlatformPosition());
}
