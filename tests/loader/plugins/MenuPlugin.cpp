// A plug-in that adds a menu item and a right-click menu, as the Scenario Editor does.
#include "LoggingPlugin.h"

#include "host/CustomCallbackFunctor.h"
#include "host/PIKELVOR.h"
#include "host/PIMenuItem.h"

namespace
{

class MenuPlugin;

class RightClicks : public PIKELVOR::ContextMenuCallback
{
public:
  explicit RightClicks(FunctorTwoParams__* command) : command_(command) {}
  void menuRequested(PIKELVOR::WhatWasClicked, unsigned long, void* menu) override
  {
    void* sub = PIKELVOR::addContextMenuSubMenu(menu, "Test Tools", 750);
    PIKELVOR::addContextMenuItem(sub, "Test Action", command_, 100);
  }
  void menuRequested(PIKELVOR::WhatWasClicked, const std::vector<unsigned long>& ids,
                     const std::map<std::string, std::string>&, void* menu) override
  {
    PIKELVOR::addContextMenuItem(menu, "Test Action (" + std::to_string(ids.size()) + ")", command_, 100);
    PIKELVOR::addContextMenuSeparator(menu, 50);
  }

private:
  FunctorTwoParams__* command_;
};

class MenuPlugin : public LoggingPlugin
{
public:
  MenuPlugin() : LoggingPlugin("Menu") {}
  int StartUp(const PIApp::CommandLineArguments& arguments) override
  {
    LoggingPlugin::StartUp(arguments);
    auto* command = CustomCallbackFunctor<MenuPlugin>::create(this, &MenuPlugin::onCmdTest);
    item_ = new PIGUI::PIMenuItem(nullptr, "Test Item...\t\tRuns the test command.", command);
    rightClicks_ = new RightClicks(command);
    PIKELVOR::registerContextMenuCallback(rightClicks_);
    return 0;
  }
  int Close() override
  {
    PIKELVOR::removeContextMenuCallback(rightClicks_);
    delete rightClicks_;
    delete item_;
    return LoggingPlugin::Close();
  }
  int onCmdTest(PIObject*, void*)
  {
    log_("Command");
    return 1;
  }

private:
  PIGUI::PIMenuItem* item_ = nullptr;
  RightClicks* rightClicks_ = nullptr;
};

} // namespace

PIApplication_v0_5_0* createTestPlugin() { return new MenuPlugin(); }
