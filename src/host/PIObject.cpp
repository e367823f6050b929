#include "host/PIObject.h"

#include "host/PIGarbageCollector.h"
#include "host/PIGuiServerGarbage.h"
#include "host/PluginGlobals.h"
#include "host/handle.h"

PIObject::PIObject()
{
  if (PIGUI::AddObjectToServerGarbage(this) == 0)
    return;
  if (!g_PI_GarbageCollector)
    g_PI_GarbageCollector = new PIGarbageCollector();
  if (!g_PI_GarbageCollector->destroying())
    g_PI_GarbageCollector->add(this);
}

PIObject::~PIObject()
{
  if (hostOwnsCounterpart_ && hostHandle_)
    handle(PISF_DESTROY_WINDOW, hostHandle_);
  PIGUI::RemoveObjectFromServerGarbage(this);
  if (g_PI_GarbageCollector && !g_PI_GarbageCollector->destroying())
    g_PI_GarbageCollector->remove(this);
}
