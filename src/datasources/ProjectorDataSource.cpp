#include "datasources/ProjectorDataSource.h"

#include "datasources/ChildSeries.h"

namespace QtSep
{

namespace
{

enum Series
{
  POINTS,
  STATES
};

} // namespace

ProjectorDataSource::ProjectorDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext&,
                                         QObject* parent)
  : ChildDataSource(formatter, {{"FOV", Kind::ANGLE, POINTS}, {"State", Kind::STATE, STATES}}, false, parent)
{
}

void ProjectorDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  std::vector<PIData::PIProjectorPoint> points;
  PIData::getDataPoints(id, ChildSeries::FIRST, ChildSeries::LAST, &points);
  for (const PIData::PIProjectorPoint& p : points)
    items.push_back(Item{POINTS, p.time, {p.fieldOfView}});
  ChildSeries::readStates(id, STATES, items);
}

void ProjectorDataSource::writeRow_(unsigned long id, const Values& row) const
{
  if (row.has(POINTS))
    PIData::addProjectorFOV(id, row.time, row.cells[0]);
  ChildSeries::writeCommands(id, row, -1, -1, STATES, 1);
}

} // namespace QtSep
