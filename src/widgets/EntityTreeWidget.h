#pragma once

#include <QList>
#include <QObject>

#include <memory>

class QAbstractItemModel;
class QItemSelection;
class QModelIndex;
class QTimer;
class QTreeView;

namespace kelQt
{

class AbstractEntityTreeModel;
class EntityFilter;
class EntityProxyModel;
class Settings;

/**
 * The controller of an entity tree view: it puts a filtering proxy between the view and the
 * entities, and reports selections and the count of shown entities in batches, 100 ms after
 * the first change, since a filter or a load changes hundreds of rows at once.
 */
class EntityTreeWidget : public QObject
{
  Q_OBJECT
public:
  /// @param view the view to control; not owned
  explicit EntityTreeWidget(QTreeView* view);
  ~EntityTreeWidget() override;

  /// Shows model through a new filtering proxy. @param model the entities; not owned
  void setModel(AbstractEntityTreeModel* model);
  EntityProxyModel* proxyModel() const { return proxy_.get(); }

  /// Takes ownership of filter.
  void addEntityFilter(EntityFilter* filter);

  /// @return the selected entities, in the order of the view.
  QList<unsigned long> selectedItems() const;
  /// Selects the entities in one change of the selection; ids not shown are passed over.
  void setSelected(const QList<unsigned long>& ids);
  void clearSelection();

  /// Keeps the tree or list choice in settings, and takes the stored choice now.
  void setSettings(std::shared_ptr<Settings> settings);
  /// @param useTree true for entities under their hosts, false for a flat list
  void toggleTreeView(bool useTree);
  bool isTreeView() const { return treeView_; }

  /// Name of the tree or list setting.
  static const char* const TREE_VIEW_SETTING;

signals:
  /// The selection changed; sent once per batch.
  void itemsSelected(const QList<unsigned long>& ids);
  /// The entities shown and in all; sent once per batch.
  void numFilteredItemsChanged(int filtered, int total);
  void itemDoubleClicked(unsigned long id);
  void treeViewChanged(bool useTree);

private:
  void delaySend_();
  void emitSend_();
  void sendNumFilteredItems_();
  int countRows_(const QAbstractItemModel& model, const QModelIndex& parent) const;

  QTreeView* view_;
  AbstractEntityTreeModel* model_ = nullptr;
  std::unique_ptr<EntityProxyModel> proxy_;
  QTimer* selectionTimer_;
  QTimer* countTimer_;
  std::shared_ptr<Settings> settings_;
  bool treeView_ = true;
};

} // namespace kelQt
