#pragma once

#include "host/CommandLineArguments.h"
#include "loader/PluginLoader.h"
#include "server/ApplicationEventRelay.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"
#include "ui/MainWindow.h"
#include "ui/WindowHostServices.h"

#include <memory>

namespace kelvor
{

/**
 * @brief KELVOR Lite as a whole: the store, its server and registry, the window and the
 * plug-ins. Store changes refresh the views and reach the plug-ins as application events;
 * what plug-ins report changed through the signal service does too, as event 17.
 */
class HostApplication
{
public:
  /// @param registryFile the INI file of the plug-ins' settings
  explicit HostApplication(const std::string& registryFile);
  /// Closes the plug-ins before the window and the store go.
  ~HostApplication();

  /// Loads the plug-ins of the folders. @return the number running
  std::size_t loadPlugins(const std::vector<std::string>& folders, const PIApp::CommandLineArguments& arguments);

  MainWindow& window() { return *window_; }
  ScenarioStore& store() { return store_; }
  KelvorServer& server() { return server_; }
  PluginLoader& loader() { return *loader_; }

  /// @return the folder the build puts plug-ins in.
  static std::string builtPluginFolder();

private:
  class Listener;

  ScenarioStore store_;
  WindowHostServices services_;
  Registry registry_;
  KelvorServer server_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<PluginLoader> loader_;
  std::unique_ptr<Listener> listener_;
};

} // namespace kelvor
