#include "datasources/CategoryDataSource.h"

#include "host/PIDataCategories.h"

namespace QtSep
{

CategoryDataSource::CategoryDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent)
  : KeyValueDataSource(formatter, "Category", "Value", "Category", parent)
{
}

std::vector<KeyValueDataSource::Item> CategoryDataSource::readItems_(unsigned long id) const
{
  std::vector<PIData::PICategoryDataPoint> read;
  PIData::retrieveAllCategoryData(id, &read);
  std::vector<Item> items;
  items.reserve(read.size());
  for (const PIData::PICategoryDataPoint& point : read)
    items.push_back(Item{point.time, point.name, point.value, -1.0});
  return items;
}

void CategoryDataSource::writeItems_(unsigned long id, const std::vector<Item>& items) const
{
  std::vector<PIData::PICategoryDataPoint> present;
  PIData::retrieveAllCategoryData(id, &present);
  for (const PIData::PICategoryDataPoint& point : present)
    PIData::removeCategoryData(id, &point);
  for (const Item& item : items)
  {
    const PIData::PICategoryDataPoint point{item.time, item.key, item.value};
    PIData::addCategoryData(id, &point);
  }
}

} // namespace QtSep
