#include "actions/ScenarioPropertiesDialog.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "plugin/MiscellaneousWidget.h"
#include "plugin/UnitsWidget.h"
#include "support/ServerFixture.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "widgets/UnitsComboBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>

#include <functional>

using namespace QtSep;

namespace
{

class MiscellaneousTab : public ServerFixture
{
protected:
  // Answers the next modal dialog after letting the test change it.
  void answer(bool accept, std::function<void(QDialog&)> change)
  {
    QTimer::singleShot(50, [accept, change]() {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(nullptr, dialog);
      change(*dialog);
      accept ? dialog->accept() : dialog->reject();
    });
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
  answer(false, [](QDialog& dialog) { dialog.findChild<QSpinBox*>("genericPrecision")->setValue(7); });
  click("unitsPushButton");
  EXPECT_EQ(0, changed.count());
  EXPECT_EQ(-1, PURegistry::loadReg(-1, UnitsWidget::GENERIC_PRECISION_KEY));

  answer(true, [](QDialog& dialog) { dialog.findChild<QSpinBox*>("genericPrecision")->setValue(7); });
  click("unitsPushButton");
  EXPECT_EQ(1, changed.count());
  EXPECT_EQ(7, PURegistry::loadReg(-1, UnitsWidget::GENERIC_PRECISION_KEY));
}

TEST_F(MiscellaneousTab, EditingTheScenarioWritesItsPropertiesOnAccept)
{
  PIData::initializeScenario();
  PIData::setReferenceYear(2021);
  answer(false, [](QDialog& dialog) { static_cast<ScenarioPropertiesDialog&>(dialog).ui().referenceYear->setValue(2024); });
  click("editPushButton");
  EXPECT_EQ(2021, PIData::getReferenceYear());

  answer(true, [](QDialog& dialog) { static_cast<ScenarioPropertiesDialog&>(dialog).ui().referenceYear->setValue(2024); });
  click("editPushButton");
  EXPECT_EQ(2024, PIData::getReferenceYear());
}
