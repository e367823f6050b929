#include "host/PIIcon.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIGUI
{

int PIIcon::loadPNGByArray(const unsigned char* data, std::size_t size, bool transparent)
{
  if (!data || size == 0)
    return 1;
  auto r = PIRequest::catchAll(PISelector::ICON_LOAD_PNG, {transparent ? 1 : 0});
  r.strings = {std::string(reinterpret_cast<const char*>(data), size)};
  r.pointers = {this};
  if (PIRequest::send(PISF_MENU_ITEM, r) != 0 || !r.pointerAt(0))
    return 1;
  setHostHandle(r.pointerAt(0));
  return 0;
}

} // namespace PIGUI
