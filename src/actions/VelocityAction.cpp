#include "actions/VelocityAction.h"

#include "actions/VelocityDialog.h"
#include "host/PIDataPoints.h"
#include "merge/CommonMerge.h"
#include "plugin/ActionUtilities.h"
#include "processing/ByCalculatedSpeed.h"
#include "processing/ByGivenSpeed.h"

#include <algorithm>
#include <limits>

namespace QtSep
{

VelocityAction::VelocityAction(QWidget* parent)
  : CommandAction(parent, "Velocity Filtering...", std::string(), WEIGHT, true)
{
}

VelocityAction::~VelocityAction() = default;

bool VelocityAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int VelocityAction::onCmdVelocity(PIObject*, void*)
{
  runCommand_();
  return 1;
}

std::unique_ptr<SpeedFilter> VelocityAction::getFilter_(const VelocityDialog& dialog)
{
  std::unique_ptr<SpeedFilter> filter;
  if (dialog.usePlatformPosition())
    filter = std::make_unique<ByCalculatedSpeed>();
  else
    filter = std::make_unique<ByGivenSpeed>();
  filter->minVelocityMs = dialog.minVelocityMs();
  filter->maxVelocityMs = dialog.maxVelocityMs();
  return filter;
}

int VelocityAction::run_()
{
  VelocityDialog dialog(parentWidget());
  dialog.loadSettings();
  if (dialog.exec() != QDialog::Accepted)
    return 1;
  dialog.saveSettings();
  const std::unique_ptr<SpeedFilter> filter = getFilter_(dialog);
  fireChangeCallback(filterPlatforms(selection(), *filter));
  return 1;
}

std::vector<unsigned long> VelocityAction::filterPlatforms(const std::vector<EntityInfo>& platforms,
                                                           const SpeedFilter& filter)
{
  PIData::PICoordReferenceFrame geodetic;
  geodetic.coordinateSystem = PI_COORDSYS_LLA;
  const double whole = std::numeric_limits<double>::max();
  const std::string audit = "Filtered by " + filter.description() + " with limit of [" +
                            std::to_string(static_cast<long long>(filter.minVelocityMs)) + "," +
                            std::to_string(static_cast<long long>(filter.maxVelocityMs)) + "] m/s";
  std::vector<unsigned long> ids;
  for (const EntityInfo& platform : platforms)
  {
    ids.push_back(platform.id);
    std::vector<PIData::PIPlatformPoint> points;
    if (PIData::getDataPoints(platform.id, -whole, whole, &points, geodetic) == 0)
    {
      std::vector<PIData::PIPlatformPoint> kept;
      filter.filterPlatform_(points, kept);
      CommonMerge::ReplaceDataPoints(platform.id, kept, true);
    }
    Action::addAudit(platform.id, audit);
  }
  return ids;
}

} // namespace QtSep
