#include "actions/ScenarioPropertiesDialog.h"
#include "actions/ScenarioTimesDialog.h"
#include "actions/TimeSliceDialog.h"
#include "widgets/TimeWidget.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "plugin/MiscellaneousWidget.h"
#include "plugin/UnitsWidget.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "widgets/UnitsComboBox.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QSlider>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QHeaderView>
#include <QSpinBox>
#include <QTreeWidget>

#include <functional>

using namespace QtSep;

namespace
{

class MiscellaneousTab : public ServerFixture
{
protected:
  // Clicks a button and answers the dialog it opens, after letting the test change it.
  void clickAndAnswer(const char* button, bool accept, std::function<void(QDialog&)> change)
  {
    const auto answered = answerNext<QDialog>(accept, std::move(change));
    click(button);
  }
  void click(const char* name) { tab.findChild<QPushButton*>(name)->click(); }

  MiscellaneousWidget tab;
};

} // namespace

TEST_F(MiscellaneousTab, OffersItsEditorsWithTheirTips)
{
  const auto* edit = tab.findChild<QPushButton*>("editPushButton");
  ASSERT_NE(nullptr, edit);
  EXPECT_EQ("Edit...", edit->text());
  EXPECT_EQ("Displays an editor to adjust most scenario properties.", edit->toolTip());
  const auto* units = tab.findChild<QPushButton*>("unitsPushButton");
  ASSERT_NE(nullptr, units);
  EXPECT_EQ("Edit Units...", units->text());
  EXPECT_EQ("Displays a unit editor.", units->toolTip());
  QStringList labels;
  for (QLabel* label : tab.findChildren<QLabel*>())
    labels << label->text();
  EXPECT_TRUE(labels.contains("Edit Scenario"));
  EXPECT_TRUE(labels.contains("Units that apply to all tabs:"));
  EXPECT_FALSE(tab.dirty());
}

TEST_F(MiscellaneousTab, UnitsAreStoredAndAnnouncedOnlyWhenAccepted)
{
  QSignalSpy changed(&tab, &MiscellaneousWidget::unitsChanged);
  clickAndAnswer("unitsPushButton", false, [](QDialog& dialog) { dialog.findChild<QSpinBox*>("genericPrecision")->setValue(7); });
  EXPECT_EQ(0, changed.count());
  EXPECT_EQ(-1, PURegistry::loadReg(-1, UnitsWidget::GENERIC_PRECISION_KEY));

  clickAndAnswer("unitsPushButton", true, [](QDialog& dialog) { dialog.findChild<QSpinBox*>("genericPrecision")->setValue(7); });
  EXPECT_EQ(1, changed.count());
  EXPECT_EQ(7, PURegistry::loadReg(-1, UnitsWidget::GENERIC_PRECISION_KEY));
}

TEST_F(MiscellaneousTab, EditingTheScenarioWritesItsPropertiesOnAccept)
{
  PIData::initializeScenario();
  PIData::setReferenceYear(2021);
  clickAndAnswer("editPushButton", false, [](QDialog& dialog) { static_cast<ScenarioPropertiesDialog&>(dialog).ui().referenceYear->setValue(2024); });
  EXPECT_EQ(2021, PIData::getReferenceYear());

  clickAndAnswer("editPushButton", true, [](QDialog& dialog) { static_cast<ScenarioPropertiesDialog&>(dialog).ui().referenceYear->setValue(2024); });
  EXPECT_EQ(2024, PIData::getReferenceYear());
}

TEST_F(MiscellaneousTab, TheValidationWindowShowsEveryColumnWhole)
{
  PIData::initializeScenario();
  for (const char* name : {"A platform with a rather long name from a recorder", "Another long-named platform"})
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : {10.0, 20.0})
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, t};
      PIData::addDataPoint(id, &point);
    }
    PIData::PICategoryDataPoint late{40.0, "Side", "Red"};
    PIData::addCategoryData(id, &late);
  }
  int last = -1;
  int contentsRight = 0;
  int shownRight = 0;
  {
    WhenShown<QDialog> shown([&](QDialog& dialog) {
      auto* tree = dialog.findChild<QTreeWidget*>("issuesTreeWidget");
      last = tree->columnCount() - 1;
      int widest = tree->header()->sectionSizeHint(last);
      for (int row = 0; row < tree->topLevelItemCount(); ++row)
      {
        if (QWidget* button = tree->itemWidget(tree->topLevelItem(row), last))
          widest = std::max(widest, button->sizeHint().width());
      }
      contentsRight = tree->header()->sectionPosition(last) + widest;
      shownRight = tree->viewport()->width();
      dialog.reject();
    });
    click("validatePushButton");
  }
  EXPECT_EQ(2, last) << "two repairs offered";
  EXPECT_LE(contentsRight, shownRight) << "the last column is not cut off";
}

TEST_F(MiscellaneousTab, EditTimesMovesTheScenarioToTheNewStart)
{
  PIData::initializeScenario();
  PIData::setReferenceYear(2023);
  PIData::PIPlatformHeader header;
  const UniqueID_t hawk = PIData::createPlatform(&header, nullptr);
  for (double t : {100.0, 400.0})
  {
    PIData::PIPlatformPoint point;
    point.time = t;
    point.position = {0.5, -2.0, 0.0};
    PIData::addDataPoint(hawk, &point);
  }
  PIData::clockAutoConfigureBeginEnd();
  auto* times = tab.findChild<QPushButton*>("timesPushButton");
  ASSERT_NE(nullptr, times);
  EXPECT_EQ("Edit Times...", times->text());
  EXPECT_EQ("Displays a time editor to adjust the reference year and/or start time.", times->toolTip());

  clickAndAnswer("timesPushButton", true, [](QDialog& dialog) {
    auto& edit = static_cast<ScenarioTimesDialog&>(dialog);
    EXPECT_EQ("Scenario Times Dialog", edit.objectName());
    const QString endBefore = edit.findChild<QLabel*>("endTimeLabel")->text();
    edit.referenceYearSpinBox().setValue(2024);
    EXPECT_EQ(100.0, edit.startSeconds()) << "a new year alone keeps the start's seconds";
    edit.startTimeWidget().setTimeStamp(kelCore::TimeStamp(2024, 100.0 + 86400.0));
    emit edit.startTimeWidget().timeEdited(edit.startTimeWidget().timeStamp());
    EXPECT_NE(endBefore, edit.findChild<QLabel*>("endTimeLabel")->text()) << "the end follows the start";
  });
  EXPECT_EQ(2024, PIData::getReferenceYear());
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(hawk, 0.0, 1e9, &points);
  ASSERT_EQ(2u, points.size());
  EXPECT_EQ(100.0 + 86400.0, points[0].time);
  EXPECT_EQ(400.0 + 86400.0, points[1].time);

  clickAndAnswer("timesPushButton", false, [](QDialog& dialog) {
    static_cast<ScenarioTimesDialog&>(dialog).startTimeWidget().setTimeStamp(kelCore::TimeStamp(2024, 0.0));
  });
  EXPECT_EQ(100.0 + 86400.0, PIData::clockGetBegin()) << "cancelled: nothing moves";
}

TEST(TimeSlice, ADurationPastTheEndPullsTheStartBackButNotPastTheBegin)
{
  TimeSliceDialog dialog(2024);
  EXPECT_EQ("Time Slice Editor", dialog.windowTitle());
  dialog.setScenarioTimeRange(1000.0, 2000.0);
  dialog.setTimeSliceRange(1500.0, 1600.0);
  auto* duration = dialog.findChild<QSlider*>("durationSlider");
  auto* start = dialog.findChild<QSlider*>("startSlider");
  ASSERT_TRUE(duration && start);
  EXPECT_EQ(5000, start->value());
  EXPECT_EQ(1000, duration->value()) << "100 s of 1000";

  emit duration->sliderMoved(8000); // 800 s from 1500 runs 300 s past the end
  double begin = 0, end = 0;
  dialog.getTimeSliceRange(begin, end);
  EXPECT_EQ(1200.0, begin);
  EXPECT_EQ(2000.0, end);
  emit duration->sliderMoved(10000); // longer than the whole scenario after the move
  dialog.getTimeSliceRange(begin, end);
  EXPECT_EQ(1000.0, begin) << "never before the scenario's begin";
  EXPECT_EQ(2000.0, end);

  auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  EXPECT_TRUE(ok->isEnabled());
  dialog.setTimeSliceRange(1500.0, 1500.0);
  EXPECT_FALSE(ok->isEnabled()) << "start must be before end";
  EXPECT_EQ(0, duration->value());
}
