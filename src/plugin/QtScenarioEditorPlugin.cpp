#include "plugin/QtScenarioEditorPlugin.h"

#include "actions/CreateScenario.h"
#include "host/CustomCallbackFunctor.h"
#include "host/PIClockMode.h"
#include "host/PIDataClock.h"
#include "host/PIDataScenario.h"
#include "host/PIIcon.h"
#include "host/PIKELVOR.h"
#include "host/PIMenuItem.h"
#include "host/QtApplicationProxy.h"
#include "host/VSI.h"
#include "plugin/ActionManager.h"
#include "plugin/DialogActions.h"
#include "plugin/MainDialog.h"

#include <QFile>

namespace QtSep
{

namespace
{

constexpr int SUBMENU_WEIGHT = 750;
const char* const MENU_ITEM_TEXT = "Scenario Editor...\t\tOpens a window to edit scenario data.";
const char* const MENU_ICON = ":/QtScenarioEditor/images/Edit.png";

bool clockAtRest()
{
  const int mode = PIData::clockGetMode();
  return mode == PI_CLOCK_FILE_PLAYBACK || mode == PI_CLOCK_STEPPED;
}

} // namespace

QtScenarioEditorPlugin::~QtScenarioEditorPlugin()
{
  // The host sends Close first; this covers a plug-in deleted without it.
  if (applicationProxy_)
    Close();
}

std::string QtScenarioEditorPlugin::Name() { return "ScenarioEditor_Plugin"; }

std::string QtScenarioEditorPlugin::Description() const
{
  return "Adds right-click platform editing to supported KELVOR windows like Data Browser.";
}

std::string QtScenarioEditorPlugin::Author() const { return VSI::companyName(); }
std::string QtScenarioEditorPlugin::Version() const { return VSI::compileSWVersionDateTime(); }
std::string QtScenarioEditorPlugin::URL() const { return VSI::companyInfo(); }
std::string QtScenarioEditorPlugin::ContactInfo() const { return VSI::companyContact(); }
int QtScenarioEditorPlugin::LoadInKELVOR() { return 0; }
int QtScenarioEditorPlugin::LoadInCurveBench() { return 0; }
int QtScenarioEditorPlugin::LoadInCurveBench10() { return 0; }
int QtScenarioEditorPlugin::LoadInKELVOR10() { return 1; }
int QtScenarioEditorPlugin::Callback() { return 0; }
int QtScenarioEditorPlugin::ConfigureCommandLine(PIApp::CommandLineRegistration&) const { return 0; }

int QtScenarioEditorPlugin::StartUp(const PIApp::CommandLineArguments&)
{
  if (!PIKELVOR::runningInKELVOR10())
    return 1;
  applicationProxy_ = new PluginUtils::QtApplicationProxy;
  actionManager_ = new ActionManager(applicationProxy_->mainWindow(), nullptr);
  actionManager_->addDialogAction(std::make_shared<DialogActions>(new GetOrCreateDialogCallback(this)));
  rightClickObserver_ = new RightClickObserver(this);
  PIKELVOR::registerContextMenuCallback(rightClickObserver_);
  addMenuItem_();
  updateDialogAvailable_();
  return 0;
}

void QtScenarioEditorPlugin::addMenuItem_()
{
  auto* functor = new CustomCallbackFunctor<QtScenarioEditorPlugin>(this, &QtScenarioEditorPlugin::onCmdShowDialog);
  g_FunctorList.push_back(functor);
  menuItem_ = new PIGUI::PIMenuItem(nullptr, MENU_ITEM_TEXT, functor);
  QFile iconFile(MENU_ICON);
  if (!iconFile.open(QIODevice::ReadOnly))
    return;
  const QByteArray png = iconFile.readAll();
  auto* icon = new PIGUI::PIIcon;
  icon->loadPNGByArray(reinterpret_cast<const unsigned char*>(png.constData()), static_cast<std::size_t>(png.size()));
  menuItem_->setIcon(icon);
}

MainDialog* QtScenarioEditorPlugin::getOrCreateDialog_()
{
  if (!mainDialog_ && actionManager_)
    mainDialog_ = new MainDialog(*actionManager_, applicationProxy_->mainWindow());
  return mainDialog_;
}

int QtScenarioEditorPlugin::onCmdShowDialog(PIObject*, void*)
{
  QWidget* parent = applicationProxy_ ? applicationProxy_->mainWindow() : nullptr;
  if (!PIData::isScenarioInitialized() && createScenario(parent) != 0)
    return 1;
  if (MainDialog* dialog = getOrCreateDialog_())
  {
    dialog->show();
    dialog->raise();
  }
  // The dialog's availability follows its existence.
  updateDialogAvailable_();
  return 1;
}

void QtScenarioEditorPlugin::updateDialogAvailable_()
{
  if (!menuItem_ || !actionManager_)
    return;
  const bool atRest = clockAtRest();
  menuItem_->setEnabled(atRest);
  actionManager_->setEnableDialogActions(atRest && mainDialog_ != nullptr);
}

void QtScenarioEditorPlugin::listenToEvents(PIApplicationEvents_t event, void* data)
{
  if (closing_)
    return;
  switch (event)
  {
  case PI_EVENT_REFERENCE_YEAR_CHANGED:
  case PI_EVENT_SCENARIO_RESET:
  case PI_EVENT_CLOCK_MODE_CHANGED:
    updateDialogAvailable_();
    break;
  case PI_EVENT_SCENARIO_CLOSING:
    updateDialogAvailable_();
    deleteDialog_();
    return;
  default:
    break;
  }
  if (mainDialog_)
    mainDialog_->listenToEvents(event, data);
}

void QtScenarioEditorPlugin::deleteDialog_()
{
  // Forgotten first: what its tabs undo while they go raises events no dialog may receive.
  MainDialog* dialog = mainDialog_;
  mainDialog_ = nullptr;
  delete dialog;
}

int QtScenarioEditorPlugin::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  return mainDialog_ ? mainDialog_->handleMouseEvent(type, event) : 0;
}

int QtScenarioEditorPlugin::Close()
{
  closing_ = true;
  if (rightClickObserver_)
    PIKELVOR::removeContextMenuCallback(rightClickObserver_);
  delete rightClickObserver_;
  rightClickObserver_ = nullptr;
  deleteDialog_();
  delete actionManager_;
  actionManager_ = nullptr;
  delete applicationProxy_;
  applicationProxy_ = nullptr;
  closing_ = false;
  return 0;
}

void QtScenarioEditorPlugin::RightClickObserver::menuRequested(PIKELVOR::WhatWasClicked what, unsigned long id,
                                                               void* menu)
{
  if (what != PIKELVOR::CLICKED_VIEW || id == 0 || !PIData::isScenarioInitialized() || !clockAtRest())
    return;
  void* submenu = PIKELVOR::addContextMenuSubMenu(menu, "Scenario Editor", SUBMENU_WEIGHT);
  if (submenu)
    menuRequested_(PIKELVOR::CLICKED_ENTITY_LIST, {id}, submenu);
}

void QtScenarioEditorPlugin::RightClickObserver::menuRequested(PIKELVOR::WhatWasClicked what,
                                                               const std::vector<unsigned long>& ids,
                                                               const std::map<std::string, std::string>&, void* menu)
{
  menuRequested_(what, ids, menu);
}

void QtScenarioEditorPlugin::RightClickObserver::menuRequested_(PIKELVOR::WhatWasClicked what,
                                                                const std::vector<unsigned long>& ids, void* menu)
{
  if (plugin_->actionManager_)
    plugin_->actionManager_->menuRequested(what, ids, menu);
}

} // namespace QtSep
