#pragma once

#include "host/PIApplication_v0_5_0.h"

/// Adds the start-up that receives the host's command-line arguments.
class PIApplication_v0_5_7 : public PIApplication_v0_5_0
{
public:
  using PIApplication_v0_5_0::StartUp;

  /// Starts with the arguments; the default ignores them and calls StartUp().
  /// @param arguments the host's command-line arguments, may be null
  virtual int StartUp(std::vector<std::string>* arguments);
};
