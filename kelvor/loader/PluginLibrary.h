#pragma once

#include "host/PIClientFunctions.h"
#include "host/PIFunctionParams.h"

#include <string>

class PISupportFunctionMap;

namespace kelvor
{

/**
 * @brief One plug-in shared object: opened, asked for admission through its SPI_ exports,
 * bound to the host's support map, sent client messages, closed and unloaded.
 */
class PluginLibrary
{
public:
  /// The host's API version, as the plug-ins' minimum version is written: 1.29.0.
  static constexpr int HOST_API_VERSION = 12900;

  explicit PluginLibrary(std::string path);
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  /**
   * Opens the library and asks, in the host's order, its bit width, compiler version, debug
   * mode, version and minimum version.
   * @param reason receives why the plug-in is refused
   * @return true when it may be bound
   */
  bool admit(std::string& reason);
  /// Binds the plug-in to the host's map; the plug-in makes its object.
  void initialize(PISupportFunctionMap* map);
  /// Sends a client message. @return the dispatch's result
  int send(PIClientFunctions_t message, PIFunctionParams_t& params);
  /// Sends Close, then the clean-up, then unloads. Safe to call twice.
  void close();

  const std::string& path() const { return path_; }
  /// @return the plug-in's API generation, as "1.22.0".
  std::string apiVersion() const;
  bool isInitialized() const { return initialized_; }
  /// @return this plug-in's identity at the host.
  void* identity() { return this; }

  /// @return the host's own compiler version as the plug-ins report theirs (12.2.0 gives 1220).
  static int hostCompilerVersion();

private:
  template <typename T>
  T symbol_(const char* name);

  std::string path_;
  void* library_ = nullptr;
  int versionParts_[3] = {0, 0, 0};
  bool initialized_ = false;
  bool closed_ = false;
};

} // namespace kelvor
