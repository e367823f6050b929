#include "actions/MakeStationaryAction.h"
#include "actions/MakeStationaryWidget.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "kelCore/Geodesy.h"
#include "plugin/MenuInfo.h"
#include "processing/MakeStationary.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/ConfirmDialog.h"
#include "widgets/EntityTreeComposite.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

#include <cmath>

using namespace QtSep;

namespace
{

constexpr double DEG = M_PI / 180.0;
constexpr double LAT = 0.6;
constexpr double LON = -2.0;

class Stationary : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::clockSetEnd(1000.0);
    PIData::clockSetBegin(0.0);
  }

  /// A platform whose points lie north of the first by these metres, with these yaws (degrees).
  UniqueID_t platform(const std::string& name, const std::vector<std::pair<double, double>>& northAndYaw,
                      double firstTime = 0.0)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (std::size_t i = 0; i < northAndYaw.size(); ++i)
    {
      PIData::PIPlatformPoint point;
      point.time = firstTime + 10.0 * i;
      point.position = {LAT + northAndYaw[i].first / 6356752.0, LON, 50.0};
      point.orientation = {northAndYaw[i].second * DEG, 0.0, 0.0};
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

TEST_F(Stationary, AStillPlatformIsFoundAndAStaticOneIsNotOfferedAgain)
{
  MakeStationary rule;
  PIData::PIPlatformHeader header;
  EXPECT_FALSE(rule.isStationary(PIData::createPlatform(&header, nullptr))) << "no points";
  PIData::PIPlatformPoint fixed;
  fixed.time = -1.0;
  fixed.position = {LAT, LON, 0.0};
  EXPECT_FALSE(rule.isStationary(PIData::createPlatform(&header, &fixed))) << "static already";
  EXPECT_TRUE(rule.isStationary(platform("One", {{0, 0}}))) << "one point at a time";
  EXPECT_TRUE(rule.isStationary(platform("Flying", {{0, 0}, {50000, 90}}))) << "no criterion: every platform";
}

TEST_F(Stationary, TheDistanceAndAnglesBoundTheWanderFromTheFirstValue)
{
  MakeStationary rule;
  rule.setDistance(true, 100);
  const UniqueID_t inside = platform("Inside", {{0, 0}, {60, 0}, {99, 0}});
  const UniqueID_t outside = platform("Outside", {{0, 0}, {60, 0}, {101, 0}});
  EXPECT_TRUE(rule.isStationary(inside));
  EXPECT_FALSE(rule.isStationary(outside)) << "the wander from the first point counts, not the steps";

  // Yaw wraps: 359 and 3 degrees are four apart; a run of unset angles passes.
  MakeStationary yaw;
  yaw.setYaw(true, 5);
  EXPECT_TRUE(yaw.isStationary(platform("North", {{0, 359}, {0, 3}, {0, 1}})));
  EXPECT_FALSE(yaw.isStationary(platform("Turning", {{0, 359}, {0, 3}, {0, 5}})));
  PIData::PIPlatformHeader header;
  const UniqueID_t unset = PIData::createPlatform(&header, nullptr);
  for (double t : {0.0, 10.0, 20.0})
  {
    PIData::PIPlatformPoint point;
    point.time = t;
    point.position = {LAT, LON, 0.0};
    if (t > 0.0)
      point.orientation = {t * DEG, 0, 0};
    PIData::addDataPoint(unset, &point);
  }
  EXPECT_FALSE(yaw.isStationary(unset)) << "the first valid yaw, 10, is the reference: 20 is too far";
}

TEST_F(Stationary, OnlyThePointsInTheClocksSpanAtConstructionCount)
{
  const UniqueID_t late = platform("Late", {{0, 0}, {10, 0}, {5000, 0}}); // at 0, 10 and 20 s
  PIData::clockSetEnd(15.0);
  MakeStationary rule;
  rule.setDistance(true, 100);
  PIData::clockSetEnd(1000.0);
  EXPECT_TRUE(rule.isStationary(late)) << "the jump at 20 s lies past the span the rule was made with";
}

TEST_F(Stationary, APlatformBecomesOneStaticPointOrTwoThatBoundItsLife)
{
  const UniqueID_t hawk = platform("Hawk", {{0, 0}, {10, 0}, {20, 0}}, 5.0);
  EXPECT_EQ(0, MakeStationary().execute(hawk, false));
  auto result = points(hawk);
  ASSERT_EQ(1u, result.size());
  EXPECT_EQ(-1.0, result[0].time);

  const UniqueID_t kite = platform("Kite", {{0, 0}, {10, 0}, {20, 0}}, 5.0);
  EXPECT_EQ(0, MakeStationary().execute(kite, true));
  result = points(kite);
  ASSERT_EQ(2u, result.size());
  EXPECT_EQ(5.0, result[0].time);
  EXPECT_EQ(25.0, result[1].time);
  EXPECT_EQ(result[0].position, result[1].position) << "the first point, repeated at the last time";

  const UniqueID_t single = platform("Single", {{0, 0}}, 7.0);
  EXPECT_EQ(0, MakeStationary().execute(single, true));
  result = points(single);
  ASSERT_EQ(1u, result.size());
  EXPECT_EQ(-1.0, result[0].time) << "one point has no life span to keep";
  PIData::PIPlatformHeader header;
  EXPECT_EQ(1, MakeStationary().execute(PIData::createPlatform(&header, nullptr), false)) << "nothing to read";
}

TEST_F(Stationary, TheCommandAsksConvertsAndAuditsEachPlatform)
{
  const UniqueID_t hawk = platform("Hawk", {{0, 0}, {10, 0}});
  MakeStationaryAction action(nullptr);
  std::vector<MenuInfo*> items;
  action.menuRequested({EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ(210, items[0]->weight());
  EXPECT_EQ("Make Stationary...", action.action()->text());
  delete items[0];
  PURegistry::saveReg(MakeStationaryAction::LIFE_SPAN_KEY, true);
  {
    const auto asked = answerNext<UTILS::ConfirmDialog>(true, [](UTILS::ConfirmDialog& dialog) {
      EXPECT_EQ("Make Stationary", dialog.windowTitle());
    });
    action.action()->trigger();
  }
  EXPECT_EQ(2u, points(hawk).size()) << "the life span kept, as the setting says";
  std::vector<PIData::PIGenericDataPoint> audit;
  PIData::getDataPoints(hawk, &audit);
  ASSERT_EQ(1u, audit.size());
  EXPECT_EQ("Made stationary", audit[0].value);
}

TEST_F(Stationary, TheTabListsCandidatesConvertsThePickedOnesAndKeepsItsDeltas)
{
  const UniqueID_t still = platform("Still", {{0, 0}, {5, 0}});
  const UniqueID_t moving = platform("Moving", {{0, 0}, {5000, 0}});
  MakeStationaryWidget tab;
  auto* detect = tab.findChild<QPushButton*>("detectPushButton");
  auto* accept = tab.findChild<QPushButton*>("acceptPushButton");
  auto* cancel = tab.findChild<QPushButton*>("cancelPushButton");
  tab.findChild<QCheckBox*>("distanceCheckBox")->setChecked(true);
  tab.findChild<QSpinBox*>("distanceSpinBox")->setValue(50);
  EXPECT_FALSE(accept->isEnabled());
  detect->click();
  EXPECT_FALSE(detect->isEnabled()) << "until a criterion changes or the list is cancelled";
  EXPECT_TRUE(cancel->isEnabled());
  kelQt::EntityTreeComposite& list = tab.entityTreeComposite();
  QTreeView& view = *list.view();
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.model()->rowCount() == 1; }, 10000)) << "Still only";
  list.setSelected(still);
  EXPECT_TRUE(QTest::qWaitFor([&] { return accept->isEnabled(); }, 10000));
  accept->click();
  EXPECT_EQ(-1.0, points(still)[0].time);
  EXPECT_EQ(2u, points(moving).size());
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.model()->rowCount() == 0; }, 10000)) << "converted, off the list";
  tab.findChild<QSpinBox*>("yawSpinBox")->setValue(20);
  EXPECT_TRUE(detect->isEnabled());

  MakeStationaryWidget again;
  EXPECT_TRUE(again.findChild<QCheckBox*>("distanceCheckBox")->isChecked()) << "the deltas are kept";
  EXPECT_EQ(50, again.findChild<QSpinBox*>("distanceSpinBox")->value());
  EXPECT_EQ(20, again.findChild<QSpinBox*>("yawSpinBox")->value());
}
