#include "server/KelvorServer.h"

#include "host/ContextMenuCallback.h"
#include "host/PIObject.h"
#include "store/ScenarioStore.h"

namespace kelvor
{

KelvorServer::KelvorServer(ScenarioStore& store, HostServices& services, Registry& registry)
  : state_{store, services, registry, {}, {}, {}, {}, {}, {}, 1, {}, {}, {}, nullptr, {}},
    entities_(state_),
    points_(state_),
    scenario_(state_),
    tables_(state_),
    services_(state_)
{
}

std::int64_t KelvorServer::operator()(void* identity, PIServerFunctions_t family, void* record)
{
  if (identity != state_.caller)
    noteCaller_(identity);
  state_.caller = identity;
  if (EntityRequests::serves(family))
    return entities_.serve(family, record);
  if (PointRequests::serves(family))
    return points_.serve(family, record);
  if (ScenarioRequests::serves(family))
    return scenario_.serve(family, record);
  if (TableRequests::serves(family))
    return tables_.serve(record);
  if (ServiceRequests::serves(family))
    return services_.serve(family, record);
  return 1;
}

void KelvorServer::noteCaller_(void* identity)
{
  StoreJournal* journal = state_.store.journal();
  auto name = state_.callerNames.find(identity);
  if (journal && name != state_.callerNames.end())
    journal->setImplicitName("Edit by " + name->second);
}

// The wrappers' classes live in the plug-in, whose type information the host does not link;
// the sanitizer's check of the dynamic type would need it.
__attribute__((no_sanitize("vptr"))) void KelvorServer::releaseGarbage(void* identity)
{
  std::vector<PIObject*> owned;
  for (const auto& [object, owner] : state_.garbage)
  {
    if (owner == identity)
      owned.push_back(object);
  }
  // Each wrapper takes itself off the list as it goes.
  for (PIObject* object : owned)
    delete object;
}

std::unique_ptr<ContextMenu> KelvorServer::buildContextMenu(int what, const std::vector<UniqueID_t>& ids)
{
  auto menu = std::make_unique<ContextMenu>();
  state_.liveMenus.insert(menu.get());
  // A copy: a callback may remove itself while it is called.
  const auto callbacks = state_.menuCallbacks;
  const auto clicked = static_cast<PIKELVOR::WhatWasClicked>(what);
  for (PIKELVOR::ContextMenuCallback* callback : callbacks)
  {
    if (what == PIKELVOR::CLICKED_VIEW)
      callback->menuRequested(clicked, ids.empty() ? 0UL : static_cast<unsigned long>(ids.front()), menu.get());
    else
      callback->menuRequested(clicked, std::vector<unsigned long>(ids.begin(), ids.end()), {}, menu.get());
  }
  state_.liveMenus.clear();
  return menu;
}

std::string KelvorServer::iconBytes(long id) const
{
  auto it = state_.icons.find(id);
  return it == state_.icons.end() ? std::string() : it->second;
}

} // namespace kelvor
