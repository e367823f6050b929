#include "host/GenericDataTags.h"
#include "host/PIClockMode.h"
#include "store/ScenarioStore.h"
#include "store/StoreListener.h"
#include "ui/ClockBar.h"
#include "ui/ContextMenuRenderer.h"
#include "ui/TrackLayer.h"
#include "server/Registry.h"

#include <QAction>
#include <QLabel>
#include <QTemporaryDir>
#include <QMenu>
#include <QSlider>

#include <gtest/gtest.h>

using namespace kelvor;

namespace
{

TEST(GlobeDrawing, TrackColoursComeFromTheLatestTrackColourItem)
{
  ScenarioStore store;
  const UniqueID_t a = store.createEntity(PIData::PIPlatformHeader(), 0);
  const UniqueID_t b = store.createEntity(PIData::PIPlatformHeader(), 0);
  store.editEntity(a)->generic.push_back({-1.0, -1.0, KELVOR_GD_TRACKCOLOR, "0xFF000080"});
  store.editEntity(a)->generic.push_back({5.0, -1.0, KELVOR_GD_TRACKCOLOR, "0x00FF00FF"});
  store.editEntity(b)->generic.push_back({-1.0, -1.0, KELVOR_GD_TRACKCOLOR, "not a colour"});
  TrackLayer layer(store);
  EXPECT_EQ(QColor(0, 255, 0, 255), layer.trackColor(a));
  EXPECT_TRUE(layer.trackColor(b).isValid()) << "a bad value falls back to the palette";
  EXPECT_NE(layer.trackColor(b), QColor(0, 255, 0, 255));

  // Along the track each stretch has the colour in force at its time, drawn opaque.
  EXPECT_EQ(QColor(255, 0, 0), layer.trackColorAt(a, 4.0));
  EXPECT_EQ(QColor(0, 255, 0), layer.trackColorAt(a, 5.0)) << "a colour holds from its own time";
  EXPECT_EQ(QColor(255, 0, 0), layer.trackColorAt(a, -5.0)) << "before the first item, the first";
  store.editEntity(a)->generic.push_back({7.0, -1.0, KELVOR_GD_TRACKCOLOR, "0x0000FF00"});
  EXPECT_EQ(QColor(0, 0, 255, 255), layer.trackColorAt(a, 8.0)) << "a transparent colour still draws";
}

TEST(GlobeDrawing, PreferenceRulesStyleAllTracksOrOneByName)
{
  ScenarioStore store;
  store.addPreferenceRule("TrackWidth=4");
  store.addPreferenceRule("Eagle 1:TrackLength=600");
  store.addPreferenceRule("Eagle 1:TrackDrawMode=Points");
  store.addPreferenceRule("nonsense without an equals sign");
  TrackLayer layer(store);
  const auto eagle = layer.trackStyle("Eagle 1");
  const auto other = layer.trackStyle("Viper 2");
  EXPECT_EQ(4, eagle.width);
  EXPECT_EQ(600.0, eagle.length);
  EXPECT_TRUE(eagle.points);
  EXPECT_EQ(4, other.width);
  EXPECT_EQ(-1.0, other.length) << "a rule for another platform does not apply";
  EXPECT_FALSE(other.points);
}

TEST(GlobeDrawing, KeywordRulesSelectPlatformsByRegularExpression)
{
  ScenarioStore store;
  store.addPreferenceRule(R"(ruleName=TracksDrawMode ruleValue="points" nameExpression="^A\.B$" categoryFilters=" ")");
  store.addPreferenceRule(R"(ruleName=TracksWidth ruleValue="3" nameExpression="^A\.B$" categoryFilters=" ")");
  store.addPreferenceRule(R"(ruleName=TracksLength ruleValue="-1" nameExpression="^Eagle" categoryFilters=" ")");
  store.addPreferenceRule(R"(ruleName=TracksLength ruleValue="60" nameExpression="^Eagle 1$")");
  TrackLayer layer(store);
  EXPECT_TRUE(layer.trackStyle("A.B").points);
  EXPECT_EQ(3, layer.trackStyle("A.B").width);
  EXPECT_FALSE(layer.trackStyle("AxB").points) << "the escaped dot matches a dot only";
  EXPECT_EQ(2, layer.trackStyle("A.B.C").width);
  EXPECT_EQ(60.0, layer.trackStyle("Eagle 1").length) << "the later rule wins";
  EXPECT_EQ(-1.0, layer.trackStyle("Eagle 2").length);
}

TEST(RightClickMenus, RenderedInWeightOrderWithSubMenusRulesAndDisabledItems)
{
  ContextMenu built;
  built.addItem("Delete", nullptr, 500, 0, true);
  built.addItem("Decimate...", nullptr, 200, 0, false);
  built.addSeparator(300);
  ContextMenu* sub = built.addSubMenu("Scenario Editor", 100);
  sub->addItem("Remove Duplicate Points", nullptr, 10, 0, true);
  built.addSubMenu("Empty", 150);
  QMenu menu;
  ContextMenuRenderer::render(built, menu, {});
  QStringList texts;
  for (QAction* a : menu.actions())
    texts << (a->isSeparator() ? "---" : a->text());
  EXPECT_EQ((QStringList{"Scenario Editor", "Decimate...", "---", "Delete"}), texts) << "an empty sub-menu is left out";
  EXPECT_FALSE(menu.actions()[1]->isEnabled());
  ASSERT_NE(nullptr, menu.actions()[0]->menu());
  EXPECT_EQ("Remove Duplicate Points", menu.actions()[0]->menu()->actions()[0]->text());
}

class ModeRecorder : public StoreListener
{
public:
  void entityAdded(UniqueID_t, int) override {}
  void entityRemoving(UniqueID_t) override {}
  void dataChanged(const std::set<UniqueID_t>&) override {}
  void scenarioReset() override {}
  void scenarioClosing() override {}
  void referenceYearChanged() override {}
  void clockModeChanged() override { ++modeChanges; }
  void timeChanged() override { ++timeChanges; }
  int modeChanges = 0;
  int timeChanges = 0;
};

TEST(ClockBarControls, LiveSetsTheLiveModeAndTheSliderMovesTheTime)
{
  QTemporaryDir dir;
  const Registry registry(dir.filePath("registry.ini").toStdString());
  ScenarioStore store;
  ModeRecorder recorder;
  store.setListener(&recorder);
  store.clock().setSpan(100.0, 200.0);
  ClockBar bar(store, registry);
  bar.liveAction()->trigger();
  EXPECT_EQ(PI_CLOCK_LIVE, store.clock().mode());
  EXPECT_EQ(1, recorder.modeChanges);
  bar.liveAction()->trigger();
  EXPECT_EQ(PI_CLOCK_FILE_PLAYBACK, store.clock().mode());

  auto* slider = bar.findChild<QSlider*>();
  ASSERT_NE(nullptr, slider);
  slider->setValue(slider->maximum() / 2);
  EXPECT_DOUBLE_EQ(150.0, store.clock().time());
  EXPECT_EQ(1, recorder.timeChanges);
  store.clock().setMode(PI_CLOCK_LIVE_SIMULATION);
  bar.refresh();
  EXPECT_TRUE(bar.liveAction()->isChecked()) << "both live modes show as Live";
  EXPECT_EQ(2, recorder.modeChanges) << "showing the clock tells no one it changed";
}

std::string label(const ClockBar& bar, const char* name)
{
  const auto* label = bar.findChild<QLabel*>(name);
  return label ? label->text().toStdString() : std::string("no label ") + name;
}

TEST(ClockBarControls, TimesShowInTheUsersTimeFormatDateAndTimeOfDayByDefault)
{
  QTemporaryDir dir;
  Registry registry(dir.filePath("registry.ini").toStdString());
  ScenarioStore store;
  store.editProperties().referenceYear = 2024;
  // 2 February 2024 (day 33) 13:05:09.375, and 1 January 2025 in the leap year's seconds.
  const double feb2 = 32 * 86400.0 + 13 * 3600.0 + 5 * 60.0 + 9.375;
  store.clock().setSpan(feb2, 366 * 86400.0);
  ClockBar bar(store, registry);
  EXPECT_EQ("Time: 033 2024 13:05:09.375", label(bar, "ClockTime")) << "not seconds since the reference year";
  EXPECT_EQ("033 2024 13:05:09.375", label(bar, "ClockBegin"));
  EXPECT_EQ("001 2025 00:00:00.000", label(bar, "ClockEnd"));

  // As the Scenario Editor keeps the user's choice: month and day, one decimal.
  registry.setValue("Time Format", "5");
  registry.setValue("Time Precision", "1");
  bar.refresh();
  EXPECT_EQ("Time: Feb 02 2024 13:05:09.4", label(bar, "ClockTime"));
  registry.setValue("Time Format", "1");
  bar.refresh();
  EXPECT_EQ("Time: 2811909.4", label(bar, "ClockTime")) << "seconds, when the user asks for them";

  registry.setValue("Time Format", "42");
  registry.setValue("Time Precision", "many");
  bar.refresh();
  EXPECT_EQ("Time: 033 2024 13:05:09.375", label(bar, "ClockTime")) << "a choice no format has reads as the default";
}

} // namespace
