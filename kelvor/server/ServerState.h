#pragma once

#include "server/ContextMenu.h"
#include "server/HostHandle.h"
#include "server/PluginMenu.h"
#include "server/SignalService.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace PICommon
{
class BindingClient;
}
namespace PIKELVOR
{
class ContextMenuCallback;
}
class PIObject;

namespace kelvor
{

class HostServices;
class Registry;
class ScenarioStore;

/// What the request handlers share: the store, the window services and the host's tables.
struct ServerState
{
  ScenarioStore& store;
  HostServices& services;
  Registry& registry;

  std::vector<void*> overrideStack;                         ///< identities pushed by plug-ins
  std::map<PIObject*, void*> garbage;                       ///< wrappers deleted at their plug-in's unload
  std::vector<PIKELVOR::ContextMenuCallback*> menuCallbacks; ///< in the order registered
  std::set<ContextMenu*> liveMenus;                         ///< menus being built now
  PluginMenu pluginMenu;
  std::map<long, std::string> icons;                        ///< PNG bytes by icon id
  long nextIcon = 1;
  std::map<HostHandle*, std::unique_ptr<HostHandle>> handles; ///< every handle given out
  SignalService signalService;
  std::set<PICommon::BindingClient*> boundClients;
  void* caller = nullptr; ///< identity of the plug-in whose request is served
  std::map<void*, std::string> callerNames; ///< each running plug-in's name, by identity

  /// @return a new handle of kind and id, kept until destroyed.
  HostHandle* newHandle(HostHandle::Kind kind, long id)
  {
    auto handle = std::make_unique<HostHandle>(HostHandle{kind, id});
    HostHandle* raw = handle.get();
    handles[raw] = std::move(handle);
    return raw;
  }
  /// @return the handle if it is live and of kind, else null.
  HostHandle* handle(void* pointer, HostHandle::Kind kind) const
  {
    auto it = handles.find(static_cast<HostHandle*>(pointer));
    return it != handles.end() && it->second->kind == kind ? it->second.get() : nullptr;
  }
};

} // namespace kelvor
