#include "widgets/EntityProxyModel.h"

#include "widgets/AbstractEntityTreeModel.h"
#include "widgets/EntityFilter.h"

namespace kelQt
{

EntityProxyModel::EntityProxyModel(QObject* parent) : QSortFilterProxyModel(parent)
{
  // Rows come and go in bursts while a scenario loads; filter them as they arrive.
  setDynamicSortFilter(true);
}

EntityProxyModel::~EntityProxyModel() = default;

void EntityProxyModel::setSourceModel(QAbstractItemModel* model)
{
  entities_ = qobject_cast<AbstractEntityTreeModel*>(model);
  QSortFilterProxyModel::setSourceModel(model);
}

void EntityProxyModel::addEntityFilter(EntityFilter* filter)
{
  filters_.emplace_back(filter);
  connect(filter, &EntityFilter::filterUpdated, this, &EntityProxyModel::refilter);
  refilter();
}

std::vector<EntityFilter*> EntityProxyModel::entityFilters() const
{
  std::vector<EntityFilter*> filters;
  for (const auto& filter : filters_)
    filters.push_back(filter.get());
  return filters;
}

void EntityProxyModel::setAlwaysShow(unsigned long id)
{
  if (alwaysShow_ == id)
    return;
  alwaysShow_ = id;
  refilter();
}

void EntityProxyModel::refilter()
{
  invalidateFilter();
}

bool EntityProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
  if (!entities_)
    return true;
  const QModelIndex index = entities_->index(sourceRow, 0, sourceParent);
  const unsigned long id = entities_->uniqueId(index);
  if (id != 0 && id == alwaysShow_)
    return true;
  return checkFilters_(id) || anyChildAccepted_(index);
}

bool EntityProxyModel::checkFilters_(unsigned long id) const
{
  for (const auto& filter : filters_)
  {
    if (!filter->acceptEntity(id))
      return false;
  }
  return true;
}

bool EntityProxyModel::anyChildAccepted_(const QModelIndex& sourceIndex) const
{
  const int children = entities_->rowCount(sourceIndex);
  for (int row = 0; row < children; ++row)
  {
    if (filterAcceptsRow(row, sourceIndex))
      return true;
  }
  return false;
}

bool EntityProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
  bool leftIsNumber = false;
  bool rightIsNumber = false;
  const int leftNumber = sourceModel()->data(left, sortRole()).toInt(&leftIsNumber);
  const int rightNumber = sourceModel()->data(right, sortRole()).toInt(&rightIsNumber);
  if (leftIsNumber && rightIsNumber)
    return leftNumber < rightNumber;
  return QSortFilterProxyModel::lessThan(left, right);
}

} // namespace kelQt
