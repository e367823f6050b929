#include "actions/RemoveDuplicatePointsAction.h"

#include "host/PICommon.h"
#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"
#include "processing/RemoveDuplicatePoints.h"

#include <algorithm>

namespace QtSep
{

const char* const RemoveDuplicatePointsAction::CONFIRM_KEY = "ConfirmRemoveDuplicatePoints";

// Offered only in the plug-in's own entity menus.
RemoveDuplicatePointsAction::RemoveDuplicatePointsAction(QWidget* parent)
  : CommandAction(parent, "Remove Duplicate Points", CONFIRM_KEY, WEIGHT, false)
{
}

int RemoveDuplicatePointsAction::run_()
{
  if (!confirm_("Remove Duplicate Points", "Remove duplicate points from the selected entities?"))
    return 0;
  std::vector<UniqueID_t> ids;
  for (const EntityInfo& entity : selection())
    ids.push_back(entity.id);
  const bool wholeScenario = std::any_of(selection().begin(), selection().end(),
                                         [](const EntityInfo& entity) { return (entity.type & PI_ALL_TYPES) != 0; });
  if (wholeScenario)
  {
    ids.clear();
    PIData::getObjectList(&ids);
  }

  PICommon::beginWaitCursor();
  const std::vector<UniqueID_t> changed = RemoveDuplicatePoints().remove(ids);
  if (!changed.empty())
  {
    fireChangeCallback(std::vector<unsigned long>(changed.begin(), changed.end()));
    PICommon::showToastNotification("Points Removed", PICommon::TOAST_MEDIUM);
  }
  else
    PICommon::showToastNotification("No Points Removed", PICommon::TOAST_MEDIUM);
  PICommon::endWaitCursor();
  return 0;
}

} // namespace QtSep
