#include "host/PIWindow.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIGUI
{

int PIWindow::setEnabled(bool enabled)
{
  auto r = PIRequest::catchAll(PISelector::ITEM_SET_ENABLED, {enabled ? 1 : 0});
  r.pointers = {hostHandle()};
  return PIRequest::send(PISF_MENU_ITEM, r);
}

} // namespace PIGUI
