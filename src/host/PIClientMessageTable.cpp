#include "host/PIClientMessageTable.h"

#include "host/PIApplication_v1_24.h"

namespace
{

using PIApp::PIApplication_v1_20;
using PIApp::PIApplication_v1_24;

// Index i serves message i.
const PIClientStub STUBS[PICF_COUNT] = {
  &PIApplication_v1_20::s_StartUp,
  &PIApplication_v0_5_0::s_Callback,
  &PIApplication_v0_5_0::s_Close,
  &PIApplication_v0_5_0::s_Name,
  &PIApplication_v0_5_0::s_CloseLocation,
  &PIApplication_v0_5_0::s_OpenLocation,
  &PIApplication_v0_5_0::s_FindNetworkLocation,
  &PIApplication_v0_5_0::s_HandleConfigOption,
  &PIApplication_v0_5_0::s_SaveConfigOptions,
  &PIApplication_v0_5_0::s_ListenToEvents,
  &PIApplication_v0_5_0::s_DrawOnRefresh,
  &PIApplication_v1_0::s_LoadInKELVOR,
  &PIApplication_v1_0::s_LoadInCurveBench,
  &PIApplication_v1_0::s_LoadInScriptPad,
  &PIApplication_v1_0::s_LoadInPluginLogger,
  &PIApplication_v1_0::s_PreDrawOnRefresh,
  &PIApplication_v1_2::s_HandleMouseEvent,
  &PIApplication_v1_4::s_initializeTerrainRasterSet,
  &PIApplication_v1_4::s_parseTerrainRasterSetToken,
  &PIApplication_v1_4::s_getTerrainRasterSetTokenString,
  &PIApplication_v1_4::s_getTerrainRasterNode,
  &PIApplication_v1_4::s_dereferenceTerrainRasterSet,
  &PIApplication_v1_4::s_getTerrainRasterSetInfo,
  &PIApplication_v1_7::s_Description,
  &PIApplication_v1_7::s_Author,
  &PIApplication_v1_7::s_Version,
  &PIApplication_v1_7::s_URL,
  &PIApplication_v1_7::s_ContactInfo,
  &PIApplication_v1_13::s_LoadInKELVOR10,
  &PIApplication_v1_20::s_ConfigureCommandLine,
  &PIApplication_v1_24::s_LoadInCurveBench10,
};

} // namespace

void PIClientMessageTable::install(PIClientMessageMap& map, PIApplication_v0_5_0* app)
{
  for (int number = 0; number < PICF_COUNT; ++number)
    map[static_cast<PIClientFunctions_t>(number)] = PIClientFuncAndData_t{STUBS[number], app};
}

int PIClientMessageTable::dispatch(const PIClientMessageMap& map, int number, PIFunctionParams_t* params)
{
  auto it = map.find(static_cast<PIClientFunctions_t>(number));
  if (it == map.end() || !it->second.function)
    return 0;
  return it->second.function(it->second.data, params);
}
