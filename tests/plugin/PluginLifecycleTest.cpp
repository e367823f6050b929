#include "actions/ScenarioPropertiesDialog.h"
#include "host/CommandLineArguments.h"
#include "host/PIApplicationEvents.h"
#include "host/PIData.h"
#include "host/PluginExports.h"
#include "plugin/ActionManager.h"
#include "plugin/MainDialog.h"
#include "plugin/QtScenarioEditorPlugin.h"
#include "server/ContextMenu.h"
#include "server/PluginMenu.h"
#include "plugin/TabWidget.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/EntityTreeModel.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

using QtSep::QtScenarioEditorPlugin;

namespace
{

/// A tab that always has unsaved edits.
class DirtyTab : public QtSep::TabWidget
{
public:
  void setTabActive(bool) override {}
  void listenToEvents(PIApplicationEvents_t, void*) override {}
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  void applyUnitsChange() override {}
  bool dirty() const override { return true; }
};

class PluginLifecycle : public ServerFixture
{
protected:
  void TearDown() override
  {
    plugin.Close();
    // What the host does after Close: the menu item, its icon and its command go.
    SPI_CleanUpPlugin();
    server.releaseGarbage(&identity);
    ServerFixture::TearDown();
  }

  const kelvor::PluginMenu::Item& menuItem() { return server.pluginMenu().items().at(0); }

  /// Answers the next scenario properties dialog.
  static std::unique_ptr<WhenShown<QtSep::ScenarioPropertiesDialog>> answerNewScenario(bool accept)
  {
    return std::make_unique<WhenShown<QtSep::ScenarioPropertiesDialog>>(
      [accept](QtSep::ScenarioPropertiesDialog& dialog) { accept ? dialog.accept() : dialog.reject(); });
  }

  /// The labels of a host menu, sub-menus as "name[...]", in weight order.
  static std::vector<std::string> labels(const kelvor::ContextMenu& menu)
  {
    std::vector<std::string> out;
    for (const kelvor::ContextMenu::Entry* entry : menu.sorted())
    {
      if (entry->kind == kelvor::ContextMenu::Entry::SEPARATOR)
        out.push_back("-" + std::to_string(entry->weight));
      else if (entry->kind == kelvor::ContextMenu::Entry::SUB_MENU)
      {
        std::string inner;
        for (const std::string& label : labels(*entry->subMenu))
          inner += label;
        out.push_back(entry->text + "@" + std::to_string(entry->weight) + "[" + inner + "]");
      }
      else
        out.push_back(entry->text);
    }
    return out;
  }

  PIApp::CommandLineArguments arguments;
  QtScenarioEditorPlugin plugin;
};

} // namespace

TEST_F(PluginLifecycle, OutsideTheCurrentHostItStaysInert)
{
  g_FunctionMap = nullptr; // no host answers: the application id reads 0
  EXPECT_EQ(1, plugin.StartUp(arguments));
  EXPECT_EQ(nullptr, plugin.actionManager());
  EXPECT_EQ(nullptr, plugin.menuItem());
  plugin.listenToEvents(PI_EVENT_SCENARIO_CLOSING, nullptr);
  EXPECT_EQ(0, plugin.Close());
  g_FunctionMap = &server;
  EXPECT_TRUE(server.pluginMenu().items().empty());
  EXPECT_EQ(0u, server.contextMenuCallbackCount());
}

TEST_F(PluginLifecycle, StartsWithAMenuItemThatFollowsTheClockMode)
{
  PIData::initializeScenario();
  ASSERT_EQ(0, plugin.StartUp(arguments));
  ASSERT_EQ(1u, server.pluginMenu().items().size());
  EXPECT_EQ("Scenario Editor...", kelvor::PluginMenu::label(menuItem()));
  EXPECT_EQ("Opens a window to edit scenario data.", kelvor::PluginMenu::help(menuItem()));
  EXPECT_NE(0, menuItem().icon) << "the item carries the editor's icon";
  EXPECT_FALSE(server.iconBytes(menuItem().icon).empty());
  EXPECT_TRUE(menuItem().enabled);
  EXPECT_EQ(1u, server.contextMenuCallbackCount());

  PIData::clockSetMode(PI_CLOCK_LIVE_SIMULATION, -1.0);
  EXPECT_TRUE(menuItem().enabled) << "the item changes with the event that follows the mode";
  plugin.listenToEvents(PI_EVENT_CLOCK_MODE_CHANGED, nullptr);
  EXPECT_FALSE(menuItem().enabled);
  PIData::clockSetMode(PI_CLOCK_STEPPED, -1.0);
  plugin.listenToEvents(PI_EVENT_SCENARIO_RESET, nullptr);
  EXPECT_TRUE(menuItem().enabled);
}

TEST_F(PluginLifecycle, TheMenuItemOffersANewScenarioFirstWhenNoneIsLoaded)
{
  ASSERT_EQ(0, plugin.StartUp(arguments));
  {
    const auto answer = answerNewScenario(false);
    EXPECT_EQ(1, kelvor::PluginMenu::activate(menuItem()));
  }
  EXPECT_EQ(nullptr, plugin.mainDialog()) << "cancelled: no window made";
  EXPECT_FALSE(PIData::isScenarioInitialized());

  {
    const auto answer = answerNewScenario(true);
    EXPECT_EQ(1, kelvor::PluginMenu::activate(menuItem()));
  }
  ASSERT_NE(nullptr, plugin.mainDialog());
  EXPECT_TRUE(plugin.mainDialog()->isVisible());
  EXPECT_TRUE(plugin.actionManager()->dialogActionsEnabled()) << "the window exists, so its actions may open it";

  QtSep::MainDialog* shown = plugin.mainDialog();
  EXPECT_EQ(1, kelvor::PluginMenu::activate(menuItem()));
  EXPECT_EQ(shown, plugin.mainDialog()) << "one window, shown again";
}

TEST_F(PluginLifecycle, EventsReachTheWindowAndClosingTheScenarioDropsIt)
{
  const SampleEntities sample = createSampleEntities();
  ASSERT_EQ(0, plugin.StartUp(arguments));
  EXPECT_EQ(1, kelvor::PluginMenu::activate(menuItem()));
  ASSERT_NE(nullptr, plugin.mainDialog());
  std::uint64_t gate = sample.gate;
  plugin.listenToEvents(PI_EVENT_ENTITY_REMOVED, &gate);
  EXPECT_FALSE(plugin.mainDialog()->entityTreeModel().indexOf(sample.gate).isValid());

  PIGUI::PIMouseEvent mouse{};
  EXPECT_EQ(0, plugin.handleMouseEvent(PIGUI::PIMouseEventType_t(0), mouse)) << "no tab takes the mouse";

  plugin.listenToEvents(PI_EVENT_SCENARIO_CLOSING, nullptr);
  EXPECT_EQ(nullptr, plugin.mainDialog());
  EXPECT_EQ(0, plugin.handleMouseEvent(PIGUI::PIMouseEventType_t(0), mouse));
}

TEST_F(PluginLifecycle, ClosingTheScenarioWhileADialogOfTheWindowIsOpenLosesNothing)
{
  // The host may close the scenario from inside any dialog's event loop; the window and its
  // tabs go with their open dialog, which must not be destroyed a second time.
  createSampleEntities();
  ASSERT_EQ(0, plugin.StartUp(arguments));
  const auto openWindow = [this] {
    kelvor::PluginMenu::activate(menuItem());
    return plugin.mainDialog();
  };
  const auto closeScenario = [this](QWidget&) { plugin.listenToEvents(PI_EVENT_SCENARIO_CLOSING, nullptr); };
  for (const char* button : {"editPushButton", "unitsPushButton", "validatePushButton"})
  {
    QtSep::MainDialog* window = openWindow();
    ASSERT_NE(nullptr, window);
    auto* misc = window->tab("Miscellaneous");
    ASSERT_NE(nullptr, misc);
    WhenShown<QDialog> closing([&](QDialog& dialog) { closeScenario(dialog); });
    misc->findChild<QPushButton*>(button)->click();
    EXPECT_TRUE(closing.acted()) << button;
    EXPECT_EQ(nullptr, plugin.mainDialog()) << button;
  }

  // The question on switching away from a tab with unsaved edits.
  QtSep::MainDialog* window = openWindow();
  ASSERT_NE(nullptr, window);
  auto* dirty = new DirtyTab;
  window->addTab(dirty, "Dirty");
  window->tabWidget().setCurrentWidget(dirty);
  WhenShown<QMessageBox> closing([&](QMessageBox& box) { closeScenario(box); });
  window->tabWidget().setCurrentIndex(0);
  EXPECT_TRUE(closing.acted());
  EXPECT_EQ(nullptr, plugin.mainDialog());
}

TEST_F(PluginLifecycle, ARightClickInTheViewGetsASubMenuOnlyOnAnEntityAtRest)
{
  const SampleEntities sample = createSampleEntities();
  ASSERT_EQ(0, plugin.StartUp(arguments));
  EXPECT_EQ(std::vector<std::string>{"Scenario Editor@750[-205Make Stationary...Delete...Extend Life...Decimate...Velocity Filtering...Calculate Ori / Vel...Export to GOG...]"},
            labels(*server.buildContextMenu(PIKELVOR::CLICKED_VIEW, {sample.platform})));
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_VIEW, {})->empty()) << "no entity under the click";
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_BACKGROUND, {sample.platform})->empty());
  EXPECT_EQ((std::vector<std::string>{"-205", "Make Stationary...", "Delete...", "Extend Life...", "Decimate...", "Velocity Filtering...",
                                      "Calculate Ori / Vel...", "Export to GOG..."}),
            labels(*server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {sample.platform})));

  PIData::clockSetMode(PI_CLOCK_LIVE, -1.0);
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_VIEW, {sample.platform})->empty());
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {sample.platform})->empty());
}

TEST_F(PluginLifecycle, CloseUnhooksAndDeletesInOrder)
{
  createSampleEntities();
  ASSERT_EQ(0, plugin.StartUp(arguments));
  kelvor::PluginMenu::activate(menuItem());
  ASSERT_NE(nullptr, plugin.mainDialog());
  // Each step notes what is still there when the window and the manager go.
  std::vector<std::string> order;
  QObject::connect(plugin.mainDialog(), &QObject::destroyed, [&] {
    order.push_back("window; callbacks " + std::to_string(server.contextMenuCallbackCount()) + ", manager " +
                    (plugin.actionManager() ? "kept" : "gone"));
  });
  QObject::connect(plugin.actionManager(), &QObject::destroyed, [&] {
    order.push_back(std::string("manager; window ") + (plugin.mainDialog() ? "kept" : "gone"));
  });
  EXPECT_EQ(0, plugin.Close());
  EXPECT_EQ((std::vector<std::string>{"window; callbacks 0, manager kept", "manager; window gone"}), order)
      << "unhook, then the window, then the manager";
  EXPECT_EQ(0u, server.contextMenuCallbackCount());
  SPI_CleanUpPlugin();
  server.releaseGarbage(&identity);
  EXPECT_TRUE(server.pluginMenu().items().empty()) << "the unload takes the menu item away";
  EXPECT_TRUE(server.garbage().empty());
  EXPECT_EQ(nullptr, plugin.mainDialog());
  EXPECT_EQ(nullptr, plugin.actionManager());
  plugin.listenToEvents(PI_EVENT_SCENARIO_RESET, nullptr); // nothing left to reach
}
