#pragma once

#include "host/PIApplication_v1_7.h"

/// Adds the question of loading in the current generation of KELVOR.
class PIApplication_v1_13 : public PIApplication_v1_7
{
public:
  /// @return non-zero to load in KELVOR 10; 1 by default.
  virtual int LoadInKELVOR10();

  static int s_LoadInKELVOR10(void* object, PIFunctionParams_t* params);
};
