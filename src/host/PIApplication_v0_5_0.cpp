#include "host/PIApplication_v0_5_0.h"

std::string PIApplication_v0_5_0::Name() { return std::string(); }
int PIApplication_v0_5_0::StartUp() { return 0; }
int PIApplication_v0_5_0::Callback() { return 0; }
int PIApplication_v0_5_0::Close() { return 0; }
void PIApplication_v0_5_0::closeLocation() {}
void PIApplication_v0_5_0::openLocation(std::string, int, PINetworkProtocol_t) {}
void PIApplication_v0_5_0::findNetworkLocation(std::string, int, PINetworkProtocol_t) {}
void PIApplication_v0_5_0::handleConfigOption(std::string, std::string) {}
void PIApplication_v0_5_0::saveConfigOptions(std::vector<std::string>*) {}
void PIApplication_v0_5_0::listenToEvents(PIApplicationEvents_t, void*) {}
void PIApplication_v0_5_0::drawOnRefresh(int, int) {}

using App = PIApplication_v0_5_0;

int App::s_Callback(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    setIntegerResult(*params, applicationFrom<App>(object)->Callback());
  return 0;
}

int App::s_Close(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  App* app = applicationFrom<App>(object);
  setIntegerResult(*params, app->Close());
  // The host sends nothing after this but the clean-up, so the object goes now.
  delete app;
  return 0;
}

int App::s_Name(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  std::string name = applicationFrom<App>(object)->Name();
  params->swapText(PIPN_RESULT, name);
  return 0;
}

int App::s_CloseLocation(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->closeLocation();
  return 0;
}

int App::s_OpenLocation(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->openLocation(params->text(PIPN_LOCATION), intArgument(*params, PIPN_PORT),
                                               static_cast<PINetworkProtocol_t>(intArgument(*params, PIPN_PROTOCOL)));
  return 0;
}

int App::s_FindNetworkLocation(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->findNetworkLocation(
        params->text(PIPN_LOCATION), intArgument(*params, PIPN_PORT),
        static_cast<PINetworkProtocol_t>(intArgument(*params, PIPN_PROTOCOL)));
  return 0;
}

int App::s_HandleConfigOption(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->handleConfigOption(params->text(PIPN_CONFIG_KEY), params->text(PIPN_CONFIG_VALUE));
  return 0;
}

int App::s_SaveConfigOptions(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  auto* options = static_cast<std::vector<std::string>*>(params->pointer(PIPN_CONFIG_OPTIONS));
  if (options)
    applicationFrom<App>(object)->saveConfigOptions(options);
  return 0;
}

int App::s_ListenToEvents(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->listenToEvents(static_cast<PIApplicationEvents_t>(intArgument(*params, PIPN_EVENT)),
                                                 params->pointer(PIPN_EVENT_DATA));
  return 0;
}

int App::s_DrawOnRefresh(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    applicationFrom<App>(object)->drawOnRefresh(intArgument(*params, PIPN_VIEW_X), intArgument(*params, PIPN_VIEW_Y));
  return 0;
}
