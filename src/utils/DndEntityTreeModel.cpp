#include "utils/DndEntityTreeModel.h"

#include "host/Notify.h"
#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"

#include <QMimeData>

#include <set>

namespace PluginUtils
{

DndEntityTreeModel::DndEntityTreeModel(QObject* parent) : EntityTreeModel(parent) {}

Qt::DropActions DndEntityTreeModel::supportedDragActions() const { return Qt::CopyAction | Qt::MoveAction; }

Qt::DropActions DndEntityTreeModel::supportedDropActions() const { return Qt::CopyAction | Qt::MoveAction; }

Qt::ItemFlags DndEntityTreeModel::flags(const QModelIndex& index) const
{
  if (!index.isValid())
    return Qt::NoItemFlags;
  Qt::ItemFlags flags = EntityTreeModel::flags(index) | Qt::ItemIsDropEnabled;
  if (uniqueId(index) != 0)
    flags |= Qt::ItemIsDragEnabled;
  return flags;
}

QStringList DndEntityTreeModel::mimeTypes() const { return {QString(QtSep::CP_VERSION)}; }

QMimeData* DndEntityTreeModel::mimeData(const QModelIndexList& indexes) const
{
  // A row gives an index for each of its columns: each entity goes once, where first seen.
  std::set<unsigned long> seen;
  std::vector<QtSep::EntityInfo> entities;
  for (const QModelIndex& index : indexes)
  {
    // The scenario's row gives id 0, which no copy takes: a drag that holds it carries nothing.
    const unsigned long id = uniqueId(index);
    if (seen.insert(id).second)
      entities.push_back(QtSep::EntityInfo{id, QtSep::getEntityType(id), QtSep::getEntityName(id)});
  }
  if (entities.empty())
    return nullptr;
  QMimeData* mime = exchange_.copy(entities);
  if (!exchange_.copyError().empty())
    PICommon::Notify(PICommon::NOTIFY_WARN) << "Drag of entities: " << exchange_.copyError();
  return mime;
}

unsigned long DndEntityTreeModel::dropTarget_(int row, const QModelIndex& parent) const
{
  if (row != -1)
    return uniqueId(index(row, 0, parent));
  return parent.isValid() ? uniqueId(parent) : 0;
}

bool DndEntityTreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                                         const QModelIndex& parent) const
{
  if (action != Qt::CopyAction && action != Qt::MoveAction)
    return false;
  // Within one host a drop copies: moving an entity onto its own scenario is not offered.
  if (exchange_.isLocalData(data) && action != Qt::CopyAction)
    return false;
  const unsigned long target = dropTarget_(row, parent);
  const std::vector<QtSep::EntityInfo> targets{
    QtSep::EntityInfo{target, QtSep::getEntityType(target), QtSep::getEntityName(target)}};
  return exchange_.isValidPaste(targets, data);
}

bool DndEntityTreeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                      const QModelIndex& parent)
{
  if (!canDropMimeData(data, action, row, column, parent))
    return false;
  const unsigned long target = dropTarget_(row, parent);
  const std::vector<QtSep::EntityInfo> targets{
    QtSep::EntityInfo{target, QtSep::getEntityType(target), QtSep::getEntityName(target)}};
  const int status = exchange_.paste(targets, data);
  if (!exchange_.pasteError().empty())
    PICommon::Notify(PICommon::NOTIFY_WARN) << "Drop of entities stopped: " << exchange_.pasteError();
  if (!exchange_.pastedIds().empty())
    QtSep::fireChangeCallback(exchange_.pastedIds());
  return status == 0;
}

bool DndEntityTreeModel::removeRows(int row, int, const QModelIndex& parent)
{
  const unsigned long id = uniqueId(index(row, 0, parent));
  if (id == 0)
    return false;
  return PIData::removeEntity(id, false) == 0;
}

} // namespace PluginUtils
