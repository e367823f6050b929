#include "actions/MakeStationaryAction.h"

#include "host/PURegistry.h"
#include "plugin/ActionUtilities.h"
#include "processing/MakeStationary.h"

#include <algorithm>

namespace QtSep
{

const char* const MakeStationaryAction::CONFIRM_KEY = "ConfirmMakeStationary";
const char* const MakeStationaryAction::LIFE_SPAN_KEY = "Maintain Life Span";

MakeStationaryAction::MakeStationaryAction(QWidget* parent)
  : CommandAction(parent, "Make Stationary", CONFIRM_KEY, WEIGHT, true)
{
}

bool MakeStationaryAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int MakeStationaryAction::onCmdMakeStationary(PIObject*, void*)
{
  return runCommand_();
}

void MakeStationaryAction::makeStationary_()
{
  onCmdMakeStationary(nullptr, nullptr);
}

int MakeStationaryAction::run_()
{
  if (!confirm_("Make Stationary", "Make the selected platforms stationary?"))
    return 0;
  std::vector<unsigned long> ids;
  for (const EntityInfo& entity : selection())
  {
    // Read for each platform: the tab may change it between two.
    const bool maintainLifeSpan = PURegistry::loadReg(LIFE_SPAN_DEFAULT, LIFE_SPAN_KEY);
    MakeStationary().execute(entity.id, maintainLifeSpan);
    Action::addAudit(entity.id, "Made stationary");
    ids.push_back(entity.id);
  }
  fireChangeCallback(ids);
  return 0;
}

} // namespace QtSep
