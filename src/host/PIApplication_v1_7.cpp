#include "host/PIApplication_v1_7.h"

std::string PIApplication_v1_7::Description() const { return std::string(); }
std::string PIApplication_v1_7::Author() const { return std::string(); }
std::string PIApplication_v1_7::Version() const { return std::string(); }
std::string PIApplication_v1_7::URL() const { return std::string(); }
std::string PIApplication_v1_7::ContactInfo() const { return std::string(); }

using App = PIApplication_v1_7;

namespace
{

int writeDescriptiveText(void* object, PIFunctionParams_t* params, std::string (App::*query)() const)
{
  if (!object || !params)
    return 0;
  std::string text = (applicationFrom<App>(object)->*query)();
  params->swapText(PIPN_DESCRIPTIVE_STRING, text);
  return 0;
}

} // namespace

int App::s_Description(void* object, PIFunctionParams_t* params)
{
  return writeDescriptiveText(object, params, &App::Description);
}

int App::s_Author(void* object, PIFunctionParams_t* params)
{
  return writeDescriptiveText(object, params, &App::Author);
}

int App::s_Version(void* object, PIFunctionParams_t* params)
{
  return writeDescriptiveText(object, params, &App::Version);
}

int App::s_URL(void* object, PIFunctionParams_t* params) { return writeDescriptiveText(object, params, &App::URL); }

int App::s_ContactInfo(void* object, PIFunctionParams_t* params)
{
  return writeDescriptiveText(object, params, &App::ContactInfo);
}
