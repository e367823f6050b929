#include "utils/CategoryFilterManager.h"

#include "host/PIDataCategories.h"
#include "host/PIDataEntities.h"
#include "host/PIDataScenario.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace PUCategoryFilter
{

namespace
{

/// Every category with its value texts, in number order: what a listener shows.
std::vector<std::pair<std::string, std::vector<std::string>>> listsOf(const CategoryManager& manager)
{
  std::vector<std::pair<std::string, std::vector<std::string>>> lists;
  for (const auto& [number, strings] : manager.categories())
  {
    std::vector<std::string> values;
    for (int value : strings.values())
      values.push_back(strings.getCategoryValueString(value));
    lists.emplace_back(strings.name(), std::move(values));
  }
  return lists;
}

} // namespace

void Manager::addListener(Listener* listener)
{
  if (listener && std::find(listeners_.begin(), listeners_.end(), listener) == listeners_.end())
    listeners_.push_back(listener);
}

void Manager::removeListener(Listener* listener)
{
  listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), listener), listeners_.end());
}

bool Manager::syncListsToScenario(bool force)
{
  if (!PIData::isScenarioInitialized())
    return false;
  const auto before = listsOf(manager_);
  manager_.clear();
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  for (UniqueID_t platform : platforms)
    addPlatform_(platform);
  const bool changed = listsOf(manager_) != before;
  if (changed || force)
    fireSyncedToScenario_();
  return changed;
}

bool Manager::addFromPlatforms(const std::vector<UniqueID_t>& ids)
{
  bool grew = false;
  for (UniqueID_t id : ids)
  {
    if (PIData::getObjectType(id) == PI_PLATFORM_TYPE)
      grew = addPlatform_(id) || grew;
  }
  if (grew)
    fireSyncedToScenario_();
  return grew;
}

bool Manager::addPlatform_(UniqueID_t id)
{
  std::vector<PIData::PICategoryDataPoint> items;
  PIData::retrieveAllCategoryData(id, &items);
  bool grew = false;
  for (const auto& item : items)
  {
    const int category = manager_.findCategory(item.name);
    if (category >= 0 && manager_.categories().at(category).findValue(item.value) >= 0)
      continue;
    int number = 0;
    int value = 0;
    manager_.addAndGetCategoryNameAndValue(item.name, item.value, number, value);
    grew = true;
  }
  return grew;
}

void Manager::listenToEvents(PIApplicationEvents_t event, void* data)
{
  switch (event)
  {
  case PI_EVENT_SCENARIO_RESET:
    syncListsToScenario(false);
    break;
  case PI_EVENT_PLATFORM_ADDED:
    if (data)
      addFromPlatforms({*static_cast<const UniqueID_t*>(data)});
    break;
  case PI_EVENT_ENTITY_DATA_CHANGED:
    if (data)
    {
      // Id 0 stands for the whole scenario.
      const auto& ids = *static_cast<const std::set<UniqueID_t>*>(data);
      if (ids.count(0) != 0)
        syncListsToScenario(false);
      else
        addFromPlatforms(std::vector<UniqueID_t>(ids.begin(), ids.end()));
    }
    break;
  default:
    break;
  }
}

void Manager::fireSyncedToScenario_()
{
  // A copy, so that a listener may remove itself while it is told.
  const std::vector<Listener*> listeners = listeners_;
  for (Listener* listener : listeners)
    listener->syncedToScenario();
}

} // namespace PUCategoryFilter
