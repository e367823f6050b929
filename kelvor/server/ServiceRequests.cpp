#include "server/ServiceRequests.h"

#include "host/BindableInterface.h"
#include "host/ContextMenuCallback.h"
#include "host/PIKELVOR.h"
#include "host/PIServerSelectors.h"
#include "host/PI_DATA_CATCHALL.h"
#include "server/HostServices.h"
#include "server/Registry.h"
#include "server/ServerState.h"
#include "store/ScenarioStore.h"

#include <algorithm>
#include <set>

#include <utility>

namespace kelvor
{

namespace
{

constexpr int APPLICATION_ID_KELVOR10 = 5;

std::int64_t finish(PI_DATA_CATCHALL& r, bool ok)
{
  if (r.integers.size() > 1)
    r.integers[1] = ok ? 0 : 1;
  return ok ? 0 : 1;
}

// An answer in the status slot, for the operations whose result is an integer.
std::int64_t answer(PI_DATA_CATCHALL& r, std::int64_t value)
{
  r.integers.resize(std::max<std::size_t>(r.integers.size(), 2));
  r.integers[1] = value;
  return 0;
}

void setPointer(PI_DATA_CATCHALL& r, void* value)
{
  r.pointers.resize(std::max<std::size_t>(r.pointers.size(), 1));
  r.pointers[0] = value;
}

std::string text(const PI_DATA_CATCHALL& r, std::size_t i) { return i < r.strings.size() ? r.strings[i] : std::string(); }

} // namespace

bool ServiceRequests::serves(PIServerFunctions_t family)
{
  return family == PISF_OVERRIDE_THIS_POINTER || family == PISF_DESTROY_WINDOW || family == PISF_SERVER_GARBAGE ||
         family == PISF_SERVICE || (family >= PISF_APPLICATION && family <= PISF_GOG);
}

std::int64_t ServiceRequests::serve(PIServerFunctions_t family, void* record)
{
  if (family == PISF_DESTROY_WINDOW)
    return destroyWindow_(record);
  if (!record)
    return 1;
  switch (family)
  {
  case PISF_OVERRIDE_THIS_POINTER: return override_(record);
  case PISF_SERVER_GARBAGE: return garbage_(record);
  case PISF_SERVICE: return service_(record);
  case PISF_APPLICATION: return application_(record);
  case PISF_NOTIFY: return notify_(record);
  case PISF_REGISTRY: return registry_(record);
  case PISF_CONTEXT_MENU: return contextMenu_(record);
  case PISF_MENU_ITEM: return menuItem_(record);
  case PISF_PROGRESS_DIALOG: return progress_(record);
  case PISF_VIEW: return view_(record);
  case PISF_PREFERENCES: return preferences_(record);
  case PISF_GOG: return gog_(record);
  default: return 1;
  }
}

std::int64_t ServiceRequests::override_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  auto& stack = state_.overrideStack;
  switch (r.integerAt(0))
  {
  case 0:
    setPointer(r, stack.empty() ? nullptr : stack.back());
    return 0;
  case 1:
    stack.push_back(r.pointerAt(0));
    return finish(r, true);
  case 2: {
    const bool popped = !stack.empty();
    if (popped)
      stack.pop_back();
    return finish(r, popped);
  }
  default:
    return finish(r, false);
  }
}

std::int64_t ServiceRequests::destroyWindow_(void* pointer)
{
  auto it = state_.handles.find(static_cast<HostHandle*>(pointer));
  if (it == state_.handles.end())
    return 1;
  const HostHandle handle = *it->second;
  switch (handle.kind)
  {
  case HostHandle::MENU_ITEM:
    state_.pluginMenu.remove(handle.id);
    state_.services.pluginMenusChanged();
    break;
  case HostHandle::ICON:
    state_.icons.erase(handle.id);
    break;
  case HostHandle::PROGRESS_DIALOG:
    state_.services.destroyProgress(handle.id);
    break;
  }
  state_.handles.erase(it);
  return 0;
}

std::int64_t ServiceRequests::garbage_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  auto* object = static_cast<PIObject*>(r.pointerAt(0));
  if (r.integerAt(0) == 0)
    state_.garbage[object] = state_.caller;
  else
    state_.garbage.erase(object);
  // The host ends the wrappers at the plug-in's unload (KelvorServer::releaseGarbage); the
  // plug-in need not collect them.
  return finish(r, true);
}

std::int64_t ServiceRequests::service_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  auto* client = static_cast<PICommon::BindingClient*>(r.pointerAt(0));
  if (!client)
    return finish(r, false);
  if (r.integerAt(0) == PISelector::SERVICE_UNBIND)
  {
    const bool bound = state_.boundClients.erase(client) > 0;
    if (bound)
      client->onServiceDisconnected();
    return finish(r, bound);
  }
  // Only the signal service exists; binding to another name is no error, it just binds nothing.
  if (text(r, 0) != state_.signalService.serviceName())
    return finish(r, false);
  state_.boundClients.insert(client);
  client->onServiceConnected(&state_.signalService);
  return finish(r, true);
}

std::int64_t ServiceRequests::application_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  switch (r.integerAt(0))
  {
  case PISelector::APPLICATION_ID: return answer(r, APPLICATION_ID_KELVOR10);
  case PISelector::APPLICATION_BEGIN_WAIT_CURSOR: state_.services.beginWaitCursor(); return finish(r, true);
  case PISelector::APPLICATION_END_WAIT_CURSOR: state_.services.endWaitCursor(); return finish(r, true);
  case PISelector::APPLICATION_MAIN_WINDOW: setPointer(r, state_.services.mainWindow()); return finish(r, true);
  default: return finish(r, false);
  }
}

std::int64_t ServiceRequests::notify_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  if (r.integerAt(0) == PISelector::NOTIFY_LINE)
    state_.services.notify(text(r, 0), static_cast<int>(r.integerAt(2)));
  else if (r.integerAt(0) == PISelector::NOTIFY_TOAST)
    state_.services.showToast(text(r, 0), static_cast<int>(r.integerAt(2)));
  else
    return finish(r, false);
  return finish(r, true);
}

std::int64_t ServiceRequests::registry_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  Registry& registry = state_.registry;
  const std::string key = text(r, 0);
  switch (r.integerAt(0))
  {
  case PISelector::REGISTRY_SET_VALUE:
    registry.setValue(key, text(r, 1));
    return finish(r, true);
  case PISelector::REGISTRY_GET_VALUE: {
    auto* value = static_cast<std::string*>(r.pointerAt(0));
    return finish(r, value && registry.value(key, *value));
  }
  case PISelector::REGISTRY_SET_STRING_VECTOR:
    registry.setStringVector(key, std::vector<std::string>(r.strings.begin() + std::min<std::size_t>(1, r.strings.size()),
                                                           r.strings.end()));
    return finish(r, true);
  case PISelector::REGISTRY_GET_STRING_VECTOR: {
    auto* values = static_cast<std::vector<std::string>*>(r.pointerAt(0));
    return finish(r, values && registry.stringVector(key, *values));
  }
  default:
    return finish(r, false);
  }
}

std::int64_t ServiceRequests::contextMenu_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  auto& callbacks = state_.menuCallbacks;
  if (r.integerAt(0) == PISelector::MENU_REGISTER_CALLBACK || r.integerAt(0) == PISelector::MENU_REMOVE_CALLBACK)
  {
    auto* callback = static_cast<PIKELVOR::ContextMenuCallback*>(r.pointerAt(1));
    auto it = std::find(callbacks.begin(), callbacks.end(), callback);
    if (!callback)
      return finish(r, false);
    if (r.integerAt(0) == PISelector::MENU_REMOVE_CALLBACK)
    {
      if (it == callbacks.end())
        return finish(r, false);
      callbacks.erase(it);
    }
    else if (it == callbacks.end())
      callbacks.push_back(callback);
    return finish(r, true);
  }
  // Menus exist only while the host builds them; a stale menu pointer is refused.
  auto* menu = static_cast<ContextMenu*>(r.pointerAt(0));
  if (!state_.liveMenus.count(menu))
    return finish(r, false);
  const int weight = static_cast<int>(r.integerAt(2));
  switch (r.integerAt(0))
  {
  case PISelector::MENU_ADD_ITEM: {
    const HostHandle* icon = state_.handle(r.pointerAt(2), HostHandle::ICON);
    menu->addItem(text(r, 0), static_cast<FunctorTwoParams__*>(r.pointerAt(1)), weight, icon ? icon->id : 0,
                  r.integerAt(3, 1) != 0);
    return finish(r, true);
  }
  case PISelector::MENU_ADD_SUB_MENU: {
    ContextMenu* sub = menu->addSubMenu(text(r, 0), weight);
    state_.liveMenus.insert(sub);
    setPointer(r, sub);
    return finish(r, true);
  }
  case PISelector::MENU_ADD_SEPARATOR:
    menu->addSeparator(weight);
    return finish(r, true);
  default:
    return finish(r, false);
  }
}

std::int64_t ServiceRequests::menuItem_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  switch (r.integerAt(0))
  {
  case PISelector::ITEM_CREATE: {
    const long id = state_.pluginMenu.add(text(r, 0), static_cast<FunctorTwoParams__*>(r.pointerAt(1)));
    setPointer(r, state_.newHandle(HostHandle::MENU_ITEM, id));
    state_.services.pluginMenusChanged();
    return finish(r, true);
  }
  case PISelector::ITEM_SET_ICON: {
    const HostHandle* item = state_.handle(r.pointerAt(0), HostHandle::MENU_ITEM);
    const HostHandle* icon = state_.handle(r.pointerAt(1), HostHandle::ICON);
    if (!item || !icon || !state_.pluginMenu.item(item->id))
      return finish(r, false);
    state_.pluginMenu.item(item->id)->icon = icon->id;
    state_.services.pluginMenusChanged();
    return finish(r, true);
  }
  case PISelector::ITEM_SET_ENABLED: {
    const HostHandle* item = state_.handle(r.pointerAt(0), HostHandle::MENU_ITEM);
    if (!item || !state_.pluginMenu.item(item->id))
      return finish(r, false);
    state_.pluginMenu.item(item->id)->enabled = r.integerAt(2) != 0;
    state_.services.pluginMenusChanged();
    return finish(r, true);
  }
  case PISelector::ICON_LOAD_PNG: {
    const long id = state_.nextIcon++;
    state_.icons[id] = text(r, 0);
    setPointer(r, state_.newHandle(HostHandle::ICON, id));
    return finish(r, true);
  }
  default:
    return finish(r, false);
  }
}

std::int64_t ServiceRequests::progress_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  HostServices& services = state_.services;
  if (r.integerAt(0) == PISelector::PROGRESS_CREATE)
  {
    const long id = services.createProgress(text(r, 0), text(r, 1), static_cast<int>(r.integerAt(2)));
    setPointer(r, state_.newHandle(HostHandle::PROGRESS_DIALOG, id));
    return finish(r, true);
  }
  const HostHandle* dialog = state_.handle(r.pointerAt(0), HostHandle::PROGRESS_DIALOG);
  if (!dialog)
    return finish(r, false);
  const int value = static_cast<int>(r.integerAt(2));
  switch (r.integerAt(0))
  {
  case PISelector::PROGRESS_SHOW: services.showProgress(dialog->id); return finish(r, true);
  case PISelector::PROGRESS_SET_MAXIMUM: services.setProgressMaximum(dialog->id, value); return finish(r, true);
  case PISelector::PROGRESS_SET_VALUE: services.setProgressValue(dialog->id, value); return finish(r, true);
  case PISelector::PROGRESS_IS_CANCELED: return answer(r, services.isProgressCanceled(dialog->id) ? 1 : 0);
  case PISelector::PROGRESS_RUN_WHILE_EVENTS: services.runWhileEvents(dialog->id); return finish(r, true);
  default: return finish(r, false);
  }
}

std::int64_t ServiceRequests::view_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  HostServices& services = state_.services;
  const UniqueID_t id = static_cast<UniqueID_t>(r.integerAt(2));
  switch (r.integerAt(0))
  {
  case PISelector::VIEW_GET_MOUSE_CURSOR_LLA: {
    double lat = 0, lon = 0, alt = 0;
    if (!services.mouseCursorLla(lat, lon, alt))
      return finish(r, false);
    r.doubles = {lat, lon, alt};
    return finish(r, true);
  }
  case PISelector::VIEW_CREATE_ANIMATED_LINE: {
    if (r.doubles.size() < 6)
      return finish(r, false);
    const long line = services.createAnimatedLine(r.doubles[0], r.doubles[1], r.doubles[2], r.doubles[3], r.doubles[4],
                                                  r.doubles[5], static_cast<unsigned int>(r.integerAt(2)),
                                                  static_cast<int>(r.integerAt(3, 1)));
    return answer(r, line);
  }
  case PISelector::VIEW_REMOVE_ANIMATED_LINE: services.removeAnimatedLine(static_cast<long>(id)); return finish(r, true);
  case PISelector::VIEW_GET_CURRENT_VIEWPORT: r.strings = {services.currentViewport()}; return finish(r, true);
  case PISelector::VIEW_TETHER_CAMERA: services.tetherCamera(text(r, 0), id); return finish(r, true);
  case PISelector::VIEW_GET_USE_ALIAS: {
    const Entity* e = state_.store.entity(id);
    return answer(r, e && e->useAlias ? 1 : 0);
  }
  case PISelector::VIEW_GET_OBJECT_ALIAS: {
    const Entity* e = state_.store.entity(id);
    r.strings = {e ? e->alias : std::string()};
    return finish(r, e != nullptr);
  }
  case PISelector::VIEW_GRAB_MOUSE: services.grabMouse(); return finish(r, true);
  case PISelector::VIEW_RELEASE_MOUSE: services.releaseMouse(); return finish(r, true);
  default: return finish(r, false);
  }
}

std::int64_t ServiceRequests::preferences_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  ScenarioStore& store = state_.store;
  switch (r.integerAt(0))
  {
  case PISelector::PREF_ADD_RULE: {
    if (text(r, 0).empty())
      return finish(r, false);
    const long id = store.addPreferenceRule(text(r, 0), r.integerAt(2) != PIKELVOR::PREF_RULE_SESSION);
    store.dataChanged({0});
    return answer(r, id);
  }
  case PISelector::PREF_REMOVE_RULE: {
    const bool removed = store.removePreferenceRule(static_cast<long>(r.integerAt(2)));
    if (removed)
      store.dataChanged({0});
    return finish(r, removed);
  }
  case PISelector::PREF_SET_DRAW_FLAG:
    store.setDrawFlag(static_cast<UniqueID_t>(r.integerAt(2)), text(r, 0), r.integerAt(3) != 0);
    store.dataChanged({static_cast<UniqueID_t>(r.integerAt(2))});
    return finish(r, true);
  case PISelector::PREF_SET_DRAW: {
    const auto id = static_cast<UniqueID_t>(r.integerAt(2));
    if (!store.entity(id))
      return finish(r, false);
    // With its children, a beam's gates go too: the list grows as it is walked.
    std::vector<UniqueID_t> ids{id};
    for (std::size_t next = 0; r.integerAt(4) != 0 && next < ids.size(); ++next)
      for (UniqueID_t child : store.list(PI_ALL_TYPES, ids[next]))
        ids.push_back(child);
    for (UniqueID_t each : ids)
      store.setDrawFlag(each, "Hidden", r.integerAt(3) == 0);
    store.dataChanged(std::set<UniqueID_t>(ids.begin(), ids.end()));
    return finish(r, true);
  }
  case PISelector::PREF_GET_BOOL: {
    // The scene hides an entity by its "Hidden" draw flag; the two drawing preferences read it.
    const std::string name = text(r, 0);
    const auto id = static_cast<UniqueID_t>(r.integerAt(2));
    if ((name != "commonPrefs.draw" && name != "commonPrefs.dataDraw") || !store.entity(id))
      return finish(r, false);
    r.integers.resize(std::max<std::size_t>(r.integers.size(), 4));
    r.integers[3] = store.drawFlag(id, "Hidden") ? 0 : 1;
    return finish(r, true);
  }
  default:
    return finish(r, false);
  }
}

std::int64_t ServiceRequests::gog_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  ScenarioStore& store = state_.store;
  const UniqueID_t id = static_cast<UniqueID_t>(r.integerAt(2));
  if (id != 0 && !store.entity(id))
    return finish(r, false);
  switch (r.integerAt(0))
  {
  case PISelector::GOG_GET_ATTACHED: {
    auto* files = static_cast<std::vector<std::string>*>(r.pointerAt(0));
    if (!files)
      return finish(r, false);
    *files = store.attachedGogFiles(id);
    return finish(r, true);
  }
  case PISelector::GOG_LOAD:
    if (text(r, 0).empty())
      return finish(r, false);
    store.attachGogFile(id, text(r, 0));
    store.dataChanged({id});
    return finish(r, true);
  default:
    return finish(r, false);
  }
}

} // namespace kelvor
