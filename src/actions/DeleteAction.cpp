#include "actions/DeleteAction.h"

#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>

namespace QtSep
{

const char* const DeleteAction::CONFIRM_KEY = "ConfirmDelete";

DeleteAction::DeleteAction(QWidget* parent) : CommandAction(parent, "Delete", CONFIRM_KEY, WEIGHT, true) {}

bool DeleteAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && !(entities.size() == 1 && entities.front().id == 0);
}

int DeleteAction::onCmdDeleteEntities(PIObject*, void*)
{
  return runCommand_();
}

void DeleteAction::deleteEntities_()
{
  onCmdDeleteEntities(nullptr, nullptr);
}

int DeleteAction::run_()
{
  if (!confirm_("Delete", "Delete selected entities?"))
    return 0;
  std::vector<EntityInfo> sorted = selection();
  std::stable_sort(sorted.begin(), sorted.end(), sortByType);
  // Highest kinds first, platforms last: a host never goes ahead of its child.
  std::vector<unsigned long> removed;
  while (!sorted.empty())
  {
    const EntityInfo entity = sorted.back();
    sorted.pop_back();
    if (entity.id != 0 && PIData::removeEntity(entity.id, false) == 0)
      removed.push_back(entity.id);
  }
  fireChangeCallback(removed);
  return 0;
}

} // namespace QtSep
