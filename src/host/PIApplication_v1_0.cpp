#include "host/PIApplication_v1_0.h"

int PIApplication_v1_0::LoadInKELVOR() { return 1; }
int PIApplication_v1_0::LoadInCurveBench() { return 1; }
int PIApplication_v1_0::LoadInScriptPad() { return 1; }
int PIApplication_v1_0::LoadInPluginLogger() { return 1; }
void PIApplication_v1_0::preDrawOnRefresh(int, int) {}

using App = PIApplication_v1_0;

namespace
{

int writeIntegerResult(void* object, PIFunctionParams_t* params, int (App::*query)())
{
  if (object && params)
    setIntegerResult(*params, (applicationFrom<App>(object)->*query)());
  return 0;
}

} // namespace

int App::s_LoadInKELVOR(void* object, PIFunctionParams_t* params)
{
  return writeIntegerResult(object, params, &App::LoadInKELVOR);
}

int App::s_LoadInCurveBench(void* object, PIFunctionParams_t* params)
{
  return writeIntegerResult(object, params, &App::LoadInCurveBench);
}

int App::s_LoadInScriptPad(void* object, PIFunctionParams_t* params)
{
  return writeIntegerResult(object, params, &App::LoadInScriptPad);
}

int App::s_LoadInPluginLogger(void* object, PIFunctionParams_t* params)
{
  return writeIntegerResult(object, params, &App::LoadInPluginLogger);
}

int App::s_PreDrawOnRefresh(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->preDrawOnRefresh(intArgument(*params, PIPN_VIEW_X), intArgument(*params, PIPN_VIEW_Y));
  return 0;
}
