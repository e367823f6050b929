#include "host/PIBase.h"

#include "host/PISupportFunctionMap.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/PluginGlobals.h"
#include "host/handle.h"

namespace
{

enum OverrideSelector
{
  OVERRIDE_GET = 0,
  OVERRIDE_PUSH = 1,
  OVERRIDE_POP = 2
};

// The override requests go straight to the map with a null identity: they are what decides
// the identity of every other request, so they cannot go through handle().
bool sendOverrideRequest(PI_DATA_CATCHALL& record)
{
  if (!g_FunctionMap)
  {
    reportMissingSupportMap();
    return false;
  }
  (*g_FunctionMap)(nullptr, PISF_OVERRIDE_THIS_POINTER, &record);
  return true;
}

} // namespace

std::string PIBase::versionString()
{
  return std::to_string(majorVersion()) + "." + std::to_string(minorVersion()) + "." +
         std::to_string(revisionVersion());
}

double PIBase::legacyApiVersion() { return legacyApiVersion(majorVersion(), minorVersion(), revisionVersion()); }

double PIBase::legacyApiVersion(int major, int minor, int revision)
{
  if (major == 0)
    return minor * 0.01;
  if (major == 1 && minor <= 9)
    return 1.0 + minor * 0.1 + revision * 0.001;
  if (major == 1)
    return 1.9 + minor * 0.0001 + revision * 0.000001;
  return major + minor * 0.01 + revision * 0.0001;
}

int PIBase::pushOverrideThisPointer(void* identity)
{
  PI_DATA_CATCHALL record = PI_DATA_CATCHALL::withSelector(OVERRIDE_PUSH);
  record.pointers.push_back(identity);
  if (!sendOverrideRequest(record))
    return 0;
  return static_cast<int>(record.integerAt(1));
}

int PIBase::popOverrideThisPointer()
{
  PI_DATA_CATCHALL record = PI_DATA_CATCHALL::withSelector(OVERRIDE_POP);
  if (!sendOverrideRequest(record))
    return 0;
  return static_cast<int>(record.integerAt(1));
}

void* PIBase::getOverriddenThisPointer()
{
  PI_DATA_CATCHALL record = PI_DATA_CATCHALL::withSelector(OVERRIDE_GET);
  record.pointers.push_back(nullptr);
  if (!sendOverrideRequest(record))
    return nullptr;
  return record.pointerAt(0);
}
