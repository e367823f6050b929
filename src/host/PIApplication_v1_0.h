#pragma once

#include "host/PIApplication_v0_5_7.h"

/// Adds the questions of which host applications load the plug-in, and the pre-draw hook.
class PIApplication_v1_0 : public PIApplication_v0_5_7
{
public:
  /// @return non-zero to load in KELVOR; 1 by default.
  virtual int LoadInKELVOR();
  /// @return non-zero to load in CurveBench; 1 by default.
  virtual int LoadInCurveBench();
  /// @return non-zero to load in ScriptPad; 1 by default.
  virtual int LoadInScriptPad();
  /// @return non-zero to load in the plug-in logger; 1 by default.
  virtual int LoadInPluginLogger();
  /// Draws before a view refresh. @param first host drawing argument @param second host drawing argument
  virtual void preDrawOnRefresh(int first, int second);

  static int s_LoadInKELVOR(void* object, PIFunctionParams_t* params);
  static int s_LoadInCurveBench(void* object, PIFunctionParams_t* params);
  static int s_LoadInScriptPad(void* object, PIFunctionParams_t* params);
  static int s_LoadInPluginLogger(void* object, PIFunctionParams_t* params);
  static int s_PreDrawOnRefresh(void* object, PIFunctionParams_t* params);
};
