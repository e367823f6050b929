#pragma once

#include "widgets/EntityFilter.h"

#include <set>
#include <vector>

namespace kelQt
{

/// Passes only the entities of a set, as a tab that offers a chosen few does; no editor, no settings.
class SelectableEntityFilter : public EntityFilter
{
  Q_OBJECT
public:
  explicit SelectableEntityFilter(QObject* parent = nullptr) : EntityFilter(parent) {}

  bool acceptEntity(unsigned long id) const override { return ids_.count(id) != 0; }
  QWidget* widget(QWidget*) const override { return nullptr; }
  void getFilterSettings(QMap<QString, QVariant>&) const override {}
  void setFilterSettings(const QMap<QString, QVariant>&) override {}

  /// @return whether no entity passes
  bool empty() const { return ids_.empty(); }
  /// Passes exactly these entities from now on.
  void setSelectableEntities(const std::set<unsigned long>& ids);
  /// Passes these entities no more.
  void removeSelectableEntities(const std::vector<unsigned long>& ids);
  /// Passes no entity.
  void clear();

private:
  std::set<unsigned long> ids_;
};

} // namespace kelQt
