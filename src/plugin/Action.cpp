#include "plugin/Action.h"

#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"

namespace QtSep
{

namespace
{

const std::string AUDIT_PREFIX = "Qt Scenario Editor ";

} // namespace

void Action::addAudit(unsigned long id, const std::string& text)
{
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(id, &items);
  double time = PIData::getEarliestTime(id);
  if (time == -1.0)
    time = PIData::getEarliestTime(0);
  int count = 1;
  for (const auto& item : items)
  {
    if (item.time > time)
      break;
    if (item.tag.rfind(AUDIT_PREFIX, 0) == 0)
      ++count;
  }
  const PIData::PIGenericDataPoint entry{time, -1.0, AUDIT_PREFIX + std::to_string(count), text};
  PIData::createGenericData(id, &entry);
}

} // namespace QtSep
