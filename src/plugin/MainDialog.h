#pragma once

#include "host/PIApplicationEvents.h"
#include "host/PIMouseEvent.h"
#include "host/SignalInterface.h"
#include "widgets/DockWidget.h"

#include <QList>
#include <QStringList>

#include <memory>
#include <vector>

class QMainWindow;
class QMenu;
class QTabWidget;
class QTimer;

namespace kelQt
{
class EntityTreeComposite;
}
namespace PICommon
{
class ServiceClient;
}
namespace PluginUtils
{
class EntityTreeModel;
class QtCategoryFilter;
class QtCenterEntity;
}

namespace QtSep
{

class ActionManager;
class MenuInfo;
class PointEditorWidget;
class TabWidget;

/**
 * The editor window: the scenario's entities in a tree on the left, the editing tabs on the
 * right. The tree's right-click menu offers the plug-in's actions; the window hands the host's
 * events and mouse to the tree and the tabs.
 */
class MainDialog : public kelQt::DockWidget
{
  Q_OBJECT
public:
  /// Title of the tab that edits the points of entities.
  static const char* const POINT_EDITOR_TAB;
  /// Title of the tab that merges platforms by hand.
  static const char* const MANUAL_MERGE_TAB;
  /// Settings path of the tree's filters in the host's settings.
  static const char* const TREE_FILTERS_KEY;
  /// Interval of the tree's synchronisation with the scenario, in milliseconds.
  static const int SYNCHRONIZE_MILLISECONDS = 5000;

  /// @param actionManager the actions of the right-click menu; outlives the dialog
  /// @param mainWindow the host's window to dock in; null for a floating window
  MainDialog(ActionManager& actionManager, QMainWindow* mainWindow);
  ~MainDialog() override;

  /// @return the titles of the tabs this build of the editor has, in tab order.
  static QStringList tabTitles();

  /// Hands a host event to the tree and the tabs, so that tabs see removed entities before the tree drops them.
  void listenToEvents(PIApplicationEvents_t event, void* data);
  /// Offers a mouse event to each tab in order. @return 1 when a tab consumed it, else 0
  int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event);
  /// Shows the point editor on the entities. @return 0, or 1 when this build has no such tab
  int startPointEdit(const QList<unsigned long>& ids);
  /// Shows the manual merge on the platforms. @return 0, or 1 when this build has no such tab
  int startManualMerge(const QList<unsigned long>& ids);

  kelQt::EntityTreeComposite& entityTreeComposite() const { return *entityTreeComposite_; }
  PluginUtils::EntityTreeModel& entityTreeModel() const { return *treeModel_; }
  /// The category filter of the tree, which follows the scenario's categories through the events.
  PluginUtils::QtCategoryFilter& categoryFilter() const { return *categoryFilter_; }
  QTabWidget& tabWidget() const { return *tabWidget_; }
  /// Appends a tab, which the window owns from then on. @param title its text, and its object name
  void addTab(TabWidget* tab, const QString& title);
  /// @return the tab of that title, null when this build has none.
  TabWidget* tab(const QString& title) const;
  /// @return the current tab's index, -1 before the first is made current.
  int currentTabIndex() const { return currentTab_; }

private:
  /// Refreshes the tree's rows of entities that an action reports changed.
  class ModifiedCallback : public PluginClient::Interfaces::SignalInterface::Listener
  {
  public:
    explicit ModifiedCallback(MainDialog& dialog) : dialog_(dialog) {}
    void callback(PluginClient::Interfaces::SignalInterface::Signal signal, const std::vector<UniqueID_t>& ids) override;

  private:
    MainDialog& dialog_;
  };

  void buildTree_();
  void buildTabs_();
  void listenToModified_();
  /// Makes the tab of that title current with the entities selected. @return 0, or 1 without such a tab
  int startTab_(const QString& title, const QList<unsigned long>& ids);
  void updateRightClickMenu_(QMenu* menu);
  void updateMenuInfoToMenu_(const std::vector<MenuInfo*>& items, QMenu* menu, QAction* before);
  void setSelectedEntity_(unsigned long id);
  void selectPendingEntity_();
  void setTabWidget_(int index);
  void applyUnitsChange_();
  void refreshEntities_(const std::vector<UniqueID_t>& ids);
  std::vector<TabWidget*> tabs_() const;

  ActionManager& actionManager_;
  PluginUtils::EntityTreeModel* treeModel_;
  kelQt::EntityTreeComposite* entityTreeComposite_;
  PluginUtils::QtCenterEntity* centerEntity_;
  PluginUtils::QtCategoryFilter* categoryFilter_ = nullptr;
  PointEditorWidget* pointEditor_ = nullptr; ///< owned by the tab widget
  /// An entity added by a command, to select once the tree shows it; 0 for none.
  unsigned long pendingSelection_ = 0; ///< owned by the tree's proxy
  QTabWidget* tabWidget_;
  int currentTab_ = -1;
  QTimer* timer_;
  ModifiedCallback modifiedCallback_;
  std::unique_ptr<PICommon::ServiceClient> signalClient_;
};

} // namespace QtSep
