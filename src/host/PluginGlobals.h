#pragma once

/**
 * @file
 * The process-wide objects of the plug-in, exported under these names so that the host and
 * debuggers can see them.
 */

#include "host/PIClientFuncAndData.h"

#include <vector>

class FunctorTwoParams__;
class PIGarbageCollector;
class PISupportFunctionMap;

#define SPI_EXPORT __attribute__((visibility("default")))

/// The host's support function map; null until SPI_InitializeFunctionMap.
SPI_EXPORT extern PISupportFunctionMap* g_FunctionMap;
/// This plug-in's identity at the host, handed back with every server request.
SPI_EXPORT extern void* g_This;
/// Message number to stub and plug-in object.
SPI_EXPORT extern PIClientMessageMap g_ClientMessageMap;
/// Every command functor made for the host; this list owns them.
SPI_EXPORT extern std::vector<FunctorTwoParams__*> g_FunctorList;
/// Collector of window wrappers the plug-in deletes at clean-up; made on first need.
SPI_EXPORT extern PIGarbageCollector* g_PI_GarbageCollector;
