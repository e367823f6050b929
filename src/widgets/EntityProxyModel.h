#pragma once

#include <QSortFilterProxyModel>

#include <memory>
#include <vector>

namespace kelQt
{

class AbstractEntityTreeModel;
class EntityFilter;

/**
 * Filters and sorts an entity model. A row shows when every filter accepts its entity, when it
 * is the always-shown entity, or when any row below it shows, so that a host stays in view for a
 * matching child.
 */
class EntityProxyModel : public QSortFilterProxyModel
{
  Q_OBJECT
public:
  explicit EntityProxyModel(QObject* parent = nullptr);
  ~EntityProxyModel() override;

  /// @param model the entities to filter; not owned
  void setSourceModel(QAbstractItemModel* model) override;

  /// Takes ownership of filter and filters again whenever it reports a change.
  void addEntityFilter(EntityFilter* filter);
  /// @return the filters in the order they were added.
  std::vector<EntityFilter*> entityFilters() const;

  /// @param id an entity that shows whatever the filters say; 0 for none
  void setAlwaysShow(unsigned long id);
  unsigned long alwaysShow() const { return alwaysShow_; }

  /// Filters every row again.
  void refilter();

protected:
  bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
  bool checkFilters_(unsigned long id) const;
  bool anyChildAccepted_(const QModelIndex& sourceIndex) const;

  AbstractEntityTreeModel* entities_ = nullptr;
  std::vector<std::unique_ptr<EntityFilter>> filters_;
  unsigned long alwaysShow_ = 0;
};

} // namespace kelQt
