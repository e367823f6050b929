// The SPI_ exports of a test plug-in; each plug-in supplies createTestPlugin(). The bit width
// and minimum version can be set at build time to make plug-ins a host must refuse.
#include "host/FunctorTwoParams__.h"
#include "host/PIApplication_v0_5_0.h"
#include "host/PIClientMessageTable.h"
#include "host/PIGarbageCollector.h"
#include "host/PluginExports.h"

#ifndef TEST_BIT_WIDTH
#define TEST_BIT_WIDTH 64
#endif
#ifndef TEST_MINIMUM_VERSION
#define TEST_MINIMUM_VERSION 12200
#endif

PIApplication_v0_5_0* createTestPlugin();

PISupportFunctionMap* g_FunctionMap = nullptr;
void* g_This = nullptr;
PIClientMessageMap g_ClientMessageMap;
std::vector<FunctorTwoParams__*> g_FunctorList;
PIGarbageCollector* g_PI_GarbageCollector = nullptr;

extern "C" {

void SPI_InitializeFunctionMap(PISupportFunctionMap* map, void* identity)
{
  g_FunctionMap = map;
  g_This = identity;
  PIClientMessageTable::install(g_ClientMessageMap, createTestPlugin());
}

int SPI_PluginDispatchFunction(int message, PIFunctionParams_t* params)
{
  return PIClientMessageTable::dispatch(g_ClientMessageMap, message, params);
}

double SPI_VersionInfo() { return 1.9022; }
int SPI_VersionInfoEx(int part) { return part == 1 ? 22 : (part == 2 ? 0 : 1); }
int SPI_MinimumVersion() { return TEST_MINIMUM_VERSION; }
int SPI_GetCompilerVersion() { return __GNUC__ * 100 + __GNUC_MINOR__ * 10 + __GNUC_PATCHLEVEL__; }
int SPI_GetBitWidth() { return TEST_BIT_WIDTH; }
int SPI_IsDebugMode() { return 0; }

void SPI_CleanUpPlugin()
{
  delete g_PI_GarbageCollector;
  g_PI_GarbageCollector = nullptr;
  for (FunctorTwoParams__* functor : g_FunctorList)
    delete functor;
  g_FunctorList.clear();
}
}
