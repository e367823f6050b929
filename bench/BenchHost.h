#pragma once

#include "host/PluginGlobals.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ProcessMemory.h"
#include "store/ScenarioStore.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

/// A real KELVOR Lite store and server behind the plug-in's call path, for the life of a
/// benchmark; the process's memory is managed as KELVOR Lite and kelvor-edit manage theirs.
struct BenchHost
{
  QTemporaryDir dir;
  kelvor::ScenarioStore store;
  kelvor::HeadlessHostServices services;
  kelvor::Registry registry{dir.filePath("registry.ini").toStdString()};
  kelvor::KelvorServer server{store, services, registry};
  BenchHost()
  {
    kelvor::keepFreedMemoryForReuse();
    g_FunctionMap = &server;
    g_This = this;
  }
  ~BenchHost() { g_FunctionMap = nullptr; }
};

/// Runs the benchmarks in a widget application off screen: the point editor's sources, which
/// some commands go through, build their controls as widgets. @return the exit status
inline int runBenchmarksWithWidgets(int argc, char** argv)
{
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
