#pragma once

#include "host/PISupportFunctionMap.h"
#include "host/UniqueID.h"
#include "server/EntityRequests.h"
#include "server/PointRequests.h"
#include "server/ScenarioRequests.h"
#include "server/ServerState.h"
#include "server/ServiceRequests.h"
#include "server/TableRequests.h"

#include <memory>
#include <vector>

namespace kelvor
{

/**
 * @brief KELVOR Lite's support function map: it decodes each request's family, selector
 * and record and serves it from the store and the host services.
 *
 * The application also uses it to build right-click menus from the plug-ins' callbacks and
 * to read the plug-in menu, icons and signal service.
 */
class KelvorServer : public PISupportFunctionMap
{
public:
  /// @param store the scenario @param services the window services @param registry the settings registry
  KelvorServer(ScenarioStore& store, HostServices& services, Registry& registry);

  std::int64_t operator()(void* identity, PIServerFunctions_t family, void* record) override;

  /**
   * Builds a right-click menu: every registered callback adds its items.
   * @param what where the click was (a PIKELVOR::WhatWasClicked) @param ids the entities clicked
   */
  std::unique_ptr<ContextMenu> buildContextMenu(int what, const std::vector<UniqueID_t>& ids);
  /// @return the number of registered context-menu callbacks.
  std::size_t contextMenuCallbackCount() const { return state_.menuCallbacks.size(); }

  PluginMenu& pluginMenu() { return state_.pluginMenu; }
  /// @return the PNG bytes of an icon, empty for an unknown id.
  std::string iconBytes(long id) const;
  SignalService& signalService() { return state_.signalService; }
  ScenarioStore& store() { return state_.store; }
  /// @return the registry, which also keeps KELVOR Lite's own settings.
  Registry& registry() { return state_.registry; }
  /// @return the window wrappers plug-ins put in the host's garbage list, with the identity of each one's plug-in.
  const std::map<PIObject*, void*>& garbage() const { return state_.garbage; }
  /**
   * Names a plug-in, so that a change it makes outside a command of the host's menus is the
   * undo step "Edit by NAME". @param identity the plug-in's identity at the host
   */
  void nameCaller(void* identity, const std::string& name) { state_.callerNames[identity] = name; }
  /// Deletes the window wrappers a plug-in left in the garbage list; called at its unload, while
  /// its code is still loaded. @param identity the plug-in's identity at the host
  void releaseGarbage(void* identity);

private:
  /// Names the journal's next implicit step after the plug-in now calling.
  void noteCaller_(void* identity);

  ServerState state_;
  EntityRequests entities_;
  PointRequests points_;
  ScenarioRequests scenario_;
  TableRequests tables_;
  ServiceRequests services_;
};

} // namespace kelvor
