#include "datasources/GenericDataSource.h"

#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"

#include <set>

namespace QtSep
{

GenericDataSource::GenericDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent)
  : KeyValueDataSource(formatter, "Tag", "Data", "Tag", parent)
{
}

std::vector<KeyValueDataSource::Item> GenericDataSource::readItems_(unsigned long id) const
{
  std::vector<PIData::PIGenericDataPoint> read;
  PIData::getDataPoints(id, &read);
  std::vector<Item> items;
  items.reserve(read.size());
  for (const PIData::PIGenericDataPoint& point : read)
    items.push_back(Item{point.time, point.tag, point.value, point.expiration});
  return items;
}

void GenericDataSource::writeItems_(unsigned long id, const std::vector<Item>& items) const
{
  std::vector<PIData::PIGenericDataPoint> present;
  PIData::getDataPoints(id, &present);
  std::set<std::string> tags;
  for (const PIData::PIGenericDataPoint& point : present)
    tags.insert(point.tag);
  for (const std::string& tag : tags)
    PIData::deleteGenericData(id, tag);
  for (const Item& item : items)
  {
    PIData::PIGenericDataPoint point;
    point.time = item.time;
    point.expiration = item.expiration;
    point.tag = item.key;
    point.value = item.value;
    PIData::createGenericData(id, &point);
  }
}

} // namespace QtSep
