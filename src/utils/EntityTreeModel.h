#pragma once

#include "host/PIScenarioObjectType.h"
#include "host/UniqueID.h"

#include "widgets/AbstractEntityTreeModel.h"

#include <QIcon>

#include <map>
#include <memory>
#include <vector>

class QTimer;

namespace PluginUtils
{

class QtEntityTreeItem;

/**
 * The scenario's entities as a tree under their hosts or as a flat list, kept in step with the
 * host through the plug-in's events. Additions are gathered for 100 ms and committed at once,
 * since a load brings thousands of entities in a burst.
 */
class EntityTreeModel : public kelQt::AbstractEntityTreeModel
{
  Q_OBJECT
public:
  /// Columns of the model.
  enum Column
  {
    NAME_COLUMN = 0,
    TYPE_COLUMN,
    ID_COLUMN,
    POINTS_COLUMN,
    START_COLUMN,
    END_COLUMN,
    COLUMN_COUNT
  };

  explicit EntityTreeModel(QObject* parent = nullptr);
  ~EntityTreeModel() override;

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  QModelIndex indexOf(unsigned long id) const override;
  /// @return the entity of an index; 0 for the scenario row or an invalid index.
  unsigned long uniqueId(const QModelIndex& index) const override;

  /**
   * Mirrors one host event.
   * @param event a PIApplicationEvents_t value @param data the event's argument: a uint64_t id, a set of ids or null
   */
  void listenToEvents(int event, const void* data);

  /// Reads every entity from the host again, dropping any additions still waiting.
  virtual void forceRefresh();
  /// Reads the cached texts of one entity again and reports its row changed.
  void refreshEntity(UniqueID_t id);
  /**
   * Brings the model in step with the host without a reset, for changes whose events were
   * missed: drops entities that are gone, adds those that are missing, and reports the rows
   * whose texts changed.
   */
  void synchronizeToScenario();

  bool isTreeView() const { return treeView_; }
  void setToTreeView() { toggleTreeView(true); }
  void setToListView() { toggleTreeView(false); }
  /// Rebuilds the rows in the new layout. @param useTree true for entities under their hosts, false for a flat list
  void toggleTreeView(bool useTree) override;

  bool useEntityIcons() const { return useEntityIcons_; }
  /// @param useIcons true to show each kind as its icon in the type column instead of its abbreviation
  void setUseEntityIcons(bool useIcons) override;

  bool includeScenario() const { return includeScenario_; }
  /// @param value true to show the scenario itself as a row with id 0
  void setIncludeScenario(bool value);

private:
  void addEntity_(UniqueID_t id);
  void commitDelayedEntities_();
  void addTreeItem_(UniqueID_t id, PIScenarioObjectType_t type, UniqueID_t host);
  void removeEntity_(UniqueID_t id);
  void buildTree_(PIScenarioObjectType_t type, const std::vector<UniqueID_t>& ids, QtEntityTreeItem* parent);
  void buildChildren_(UniqueID_t id, PIScenarioObjectType_t type, QtEntityTreeItem* item);
  /// Adds the entities of ids and their children that the model lacks. @param host their host; 0 for none
  void addMissing_(PIScenarioObjectType_t type, const std::vector<UniqueID_t>& ids, UniqueID_t host);
  void reportChanged_(QtEntityTreeItem* item);
  QString formatTime_(double time, int format) const;
  QtEntityTreeItem* itemOf_(const QModelIndex& index) const;
  /// @return the index of column 0 of item; invalid for the root or null.
  QModelIndex indexOfItem_(QtEntityTreeItem* item) const;
  /// Announces one column of every row under parent, level by level.
  void reportColumnChanged_(const QModelIndex& parent, int column);
  QVariant displayText_(const QtEntityTreeItem& item, int column) const;

  std::unique_ptr<QtEntityTreeItem> rootItem_;
  std::map<UniqueID_t, QtEntityTreeItem*> itemsById_;
  std::vector<UniqueID_t> waitingIds_;
  /// Commits the waiting ids. A child timer, not a single shot: a single shot's pending call
  /// would outlive the model, and the plug-in's code with it, once the host unloads the plug-in.
  QTimer* batchTimer_;
  bool treeView_ = true;
  QVariant icon_(PIScenarioObjectType_t type) const;

  bool useEntityIcons_ = false;
  bool includeScenario_ = false;
  std::map<PIScenarioObjectType_t, QIcon> icons_;
};

} // namespace PluginUtils
