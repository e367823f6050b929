#include "actions/RemoveDuplicatePointsAction.h"

#include "host/PICommon.h"
#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"
#include "processing/RemoveDuplicatePoints.h"

#include <QAction>

#include <algorithm>

namespace QtSep
{

const char* const RemoveDuplicatePointsAction::CONFIRM_KEY = "ConfirmRemoveDuplicatePoints";

namespace
{

const char* const TEXT = "Remove Duplicate Points";

} // namespace

RemoveDuplicatePointsAction::RemoveDuplicatePointsAction(QWidget* parent)
  : parent_(parent), action_(new QAction(TEXT, this))
{
  connect(action_, &QAction::triggered, this, &RemoveDuplicatePointsAction::removeDuplicatePoints_);
}

RemoveDuplicatePointsAction::~RemoveDuplicatePointsAction() = default;

void RemoveDuplicatePointsAction::menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items)
{
  entities_ = entities;
  action_->setText(QString::fromStdString(addEllipsisIfConfirm(TEXT, CONFIRM_KEY)));
  items.push_back(new ActionInfo(action_, WEIGHT));
}

void RemoveDuplicatePointsAction::removeDuplicatePoints_()
{
  if (entities_.empty())
    return;
  if (verifyAction(TEXT, "Remove duplicate points from the selected entities?", CONFIRM_KEY, parent_) != 0)
  {
    entities_.clear();
    return;
  }
  std::vector<UniqueID_t> ids;
  for (const EntityInfo& entity : entities_)
    ids.push_back(entity.id);
  const bool wholeScenario = std::any_of(entities_.begin(), entities_.end(),
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
  entities_.clear();
}

} // namespace QtSep
