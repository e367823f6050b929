#pragma once

#include "host/UniqueID.h"

#include <QDockWidget>

#include <functional>
#include <vector>

class QTreeWidget;
class QTreeWidgetItem;

namespace kelvor
{

class ScenarioStore;

/**
 * @brief The dock that lists every entity of the scenario as a tree under its host: name,
 * type, original id, points, start and end. A right-click asks the host for the plug-ins' menu.
 */
class DataBrowser : public QDockWidget
{
  Q_OBJECT
public:
  DataBrowser(ScenarioStore& store, QWidget* parent = nullptr);

  /// Rebuilds the tree from the store, keeping the selection where it can.
  void refresh();
  /// @return the ids of the selected entities.
  std::vector<UniqueID_t> selectedIds() const;
  /// Selects the entities with these ids.
  void select(const std::vector<UniqueID_t>& ids);
  /// @return the tree, for tests.
  QTreeWidget* tree() const { return tree_; }

signals:
  /// The user asked for a right-click menu on these entities, at a global position.
  void contextMenuRequested(const std::vector<UniqueID_t>& ids, const QPoint& globalPosition);
  /// The selection changed.
  void selectionChanged(const std::vector<UniqueID_t>& ids);

private:
  QTreeWidgetItem* makeItem_(UniqueID_t id) const;

  ScenarioStore& store_;
  QTreeWidget* tree_;
};

} // namespace kelvor
