#pragma once

#include "exchange/EntityMimeData.h"
#include "utils/EntityTreeModel.h"

namespace PluginUtils
{

/**
 * The entity tree with drag and drop of whole entities: a drag carries the dragged entities'
 * payload; a drop pastes it on the row dropped on. Within one host a drop always copies; a
 * move is offered only to another host, which then removes the dragged entity here.
 */
class DndEntityTreeModel : public EntityTreeModel
{
  Q_OBJECT
public:
  explicit DndEntityTreeModel(QObject* parent = nullptr);

  Qt::DropActions supportedDragActions() const override;
  Qt::DropActions supportedDropActions() const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QStringList mimeTypes() const override;
  /// @return the payload of the distinct entities of indexes, in first-seen order; null for none
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;
  /// Removes the entity at row under parent from the host, after another host took it by a move.
  bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;

private:
  /// @return the entity a drop at row under parent lands on; 0 for none
  unsigned long dropTarget_(int row, const QModelIndex& parent) const;

  QtSep::EntityMimeData exchange_;
};

} // namespace PluginUtils
