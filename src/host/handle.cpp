#include "host/handle.h"

#include "host/PIBase.h"
#include "host/PISupportFunctionMap.h"
#include "host/PluginGlobals.h"

#include <iostream>

void reportMissingSupportMap()
{
  std::cerr << "Invalid Plug-in API Support Function Map.  Plug-in API calls are being made outside of the "
               "context of a loaded plug-in.\n"
            << "API service request has not been processed.\n"
            << std::flush;
}

std::int64_t handle(PIServerFunctions_t family, void* record)
{
  // The override query is itself a host call, so a call made without a map reports twice:
  // once for the query and once for the request.
  void* identity = PIBase::getOverriddenThisPointer();
  if (!identity)
    identity = g_This;
  if (!g_FunctionMap)
  {
    reportMissingSupportMap();
    return 0;
  }
  return (*g_FunctionMap)(identity, family, record);
}
