#include "host/PIApplication_v1_4.h"

int PIApplication_v1_4::initializeTerrainRasterSet(void*) { return 0; }
int PIApplication_v1_4::getTerrainRasterSetInfo(void*) { return 0; }
int PIApplication_v1_4::parseTerrainRasterSetToken(void*) { return 0; }
std::string PIApplication_v1_4::getTerrainRasterSetTokenString(void*) { return std::string(); }
int PIApplication_v1_4::getTerrainRasterNode(void*) { return 0; }
void PIApplication_v1_4::dereferenceTerrainRasterSet(void*) {}

using App = PIApplication_v1_4;

namespace
{

int callTerrainHook(void* object, PIFunctionParams_t* params, int (App::*hook)(void*), PIParameterName_t key)
{
  if (object && params)
    setIntegerResult(*params, (applicationFrom<App>(object)->*hook)(params->pointer(key)));
  return 0;
}

} // namespace

int App::s_initializeTerrainRasterSet(void* object, PIFunctionParams_t* params)
{
  return callTerrainHook(object, params, &App::initializeTerrainRasterSet, PIPN_TERRAIN_INITIALIZE);
}

int App::s_parseTerrainRasterSetToken(void* object, PIFunctionParams_t* params)
{
  return callTerrainHook(object, params, &App::parseTerrainRasterSetToken, PIPN_TERRAIN_PARSE_TOKEN);
}

int App::s_getTerrainRasterSetTokenString(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  std::string token = applicationFrom<App>(object)->getTerrainRasterSetTokenString(
      params->pointer(PIPN_TERRAIN_TOKEN_STRING));
  params->swapText(PIPN_DESCRIPTIVE_STRING, token);
  return 0;
}

int App::s_getTerrainRasterNode(void* object, PIFunctionParams_t* params)
{
  return callTerrainHook(object, params, &App::getTerrainRasterNode, PIPN_TERRAIN_NODE);
}

int App::s_dereferenceTerrainRasterSet(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->dereferenceTerrainRasterSet(params->pointer(PIPN_TERRAIN_DEREFERENCE));
  return 0;
}

int App::s_getTerrainRasterSetInfo(void* object, PIFunctionParams_t* params)
{
  return callTerrainHook(object, params, &App::getTerrainRasterSetInfo, PIPN_TERRAIN_INFO);
}
