#include "loader/PluginLoader.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

using namespace kelvor;

namespace
{

std::string pluginFolder(const std::string& name) { return std::string(TEST_PLUGIN_DIR) + "/" + name; }
std::string pluginPath(const std::string& name) { return pluginFolder(name) + "/lib" + name + ".so"; }

class PluginLoading : public ::testing::Test
{
protected:
  // What the plug-ins told the host, without the loader's own notices.
  std::vector<std::string> heard()
  {
    std::vector<std::string> lines;
    for (const auto& [text, severity] : services.notifications)
      if (text.rfind("Plug-in ", 0) != 0)
        lines.push_back(text);
    return lines;
  }
  std::string refusal()
  {
    for (const auto& [text, severity] : services.notifications)
      if (text.find(" refused: ") != std::string::npos)
        return text.substr(text.find(" refused: ") + 10);
    return std::string();
  }

  QTemporaryDir dir;
  ScenarioStore store;
  HeadlessHostServices services;
  Registry registry{dir.filePath("registry.ini").toStdString()};
  KelvorServer server{store, services, registry};
  PluginLoader loader{server, services};
  PIApp::CommandLineArguments arguments{{"kelvor", "demo.kls"}};
};

TEST_F(PluginLoading, APluginIsAdmittedStartedAndClosedInTheHostsOrder)
{
  ASSERT_TRUE(loader.load(pluginPath("MenuPlugin"), arguments));
  EXPECT_EQ((std::vector<std::string>{"Menu: ConfigureCommandLine", "Menu: LoadInKELVOR10", "Menu: StartUp 2"}), heard());
  ASSERT_EQ(1u, loader.plugins().size());
  const auto info = loader.plugins()[0];
  EXPECT_EQ("Menu", info.name);
  EXPECT_EQ("Menu for loader tests", info.description);
  EXPECT_EQ("1.22.0", info.apiVersion);

  loader.sendEvent(17, nullptr);
  PIGUI::PIMouseEvent mouse;
  EXPECT_TRUE(loader.sendMouseEvent(PIGUI::PI_MOUSE_PRESS, mouse));
  EXPECT_FALSE(loader.sendMouseEvent(PIGUI::PI_MOUSE_MOVE, mouse));
  EXPECT_EQ("Menu: Event 17", heard().at(3));

  loader.closeAll();
  EXPECT_EQ("Menu: Close", heard().back());
  EXPECT_EQ(0u, loader.count());
  EXPECT_TRUE(server.pluginMenu().items().empty()) << "the plug-in took its menu item along";
  EXPECT_EQ(0u, server.contextMenuCallbackCount());
}

TEST_F(PluginLoading, MenusOfAPluginWorkThroughTheHost)
{
  ASSERT_TRUE(loader.load(pluginPath("MenuPlugin"), arguments));
  ASSERT_EQ(1u, server.pluginMenu().items().size());
  EXPECT_EQ("Test Item...", PluginMenu::label(server.pluginMenu().items()[0]));
  EXPECT_EQ("Runs the test command.", PluginMenu::help(server.pluginMenu().items()[0]));

  auto list = server.buildContextMenu(3, {4, 5});
  ASSERT_EQ(2u, list->sorted().size());
  EXPECT_EQ(ContextMenu::Entry::SEPARATOR, list->sorted()[0]->kind);
  const auto* item = list->findItem("Test Action (2)");
  ASSERT_NE(nullptr, item);
  EXPECT_EQ(1, ContextMenu::activate(*item));
  EXPECT_EQ("Menu: Command", heard().back());

  auto view = server.buildContextMenu(0, {4});
  EXPECT_EQ("Test Tools", view->sorted().at(0)->text);
  EXPECT_NE(nullptr, view->findItem("Test Action"));
}

TEST_F(PluginLoading, RefusalsSayWhy)
{
  EXPECT_FALSE(loader.load(pluginPath("WrongBitWidthPlugin"), arguments));
  EXPECT_EQ("it was built for 32-bit hosts; this host is 64-bit", refusal());
  EXPECT_TRUE(heard().empty()) << "a refused plug-in is never bound";

  services.notifications.clear();
  EXPECT_FALSE(loader.load(pluginPath("TooNewPlugin"), arguments));
  EXPECT_EQ("it needs host API 1.31.0; this host offers 1.29.0", refusal());

  services.notifications.clear();
  EXPECT_FALSE(loader.load(pluginPath("DecliningPlugin"), arguments));
  EXPECT_EQ("it declined to start", refusal());
  EXPECT_EQ("Declining: Close", heard().back()) << "the host still sends Close";

  services.notifications.clear();
  const std::string junk = dir.filePath("libjunk.so").toStdString();
  std::ofstream(junk) << "not a shared object";
  EXPECT_FALSE(loader.load(junk, arguments));
  EXPECT_EQ(0u, refusal().find("it cannot be loaded: "));
  EXPECT_EQ(0u, loader.count());
}

TEST_F(PluginLoading, FoldersAreSearchedAndThePluginPathAdded)
{
  setenv("KELVOR_PLUGIN_PATH", (pluginFolder("DecliningPlugin") + ":" + pluginFolder("MenuPlugin")).c_str(), 1);
  const auto folders = PluginLoader::searchPath(pluginFolder("WrongBitWidthPlugin"));
  unsetenv("KELVOR_PLUGIN_PATH");
  ASSERT_EQ(3u, folders.size());
  EXPECT_EQ(pluginFolder("WrongBitWidthPlugin"), folders[0]);
  EXPECT_EQ(1u, loader.loadAll(folders, arguments)) << "only the menu plug-in runs";
  EXPECT_EQ(std::vector<std::string>{pluginPath("MenuPlugin")}, PluginLoader::findPlugins(pluginFolder("MenuPlugin")));
  EXPECT_FALSE(loader.load(pluginPath("MenuPlugin"), arguments)) << "a plug-in already running is not loaded twice";
}

} // namespace
