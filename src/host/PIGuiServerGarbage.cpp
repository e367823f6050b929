#include "host/PIGuiServerGarbage.h"

#include "host/PI_DATA_CATCHALL.h"
#include "host/handle.h"

namespace
{

int sendGarbageRequest(int selector, PIObject* object)
{
  PI_DATA_CATCHALL record = PI_DATA_CATCHALL::withSelector(selector);
  record.pointers.push_back(object);
  handle(PISF_SERVER_GARBAGE, &record);
  return static_cast<int>(record.integerAt(1));
}

} // namespace

namespace PIGUI
{

int AddObjectToServerGarbage(PIObject* object) { return sendGarbageRequest(0, object); }

int RemoveObjectFromServerGarbage(PIObject* object) { return sendGarbageRequest(1, object); }

} // namespace PIGUI
