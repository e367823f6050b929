#include "datasources/KeySortFilter.h"

#include "datasources/EntityDataModel.h"

#include <limits>

namespace QtSep
{

namespace
{

constexpr double MISSING = std::numeric_limits<double>::infinity();

} // namespace

KeySortFilter::KeySortFilter(QObject* parent) : QSortFilterProxyModel(parent) {}

void KeySortFilter::setSourceModel(QAbstractItemModel* model)
{
  if (QAbstractItemModel* old = sourceModel())
    disconnect(old, nullptr, this, nullptr);
  forgetCaches_();
  // Connected before the base class connects its own, so that the caches are right when it
  // sorts again in answer to the same signal.
  if (model)
  {
    connect(model, &QAbstractItemModel::dataChanged, this, &KeySortFilter::updateCachedRows_);
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
      connect(model, signal, this, &KeySortFilter::forgetCaches_);
    connect(model, &QAbstractItemModel::rowsMoved, this, &KeySortFilter::forgetCaches_);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { resetting_ = true; });
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
      resetting_ = false;
      forgetCaches_();
    });
    connect(model, &QAbstractItemModel::layoutChanged, this, &KeySortFilter::forgetCaches_);
  }
  QSortFilterProxyModel::setSourceModel(model);
}

void KeySortFilter::setKey(const QString& key)
{
  key_ = key;
  // A source that reloads tells its keys from inside its model's reset; the reset filters anew.
  if (!resetting_)
    invalidateFilter();
}

void KeySortFilter::forgetCaches_()
{
  times_ = ColumnCache();
  sorted_ = ColumnCache();
}

bool KeySortFilter::readRow_(ColumnCache& cache, int row) const
{
  const QVariant value = sourceModel()->index(row, cache.column).data(cache.role);
  if (!value.isValid())
  {
    cache.values[row] = MISSING;
    return true;
  }
  if (value.userType() != QMetaType::Double)
    return false;
  cache.values[row] = value.toDouble();
  return true;
}

const KeySortFilter::ColumnCache& KeySortFilter::cacheOf_(ColumnCache& cache, int column, int role) const
{
  if (cache.column == column && cache.role == role)
    return cache;
  const int rows = sourceModel()->rowCount();
  cache.column = column;
  cache.role = role;
  cache.values.assign(rows, MISSING);
  cache.usable = true;
  for (int row = 0; row < rows && cache.usable; ++row)
    cache.usable = readRow_(cache, row);
  return cache;
}

void KeySortFilter::updateCachedRows_(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
  // A whole-row change may end one past the last column; its rows are the top left's.
  const int first = topLeft.row();
  const int last = bottomRight.isValid() ? bottomRight.row() : first;
  for (ColumnCache* cache : {&times_, &sorted_})
  {
    if (cache->column < 0 || !cache->usable)
      continue;
    for (int row = first; row <= last && row < static_cast<int>(cache->values.size()); ++row)
    {
      if (!readRow_(*cache, row))
        *cache = ColumnCache();
    }
  }
}

bool KeySortFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
  if (!left.parent().isValid() && left.model() == sourceModel())
  {
    // Rows of one time keep the order the source gave them.
    if (left.column() == 0)
    {
      const ColumnCache& times = cacheOf_(times_, 0, EntityDataModel::TIME_ROLE);
      if (times.usable && times.values[left.row()] == times.values[right.row()])
        return left.row() < right.row();
    }
    const ColumnCache& values = cacheOf_(sorted_, left.column(), sortRole());
    if (values.usable)
      return values.values[left.row()] < values.values[right.row()];
  }
  if (left.column() == 0 &&
      left.data(EntityDataModel::TIME_ROLE).toDouble() == right.data(EntityDataModel::TIME_ROLE).toDouble())
    return left.row() < right.row();
  return QSortFilterProxyModel::lessThan(left, right);
}

bool KeySortFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
  if (key_.isEmpty())
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
  return sourceModel()->index(row, 1, parent).data(Qt::DisplayRole).toString() == key_;
}

} // namespace QtSep
