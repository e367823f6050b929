#pragma once

#include <QAbstractItemModel>

namespace kelQt
{

/// An item model of entities, each row standing for one entity id, that the entity tree widgets can show.
class AbstractEntityTreeModel : public QAbstractItemModel
{
  Q_OBJECT
public:
  using QAbstractItemModel::QAbstractItemModel;

  /// @return the index of column 0 of the entity's row; invalid for an id the model does not hold.
  virtual QModelIndex indexOf(unsigned long id) const = 0;
  /// @return the entity of an index of any column; 0 for an invalid index or a row of no entity.
  virtual unsigned long uniqueId(const QModelIndex& index) const = 0;
  /// @param useTree true for entities under their hosts, false for a flat list
  virtual void toggleTreeView(bool useTree) = 0;
  /// @param useIcons true to show kinds as icons rather than text
  virtual void setUseEntityIcons(bool useIcons) = 0;
};

} // namespace kelQt
