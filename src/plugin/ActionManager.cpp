#include "plugin/ActionManager.h"

#include "host/PIClockMode.h"
#include "host/PIDataClock.h"
#include "host/PIDataScenario.h"
#include "actions/AddEntityAction.h"
#include "actions/CalculateOriVelAction.h"
#include "actions/CopyAction.h"
#include "actions/DecimateAction.h"
#include "actions/DeleteAction.h"
#include "actions/DeleteScenarioAction.h"
#include "actions/ExtendLifeAction.h"
#include "actions/GogExportAction.h"
#include "actions/MakeStationaryAction.h"
#include "actions/MergeAction.h"
#include "actions/PasteAction.h"
#include "actions/RemoveDuplicatePointsAction.h"
#include "actions/RenameAction.h"
#include "actions/TransformPlatformAction.h"
#include "actions/VelocityAction.h"
#include "host/PIKELVOR.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>

namespace QtSep
{

namespace
{

constexpr int CLOSING_RULE_WEIGHT = 205;

} // namespace

ActionManager::ActionManager(QWidget* parent, QObject* owner) : QObject(owner)
{
  // In the order of the command table.
  auto addEntity = std::make_unique<AddEntityAction>(parent);
  connect(addEntity.get(), &AddEntityAction::entityAdded, this, &ActionManager::entityAdded);
  actions_.push_back(std::move(addEntity));
  actions_.push_back(std::make_unique<CalculateOriVelAction>(parent));
  actions_.push_back(std::make_unique<CopyAction>());
  actions_.push_back(std::make_unique<DecimateAction>(parent));
  actions_.push_back(std::make_unique<DeleteAction>(parent));
  actions_.push_back(std::make_unique<DeleteScenarioAction>(parent));
  actions_.push_back(std::make_unique<ExtendLifeAction>(parent));
  actions_.push_back(std::make_unique<GogExportAction>(parent));
  actions_.push_back(std::make_unique<MakeStationaryAction>(parent));
  actions_.push_back(std::make_unique<MergeAction>(parent));
  actions_.push_back(std::make_unique<PasteAction>());
  actions_.push_back(std::make_unique<RemoveDuplicatePointsAction>(parent));
  actions_.push_back(std::make_unique<RenameAction>(parent));
  actions_.push_back(std::make_unique<TransformPlatformAction>(parent));
  actions_.push_back(std::make_unique<VelocityAction>(parent));
}

ActionManager::~ActionManager() = default;

bool ActionManager::mayOfferMenus()
{
  if (!PIData::isScenarioInitialized())
    return false;
  const int mode = PIData::clockGetMode();
  return mode == PI_CLOCK_FILE_PLAYBACK || mode == PI_CLOCK_STEPPED;
}

std::vector<EntityInfo> ActionManager::entitiesOf(const std::vector<unsigned long>& ids)
{
  std::vector<EntityInfo> entities;
  entities.reserve(ids.size());
  for (unsigned long id : ids)
  {
    // The scenario's kind is every kind: actions on it apply to the whole scenario.
    const PIScenarioObjectType_t type = id == 0 ? PI_ALL_TYPES : getEntityType(id);
    entities.push_back(EntityInfo{id, type, getEntityName(id)});
  }
  return entities;
}

void ActionManager::menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids, void* menu)
{
  if (what != PIKELVOR::CLICKED_ENTITY_LIST || ids.empty() || !mayOfferMenus())
    return;
  const std::vector<EntityInfo> entities = entitiesOf(ids);
  for (const auto& action : actions_)
    action->menuRequested(what, entities, menu);
  if (dialogActionsEnabled_)
    for (const auto& action : dialogActions_)
      action->menuRequested(what, entities, menu);
  PIKELVOR::addContextMenuSeparator(menu, CLOSING_RULE_WEIGHT);
}

void ActionManager::menuRequested(const std::vector<unsigned long>& ids, std::vector<MenuInfo*>& items)
{
  if (!mayOfferMenus())
    return;
  const std::vector<EntityInfo> entities = ids.empty() ? std::vector<EntityInfo>{EntityInfo{0, PI_ALL_TYPES, ""}}
                                                       : entitiesOf(ids);
  for (const auto& action : actions_)
    action->menuRequested(entities, items);
  for (const auto& action : dialogActions_)
    action->menuRequested(entities, items);
  std::stable_sort(items.begin(), items.end(), sortByWeight);
}

} // namespace QtSep
