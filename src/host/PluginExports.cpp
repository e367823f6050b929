#include "host/PluginExports.h"

#include "host/FunctorTwoParams__.h"
#include "host/PIClientMessageTable.h"
#include "host/PIGarbageCollector.h"
#include "plugin/QtScenarioEditorPlugin.h"

PISupportFunctionMap* g_FunctionMap = nullptr;
void* g_This = nullptr;
PIClientMessageMap g_ClientMessageMap;
std::vector<FunctorTwoParams__*> g_FunctorList;
PIGarbageCollector* g_PI_GarbageCollector = nullptr;

namespace
{

constexpr int compilerVersion()
{
#if defined(__clang__)
  return __clang_major__ * 100 + __clang_minor__ * 10 + __clang_patchlevel__;
#elif defined(__GNUC__)
  return __GNUC__ * 100 + __GNUC_MINOR__ * 10 + __GNUC_PATCHLEVEL__;
#else
  return 0;
#endif
}

} // namespace

extern "C" {

void SPI_InitializeFunctionMap(PISupportFunctionMap* map, void* identity)
{
  g_FunctionMap = map;
  g_This = identity;
  auto* plugin = new QtSep::QtScenarioEditorPlugin();
  // Stubs receive the object as the first generation and cast down from there.
  PIClientMessageTable::install(g_ClientMessageMap, static_cast<PIApplication_v0_5_0*>(plugin));
}

int SPI_PluginDispatchFunction(int message, PIFunctionParams_t* params)
{
  return PIClientMessageTable::dispatch(g_ClientMessageMap, message, params);
}

double SPI_VersionInfo() { return 1.9022; }

int SPI_VersionInfoEx(int part)
{
  switch (part)
  {
  case 0:
    return 1;
  case 1:
    return 22;
  case 2:
    return 0;
  default:
    return 1;
  }
}

int SPI_MinimumVersion() { return 12200; }

int SPI_GetCompilerVersion() { return compilerVersion(); }

int SPI_GetBitWidth() { return 64; }

int SPI_IsDebugMode()
{
#ifdef NDEBUG
  return 0;
#else
  return 1;
#endif
}

void SPI_CleanUpPlugin()
{
  // Window wrappers still hold functor pointers, so they go first.
  if (g_PI_GarbageCollector)
  {
    delete g_PI_GarbageCollector;
    g_PI_GarbageCollector = nullptr;
  }
  for (FunctorTwoParams__* functor : g_FunctorList)
    delete functor;
  g_FunctorList.clear();
}
}
