#include "datasources/KeySortFilter.h"

#include "datasources/EntityDataModel.h"

namespace QtSep
{

KeySortFilter::KeySortFilter(QObject* parent) : QSortFilterProxyModel(parent) {}

void KeySortFilter::setKey(const QString& key)
{
  key_ = key;
  invalidateFilter();
}

bool KeySortFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
  // Rows of one time keep the order the source gave them.
  if (left.column() == 0)
  {
    const double leftTime = left.data(EntityDataModel::TIME_ROLE).toDouble();
    const double rightTime = right.data(EntityDataModel::TIME_ROLE).toDouble();
    if (leftTime == rightTime)
      return left.row() < right.row();
  }
  return QSortFilterProxyModel::lessThan(left, right);
}

bool KeySortFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
  if (key_.isEmpty())
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
  return sourceModel()->index(row, 1, parent).data(Qt::DisplayRole).toString() == key_;
}

} // namespace QtSep
