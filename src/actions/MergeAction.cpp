#include "actions/MergeAction.h"

#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"
#include "merge/AutoMerge.h"

#include <algorithm>

namespace QtSep
{

const char* const MergeAction::CONFIRM_KEY = "ConfirmMerge";

MergeAction::MergeAction(QWidget* parent) : CommandAction(parent, "Merge", CONFIRM_KEY, WEIGHT, true) {}

bool MergeAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return entities.size() >= 2 && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int MergeAction::onCmdMerge(PIObject*, void*)
{
  runCommand_();
  return 1;
}

int MergeAction::run_()
{
  if (!confirm_("Merge", "Merge selected entities?"))
    return 1;
  std::vector<UniqueID_t> ids;
  for (const EntityInfo& entity : selection())
    ids.push_back(entity.id);
  AutoMerge().mergeAndRemove(ids);
  return 1;
}

} // namespace QtSep
