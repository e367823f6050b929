#include "host/PIKELVOR.h"

#include "host/PICommon.h"
#include "host/PIIcon.h"
#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIKELVOR
{

namespace
{

constexpr int KELVOR10_APPLICATION_ID = 5;

int menuRequest(int selector, void* menu, void* functor, const std::string& text, int weight, void* icon = nullptr,
                bool enabled = true)
{
  auto r = PIRequest::catchAll(selector, {weight, enabled ? 1 : 0});
  r.strings = {text};
  r.pointers = {menu, functor, icon};
  return PIRequest::send(PISF_CONTEXT_MENU, r);
}

PI_DATA_CATCHALL viewRequest(int selector, std::int64_t argument = 0)
{
  auto r = PIRequest::catchAll(selector, {argument});
  handle(PISF_VIEW, &r);
  return r;
}

} // namespace

bool runningInKELVOR10() { return PICommon::getApplicationId() == KELVOR10_APPLICATION_ID; }

int registerContextMenuCallback(ContextMenuCallback* callback)
{
  return menuRequest(PISelector::MENU_REGISTER_CALLBACK, nullptr, callback, std::string(), 0);
}

int removeContextMenuCallback(ContextMenuCallback* callback)
{
  return menuRequest(PISelector::MENU_REMOVE_CALLBACK, nullptr, callback, std::string(), 0);
}

int addContextMenuItem(void* menu, const std::string& text, FunctorTwoParams__* functor, int weight,
                       PIGUI::PIIcon* icon, bool enabled)
{
  return menuRequest(PISelector::MENU_ADD_ITEM, menu, functor, text, weight, icon ? icon->hostHandle() : nullptr,
                     enabled);
}

void* addContextMenuSubMenu(void* menu, const std::string& text, int weight)
{
  auto r = PIRequest::catchAll(PISelector::MENU_ADD_SUB_MENU, {weight, 1});
  r.strings = {text};
  r.pointers = {menu, nullptr, nullptr};
  return PIRequest::send(PISF_CONTEXT_MENU, r) == 0 ? r.pointerAt(0) : nullptr;
}

int addContextMenuSeparator(void* menu, int weight)
{
  return menuRequest(PISelector::MENU_ADD_SEPARATOR, menu, nullptr, std::string(), weight);
}

bool getUseAlias(unsigned long id)
{
  return viewRequest(PISelector::VIEW_GET_USE_ALIAS, static_cast<std::int64_t>(id)).integerAt(1) != 0;
}

std::string getCurrentViewport()
{
  const auto r = viewRequest(PISelector::VIEW_GET_CURRENT_VIEWPORT);
  return r.strings.empty() ? std::string() : r.strings[0];
}

int tetherCamera(const std::string& viewport, unsigned long id)
{
  auto r = PIRequest::catchAll(PISelector::VIEW_TETHER_CAMERA, {static_cast<std::int64_t>(id)});
  r.strings = {viewport};
  return PIRequest::send(PISF_VIEW, r);
}

int addPrefRule(const std::string& rule, int persistence, long* ruleId)
{
  auto r = PIRequest::catchAll(PISelector::PREF_ADD_RULE, {persistence});
  r.strings = {rule};
  if (handle(PISF_PREFERENCES, &r) != 0)
    return 1;
  const long id = static_cast<long>(r.integerAt(1));
  if (id == 0)
    return 1;
  if (ruleId)
    *ruleId = id;
  return 0;
}

int removePrefRule(long ruleId)
{
  auto r = PIRequest::catchAll(PISelector::PREF_REMOVE_RULE, {ruleId});
  return PIRequest::send(PISF_PREFERENCES, r);
}

int setPrefDrawFlag(UniqueID_t id, bool draw, bool withChildren)
{
  auto r = PIRequest::catchAll(PISelector::PREF_SET_DRAW, {static_cast<std::int64_t>(id), draw ? 1 : 0,
                                                           withChildren ? 1 : 0});
  return PIRequest::send(PISF_PREFERENCES, r);
}

int setPrefFlag(UniqueID_t id, const std::string& flag, bool on)
{
  auto r = PIRequest::catchAll(PISelector::PREF_SET_DRAW_FLAG, {static_cast<std::int64_t>(id), on ? 1 : 0});
  r.strings = {flag};
  return PIRequest::send(PISF_PREFERENCES, r);
}

int getPrefBool(UniqueID_t id, const std::string& preference, bool* value)
{
  if (!value)
    return 1;
  auto r = PIRequest::catchAll(PISelector::PREF_GET_BOOL, {static_cast<std::int64_t>(id), 0});
  r.strings = {preference};
  if (PIRequest::send(PISF_PREFERENCES, r) != 0)
    return 1;
  *value = r.integerAt(3) != 0;
  return 0;
}

int getAttachedGOGFiles(UniqueID_t id, std::vector<std::string>* files)
{
  if (!files)
    return 1;
  auto r = PIRequest::catchAll(PISelector::GOG_GET_ATTACHED, {static_cast<std::int64_t>(id)});
  r.pointers = {files};
  return PIRequest::send(PISF_GOG, r);
}

int loadGOGFile(const std::string& file, UniqueID_t id)
{
  auto r = PIRequest::catchAll(PISelector::GOG_LOAD, {static_cast<std::int64_t>(id)});
  r.strings = {file};
  return PIRequest::send(PISF_GOG, r);
}

int getMouseCursorLLA(double* lat, double* lon, double* alt, int viewport)
{
  auto r = PIRequest::catchAll(PISelector::VIEW_GET_MOUSE_CURSOR_LLA, {viewport});
  r.integers[1] = 1; // no host, no cursor
  if (PIRequest::send(PISF_VIEW, r) != 0 || r.doubles.size() < 3)
    return 1;
  if (lat)
    *lat = r.doubles[0];
  if (lon)
    *lon = r.doubles[1];
  if (alt)
    *alt = r.doubles[2];
  return 0;
}

long createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2, double alt2,
                        unsigned int color, int width)
{
  auto r = PIRequest::catchAll(PISelector::VIEW_CREATE_ANIMATED_LINE, {color, width});
  r.doubles = {lat1, lon1, alt1, lat2, lon2, alt2};
  handle(PISF_VIEW, &r);
  return static_cast<long>(r.integerAt(1));
}

int removeAnimatedLine(long lineId)
{
  auto r = PIRequest::catchAll(PISelector::VIEW_REMOVE_ANIMATED_LINE, {lineId});
  return PIRequest::send(PISF_VIEW, r);
}

int grabMouse()
{
  auto r = PIRequest::catchAll(PISelector::VIEW_GRAB_MOUSE);
  return PIRequest::send(PISF_VIEW, r);
}

int releaseMouse()
{
  auto r = PIRequest::catchAll(PISelector::VIEW_RELEASE_MOUSE);
  return PIRequest::send(PISF_VIEW, r);
}

} // namespace PIKELVOR
