#pragma once

#include "host/PIClientFuncAndData.h"

class PIApplication_v0_5_0;

/// The 31 client messages a plug-in object serves, and their dispatch.
class PIClientMessageTable
{
public:
  /**
   * Enters messages 0 to 30, in number order, each with its stub and app as data; an
   * existing entry for a number is overwritten.
   */
  static void install(PIClientMessageMap& map, PIApplication_v0_5_0* app);

  /**
   * Routes one message to its stub.
   * @return the stub's result; 0 when the number has no entry or the entry no function
   */
  static int dispatch(const PIClientMessageMap& map, int number, PIFunctionParams_t* params);
};
