#pragma once

#include "datasources/KeyValueDataSource.h"

namespace QtSep
{

/// The category data of an entity: time, "Category", "Value"; written back by removing every item and adding the rows.
class CategoryDataSource : public KeyValueDataSource
{
  Q_OBJECT
public:
  explicit CategoryDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent = nullptr);

protected:
  std::vector<Item> readItems_(unsigned long id) const override;
  void writeItems_(unsigned long id, const std::vector<Item>& items) const override;
};

} // namespace QtSep
