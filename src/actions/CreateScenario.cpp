#include "actions/CreateScenario.h"

#include "actions/ScenarioPropertiesDialog.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataScenario.h"
#include "widgets/GuardedDialog.h"

namespace QtSep
{

int createScenario(QWidget* parent)
{
  kelQt::GuardedDialog<ScenarioPropertiesDialog> guarded(true, parent);
  if (guarded.exec() != QDialog::Accepted)
    return 1;
  const ScenarioPropertiesDialog& dialog = *guarded;
  if (PIData::isScenarioInitialized())
  {
    PIData::clockStop();
    PIData::deleteScenario();
  }
  PIData::initializeScenario(dialog.source().toStdString());
  PIData::clockSetMode(PI_CLOCK_FILE_PLAYBACK, 0.0);
  applyScenarioProperties(dialog);
  PIData::clockAutoConfigureBeginEnd();
  return 0;
}

void applyScenarioProperties(const ScenarioPropertiesDialog& dialog)
{
  PIData::setReferenceYear(dialog.referenceYear());
  double lat = 0, lon = 0, alt = 0, x = 0, y = 0, angle = 0;
  dialog.referenceOrigin(lat, lon, alt);
  PIData::setOriginLLA(lat, lon, alt);
  dialog.tangentPlaneOffsets(x, y, angle);
  PIData::setTangentPlaneOffsets(x, y, angle);
  PIData::setDescription(dialog.description().toStdString());
  PIData::setClassification(dialog.classification().toStdString());
  PIData::setClassificationColor(dialog.classificationColor());
  PIData::setWindSpeed(dialog.windSpeed());
  PIData::setWindDirection(dialog.windDirection());
}

} // namespace QtSep
