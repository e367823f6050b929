#pragma once

#include "host/PIClientFunctions.h"
#include "host/PIFunctionParams.h"

#include <map>

/// A client message stub: the object it serves and the message's parameters; returns 0.
using PIClientStub = int (*)(void* object, PIFunctionParams_t* params);

/// One entry of the client message map: a stub and the object it is called with.
struct PIClientFuncAndData_t
{
  PIClientStub function = nullptr; ///< the stub
  void* data = nullptr;            ///< the plug-in object
};

/// The client message map: message number to stub and object.
using PIClientMessageMap = std::map<PIClientFunctions_t, PIClientFuncAndData_t>;
