#include "widgets/EntityTreeWidget.h"

#include "widgets/AbstractEntityTreeModel.h"
#include "widgets/EntityProxyModel.h"
#include "widgets/Settings.h"
#include "widgets/SettingsMetaData.h"

#include <QItemSelection>
#include <QTimer>
#include <QTreeView>

namespace kelQt
{

const char* const EntityTreeWidget::TREE_VIEW_SETTING = "Private/EntityTree/TreeView";

namespace
{

const int BATCH_MILLISECONDS = 100;

QTimer* makeBatchTimer(QObject* owner)
{
  auto* timer = new QTimer(owner);
  timer->setSingleShot(true);
  timer->setInterval(BATCH_MILLISECONDS);
  return timer;
}

} // namespace

EntityTreeWidget::EntityTreeWidget(QTreeView* view)
  : QObject(view), view_(view), selectionTimer_(makeBatchTimer(this)), countTimer_(makeBatchTimer(this))
{
  connect(selectionTimer_, &QTimer::timeout, this, &EntityTreeWidget::emitSend_);
  connect(countTimer_, &QTimer::timeout, this, &EntityTreeWidget::sendNumFilteredItems_);
  connect(view_, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
    if (model_)
      emit itemDoubleClicked(model_->uniqueId(proxy_->mapToSource(index)));
  });
}

EntityTreeWidget::~EntityTreeWidget()
{
  view_->setModel(nullptr);
}

void EntityTreeWidget::setModel(AbstractEntityTreeModel* model)
{
  model_ = model;
  auto proxy = std::make_unique<EntityProxyModel>();
  proxy->setSourceModel(model);
  view_->setModel(proxy.get());
  proxy_ = std::move(proxy);
  view_->setSortingEnabled(true);
  view_->sortByColumn(0, Qt::AscendingOrder);
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &EntityTreeWidget::delaySend_);
  auto recount = [this] {
    if (!countTimer_->isActive())
      countTimer_->start();
  };
  connect(proxy_.get(), &QAbstractItemModel::rowsInserted, this, recount);
  connect(proxy_.get(), &QAbstractItemModel::rowsRemoved, this, recount);
  connect(proxy_.get(), &QAbstractItemModel::modelReset, this, recount);
  connect(proxy_.get(), &QAbstractItemModel::layoutChanged, this, recount);
  model_->toggleTreeView(treeView_);
  recount();
}

void EntityTreeWidget::addEntityFilter(EntityFilter* filter)
{
  proxy_->addEntityFilter(filter);
}

QList<unsigned long> EntityTreeWidget::selectedItems() const
{
  QList<unsigned long> ids;
  if (!model_)
    return ids;
  for (const QModelIndex& index : view_->selectionModel()->selectedRows())
    ids << model_->uniqueId(proxy_->mapToSource(index));
  return ids;
}

void EntityTreeWidget::setSelected(const QList<unsigned long>& ids)
{
  if (!model_)
    return;
  QItemSelection selection;
  for (unsigned long id : ids)
  {
    const QModelIndex shown = proxy_->mapFromSource(model_->indexOf(id));
    if (shown.isValid())
      selection.select(shown, shown);
  }
  view_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void EntityTreeWidget::clearSelection()
{
  view_->clearSelection();
}

void EntityTreeWidget::setSettings(std::shared_ptr<Settings> settings)
{
  settings_ = std::move(settings);
  const QVariant stored = settings_->value(TREE_VIEW_SETTING,
    SettingsMetaData::makeBoolean(true, "Show Entity list in tree view", SettingsMetaData::PRIVATE));
  toggleTreeView(stored.toBool());
}

void EntityTreeWidget::toggleTreeView(bool useTree)
{
  if (settings_)
    settings_->setValue(TREE_VIEW_SETTING, useTree);
  if (treeView_ == useTree)
    return;
  treeView_ = useTree;
  if (model_)
    model_->toggleTreeView(useTree);
  view_->setRootIsDecorated(useTree);
  emit treeViewChanged(useTree);
}

void EntityTreeWidget::delaySend_()
{
  if (!selectionTimer_->isActive())
    selectionTimer_->start();
}

void EntityTreeWidget::emitSend_()
{
  emit itemsSelected(selectedItems());
}

void EntityTreeWidget::sendNumFilteredItems_()
{
  if (model_)
    emit numFilteredItemsChanged(countRows_(*proxy_, QModelIndex()), countRows_(*model_, QModelIndex()));
}

int EntityTreeWidget::countRows_(const QAbstractItemModel& model, const QModelIndex& parent) const
{
  const int rows = model.rowCount(parent);
  int count = rows;
  for (int row = 0; row < rows; ++row)
    count += countRows_(model, model.index(row, 0, parent));
  return count;
}

} // namespace kelQt
