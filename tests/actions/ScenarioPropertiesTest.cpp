#include "actions/CreateScenario.h"
#include "actions/ScenarioPropertiesDialog.h"
#include "host/PIData.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "widgets/ColorWidget.h"

#include <QApplication>

#include <cmath>
#include <functional>

using namespace QtSep;

namespace
{

constexpr double DEG = M_PI / 180.0;

class ScenarioProperties : public ServerFixture
{
protected:
  // Answers the next properties dialog: fill lets the test set its fields first.
  static auto answer(bool accept, std::function<void(ScenarioPropertiesDialog&)> fill = {})
  {
    return answerNext<ScenarioPropertiesDialog>(accept, std::move(fill));
  }
};

TEST_F(ScenarioProperties, ANewScenarioStartsFromItsDefaults)
{
  ScenarioPropertiesDialog dialog(true);
  EXPECT_EQ("ScenarioPropertiesDialog", dialog.objectName());
  EXPECT_EQ("New Scenario", dialog.windowTitle());
  EXPECT_EQ(ScenarioPropertiesDialog::currentYear(), dialog.referenceYear());
  EXPECT_EQ("Scenario Editor Plug-in", dialog.source());
  EXPECT_TRUE(dialog.ui().source->isEnabled());
  EXPECT_EQ("Manually entered scenario data", dialog.description());
  EXPECT_EQ("UNCLASSIFIED", dialog.classification());
  EXPECT_TRUE(dialog.ui().windSpeed->toolTip().startsWith("<strong>Wind Speed</strong><div"));

  dialog.ui().referenceYear->setValue(2050);
  EXPECT_EQ(2038, dialog.referenceYear()) << "a year after 2038 cannot be entered";
  dialog.ui().referenceYear->setValue(1900);
  EXPECT_EQ(1970, dialog.referenceYear());
}

TEST_F(ScenarioProperties, EditingShowsTheOpenScenarioInDegrees)
{
  PIData::initializeScenario();
  PIData::setReferenceYear(2021);
  PIData::setOriginLLA(35.5 * DEG, -117.25 * DEG, 700.0);
  PIData::setTangentPlaneOffsets(10.0, -20.0, 15.0 * DEG);
  PIData::setDescription("Range day");
  PIData::setClassificationColor(0xFF000080);
  PIData::setWindDirection(270.0 * DEG);
  ScenarioPropertiesDialog dialog(false);
  EXPECT_EQ("Edit Scenario", dialog.windowTitle());
  EXPECT_FALSE(dialog.ui().source->isEnabled()) << "the source is fixed once the scenario exists";
  EXPECT_EQ(2021, dialog.referenceYear());
  EXPECT_NEAR(35.5, dialog.ui().latitude->value(), 1e-9);
  EXPECT_NEAR(15.0, dialog.ui().angleOffset->value(), 1e-9);
  EXPECT_NEAR(270.0, dialog.ui().windDirection->value(), 1e-9);
  EXPECT_EQ("Range day", dialog.description());
  EXPECT_EQ(0xFF000080u, dialog.classificationColor());
}

TEST_F(ScenarioProperties, CreatingReplacesTheScenarioAndCancellingLeavesIt)
{
  PIData::initializeScenario();
  PIData::PIPlatformHeader header;
  PIData::PIPlatformPoint first;
  first.time = 5.0;
  first.position = {0.1, 0.2, 0.0};
  PIData::createPlatform(&header, &first);
  PIData::clockSetMode(PI_CLOCK_STEPPED, -1.0);

  {
    const auto cancelled = answer(false);
    EXPECT_EQ(1, createScenario(nullptr));
  }
  EXPECT_EQ(1u, store.entityCount()) << "cancelled: the old scenario stays";

  const auto accepted = answer(true, [](ScenarioPropertiesDialog& d) {
    d.ui().referenceYear->setValue(2030);
    d.ui().latitude->setValue(10.0);
    d.ui().longitude->setValue(-20.0);
    d.ui().altitude->setValue(5.5);
    d.ui().source->setText("Range 7 recorder");
    d.ui().windSpeed->setValue(3.0);
  });
  EXPECT_EQ(0, createScenario(nullptr));
  EXPECT_EQ(0u, store.entityCount());
  EXPECT_TRUE(PIData::isScenarioInitialized());
  EXPECT_EQ(2030, PIData::getReferenceYear());
  EXPECT_NEAR(10.0 * DEG, PIData::getLatitudeOrigin(), 1e-12);
  EXPECT_NEAR(-20.0 * DEG, PIData::getLongitudeOrigin(), 1e-12);
  EXPECT_EQ(5.5, PIData::getAltitudeOrigin());
  EXPECT_EQ(3.0, PIData::getWindSpeed());
  EXPECT_EQ(PI_CLOCK_FILE_PLAYBACK, PIData::clockGetMode()) << "a new scenario plays back from a file";
}

TEST_F(ScenarioProperties, EditingAppliesToTheOpenScenarioAndKeepsItsEntities)
{
  PIData::initializeScenario();
  PIData::PIPlatformHeader header;
  PIData::PIPlatformPoint first;
  first.time = 0.0;
  first.position = {0.1, 0.2, 0.0};
  PIData::createPlatform(&header, &first);
  ScenarioPropertiesDialog dialog(false);
  dialog.ui().description->setText("Edited");
  dialog.ui().classification->setText("SECRET//TEST");
  dialog.ui().xOffset->setValue(250.0);
  applyScenarioProperties(dialog);
  EXPECT_EQ("Edited", PIData::getDescription());
  EXPECT_EQ("SECRET//TEST", PIData::getClassification());
  EXPECT_EQ(250.0, PIData::getTangentPlaneOffsetX());
  EXPECT_EQ(1u, store.entityCount());
}

} // namespace
