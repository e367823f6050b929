#include "host/PIApplication_v1_20.h"

namespace PIApp
{

int PIApplication_v1_20::ConfigureCommandLine(CommandLineRegistration&) const { return 0; }

int PIApplication_v1_20::StartUp(const CommandLineArguments& arguments)
{
  std::vector<std::string> words = arguments.arguments();
  return StartUp(&words);
}

int PIApplication_v1_20::s_StartUp(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  auto* app = applicationFrom<PIApplication_v1_20>(object);
  const auto* arguments = static_cast<const CommandLineArguments*>(params->pointer(PIPN_COMMAND_LINE_ARGUMENTS));
  int result = 0;
  if (arguments)
    result = app->StartUp(*arguments);
  else
    result = app->StartUp(static_cast<std::vector<std::string>*>(params->pointer(PIPN_ARGUMENT_VECTOR)));
  setIntegerResult(*params, result);
  return 0;
}

int PIApplication_v1_20::s_ConfigureCommandLine(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  auto* registration = static_cast<CommandLineRegistration*>(params->pointer(PIPN_COMMAND_LINE_REGISTRATION));
  if (registration)
    setIntegerResult(*params, applicationFrom<PIApplication_v1_20>(object)->ConfigureCommandLine(*registration));
  return 0;
}

} // namespace PIApp
