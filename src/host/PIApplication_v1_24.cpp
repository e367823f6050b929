#include "host/PIApplication_v1_24.h"

namespace PIApp
{

int PIApplication_v1_24::LoadInCurveBench10() { return LoadInCurveBench(); }

void PIApplication_v1_24::saveConfigOptions(ConfigOptions&) {}

void PIApplication_v1_24::saveConfigOptions(std::vector<std::string>* options)
{
  if (!options)
    return;
  ConfigOptions wrapped(*options);
  saveConfigOptions(wrapped);
}

int PIApplication_v1_24::s_LoadInCurveBench10(void* object, PIFunctionParams_t* params)
{
  if (object && params)
    setIntegerResult(*params, applicationFrom<PIApplication_v1_24>(object)->LoadInCurveBench10());
  return 0;
}

} // namespace PIApp
