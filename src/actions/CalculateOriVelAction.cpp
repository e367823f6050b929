#include "actions/CalculateOriVelAction.h"

#include "actions/CalculateOriVelDialog.h"
#include "host/PICommon.h"
#include "plugin/ActionUtilities.h"
#include "processing/PUCalculation.h"

#include <algorithm>

namespace QtSep
{

namespace
{

/// "orientation and velocity ", "orientation " or "velocity ".
std::string whatWasCalculated(bool orientation, bool velocity)
{
  return std::string(orientation ? "orientation " : "") + (orientation && velocity ? "and " : "") +
         (velocity ? "velocity " : "");
}

} // namespace

CalculateOriVelAction::CalculateOriVelAction(QWidget* parent)
  : CommandAction(parent, "Calculate Ori / Vel...", std::string(), WEIGHT, true)
{
}

bool CalculateOriVelAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int CalculateOriVelAction::onCmdCalculateOriVel(PIObject*, void*)
{
  runCommand_();
  return 1;
}

int CalculateOriVelAction::run_()
{
  CalculateOriVelDialog dialog(parentWidget());
  dialog.loadSettings();
  if (dialog.exec() != QDialog::Accepted)
    return 1;
  dialog.saveSettings();
  const bool lagrangian = dialog.type() == CalculateOriVelDialog::LAGRANGIAN;
  calculate(selection(), lagrangian, lagrangian ? dialog.lagrangianOrientation() : dialog.deltaOrientation(),
            lagrangian ? dialog.lagrangianVelocity() : dialog.deltaVelocity(),
            static_cast<unsigned int>(dialog.lagrangianPoints()));
  return 1;
}

std::vector<unsigned long> CalculateOriVelAction::calculate(const std::vector<EntityInfo>& platforms, bool lagrangian, bool orientation,
                                      bool velocity, unsigned int points)
{
  PICommon::beginWaitCursor();
  std::vector<unsigned long> ids;
  std::vector<unsigned long> failed;
  for (const EntityInfo& platform : platforms)
  {
    ids.push_back(platform.id);
    std::string error;
    const int status = lagrangian ? PUCalculation::lagrangianOriVel(platform.id, orientation, velocity, points, error)
                                  : PUCalculation::deltaOriVel(platform.id, orientation, velocity, error);
    if (status != 0)
    {
      PICommon::notify("Calculation for platform " + platform.name + " failed due to: " + error, PICommon::NOTIFY_WARN);
      failed.push_back(platform.id);
      continue;
    }
    if (lagrangian)
      Action::addAudit(platform.id, "Lagrangian calculation for " + whatWasCalculated(orientation, velocity) + "with " +
                                      std::to_string(points) + " points");
    else
      Action::addAudit(platform.id, "Delta position calculation for " + whatWasCalculated(orientation, velocity));
  }
  fireChangeCallback(ids);
  PICommon::endWaitCursor();
  return failed;
}

} // namespace QtSep
