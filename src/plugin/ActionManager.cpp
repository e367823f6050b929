#include "plugin/ActionManager.h"

#include "host/PIClockMode.h"
#include "host/PIDataClock.h"
#include "host/PIDataScenario.h"
#include "host/PIKELVOR.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>

namespace QtSep
{

namespace
{

constexpr int CLOSING_RULE_WEIGHT = 205;

} // namespace

ActionManager::ActionManager(QWidget*, QObject* owner) : QObject(owner)
{
  // The actions join here as each command is built.
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
    entities.push_back(EntityInfo{id, getEntityType(id), getEntityName(id)});
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
  const std::vector<EntityInfo> entities = ids.empty() ? std::vector<EntityInfo>{EntityInfo{0, PI_NONE_TYPE, ""}}
                                                       : entitiesOf(ids);
  for (const auto& action : actions_)
    action->menuRequested(entities, items);
  for (const auto& action : dialogActions_)
    action->menuRequested(entities, items);
  std::stable_sort(items.begin(), items.end(), sortByWeight);
}

} // namespace QtSep
