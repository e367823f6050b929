#include "host/PIMenuItem.h"

#include "host/PIIcon.h"
#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIGUI
{

PIMenuItem::PIMenuItem(PIMenu* menu, const std::string& text, FunctorTwoParams__* functor)
{
  auto r = PIRequest::catchAll(PISelector::ITEM_CREATE);
  r.strings = {text};
  r.pointers = {menu, functor, static_cast<PIObject*>(this)};
  handle(PISF_MENU_ITEM, &r);
  setHostHandle(r.pointerAt(0));
}

int PIMenuItem::setIcon(PIIcon* icon)
{
  if (!icon)
    return 1;
  auto r = PIRequest::catchAll(PISelector::ITEM_SET_ICON);
  r.pointers = {hostHandle(), icon->hostHandle()};
  return PIRequest::send(PISF_MENU_ITEM, r);
}

} // namespace PIGUI
