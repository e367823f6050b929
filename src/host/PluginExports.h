#pragma once

/**
 * @file
 * The plain C functions a host finds by name in the plug-in.
 */

#include "host/PluginGlobals.h"

class PISupportFunctionMap;

extern "C" {

/**
 * Binds the plug-in to its host: keeps map and identity, makes the plug-in object and
 * enters the 31 client messages.
 * @param map the host's support function map @param identity the host's handle for this plug-in
 */
SPI_EXPORT void SPI_InitializeFunctionMap(PISupportFunctionMap* map, void* identity);
/// Routes a client message. @return the stub's result, 0 when the message is not served
SPI_EXPORT int SPI_PluginDispatchFunction(int message, PIFunctionParams_t* params);
/// @return 1.9022, the legacy form of the API generation the plug-in was built for.
SPI_EXPORT double SPI_VersionInfo();
/// @param part 0 major, 1 minor, 2 revision @return 1, 22, 0; 1 for any other part
SPI_EXPORT int SPI_VersionInfoEx(int part);
/// @return 12200, the lowest host API (1 22 00) the plug-in accepts.
SPI_EXPORT int SPI_MinimumVersion();
/// @return the compiler of the build as major, minor and patch digits (12.2.0 gives 1220).
SPI_EXPORT int SPI_GetCompilerVersion();
/// @return 64
SPI_EXPORT int SPI_GetBitWidth();
/// @return 0 in a release build, 1 in a debug build.
SPI_EXPORT int SPI_IsDebugMode();
/// Deletes the window wrappers the plug-in collected, then its command functors.
SPI_EXPORT void SPI_CleanUpPlugin();
}
