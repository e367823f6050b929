#pragma once

#include <QWidget>

class QTreeWidget;
class QTreeWidgetItem;

namespace PluginUtils
{

class QtCategoryFilter;

/// The editor of a category filter: a tree of check boxes, all categories, each category, each value.
class QtCategoryFilterWidget : public QWidget
{
  Q_OBJECT
public:
  /// @param filter the filter edited; it outlives the editor
  QtCategoryFilterWidget(QtCategoryFilter* filter, QWidget* parent = nullptr);

  /// Builds the tree again from the filter's categories and checks, keeping collapsed categories collapsed.
  void updateTree();
  QTreeWidget* tree() const { return tree_; }

signals:
  /// The user changed the check state.
  void categoryFilterChanged();

private:
  /// Sets every check box from the filter's checks, keeping the items.
  void updateChecks_();
  void categoryFilterClicked_(QTreeWidgetItem* item, int column);
  void updateCollapsedState_(QTreeWidgetItem* item);

  QtCategoryFilter* filter_;
  QTreeWidget* tree_;
  bool building_ = false;
};

} // namespace PluginUtils
