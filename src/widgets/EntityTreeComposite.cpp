#include "widgets/EntityTreeComposite.h"

#include "ui_EntityTreeComposite.h"
#include "widgets/AbstractEntityTreeModel.h"
#include "widgets/EntityNameFilter.h"
#include "widgets/EntityProxyModel.h"
#include "widgets/EntityTreeWidget.h"
#include "widgets/FilterDialog.h"
#include "widgets/Settings.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QInputDialog>
#include <QMenu>

static void initKelQtResources()
{
  Q_INIT_RESOURCE(kelQt);
}

namespace kelQt
{

namespace
{

const char* const BUTTON_ICONS[EntityTreeComposite::NUM_FILTER_BUTTONS] = {
  ":kelQt/images/Data Red Filter.png",
  ":kelQt/images/Data Blue Filter.png",
  ":kelQt/images/Data Purple Filter.png",
  ":kelQt/images/Data Green Filter.png",
};

const QString EMPTY_BUTTON_TIP = "Loads the saved filter configuration.";

/// Makes configurations storable in settings files, once per process.
void registerFilterConfiguration()
{
  static const bool registered = [] {
    qRegisterMetaType<EntityTreeComposite::FilterConfiguration>("kelQt::EntityTreeComposite::FilterConfiguration");
    qRegisterMetaTypeStreamOperators<EntityTreeComposite::FilterConfiguration>(
      "kelQt::EntityTreeComposite::FilterConfiguration");
    return true;
  }();
  (void)registered;
}

} // namespace

QDataStream& operator<<(QDataStream& out, const EntityTreeComposite::FilterConfiguration& configuration)
{
  return out << configuration.description << configuration.configuration;
}

QDataStream& operator>>(QDataStream& in, EntityTreeComposite::FilterConfiguration& configuration)
{
  return in >> configuration.description >> configuration.configuration;
}

EntityTreeComposite::EntityTreeComposite(QWidget* parent)
  : QWidget(parent), ui_(std::make_unique<Ui::EntityTreeComposite>())
{
  initKelQtResources();
  registerFilterConfiguration();
  ui_->setupUi(this);
  treeWidget_ = std::make_unique<EntityTreeWidget>(ui_->treeView);

  centerAction_ = new QAction("Center On Selection", this);
  connect(centerAction_, &QAction::triggered, this, &EntityTreeComposite::centerOnSelection_);
  toggleTreeViewAction_ = new QAction("Toggle Tree View", this);
  toggleTreeViewAction_->setCheckable(true);
  toggleTreeViewAction_->setChecked(treeWidget_->isTreeView());
  connect(toggleTreeViewAction_, &QAction::toggled, treeWidget_.get(), &EntityTreeWidget::toggleTreeView);
  connect(ui_->actionExpand_All, &QAction::triggered, ui_->treeView, &QTreeView::expandAll);
  connect(ui_->actionCollapse_All, &QAction::triggered, ui_->treeView, &QTreeView::collapseAll);

  connect(treeWidget_.get(), &EntityTreeWidget::itemsSelected, this, &EntityTreeComposite::itemsSelected);
  connect(treeWidget_.get(), &EntityTreeWidget::itemDoubleClicked, this, &EntityTreeComposite::itemDoubleClicked);
  connect(treeWidget_.get(), &EntityTreeWidget::numFilteredItemsChanged, this,
          &EntityTreeComposite::setNumFilteredItemsLabel_);
  connect(treeWidget_.get(), &EntityTreeWidget::treeViewChanged, this, [this](bool useTree) {
    toggleTreeViewAction_->setChecked(useTree);
    emit treeViewChanged(useTree);
  });
  connect(ui_->treeView, &QWidget::customContextMenuRequested, this, &EntityTreeComposite::showContextMenu_);
  connect(ui_->filterButton, &QToolButton::clicked, this, &EntityTreeComposite::showFilterDialog_);
  initFilterButtons_();
}

EntityTreeComposite::~EntityTreeComposite()
{
  // The dialog shows the filters' editors, so it goes before the filters and their proxy.
  delete filterDialog_;
}

void EntityTreeComposite::initFilterButtons_()
{
  for (int index = 0; index < NUM_FILTER_BUTTONS; ++index)
  {
    QToolButton* button = filterConfigButton_(index);
    button->setIcon(QIcon(BUTTON_ICONS[index]));
    button->setToolTip(EMPTY_BUTTON_TIP);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    ButtonActions& actions = buttonActions_[index];
    auto* menu = new QMenu(button);
    actions.load = menu->addAction("Load");
    actions.save = menu->addAction("Save...");
    actions.clear = menu->addAction("Clear");
    button->setMenu(menu);
    connect(button, &QToolButton::clicked, this, [this, index] { loadFilterConfig_(index); });
    connect(actions.load, &QAction::triggered, this, [this, index] { loadFilterConfig_(index); });
    connect(actions.save, &QAction::triggered, this, [this, index] { saveFilterConfig_(index); });
    connect(actions.clear, &QAction::triggered, this, [this, index] { clearFilterConfiguration(index); });
  }
  // Without settings there is nowhere to keep configurations.
  ui_->filterConfigWidget->setVisible(false);
}

QToolButton* EntityTreeComposite::filterConfigButton_(int index) const
{
  QToolButton* const buttons[NUM_FILTER_BUTTONS] = {ui_->f1Button, ui_->f2Button, ui_->f3Button, ui_->f4Button};
  return buttons[index];
}

void EntityTreeComposite::setModel(AbstractEntityTreeModel* model)
{
  model_ = model;
  treeWidget_->setModel(model);
  nameFilter_ = new EntityNameFilter(model);
  nameFilter_->bindToWidget(ui_->lineEdit);
  treeWidget_->addEntityFilter(nameFilter_);
  connect(nameFilter_, &EntityFilter::filterUpdated, this, &EntityTreeComposite::emitFilterSettings_);
  // Filters added before the model wait for the proxy, and keep their order behind the name filter.
  for (EntityFilter* filter : filters_)
  {
    filter->setParent(nullptr);
    treeWidget_->addEntityFilter(filter);
  }
}

QTreeView* EntityTreeComposite::view() const
{
  return ui_->treeView;
}

QList<unsigned long> EntityTreeComposite::selectedItems() const
{
  return treeWidget_->selectedItems();
}

void EntityTreeComposite::setSelected(unsigned long id)
{
  setSelected(QList<unsigned long>{id});
}

void EntityTreeComposite::setSelected(const QList<unsigned long>& ids)
{
  treeWidget_->setSelected(ids);
}

void EntityTreeComposite::clearSelection()
{
  treeWidget_->clearSelection();
}

void EntityTreeComposite::scrollTo(unsigned long id, QAbstractItemView::ScrollHint hint)
{
  if (!model_)
    return;
  const QModelIndex shown = treeWidget_->proxyModel()->mapFromSource(model_->indexOf(id));
  if (shown.isValid())
    ui_->treeView->scrollTo(shown, hint);
}

void EntityTreeComposite::setSelectionMode(QAbstractItemView::SelectionMode mode)
{
  ui_->treeView->setSelectionMode(mode);
}

QAbstractItemView::SelectionMode EntityTreeComposite::selectionMode() const
{
  return ui_->treeView->selectionMode();
}

void EntityTreeComposite::setAlwaysShow(unsigned long id)
{
  if (treeWidget_->proxyModel())
    treeWidget_->proxyModel()->setAlwaysShow(id);
}

unsigned long EntityTreeComposite::alwaysShow() const
{
  return treeWidget_->proxyModel() ? treeWidget_->proxyModel()->alwaysShow() : 0;
}

void EntityTreeComposite::addEntityFilter(EntityFilter* filter)
{
  filters_.push_back(filter);
  if (treeWidget_->proxyModel())
    treeWidget_->addEntityFilter(filter);
  else
    filter->setParent(this); // owned here until the proxy takes it over
  connect(filter, &EntityFilter::filterUpdated, this, &EntityTreeComposite::emitFilterSettings_);
  if (filterDialog_)
    filterDialog_->addFilter(*filter);
}

void EntityTreeComposite::getFilterSettings(QMap<QString, QVariant>& settings) const
{
  if (nameFilter_)
    nameFilter_->getFilterSettings(settings);
  for (const EntityFilter* filter : filters_)
    filter->getFilterSettings(settings);
}

void EntityTreeComposite::setFilterSettings(const QMap<QString, QVariant>& settings)
{
  if (nameFilter_)
    nameFilter_->setFilterSettings(settings);
  for (EntityFilter* filter : filters_)
    filter->setFilterSettings(settings);
}

void EntityTreeComposite::emitFilterSettings_()
{
  QMap<QString, QVariant> settings;
  getFilterSettings(settings);
  emit filterSettingsChanged(settings);
}

void EntityTreeComposite::addExternalAction(QAction* action)
{
  externalActions_.append(action);
}

void EntityTreeComposite::removeExternalActions()
{
  externalActions_.clear();
}

void EntityTreeComposite::addButton(QWidget* button)
{
  ui_->searchLayout->addWidget(button);
}

void EntityTreeComposite::setShowCenterInMenu(bool show)
{
  showCenterInMenu_ = show;
}

void EntityTreeComposite::setShowTreeOptionsInMenu(bool show)
{
  showTreeOptionsInMenu_ = show;
}

void EntityTreeComposite::setTreeViewActionEnabled(bool enabled)
{
  toggleTreeViewAction_->setEnabled(enabled);
}

void EntityTreeComposite::setTreeView(bool useTree)
{
  treeWidget_->toggleTreeView(useTree);
}

void EntityTreeComposite::setExpandsOnDoubleClick(bool expands)
{
  ui_->treeView->setExpandsOnDoubleClick(expands);
}

void EntityTreeComposite::setUseCenterAction(bool use, const QString& reason)
{
  centerAction_->setEnabled(use);
  centerAction_->setText(reason.isEmpty() ? QString("Center On Selection")
                                          : QString("Center On Selection (%1)").arg(reason));
}

void EntityTreeComposite::setUseEntityIcons(bool useIcons)
{
  if (model_)
    model_->setUseEntityIcons(useIcons);
}

void EntityTreeComposite::setMargins(int left, int top, int right, int bottom)
{
  layout()->setContentsMargins(left, top, right, bottom);
}

void EntityTreeComposite::setSettings(std::shared_ptr<Settings> settings)
{
  settings_ = std::move(settings);
  treeWidget_->setSettings(settings_);
  initializeSettings(*settings_);
  for (int index = 0; index < NUM_FILTER_BUTTONS; ++index)
    showFilterConfiguration_(index, storedConfiguration_(index));
  ui_->filterConfigWidget->setVisible(true);
}

void EntityTreeComposite::initializeSettings(Settings& settings)
{
  registerFilterConfiguration();
  for (int index = 0; index < NUM_FILTER_BUTTONS; ++index)
  {
    const SettingsMetaData metaData(SettingsMetaData::UNSPECIFIED,
      QVariant::fromValue(FilterConfiguration()), "Filter configuration kept by a filter button",
      SettingsMetaData::PRIVATE);
    settings.setMetaData(filterConfigurationKey(index), metaData);
  }
}

QString EntityTreeComposite::filterConfigurationKey(int index)
{
  return QString("Private/EntityTree/FilterConfiguration%1").arg(index + 1);
}

EntityTreeComposite::FilterConfiguration EntityTreeComposite::storedConfiguration_(int index) const
{
  if (!settings_)
    return FilterConfiguration();
  return settings_->value(filterConfigurationKey(index)).value<FilterConfiguration>();
}

void EntityTreeComposite::saveFilterConfig_(int index)
{
  bool accepted = false;
  const QString description = QInputDialog::getText(this, "Save Filter Configuration",
    "Enter a description to save with this filter configuration:", QLineEdit::Normal, QString(), &accepted);
  if (accepted)
    saveFilterConfiguration(index, description);
}

void EntityTreeComposite::saveFilterConfiguration(int index, const QString& description)
{
  if (!settings_ || index < 0 || index >= NUM_FILTER_BUTTONS)
    return;
  FilterConfiguration configuration;
  configuration.description = description;
  getFilterSettings(configuration.configuration);
  settings_->setValue(filterConfigurationKey(index), QVariant::fromValue(configuration));
  showFilterConfiguration_(index, configuration);
}

void EntityTreeComposite::loadFilterConfig_(int index)
{
  loadFilterConfiguration(index);
}

void EntityTreeComposite::loadFilterConfiguration(int index)
{
  if (index < 0 || index >= NUM_FILTER_BUTTONS)
    return;
  const FilterConfiguration configuration = storedConfiguration_(index);
  if (!configuration.configuration.isEmpty())
    setFilterSettings(configuration.configuration);
}

void EntityTreeComposite::clearFilterConfiguration(int index)
{
  if (!settings_ || index < 0 || index >= NUM_FILTER_BUTTONS)
    return;
  settings_->setValue(filterConfigurationKey(index), QVariant::fromValue(FilterConfiguration()));
  showFilterConfiguration_(index, FilterConfiguration());
}

void EntityTreeComposite::showFilterConfiguration_(int index, const FilterConfiguration& configuration)
{
  QToolButton* button = filterConfigButton_(index);
  const bool stored = !configuration.configuration.isEmpty();
  button->setToolTip(stored ? QString("Loads the saved filter configuration: %1").arg(configuration.description)
                            : EMPTY_BUTTON_TIP);
  button->setText(stored ? QString("Load %1").arg(configuration.description) : QString());
  buttonActions_[index].load->setEnabled(stored);
  buttonActions_[index].clear->setEnabled(stored);
}

void EntityTreeComposite::showFilterDialog_()
{
  if (!filterDialog_)
  {
    filterDialog_ = new FilterDialog(this);
    for (const EntityFilter* filter : filters_)
      filterDialog_->addFilter(*filter);
    connect(filterDialog_, &FilterDialog::closedGui, this, [this] {
      filterDialog_->deleteLater();
      filterDialog_ = nullptr;
    });
  }
  filterDialog_->show();
  filterDialog_->raise();
}

QMenu* EntityTreeComposite::createContextMenu(QWidget* parent)
{
  auto* menu = new QMenu(parent);
  QAction* copy = menu->addAction("&Copy");
  copy->setEnabled(!selectedItems().isEmpty());
  connect(copy, &QAction::triggered, this, &EntityTreeComposite::copySelection_);
  if (showCenterInMenu_)
    menu->addAction(centerAction_);
  if (!externalActions_.isEmpty())
  {
    menu->addSeparator();
    menu->addActions(externalActions_);
  }
  if (showTreeOptionsInMenu_)
  {
    menu->addSeparator();
    menu->addAction(ui_->actionExpand_All);
    menu->addAction(ui_->actionCollapse_All);
    menu->addAction(toggleTreeViewAction_);
  }
  emit rightClickMenuRequested(menu);
  return menu;
}

void EntityTreeComposite::showContextMenu_(const QPoint& position)
{
  QMenu* menu = createContextMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(ui_->treeView->viewport()->mapToGlobal(position));
}

void EntityTreeComposite::copySelection_()
{
  QStringList names;
  for (unsigned long id : selectedItems())
    names << model_->indexOf(id).data(Qt::DisplayRole).toString();
  QApplication::clipboard()->setText(names.join('\n'));
}

void EntityTreeComposite::centerOnSelection_()
{
  const QList<unsigned long> ids = selectedItems();
  if (ids.size() == 1)
    emit centerOnEntityRequested(ids.front());
  else if (!ids.isEmpty())
    emit centerOnSelectionRequested(ids);
}

void EntityTreeComposite::setNumFilteredItemsLabel_(int filtered, int total)
{
  ui_->countLabel->setText(filtered != total ? QString("%1 of %2 Filtered Entity Names").arg(filtered).arg(total)
                                             : QString::number(total));
}

} // namespace kelQt
