#pragma once

#include "host/PIScenarioObjectType.h"
#include "host/UniqueID.h"

#include <memory>
#include <string>
#include <vector>

namespace PluginUtils
{

/// A node of the entity tree: one entity (or the root, or the scenario row, both id 0) with its children.
class QtEntityTreeItem
{
public:
  /// @param id the entity, 0 for the root and the scenario row @param type its kind @param parent owner, null for the root
  QtEntityTreeItem(UniqueID_t id, PIScenarioObjectType_t type, QtEntityTreeItem* parent);
  virtual ~QtEntityTreeItem();
  QtEntityTreeItem(const QtEntityTreeItem&) = delete;
  QtEntityTreeItem& operator=(const QtEntityTreeItem&) = delete;

  virtual UniqueID_t id() const { return id_; }
  PIScenarioObjectType_t type() const { return type_; }
  QtEntityTreeItem* parent() const { return parent_; }

  /// Takes ownership of child and puts it last.
  void appendChild(QtEntityTreeItem* child);
  /// Deletes the child at row.
  void removeChild(int row);
  QtEntityTreeItem* child(int row) const;
  int childCount() const { return static_cast<int>(children_.size()); }
  /// @return the item's row under its parent, 0 for the root.
  int row() const;
  /// @return the ids of every item below this one, depth first.
  std::vector<UniqueID_t> getChildrenIds() const;

  /// Reads the cached texts and values again from the host. @return true when any of them changed
  bool refresh();

  const std::string& name() const { return name_; }
  const std::string& alias() const { return alias_; }
  UniqueID_t originalId() const { return originalId_; }
  /// Seconds since the reference year; negative for an entity without time-stamped data.
  double startTime() const { return startTime_; }
  double endTime() const { return endTime_; }
  /// -1 when the entity has no points of its own (the scenario row).
  long long numberOfPoints() const { return numberOfPoints_; }
  const std::string& typeString() const { return typeString_; }
  const std::string& abbreviatedTypeString() const { return abbreviatedTypeString_; }

private:
  void readFromHost_();
  void refreshTimes();

  UniqueID_t id_;
  PIScenarioObjectType_t type_;
  QtEntityTreeItem* parent_;
  std::vector<std::unique_ptr<QtEntityTreeItem>> children_;
  std::string name_;
  std::string alias_;
  UniqueID_t originalId_ = 0;
  double startTime_ = -1.0;
  double endTime_ = -1.0;
  long long numberOfPoints_ = -1;
  std::string typeString_;
  std::string abbreviatedTypeString_;
};

} // namespace PluginUtils
