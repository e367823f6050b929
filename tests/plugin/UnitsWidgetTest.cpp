#include "host/PURegistry.h"
#include "plugin/UnitsWidget.h"
#include "support/ServerFixture.h"
#include "widgets/UnitsComboBox.h"

#include <QLabel>
#include <QSpinBox>

using QtSep::UnitsWidget;

namespace
{

class UnitsPage : public ServerFixture
{
protected:
  kelQt::UnitsComboBox* combo(UnitsWidget& page, const char* name)
  {
    return page.findChild<kelQt::UnitsComboBox*>(name);
  }
  QSpinBox* spin(UnitsWidget& page, const char* name) { return page.findChild<QSpinBox*>(name); }
};

} // namespace

TEST_F(UnitsPage, ShowsTheDefaultsWhenNothingIsStored)
{
  UnitsWidget page;
  EXPECT_EQ("LLA", combo(page, "coordCombo")->currentText());
  EXPECT_EQ(4, combo(page, "timeCombo")->currentData().toInt()) << "ordinal";
  EXPECT_EQ(1, combo(page, "geodeticCombo")->currentData().toInt());
  EXPECT_EQ(6, spin(page, "geodeticPrecision")->value());
  EXPECT_EQ("meters", combo(page, "altitudeCombo")->currentData().toString().toLower());
  EXPECT_EQ(3, spin(page, "genericPrecision")->value());
  EXPECT_EQ(3, combo(page, "durationCombo")->count()) << "seconds, minutes, hours";
  for (const char* name : {"timePrecision", "durationPrecision", "altitudePrecision", "distancePrecision",
         "speedPrecision", "anglePrecision"})
    EXPECT_NE(nullptr, spin(page, name)) << name;
  QStringList labels;
  for (QLabel* label : page.findChildren<QLabel*>())
    labels << label->text();
  EXPECT_TRUE(labels.contains("Generic Units:"));
  EXPECT_TRUE(labels.contains("Coordinate System:"));
}

TEST_F(UnitsPage, SavedChoicesComeBackAndStrangeStoredValuesFallBack)
{
  {
    UnitsWidget page;
    combo(page, "timeCombo")->setCurrentData(7);
    combo(page, "speedCombo")->setCurrentIndex(combo(page, "speedCombo")->count() - 1);
    spin(page, "anglePrecision")->setValue(5);
    page.saveSettings();
  }
  EXPECT_EQ(7, PURegistry::loadReg(0, UnitsWidget::TIME_FORMAT_KEY));
  EXPECT_EQ(5, PURegistry::loadReg(0, UnitsWidget::ANGLE_PRECISION_KEY));

  UnitsWidget again;
  EXPECT_EQ(7, combo(again, "timeCombo")->currentData().toInt());
  EXPECT_EQ(combo(again, "speedCombo")->count() - 1, combo(again, "speedCombo")->currentIndex());
  EXPECT_EQ(5, spin(again, "anglePrecision")->value());

  PURegistry::saveReg(UnitsWidget::ANGLE_UNITS_KEY, "furlongs");
  PURegistry::saveReg(UnitsWidget::COORDINATE_SYSTEM_KEY, 99);
  PURegistry::saveReg(UnitsWidget::TIME_PRECISION_KEY, 40);
  again.loadSettings();
  EXPECT_EQ("LLA", combo(again, "coordCombo")->currentText());
  EXPECT_EQ("degrees", combo(again, "angleCombo")->currentData().toString().toLower());
  EXPECT_EQ(9, spin(again, "timePrecision")->value()) << "clamped to the most decimals shown";
}
