#include "loader/PluginLoader.h"

#include "host/CommandLineRegistration.h"
#include "server/HostServices.h"
#include "server/KelvorServer.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace kelvor
{

namespace
{

constexpr int NOTIFY_ERROR = 2;
constexpr int NOTIFY_NOTICE = 4;

std::string text(PluginLibrary& plugin, PIClientFunctions_t message, PIParameterName_t key)
{
  PIFunctionParams_t params;
  plugin.send(message, params);
  return params.text(key);
}

} // namespace

PluginLoader::PluginLoader(KelvorServer& server, HostServices& services) : server_(server), services_(services) {}

void PluginLoader::close_(PluginLibrary& plugin)
{
  plugin.close();
  server_.releaseGarbage(plugin.identity());
}

PluginLoader::~PluginLoader() { closeAll(); }

std::vector<std::string> PluginLoader::findPlugins(const std::string& folder)
{
  std::vector<std::string> found;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error))
  {
    const std::string name = entry.path().filename().string();
    if (entry.is_regular_file() && name.rfind("lib", 0) == 0 && entry.path().extension() == ".so")
      found.push_back(entry.path().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::vector<std::string> PluginLoader::searchPath(const std::string& first)
{
  std::vector<std::string> folders;
  if (!first.empty())
    folders.push_back(first);
  if (const char* extra = std::getenv("KELVOR_PLUGIN_PATH"))
  {
    std::string list = extra;
    std::size_t start = 0;
    while (start <= list.size())
    {
      const std::size_t end = std::min(list.find(':', start), list.size());
      if (end > start)
        folders.push_back(list.substr(start, end - start));
      start = end + 1;
    }
  }
  return folders;
}

std::size_t PluginLoader::loadAll(const std::vector<std::string>& folders, const PIApp::CommandLineArguments& arguments)
{
  for (const std::string& folder : folders)
    for (const std::string& path : findPlugins(folder))
      load(path, arguments);
  return running_.size();
}

bool PluginLoader::load(const std::string& path, const PIApp::CommandLineArguments& arguments)
{
  // One object of a name per process: a second copy of a plug-in already running is skipped.
  const std::string name = std::filesystem::path(path).filename().string();
  for (const auto& plugin : running_)
    if (std::filesystem::path(plugin->path()).filename().string() == name)
      return false;
  auto plugin = std::make_unique<PluginLibrary>(path);
  std::string reason;
  if (!plugin->admit(reason) || !start_(*plugin, arguments, reason))
  {
    refuse_(path, reason);
    return false;
  }
  services_.notify("Plug-in " + path + " loaded", NOTIFY_NOTICE);
  running_.push_back(std::move(plugin));
  return true;
}

bool PluginLoader::start_(PluginLibrary& plugin, const PIApp::CommandLineArguments& arguments, std::string& reason)
{
  plugin.initialize(&server_);
  server_.nameCaller(plugin.identity(), text(plugin, PICF_NAME, PIPN_RESULT));
  PIApp::CommandLineRegistration registration;
  PIFunctionParams_t configure;
  configure.pointers[PIPN_COMMAND_LINE_REGISTRATION] = &registration;
  plugin.send(PICF_CONFIGURE_COMMAND_LINE, configure);

  PIFunctionParams_t loadIn;
  plugin.send(PICF_LOAD_IN_KELVOR10, loadIn);
  if (loadIn.integer(PIPN_RESULT) == 0)
  {
    reason = "does not run in this host";
    close_(plugin);
    return false;
  }
  PIFunctionParams_t start;
  start.pointers[PIPN_COMMAND_LINE_ARGUMENTS] = const_cast<PIApp::CommandLineArguments*>(&arguments);
  plugin.send(PICF_STARTUP, start);
  if (start.integer(PIPN_RESULT) != 0)
  {
    reason = "declined to start";
    close_(plugin);
    return false;
  }
  return true;
}

void PluginLoader::refuse_(const std::string& path, const std::string& reason)
{
  services_.notify("Plug-in " + path + " refused: it " + reason, NOTIFY_ERROR);
}

void PluginLoader::sendEvent(int event, void* data)
{
  for (const auto& plugin : running_)
  {
    PIFunctionParams_t params;
    params.integers[PIPN_EVENT] = static_cast<std::uint64_t>(event);
    params.pointers[PIPN_EVENT_DATA] = data;
    plugin->send(PICF_LISTEN_TO_EVENTS, params);
  }
}

bool PluginLoader::sendMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  for (const auto& plugin : running_)
  {
    PIFunctionParams_t params;
    params.integers[PIPN_EVENT] = static_cast<std::uint64_t>(type);
    params.pointers[PIPN_EVENT_DATA] = const_cast<PIGUI::PIMouseEvent*>(&event);
    plugin->send(PICF_HANDLE_MOUSE_EVENT, params);
    if (params.integer(PIPN_RESULT) != 0)
      return true;
  }
  return false;
}

void PluginLoader::closeAll()
{
  while (!running_.empty())
  {
    close_(*running_.back());
    running_.pop_back();
  }
}

std::vector<PluginLoader::Info> PluginLoader::plugins()
{
  std::vector<Info> infos;
  for (const auto& plugin : running_)
    infos.push_back(Info{plugin->path(), text(*plugin, PICF_NAME, PIPN_RESULT),
                         text(*plugin, PICF_DESCRIPTION, PIPN_DESCRIPTIVE_STRING),
                         text(*plugin, PICF_VERSION, PIPN_DESCRIPTIVE_STRING), plugin->apiVersion()});
  return infos;
}

} // namespace kelvor
