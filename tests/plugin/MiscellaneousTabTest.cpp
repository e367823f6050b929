#include "actions/ScenarioPropertiesDialog.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "plugin/MiscellaneousWidget.h"
#include "plugin/UnitsWidget.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "widgets/UnitsComboBox.h"

#include <QApplication>
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
