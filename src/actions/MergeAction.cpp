#include "actions/MergeAction.h"

#include "host/PIDataEntities.h"
#include "host/PIKELVOR.h"
#include "merge/AutoMerge.h"
#include "plugin/ActionUtilities.h"

#include <QAction>

#include <algorithm>

namespace QtSep
{

const char* const MergeAction::CONFIRM_KEY = "ConfirmMerge";

namespace
{

const char* const TEXT = "Merge";

} // namespace

MergeAction::MergeAction(QWidget* parent)
  : parent_(parent), action_(new QAction(TEXT, this)), functor_(this, &MergeAction::onCmdMerge)
{
  connect(action_, &QAction::triggered, this, [this] { onCmdMerge(nullptr, nullptr); });
}

MergeAction::~MergeAction() = default;

bool MergeAction::canMerge_(const std::vector<EntityInfo>& entities)
{
  return entities.size() >= 2 && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

std::string MergeAction::offer_(const std::vector<EntityInfo>& entities)
{
  entities_.clear();
  if (!canMerge_(entities))
    return std::string();
  entities_ = entities;
  return addEllipsisIfConfirm(TEXT, CONFIRM_KEY);
}

void MergeAction::menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>& entities, void* menu)
{
  const std::string text = offer_(entities);
  if (!text.empty())
    PIKELVOR::addContextMenuItem(menu, text, &functor_, WEIGHT);
}

void MergeAction::menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items)
{
  const std::string text = offer_(entities);
  if (text.empty())
    return;
  action_->setText(QString::fromStdString(text));
  items.push_back(new ActionInfo(action_, WEIGHT));
}

int MergeAction::onCmdMerge(PIObject*, void*)
{
  if (entities_.empty())
    return 1;
  if (verifyAction(TEXT, "Merge selected entities?", CONFIRM_KEY, parent_) != 0)
  {
    entities_.clear();
    return 1;
  }
  std::vector<UniqueID_t> ids;
  for (const EntityInfo& entity : entities_)
    ids.push_back(entity.id);
  AutoMerge().merge(ids);
  for (std::size_t i = 1; i < ids.size(); ++i)
    PIData::removeEntity(ids[i], false);
  entities_.clear();
  return 1;
}

} // namespace QtSep
