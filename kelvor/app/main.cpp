// kelvor: KELVOR Lite, a desktop host of 3-D scenario displays and their plug-ins.
#include "app/HostApplication.h"
#include "server/HeadlessHostServices.h"
#include "store/ProcessMemory.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QStandardPaths>
#include <QTimer>

#include <cstdlib>
#include <unistd.h>
#include <iostream>

namespace
{

void usage(std::ostream& out)
{
  out << "Usage: kelvor [FILE] [--plugins] [--screenshot PNG] [--help]\n"
         "KELVOR Lite: opens a scenario (.kls) or CSV track file on a 3-D globe, with its plug-ins.\n"
         "\n"
         "  FILE             the scenario or CSV file to open\n"
         "  --plugins        print each admitted plug-in's name, description, version and menu items, and exit\n"
         "  --screenshot PNG open FILE, draw it, save a picture of the window to PNG, print the time taken, and exit\n"
         "  --help           this text\n"
         "\n"
         "Plug-ins are loaded from the build's plug-in folder, then from the folders of KELVOR_PLUGIN_PATH.\n";
}

std::string registryFile()
{
  QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  if (folder.isEmpty())
    folder = QDir::homePath() + "/.config/kelvor-lite";
  QDir().mkpath(folder);
  return (folder + "/registry.ini").toStdString();
}

// Loads the plug-ins against a headless host and lists them.
int listPlugins(const PIApp::CommandLineArguments& arguments)
{
  kelvor::ScenarioStore store;
  kelvor::HeadlessHostServices services;
  kelvor::Registry registry(registryFile());
  kelvor::KelvorServer server(store, services, registry);
  QMainWindow window; // plug-ins look for the host's main window at start-up
  kelvor::PluginLoader loader(server, services);
  loader.loadAll(kelvor::PluginLoader::searchPath(kelvor::HostApplication::builtPluginFolder()), arguments);
  for (const auto& [text, severity] : services.notifications)
    if (severity <= 2)
      std::cerr << text << '\n';
  for (const auto& info : loader.plugins())
  {
    std::cout << info.name << '\n'
              << "  description: " << info.description << '\n'
              << "  version: " << info.version << " (plug-in API " << info.apiVersion << ")\n"
              << "  file: " << info.path << '\n';
    for (const auto& item : server.pluginMenu().items())
      std::cout << "  menu item: " << kelvor::PluginMenu::label(item) << " - " << kelvor::PluginMenu::help(item) << '\n';
  }
  if (loader.count() == 0)
    std::cout << "no plug-ins admitted\n";
  return 0;
}

} // namespace

int main(int argc, char** argv)
{
  kelvor::keepFreedMemoryForReuse();
  QElapsedTimer started;
  started.start();
  std::vector<std::string> words(argv, argv + argc);
  std::string file, screenshot;
  bool plugins = false;
  for (std::size_t i = 1; i < words.size(); ++i)
  {
    if (words[i] == "--help" || words[i] == "-h")
      return usage(std::cout), 0;
    if (words[i] == "--plugins")
      plugins = true;
    else if (words[i] == "--screenshot" && i + 1 < words.size())
      screenshot = words[++i];
    else if (!words[i].empty() && words[i][0] == '-')
      return std::cerr << "kelvor: unknown option " << words[i] << '\n', usage(std::cerr), 2;
    else if (file.empty())
      file = words[i];
    else
      return std::cerr << "kelvor: one FILE at most\n", 2;
  }
  // The globe's web engine refuses to start as root without this.
  if (getuid() == 0)
    setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
  if (plugins && !std::getenv("DISPLAY"))
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  QApplication::setApplicationName("kelvor-lite");
  const PIApp::CommandLineArguments arguments(words);
  if (plugins)
    return listPlugins(arguments);

  kelvor::HostApplication host(registryFile());
  host.window().show();
  host.loadPlugins(kelvor::PluginLoader::searchPath(kelvor::HostApplication::builtPluginFolder()), arguments);
  if (!file.empty() && !host.window().openFile(QString::fromStdString(file)) && !screenshot.empty())
    return 1;
  if (!screenshot.empty())
  {
    // A grab draws every widget, the globe with the scenario included, before it returns.
    QApplication::processEvents();
    host.window().grab();
    std::cout << "drawn in " << started.elapsed() << " ms from start\n";
    // The map's imagery arrives over the next moments; the saved picture waits for it.
    QTimer::singleShot(1500, [&]() {
      const bool saved = host.window().grab().save(QString::fromStdString(screenshot));
      if (!saved)
        std::cerr << "kelvor: the picture could not be saved to " << screenshot << '\n';
      QApplication::exit(saved ? 0 : 1);
    });
  }
  return application.exec();
}
