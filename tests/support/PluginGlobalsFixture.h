#pragma once

#include "host/PIGarbageCollector.h"
#include "host/PluginExports.h"
#include "support/RecordingSupportMap.h"

#include <gtest/gtest.h>

/// Gives each test a clean set of the plug-in's process-wide objects, bound to a recording map.
class PluginGlobalsFixture : public ::testing::Test
{
protected:
  void SetUp() override { resetGlobals(); }
  void TearDown() override
  {
    SPI_CleanUpPlugin();
    resetGlobals();
  }

  /// Binds the globals to the recording map, as SPI_InitializeFunctionMap does, without a plug-in object.
  void bindMap(void* identity)
  {
    g_FunctionMap = &host;
    g_This = identity;
  }

  static void resetGlobals()
  {
    g_FunctionMap = nullptr;
    g_This = nullptr;
    g_ClientMessageMap.clear();
  }

  RecordingSupportMap host;
};
