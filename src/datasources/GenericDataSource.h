#pragma once

#include "datasources/KeyValueDataSource.h"

namespace QtSep
{

/**
 * The generic data of an entity: time, "Tag", "Data"; an item's expiration is kept as read.
 * Written back by deleting every tag the entity holds and creating the rows.
 */
class GenericDataSource : public KeyValueDataSource
{
  Q_OBJECT
public:
  explicit GenericDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent = nullptr);

protected:
  std::vector<Item> readItems_(unsigned long id) const override;
  void writeItems_(unsigned long id, const std::vector<Item>& items) const override;
};

} // namespace QtSep
