#pragma once

#include "host/CommandLineArguments.h"
#include "host/CommandLineRegistration.h"
#include "host/PIApplication_v1_13.h"

namespace PIApp
{

/// Adds command-line options of the plug-in's own and the start-up that receives them parsed.
class PIApplication_v1_20 : public ::PIApplication_v1_13
{
public:
  using ::PIApplication_v1_13::StartUp;

  /// Adds the plug-in's options to the host's. @return 0 by default
  virtual int ConfigureCommandLine(CommandLineRegistration& registration) const;
  /// Starts with the host's command line; the default hands its words to StartUp(vector*).
  virtual int StartUp(const CommandLineArguments& arguments);

  /**
   * Message 0: starts the plug-in through the newest start-up the host can call: with the
   * arguments object under key 23, else with the argument vector of an older host under key 15.
   */
  static int s_StartUp(void* object, PIFunctionParams_t* params);
  static int s_ConfigureCommandLine(void* object, PIFunctionParams_t* params);
};

} // namespace PIApp
