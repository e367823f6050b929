#include "actions/ExtendLifeAction.h"

#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>

namespace QtSep
{

const char* const ExtendLifeAction::CONFIRM_KEY = "ConfirmExtendLife";

ExtendLifeAction::ExtendLifeAction(QWidget* parent) : CommandAction(parent, "Extend Life", CONFIRM_KEY, WEIGHT, true) {}

bool ExtendLifeAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int ExtendLifeAction::onCmdExtendEntities(PIObject*, void*)
{
  return runCommand_();
}

void ExtendLifeAction::extendEntities_()
{
  onCmdExtendEntities(nullptr, nullptr);
}

int ExtendLifeAction::run_()
{
  if (!confirm_("Extend Life", "Extend the life span of the entities to the end of the scenario?"))
    return 0;
  const double end = PIData::clockGetEnd();
  std::vector<unsigned long> ids;
  for (const EntityInfo& entity : selection())
  {
    ids.push_back(entity.id);
    const double latest = PIData::getLatestTime(entity.id);
    if (!(latest < end))
      continue;
    PIData::PIPlatformPoint last;
    if (PIData::getDataPoint(entity.id, latest, &last, PI_RETRIEVE_AT_OR_BEFORE) != 0)
      continue;
    last.time = end;
    PIData::addDataPoint(entity.id, &last);
  }
  fireChangeCallback(ids);
  return 0;
}

} // namespace QtSep
