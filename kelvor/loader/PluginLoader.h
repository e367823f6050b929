#pragma once

#include "host/CommandLineArguments.h"
#include "host/PIMouseEvent.h"
#include "loader/PluginLibrary.h"

#include <memory>
#include <string>
#include <vector>

namespace kelvor
{

class HostServices;
class KelvorServer;

/**
 * @brief Finds plug-ins, admits and starts them, relays the host's events to them, and
 * closes them at exit.
 *
 * A plug-in is admitted through its SPI_ exports (bit width, compiler version, API version);
 * a refusal is a notification saying why. An admitted plug-in is bound to the host's map,
 * asked for its command-line options (message 29) and whether it runs in this host
 * (message 28), then started (message 0). One that declines is closed again at once.
 */
class PluginLoader
{
public:
  /// What the host knows of a running plug-in.
  struct Info
  {
    std::string path;
    std::string name;
    std::string description;
    std::string version;
    std::string apiVersion;
  };

  /// @param server the host's support map @param services where refusals are notified
  PluginLoader(KelvorServer& server, HostServices& services);
  /// Closes every plug-in.
  ~PluginLoader();

  /// @return the shared objects in a folder, in name order ("lib*.so").
  static std::vector<std::string> findPlugins(const std::string& folder);
  /// @return the folders to search: first, then each of KELVOR_PLUGIN_PATH (":"-separated).
  static std::vector<std::string> searchPath(const std::string& first);

  /// Loads every plug-in found in the folders. @return the number now running
  std::size_t loadAll(const std::vector<std::string>& folders, const PIApp::CommandLineArguments& arguments);
  /// Loads one plug-in. @return true when it is running
  bool load(const std::string& path, const PIApp::CommandLineArguments& arguments);

  /// Sends an application event (a PIApplicationEvents_t) to every plug-in (message 9).
  void sendEvent(int event, void* data);
  /// Offers a mouse event to the plug-ins in turn (message 16). @return true when one consumed it
  bool sendMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event);
  /// Closes and unloads every plug-in, last loaded first.
  void closeAll();

  /// @return the running plug-ins, in load order.
  std::vector<Info> plugins();
  std::size_t count() const { return running_.size(); }

private:
  bool start_(PluginLibrary& plugin, const PIApp::CommandLineArguments& arguments, std::string& reason);
  void refuse_(const std::string& path, const std::string& reason);

  /// Closes a plug-in and deletes the window wrappers it left to the host.
  void close_(PluginLibrary& plugin);

  KelvorServer& server_;
  HostServices& services_;
  std::vector<std::unique_ptr<PluginLibrary>> running_;
};

} // namespace kelvor
