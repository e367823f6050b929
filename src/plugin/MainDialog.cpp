#include "plugin/MainDialog.h"

#include "host/ServiceClient.h"
#include "actions/MakeStationaryWidget.h"
#include "datasources/PointEditorWidget.h"
#include "merge/AutomaticMergeWidget.h"
#include "merge/ManualMergeWidget.h"
#include "plugin/ActionManager.h"
#include "plugin/MenuInfo.h"
#include "plugin/MiscellaneousWidget.h"
#include "utils/DndEntityTreeModel.h"
#include "utils/QtCategoryFilter.h"
#include "utils/QtCenterEntity.h"
#include "utils/SerializeTreeFilters.h"
#include "widgets/EntityTreeComposite.h"
#include "widgets/GuardedDialog.h"

#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>

static void initEditorResources()
{
  Q_INIT_RESOURCE(QtScenarioEditor);
}

namespace QtSep
{

const char* const MainDialog::POINT_EDITOR_TAB = "Point Editor";
const char* const MainDialog::MANUAL_MERGE_TAB = "Manual Merge";
const char* const MainDialog::TREE_FILTERS_KEY = "Private/ScenarioEditor/EntityTreeFilters";

namespace
{

const char* const AUTO_MERGE_TAB = "Auto Merge";
const char* const MAKE_STATIONARY_TAB = "Make Stationary";
const char* const MISCELLANEOUS_TAB = "Miscellaneous";
// The tree takes about a third of the window at first.
const int TREE_WIDTH = 300;
const int TABS_WIDTH = 600;

} // namespace

void MainDialog::ModifiedCallback::callback(PluginClient::Interfaces::SignalInterface::Signal signal,
                                            const std::vector<UniqueID_t>& ids)
{
  if (signal == PluginClient::Interfaces::SignalInterface::ENTITY_DATA_MODIFIED)
    dialog_.refreshEntities_(ids);
}

MainDialog::MainDialog(ActionManager& actionManager, QMainWindow* mainWindow)
  : kelQt::DockWidget("Qt Scenario Editor", mainWindow),
    actionManager_(actionManager),
    treeModel_(new PluginUtils::DndEntityTreeModel(this)),
    entityTreeComposite_(new kelQt::EntityTreeComposite),
    tabWidget_(new QTabWidget),
    timer_(new QTimer(this)),
    modifiedCallback_(*this)
{
  initEditorResources();
  setObjectName("ScenarioEditorMainDialog");
  buildTree_();
  buildTabs_();

  auto* splitter = new QSplitter(Qt::Horizontal);
  splitter->addWidget(entityTreeComposite_);
  splitter->addWidget(tabWidget_);
  splitter->setSizes({TREE_WIDTH, TABS_WIDTH});
  setWidget(splitter);

  timer_->setInterval(SYNCHRONIZE_MILLISECONDS);
  connect(timer_, &QTimer::timeout, treeModel_, &PluginUtils::EntityTreeModel::synchronizeToScenario);
  timer_->start();

  connect(entityTreeComposite_, &kelQt::EntityTreeComposite::rightClickMenuRequested, this,
          &MainDialog::updateRightClickMenu_);
  connect(&actionManager_, &ActionManager::entityAdded, this, &MainDialog::setSelectedEntity_);
  connect(treeModel_, &QAbstractItemModel::rowsInserted, this, &MainDialog::selectPendingEntity_);
  connect(tabWidget_, &QTabWidget::currentChanged, this, &MainDialog::setTabWidget_);
  listenToModified_();
  setTabWidget_(tabWidget_->currentIndex());
}

MainDialog::~MainDialog()
{
  PluginUtils::SerializeTreeFilters::saveToSettings(*entityTreeComposite_, TREE_FILTERS_KEY);
  if (signalClient_ && signalClient_->service())
    static_cast<PluginClient::Interfaces::SignalInterface*>(signalClient_->service())->removeListener(&modifiedCallback_);
}

void MainDialog::buildTree_()
{
  treeModel_->forceRefresh();
  entityTreeComposite_->setModel(treeModel_);
  entityTreeComposite_->setUseEntityIcons(true);
  categoryFilter_ = new PluginUtils::QtCategoryFilter(true, true);
  entityTreeComposite_->addEntityFilter(categoryFilter_);
  PluginUtils::SerializeTreeFilters::restoreFromSettings(*entityTreeComposite_, TREE_FILTERS_KEY);
  centerEntity_ = new PluginUtils::QtCenterEntity(*entityTreeComposite_, this);
  entityTreeComposite_->setTreeViewActionEnabled(true);
  entityTreeComposite_->setShowTreeOptionsInMenu(true);
  // Whole entities drag out to the clipboard's format and drop in, also from another host;
  // within this one a drop copies.
  QTreeView* view = entityTreeComposite_->view();
  view->setDragDropMode(QAbstractItemView::DragDrop);
  view->setDefaultDropAction(Qt::CopyAction);
  view->setDragEnabled(true);
  view->setAcceptDrops(true);
  view->setDropIndicatorShown(true);
}

void MainDialog::buildTabs_()
{
  addTab(new AutomaticMergeWidget, AUTO_MERGE_TAB);
  addTab(new ManualMergeWidget(*entityTreeComposite_), MANUAL_MERGE_TAB);
  addTab(new MakeStationaryWidget, MAKE_STATIONARY_TAB);
  pointEditor_ = new PointEditorWidget(*entityTreeComposite_);
  addTab(pointEditor_, POINT_EDITOR_TAB);
  auto* miscellaneous = new MiscellaneousWidget;
  connect(miscellaneous, &MiscellaneousWidget::unitsChanged, this, &MainDialog::applyUnitsChange_);
  addTab(miscellaneous, MISCELLANEOUS_TAB);
}

QStringList MainDialog::tabTitles()
{
  return {AUTO_MERGE_TAB, MANUAL_MERGE_TAB, MAKE_STATIONARY_TAB, POINT_EDITOR_TAB, MISCELLANEOUS_TAB};
}

void MainDialog::addTab(TabWidget* tab, const QString& title)
{
  tab->setObjectName(title);
  tabWidget_->addTab(tab, title);
}

void MainDialog::listenToModified_()
{
  signalClient_ = std::make_unique<PICommon::BasicClient<PluginClient::Interfaces::SignalInterface>>();
  if (signalClient_->bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME) && signalClient_->service())
    static_cast<PluginClient::Interfaces::SignalInterface*>(signalClient_->service())->addListener(&modifiedCallback_);
}

std::vector<TabWidget*> MainDialog::tabs_() const
{
  std::vector<TabWidget*> tabs;
  for (int index = 0; index < tabWidget_->count(); ++index)
    tabs.push_back(static_cast<TabWidget*>(tabWidget_->widget(index)));
  return tabs;
}

TabWidget* MainDialog::tab(const QString& title) const
{
  for (TabWidget* tab : tabs_())
  {
    if (tab->objectName() == title)
      return tab;
  }
  return nullptr;
}

void MainDialog::listenToEvents(PIApplicationEvents_t event, void* data)
{
  // Tabs see a reset or a removal before the tree drops the entities.
  const bool treeLast = event == PI_EVENT_SCENARIO_RESET || event == PI_EVENT_ENTITY_REMOVED;
  categoryFilter_->listenToEvents(event, data);
  if (!treeLast)
    treeModel_->listenToEvents(event, data);
  for (TabWidget* tab : tabs_())
    tab->listenToEvents(event, data);
  if (treeLast)
    treeModel_->listenToEvents(event, data);
}

int MainDialog::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  for (TabWidget* tab : tabs_())
  {
    if (tab->handleMouseEvent(type, event) != 0)
      return 1;
  }
  return 0;
}

int MainDialog::startPointEdit(const QList<unsigned long>& ids)
{
  return startTab_(POINT_EDITOR_TAB, ids);
}

int MainDialog::startManualMerge(const QList<unsigned long>& ids)
{
  auto* merge = dynamic_cast<ManualMergeWidget*>(tab(MANUAL_MERGE_TAB));
  if (!merge)
    return 1;
  tabWidget_->setCurrentWidget(merge);
  merge->clearAll();
  entityTreeComposite_->setSelected(ids);
  merge->addSelectedPlatforms();
  return 0;
}

int MainDialog::startTab_(const QString& title, const QList<unsigned long>& ids)
{
  TabWidget* started = tab(title);
  if (!started)
    return 1;
  tabWidget_->setCurrentWidget(started);
  entityTreeComposite_->setSelected(ids);
  return 0;
}

void MainDialog::updateRightClickMenu_(QMenu* menu)
{
  std::vector<unsigned long> ids;
  for (unsigned long id : entityTreeComposite_->selectedItems())
    ids.push_back(id);
  std::vector<MenuInfo*> items;
  actionManager_.menuRequested(ids, items);
  if (items.empty())
    return;
  // The actions come first; a rule parts them from the tree's own entries.
  QAction* first = menu->actions().isEmpty() ? nullptr : menu->actions().front();
  updateMenuInfoToMenu_(items, menu, first);
  if (first)
    menu->insertSeparator(first);
  for (MenuInfo* item : items)
    delete item;
}

void MainDialog::updateMenuInfoToMenu_(const std::vector<MenuInfo*>& items, QMenu* menu, QAction* before)
{
  for (MenuInfo* item : items)
  {
    if (auto* action = dynamic_cast<ActionInfo*>(item))
      menu->insertAction(before, action->action());
    else if (auto* submenuInfo = dynamic_cast<SubmenuInfo*>(item))
    {
      auto* submenu = new QMenu(QString::fromStdString(submenuInfo->text()), menu);
      updateMenuInfoToMenu_(submenuInfo->items(), submenu, nullptr);
      menu->insertMenu(before, submenu);
    }
    else if (dynamic_cast<Separator*>(item))
      menu->insertSeparator(before);
  }
}

void MainDialog::setSelectedEntity_(unsigned long id)
{
  // The tree adds rows in batches: a new entity is selected once its row exists.
  pendingSelection_ = id;
  selectPendingEntity_();
}

void MainDialog::selectPendingEntity_()
{
  if (pendingSelection_ == 0 || !treeModel_->indexOf(pendingSelection_).isValid())
    return;
  const unsigned long id = pendingSelection_;
  pendingSelection_ = 0;
  entityTreeComposite_->setSelected(id);
  entityTreeComposite_->scrollTo(id);
}

void MainDialog::setTabWidget_(int index)
{
  if (index == currentTab_)
    return;
  const std::vector<TabWidget*> tabs = tabs_();
  TabWidget* old = currentTab_ >= 0 && currentTab_ < static_cast<int>(tabs.size()) ? tabs[currentTab_] : nullptr;
  if (old && old->dirty())
  {
    kelQt::GuardedDialog<QMessageBox> question(QMessageBox::Question, tr("Unsaved Changes"),
      tr("Switching tabs will result in loss of unsaved changes.  Still switch tabs?"),
      QMessageBox::Yes | QMessageBox::No, this);
    const int answer = question.exec();
    if (!question.alive())
      return; // the window went while the question was open
    if (answer != QMessageBox::Yes)
    {
      // Put the old tab back without coming here again.
      const QSignalBlocker blocker(tabWidget_);
      tabWidget_->setCurrentIndex(currentTab_);
      return;
    }
  }
  if (old)
    old->setTabActive(false);
  if (index >= 0 && index < static_cast<int>(tabs.size()))
    tabs[index]->setTabActive(true);
  currentTab_ = index;
}

void MainDialog::applyUnitsChange_()
{
  for (TabWidget* tab : tabs_())
    tab->applyUnitsChange();
}

void MainDialog::refreshEntities_(const std::vector<UniqueID_t>& ids)
{
  for (UniqueID_t id : ids)
  {
    treeModel_->refreshEntity(id);
    // The point editor reads its entity anew when another party changed it (0: the scenario).
    if (id == 0 || id == pointEditor_->uniqueId())
      pointEditor_->resetModel();
  }
}

} // namespace QtSep
