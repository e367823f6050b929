#include "host/PIData.h"
#include "host/PIKELVOR.h"
#include "merge/CommonMerge.h"
#include "merge/ManualMerge.h"
#include "merge/ManualMergeWidget.h"
#include "server/ApplicationEventRelay.h"
#include "support/ServerFixture.h"
#include "utils/EntityTreeModel.h"
#include "widgets/ColorWidget.h"
#include "widgets/EntityTreeComposite.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>

using QtSep::DropOut;
using QtSep::ManualMergeWidget;

namespace
{

/**
 * A primary with holes at 2..10 and 12..30, a second platform (original ID 22) with points in
 * the first hole, and a third without an original ID around them, in an editor tab whose
 * entity list reads the scenario and which hears the host's removals.
 */
class ManualMergeTab : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    store.setListener(&relay);
    primary = platform("Hawk", 7, {0, 1, 2, 10, 11, 12, 30});
    second = platform("Hawk B", 22, {4, 5, 6});
    third = platform("Hawk C", 0, {3, 5, 7, 8, 9}, 1000.0); // its 5 s lies where the second has data
    PIData::clockSetBegin(0);
    PIData::clockSetEnd(30);
    model.forceRefresh();
    composite.setModel(&model);
    tab = std::make_unique<ManualMergeWidget>(composite);
    child<QSpinBox>("gapSpinBox")->setValue(1);
  }
  void TearDown() override
  {
    tab.reset();
    store.setListener(nullptr);
    ServerFixture::TearDown();
  }

  static UniqueID_t platform(const std::string& name, UniqueID_t originalId, const std::vector<double>& times,
                             double altitude = 0.0)
  {
    return createTrack(name, originalId, times, altitude);
  }

  /// @return the altitude of a platform's point at time, metres
  double altitudeAt(UniqueID_t id, double time) const
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, time, time, &points);
    return points.empty() ? -1.0 : points.front().position.z;
  }

  static std::vector<double> times(UniqueID_t id) { return pointTimes(id); }

  /// Selects in the entity list and waits for the list to tell its listeners.
  void select(const QList<unsigned long>& ids)
  {
    QSignalSpy told(&composite, &kelQt::EntityTreeComposite::itemsSelected);
    composite.setSelected(ids);
    ASSERT_TRUE(told.wait(10000));
  }

  /// Lists the platforms through the entity list's selection, as the user does.
  void list(const QList<unsigned long>& ids)
  {
    composite.setSelected(ids);
    tab->addSelectedPlatforms();
  }

  template <typename T>
  T* child(const char* name) const
  {
    T* found = tab->findChild<T*>(name);
    EXPECT_NE(nullptr, found) << name;
    return found;
  }
  QTreeWidget& ordered() const { return *child<QTreeWidget>("orderedTreeWidget"); }
  QTreeWidget& dropoutRows() const { return *child<QTreeWidget>("dropoutTreeWidget"); }
  bool enabled(const char* name) const { return child<QWidget>(name)->isEnabled(); }
  void click(const char* name) const { child<QAbstractButton>(name)->click(); }
  void makeCurrent(int row) const { ordered().setCurrentItem(ordered().topLevelItem(row)); }

  /// @return the session rules in the store
  std::vector<std::string> sessionRules() const
  {
    std::vector<std::string> texts;
    for (const kelvor::PreferenceRule& rule : store.preferenceRules())
      if (!rule.saved)
        texts.push_back(rule.text);
    return texts;
  }

  UniqueID_t findPlatform(const std::string& name) const { return store.findPlatform(name); }

  kelvor::ApplicationEventRelay relay{[this](int event, void* data) {
    if (tab)
      tab->listenToEvents(static_cast<PIApplicationEvents_t>(event), data);
  }};
  PluginUtils::EntityTreeModel model;
  kelQt::EntityTreeComposite composite;
  std::unique_ptr<ManualMergeWidget> tab;
  UniqueID_t primary = 0;
  UniqueID_t second = 0;
  UniqueID_t third = 0;
};

} // namespace

TEST_F(ManualMergeTab, TheListTakesNewPlatformsOnlyAndItsButtonsFollowTheCurrentRow)
{
  EXPECT_EQ("N/A", child<QLabel>("startTimeLabel")->text());
  EXPECT_FALSE(enabled("selectTimePushButton"));
  select({primary});
  EXPECT_TRUE(enabled("addToolButton"));
  tab->addSelectedPlatforms();
  EXPECT_FALSE(enabled("addToolButton")) << "all that is selected is listed";
  EXPECT_FALSE(enabled("detectPushButton")) << "one platform has nothing to fill from";
  EXPECT_TRUE(enabled("selectTimePushButton"));
  EXPECT_NE("N/A", child<QLabel>("startTimeLabel")->text());
  EXPECT_EQ(0.0, tab->startTime()) << "a new primary takes the clock's span";
  EXPECT_EQ(30.0, tab->endTime());

  list({primary, second, third});
  ASSERT_EQ(3, ordered().topLevelItemCount()) << "a listed platform is not listed twice";
  const QTreeWidgetItem& row = *ordered().topLevelItem(1);
  EXPECT_EQ("Hawk B", row.text(0));
  EXPECT_EQ("22", row.text(1));
  EXPECT_EQ("3", row.text(2));
  EXPECT_EQ((std::vector<UniqueID_t>{primary, second, third}), tab->platformIds());
  EXPECT_TRUE(enabled("detectPushButton"));

  EXPECT_FALSE(enabled("removeToolButton")) << "no current row";
  makeCurrent(0);
  EXPECT_TRUE(enabled("removeToolButton"));
  EXPECT_FALSE(enabled("upToolButton"));
  EXPECT_TRUE(enabled("downToolButton"));
  makeCurrent(2);
  EXPECT_TRUE(enabled("upToolButton"));
  EXPECT_FALSE(enabled("downToolButton"));

  // A new primary at the top brings the whole span back as the slice.
  tab->setTimeSlice(5, 20);
  makeCurrent(1);
  click("upToolButton");
  EXPECT_EQ((std::vector<UniqueID_t>{second, primary, third}), tab->platformIds());
  EXPECT_EQ(0, ordered().indexOfTopLevelItem(ordered().currentItem())) << "the moved row stays current";
  EXPECT_EQ(0.0, tab->startTime());
  click("removeToolButton");
  EXPECT_EQ((std::vector<UniqueID_t>{primary, third}), tab->platformIds());

  // A selection holding anything but platforms cannot be added.
  PIData::PIBeamHeader beamHeader;
  const UniqueID_t beam = PIData::createBeam(primary, &beamHeader, nullptr, true);
  model.forceRefresh();
  select({second, beam});
  EXPECT_FALSE(enabled("addToolButton"));
}

TEST_F(ManualMergeTab, DetectListsWhoFillsEachStretchAndTicksOnlySourcesWithAnOriginalId)
{
  list({primary, second, third});
  EXPECT_TRUE(tab->dirty());
  EXPECT_FALSE(enabled("mergePushButton"));
  click("detectPushButton");
  EXPECT_FALSE(tab->dirty());
  EXPECT_TRUE(enabled("mergePushButton"));
  EXPECT_TRUE(enabled("previewPushButton"));
  EXPECT_FALSE(enabled("detectPushButton")) << "nothing changed since";
  EXPECT_TRUE(store.findPlatform("Hawk_ScenarioEditor_Temp") == 0) << "the temporary platform is gone";

  const std::vector<DropOut>& found = tab->dropouts();
  ASSERT_EQ(static_cast<int>(found.size()), dropoutRows().topLevelItemCount());
  ASSERT_EQ(4u, found.size()) << "third, second, third, and the hole no one fills";
  EXPECT_EQ("Hawk B", found[1].sourceName);
  const QTreeWidgetItem& filled = *dropoutRows().topLevelItem(1);
  EXPECT_EQ(Qt::Checked, filled.checkState(0));
  EXPECT_EQ("0:00:02.00", filled.text(1)) << "the hole's start, hours to hundredths";
  EXPECT_EQ("Hawk B", filled.text(3));
  EXPECT_EQ("22", filled.text(4));
  EXPECT_EQ("3", filled.text(5));
  const QTreeWidgetItem& noId = *dropoutRows().topLevelItem(0);
  EXPECT_EQ(Qt::Unchecked, noId.checkState(0)) << "a source without an original ID waits to be asked for";
  EXPECT_TRUE(noId.text(3).isEmpty());
  EXPECT_FALSE(noId.text(2).isEmpty()) << "its hole's duration still shows";

  // The check box, like the gap, makes the list stale until the next Detect.
  click("includeNoOriginalIdCheckBox");
  EXPECT_TRUE(tab->dirty());
  EXPECT_FALSE(enabled("mergePushButton"));
  EXPECT_EQ(Qt::Unchecked, noId.checkState(0)) << "nothing changes by itself";
  click("detectPushButton");
  EXPECT_EQ(Qt::Checked, dropoutRows().topLevelItem(0)->checkState(0));
  EXPECT_EQ("Hawk C", dropoutRows().topLevelItem(0)->text(3));
  child<QSpinBox>("gapSpinBox")->setValue(10);
  EXPECT_TRUE(tab->dirty());
  click("detectPushButton");
  ASSERT_EQ(1, dropoutRows().topLevelItemCount()) << "only 12..30 is longer than 10 s";
  EXPECT_EQ("N/A", tab->dropouts()[0].sourceName);

  // A primary without points in the slice gives no rows and still counts as detected.
  tab->setTimeSlice(13, 29);
  click("detectPushButton");
  EXPECT_EQ(0, dropoutRows().topLevelItemCount());
  EXPECT_FALSE(tab->dirty());
  EXPECT_FALSE(enabled("mergePushButton"));
}

TEST_F(ManualMergeTab, TheDropoutListShowsTheTimeOfDayOfScenariosThatLastDays)
{
  const double day = 86400.0;
  const UniqueID_t longPrimary = platform("Long", 5, {0, 2 * day + 3600, 2 * day + 3700});
  const UniqueID_t filler = platform("Filler", 6, {2 * day + 3620, 2 * day + 3640});
  child<QSpinBox>("gapSpinBox")->setValue(15);
  PIData::clockSetEnd(2 * day + 3700);
  model.forceRefresh();
  list({longPrimary, filler});
  click("detectPushButton");
  ASSERT_GE(dropoutRows().topLevelItemCount(), 2);
  const QTreeWidgetItem& row = *dropoutRows().topLevelItem(1);
  EXPECT_EQ("Filler", row.text(3));
  EXPECT_EQ("1:00:00.00", row.text(1)) << "the day is left out";
  EXPECT_NEAR(2 * day + 3600, row.data(1, Qt::UserRole).toDouble(), 1e-3) << "the full time stays behind";

  // A double click on the source moves the clock to the hole and the camera to the source.
  emit dropoutRows().itemDoubleClicked(dropoutRows().topLevelItem(1), 3);
  EXPECT_NEAR(2 * day + 3600, PIData::clockGetTime(), 1e-3);
  EXPECT_EQ(filler, services.tether.second);
  services.tether = {};
  emit dropoutRows().itemDoubleClicked(dropoutRows().topLevelItem(1), 1);
  EXPECT_EQ(0u, services.tether.second) << "another column only moves the clock";
}

TEST_F(ManualMergeTab, PreviewHidesThePrimaryBehindAColouredTemporaryTrackUntilAnythingChanges)
{
  list({primary, second});
  click("detectPushButton");
  click("previewPushButton");
  const UniqueID_t preview = tab->previewId();
  ASSERT_NE(0u, preview);
  EXPECT_TRUE(child<QPushButton>("previewPushButton")->isChecked());
  EXPECT_EQ(preview, store.findPlatform("Hawk_ScenarioEditor_Temp"));
  EXPECT_EQ((std::vector<double>{0, 1, 2, 4, 5, 6, 10, 11, 12, 30}), times(preview));
  EXPECT_TRUE(store.drawFlag(primary, "Hidden"));
  EXPECT_EQ(0xFF0000FFu, CommonMerge::GetColorFromGeneric(preview, 5)) << "the second's colour";
  EXPECT_EQ(0xFF00FF00u, CommonMerge::GetColorFromGeneric(preview, 0.5)) << "the primary's colour";
  EXPECT_EQ((std::vector<std::string>{
              R"(ruleName=TracksDrawMode ruleValue="bridge" nameExpression="^Hawk_ScenarioEditor_Temp$" categoryFilters=" ")",
              R"(ruleName=TracksLength ruleValue="-1" nameExpression="^Hawk_ScenarioEditor_Temp$" categoryFilters=" ")",
              R"(ruleName=TracksWidth ruleValue="3" nameExpression="^Hawk_ScenarioEditor_Temp$" categoryFilters=" ")"}),
            sessionRules());
  EXPECT_EQ(3u, tab->ruleIds().size());

  // A second click takes it all back.
  click("previewPushButton");
  EXPECT_EQ(0u, tab->previewId());
  EXPECT_EQ(nullptr, store.entity(preview));
  EXPECT_TRUE(sessionRules().empty());
  EXPECT_FALSE(store.drawFlag(primary, "Hidden"));
  EXPECT_FALSE(child<QPushButton>("previewPushButton")->isChecked());

  // Any change of the inputs removes a running preview, even one moving the primary.
  click("previewPushButton");
  ASSERT_NE(0u, tab->previewId());
  makeCurrent(1);
  click("upToolButton");
  EXPECT_EQ(0u, tab->previewId());
  EXPECT_FALSE(store.drawFlag(primary, "Hidden")) << "the platform it hid shows again";
  EXPECT_FALSE(enabled("previewPushButton"));
}

TEST_F(ManualMergeTab, AColourChangeRecoloursThePreviewOfThatPosition)
{
  list({primary, second});
  makeCurrent(1);
  auto* colors = child<kelQt::ColorWidget>("dropoutColorWidget");
  EXPECT_EQ(QColor(255, 0, 0, 255), colors->color()) << "position 1 is red";
  EXPECT_FALSE(tab->dirty() && enabled("previewPushButton"));
  click("detectPushButton");
  makeCurrent(0);
  EXPECT_FALSE(tab->dirty()) << "showing a row's colour changes nothing";
  makeCurrent(1);
  colors->setColor(QColor(0x10, 0x20, 0x30, 0xFF));
  EXPECT_TRUE(tab->dirty());
  click("detectPushButton");
  click("previewPushButton");
  EXPECT_EQ(0xFF302010u, CommonMerge::GetColorFromGeneric(tab->previewId(), 5))
    << "red in the low byte, alpha in the high";
}

TEST_F(ManualMergeTab, ThePrimaryRemovedDuringAPreviewTakesThePreviewWithIt)
{
  list({primary, second, third});
  click("detectPushButton");
  click("previewPushButton");
  const UniqueID_t preview = tab->previewId();
  ASSERT_NE(0u, preview);
  PIData::removeEntity(primary, false);
  EXPECT_EQ((std::vector<UniqueID_t>{second, third}), tab->platformIds());
  EXPECT_EQ(0u, tab->previewId());
  EXPECT_EQ(nullptr, store.entity(preview));
  EXPECT_TRUE(sessionRules().empty());
  EXPECT_TRUE(tab->dirty());
  EXPECT_TRUE(enabled("detectPushButton"));
}

TEST_F(ManualMergeTab, ThePreviewGoesWithTheTabAndTheTabForgetsAReplacedScenario)
{
  list({primary, second});
  click("detectPushButton");
  click("previewPushButton");
  const UniqueID_t preview = tab->previewId();
  ASSERT_NE(0u, preview);
  tab.reset(); // as the editor closes: no removal event reaches the tab
  EXPECT_EQ(nullptr, store.entity(preview));
  EXPECT_TRUE(sessionRules().empty());
  EXPECT_FALSE(store.drawFlag(primary, "Hidden"));

  tab = std::make_unique<ManualMergeWidget>(composite);
  list({primary, second});
  click("detectPushButton");
  click("previewPushButton");
  const UniqueID_t stale = tab->previewId();
  ASSERT_NE(0u, stale);
  PIData::initializeScenario();
  tab->listenToEvents(PI_EVENT_SCENARIO_RESET, nullptr);
  EXPECT_EQ(0u, tab->previewId());
  EXPECT_TRUE(tab->platformIds().empty());
  EXPECT_EQ(0, dropoutRows().topLevelItemCount());
  EXPECT_FALSE(child<QPushButton>("previewPushButton")->isChecked());
  // The store counts ids from 1 again: one of the new platforms has the old preview's id.
  UniqueID_t next = 0;
  while (next < stale)
    next = platform("Next", 1, {0, 1});
  ASSERT_EQ(stale, next);
  tab.reset();
  EXPECT_NE(nullptr, store.entity(next)) << "an id used again is not the tab's to remove";
}

TEST_F(ManualMergeTab, MergeMakesANewPlatformOfTheTickedStretchesAndLeavesTheSourcesAlone)
{
  list({primary, second, third});
  click("includeNoOriginalIdCheckBox");
  click("detectPushButton");
  ASSERT_EQ(4, dropoutRows().topLevelItemCount());
  dropoutRows().topLevelItem(2)->setCheckState(0, Qt::Unchecked); // third's 7..9
  click("mergePushButton");

  const UniqueID_t merged = store.findPlatform("Hawk_Merge");
  ASSERT_NE(0u, merged);
  EXPECT_EQ((std::vector<double>{0, 1, 2, 3, 4, 5, 6, 10, 11, 12, 30}), times(merged));
  EXPECT_EQ((std::vector<double>{0, 1, 2, 10, 11, 12, 30}), times(primary)) << "sources untouched";
  EXPECT_EQ(5.0, altitudeAt(merged, 5)) << "where the second has data the third never overrides it";
  EXPECT_EQ(1003.0, altitudeAt(merged, 3)) << "the third fills what the second leaves open";
  EXPECT_EQ((std::vector<double>{4, 5, 6}), times(second));
  std::vector<PIData::PICategoryDataPoint> sources;
  PIData::retrieveAllCategoryData(merged, &sources);
  std::vector<std::pair<double, std::string>> written;
  for (const auto& item : sources)
    if (item.name == CommonMerge::MergeSourceCategoryName)
      written.emplace_back(item.time, item.value);
  ASSERT_GE(written.size(), 3u);
  EXPECT_EQ(0.0, written[0].first) << "the primary opens the slice";
  EXPECT_EQ("Hawk_No_Source_7", written[0].second);
  EXPECT_TRUE(std::any_of(written.begin(), written.end(),
                          [](const auto& w) { return w.first == 4.0 && w.second == "Hawk B_No_Source_22"; }));
  EXPECT_TRUE(std::any_of(written.begin(), written.end(), [](const auto& w) { return w.first > 9.0 && w.first <= 10.0 && w.second == "Hawk_No_Source_7"; }))
    << "the primary takes over when the hole ends";

  EXPECT_EQ(0, ordered().topLevelItemCount()) << "Merge starts afresh";
  EXPECT_EQ(0, dropoutRows().topLevelItemCount());
  EXPECT_EQ("N/A", child<QLabel>("endTimeLabel")->text());
}

TEST(ManualMergeRules, RegularExpressionCharactersAreEscapedOnce)
{
  EXPECT_EQ("A\\.B", ManualMergeWidget::escapeForRegex("A.B"));
  EXPECT_EQ("a\\\\b", ManualMergeWidget::escapeForRegex("a\\b")) << "a backslash doubles, its escape is left alone";
  EXPECT_EQ("\\(x\\|y\\)\\$\\^\\#\\{\\[\\+\\?", ManualMergeWidget::escapeForRegex("(x|y)$^#{[+?"));
  EXPECT_EQ("\\.\\.", ManualMergeWidget::escapeForRegex("..")) << "neighbours both escaped";
  EXPECT_EQ("plain name", ManualMergeWidget::escapeForRegex("plain name"));
  EXPECT_EQ(12u, ManualMergeWidget::DEFAULT_COLORS.size());
}
