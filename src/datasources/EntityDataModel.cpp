#include "datasources/EntityDataModel.h"

#include "datasources/DataSource.h"

namespace QtSep
{

const QColor EDIT_RED(255, 64, 64, 255);
const QColor ADDED_ROW_YELLOW(255, 255, 127, 255);

namespace
{

const char* const NO_VALUE_TEXT = "--";

} // namespace

EntityDataModel::EntityDataModel(QObject* parent) : QAbstractItemModel(parent) {}

void EntityDataModel::setDataSource(DataSource* source)
{
  if (source == source_)
    return;
  beginResetModel();
  source_ = source;
  endResetModel();
}

void EntityDataModel::setUniqueId(unsigned long id)
{
  if (!source_)
    return;
  beginResetModel();
  source_->setUniqueId(id, true);
  endResetModel();
}

unsigned long EntityDataModel::uniqueId() const { return source_ ? source_->uniqueId() : 0; }
bool EntityDataModel::isValid() const { return source_ && source_->isValid(); }
bool EntityDataModel::canDeleteRow() const { return source_ && source_->canDeleteRow(); }
bool EntityDataModel::isDirty() const { return source_ && source_->isDirty(); }

void EntityDataModel::commitChanges()
{
  if (!source_)
    return;
  beginResetModel();
  source_->commitChanges(true);
  endResetModel();
}

int EntityDataModel::copyRow(int row)
{
  if (!source_)
    return -1;
  const int destination = source_->getCopyDestination(row);
  beginInsertRows(QModelIndex(), destination, destination);
  source_->copyRow(row, destination);
  endInsertRows();
  return destination;
}

void EntityDataModel::deleteRows(const std::vector<int>& rows)
{
  if (!source_)
    return;
  beginResetModel();
  source_->deleteRows(rows);
  endResetModel();
}

void EntityDataModel::revert(const QModelIndex& index)
{
  if (!index.isValid() || !source_)
    return;
  if (source_->revert(index.row(), index.column()) != 0)
    return;
  // A revert may reach past its cell (Speed restores all three velocities): the whole row
  // repaints. The end index is one column past the last, as views take a whole-row request.
  emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount()));
  handleTimeChange_(index);
}

void EntityDataModel::applyUnitsChange()
{
  if (!source_)
    return;
  source_->applyUnitsChange();
  if (rowCount() > 0)
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  if (columnCount() > 0)
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QModelIndex EntityDataModel::index(int row, int column, const QModelIndex& parent) const
{
  return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex EntityDataModel::parent(const QModelIndex&) const { return QModelIndex(); }

int EntityDataModel::rowCount(const QModelIndex& parent) const
{
  return parent.isValid() || !source_ ? 0 : source_->rowCount();
}

int EntityDataModel::columnCount(const QModelIndex& parent) const
{
  return parent.isValid() || !source_ ? 0 : source_->columnCount();
}

Qt::ItemFlags EntityDataModel::flags(const QModelIndex& index) const
{
  if (!index.isValid() || !source_)
    return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (source_->isColumnEditable(index.column()))
    flags |= Qt::ItemIsEditable;
  return flags;
}

QVariant EntityDataModel::data(const QModelIndex& index, int role) const
{
  if (!index.isValid() || !source_ || index.row() >= source_->rowCount() || index.column() >= source_->columnCount())
    return QVariant();
  const int row = index.row();
  const int column = index.column();
  switch (role)
  {
  case Qt::DisplayRole:
  case Qt::EditRole: {
    const QVariant shown = source_->data(row, column, DataSource::Role::Display);
    return shown.isNull() ? QVariant(QString(NO_VALUE_TEXT)) : shown;
  }
  case Qt::TextAlignmentRole:
    return QVariant(Qt::AlignRight);
  case Qt::BackgroundRole:
    if (source_->isAddedRow(row))
      return ADDED_ROW_YELLOW;
    if (source_->isDirty(row, column))
      return EDIT_RED;
    return QVariant();
  case TIME_ROLE:
    return source_->time(row);
  case RAW_ROLE:
    return source_->data(row, column, DataSource::Role::Raw);
  case DIRTY_ROLE:
    return source_->isDirty(row, column);
  default:
    return QVariant();
  }
}

bool EntityDataModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
  if (role != Qt::EditRole || !index.isValid())
    return QAbstractItemModel::setData(index, value, role);
  if (!source_)
    return false;
  // The table hands text; sources parse it in the user's units.
  if (source_->setData(index.row(), index.column(), QVariant(value.toString())) != 0)
    return false;
  emit dataChanged(index, index, {Qt::DisplayRole, Qt::BackgroundRole, RAW_ROLE});
  handleTimeChange_(index);
  return true;
}

QVariant EntityDataModel::headerData(int section, Qt::Orientation orientation, int role) const
{
  if (!source_)
    return QVariant();
  if (orientation == Qt::Horizontal)
  {
    if (role == Qt::DisplayRole)
      return section >= 0 && section < source_->columnCount() ? QVariant(QString::fromStdString(source_->columnName(section)))
                                                              : QVariant();
    if (role == Qt::TextAlignmentRole)
      return QVariant(Qt::AlignHCenter);
  }
  return QAbstractItemModel::headerData(section, orientation, role);
}

void EntityDataModel::requestBeginResetModel() { beginResetModel(); }

void EntityDataModel::requestEndResetModel() { endResetModel(); }

void EntityDataModel::handleTimeChange_(const QModelIndex& index)
{
  if (index.column() != 0 || !source_)
    return;
  const int row = index.row();
  const double time = index.data(TIME_ROLE).toDouble();
  const int rows = rowCount();
  // The first row later than the new time is the destination; equal times stay ahead.
  int i = 0;
  while (i < rows)
  {
    if (i != row)
    {
      if (source_->time(i) > time)
        break;
      ++i;
      continue;
    }
    if (i == rows - 1 || source_->time(i + 1) > time)
      break;
    ++i;
  }
  if (i == row)
    return;
  beginMoveRows(QModelIndex(), row, row, QModelIndex(), i);
  source_->moveRow(row, i);
  endMoveRows();
}

} // namespace QtSep
