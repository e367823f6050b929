#pragma once

#include "host/ContextMenuCallback.h"
#include "host/PIApplication_v1_24.h"
#include "plugin/MainDialogFactory.h"

class PIObject;
namespace PIGUI
{
class PIMenuItem;
}
namespace PluginUtils
{
class QtApplicationProxy;
}

namespace QtSep
{

class ActionManager;
class MainDialog;

/**
 * @brief The one object the host talks to: made by SPI_InitializeFunctionMap, deleted by the
 * Close message. Its constructor calls no host operation.
 *
 * It does no editing itself: it owns the Qt bridge, the actions, the host right-click hook, the
 * editor window and its menu item, and keeps them in step with the clock mode. It asks to be
 * loaded only in the current generation of the 3-D host, and stays inert in any other.
 */
class QtScenarioEditorPlugin : public PIApp::PIApplication_v1_24
{
public:
  QtScenarioEditorPlugin() = default;
  ~QtScenarioEditorPlugin() override;
  QtScenarioEditorPlugin(const QtScenarioEditorPlugin&) = delete;
  QtScenarioEditorPlugin& operator=(const QtScenarioEditorPlugin&) = delete;

  /// @return "ScenarioEditor_Plugin"
  std::string Name() override;
  std::string Description() const override;
  /// @return the maker's name
  std::string Author() const override;
  /// @return the version and build time
  std::string Version() const override;
  std::string URL() const override;
  std::string ContactInfo() const override;
  /// @return 0: not for the older generation of the host
  int LoadInKELVOR() override;
  /// @return 0
  int LoadInCurveBench() override;
  /// @return 0
  int LoadInCurveBench10() override;
  /// @return 1
  int LoadInKELVOR10() override;
  /// @return 0: the plug-in has no timed work
  int Callback() override;
  /// @return 0: the plug-in takes no command line options
  int ConfigureCommandLine(PIApp::CommandLineRegistration& registration) const override;

  /// Makes the actions, hooks the host's right-click menus and adds "Scenario Editor..." to the
  /// plug-in menu. @return 0; 1, staying inert, in any host but the current 3-D host
  int StartUp(const PIApp::CommandLineArguments& arguments) override;
  /// Unhooks and deletes everything StartUp made, the editor window included. @return 0
  int Close() override;
  /// Keeps the menu item and the dialog actions in step with the clock, and hands events to the editor window.
  void listenToEvents(PIApplicationEvents_t event, void* data) override;
  /// @return what the editor window answers; 0 without one
  int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) override;

  /// The menu item's command: shows the editor window, first asking for a new scenario when
  /// none is loaded. @return 1
  int onCmdShowDialog(PIObject* sender, void* data);

  /// @return the editor window, null until first needed
  MainDialog* mainDialog() const { return mainDialog_; }
  /// @return the host's menu item, null before StartUp
  PIGUI::PIMenuItem* menuItem() const { return menuItem_; }
  /// @return the actions, null before StartUp
  ActionManager* actionManager() const { return actionManager_; }

private:
  /// Gives the actions that open tabs the editor window, made on first use.
  class GetOrCreateDialogCallback : public MainDialogFactory
  {
  public:
    explicit GetOrCreateDialogCallback(QtScenarioEditorPlugin* plugin) : plugin_(plugin) {}
    MainDialog* getMainDialog() override { return plugin_->getOrCreateDialog_(); }

  private:
    QtScenarioEditorPlugin* plugin_;
  };

  /// Hands the host's right-click menus to the actions.
  class RightClickObserver : public PIKELVOR::ContextMenuCallback
  {
  public:
    explicit RightClickObserver(QtScenarioEditorPlugin* plugin) : plugin_(plugin) {}
    /// A click in the 3-D view on an entity gets a "Scenario Editor" sub-menu of the actions.
    void menuRequested(PIKELVOR::WhatWasClicked what, unsigned long id, void* menu) override;
    void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids,
                       const std::map<std::string, std::string>& properties, void* menu) override;

  private:
    void menuRequested_(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids, void* menu);

    QtScenarioEditorPlugin* plugin_;
  };

  MainDialog* getOrCreateDialog_();
  void updateDialogAvailable_();
  void addMenuItem_();
  void deleteDialog_();

  PluginUtils::QtApplicationProxy* applicationProxy_ = nullptr;
  RightClickObserver* rightClickObserver_ = nullptr;
  ActionManager* actionManager_ = nullptr;
  MainDialog* mainDialog_ = nullptr;
  PIGUI::PIMenuItem* menuItem_ = nullptr;
  bool closing_ = false;
};

} // namespace QtSep
