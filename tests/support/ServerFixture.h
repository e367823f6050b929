#pragma once

#include "host/PluginGlobals.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/**
 * Binds the plug-in's call path to a real KELVOR Lite server and store, as the loader does,
 * with headless host services and a registry in a temporary folder.
 */
class ServerFixture : public ::testing::Test
{
protected:
  void SetUp() override
  {
    g_FunctionMap = &server;
    g_This = &identity;
  }
  void TearDown() override
  {
    g_FunctionMap = nullptr;
    g_This = nullptr;
  }

  QTemporaryDir dir;
  kelvor::ScenarioStore store;
  kelvor::HeadlessHostServices services;
  kelvor::Registry registry{dir.filePath("registry.ini").toStdString()};
  kelvor::KelvorServer server{store, services, registry};
  int identity = 0;
};
