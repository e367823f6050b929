#include "datasources/GateDataSource.h"

#include "datasources/ChildSeries.h"
#include "host/PIDataEntities.h"

namespace QtSep
{

namespace
{

enum Series
{
  POINTS,
  COLORS,
  STATES,
  TARGETS
};

} // namespace

GateDataSource::GateDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext&,
                               QObject* parent)
  : ChildDataSource(formatter,
                    {{"Azimuth", Kind::ANGLE, POINTS},
                     {"Elevation", Kind::ANGLE, POINTS},
                     {"Min Range", Kind::RANGE, POINTS},
                     {"Centroid", Kind::DISTANCE, POINTS},
                     {"Max Range", Kind::RANGE, POINTS},
                     {"Width", Kind::ANGLE, POINTS},
                     {"Height", Kind::ANGLE, POINTS},
                     {"Color (RGBA)", Kind::COLOR, COLORS},
                     {"State", Kind::STATE, STATES},
                     {"Target", Kind::TARGET, TARGETS}},
                    true, parent)
{
}

void GateDataSource::readHeader_(unsigned long id)
{
  PIData::PIGateHeader header;
  targetGate_ = id != 0 && PIData::getHeader(id, &header) == 0 && header.gateType == PIData::PI_GATE_TARGET;
}

bool GateDataSource::isCellEditable_(int column) const { return !targetGate_ || column > 2; }

void GateDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  std::vector<PIData::PIGatePoint> points;
  PIData::getDataPoints(id, ChildSeries::FIRST, ChildSeries::LAST, &points);
  for (const PIData::PIGatePoint& p : points)
    items.push_back(Item{POINTS, p.time, {p.azimuth, p.elevation, p.minRange, p.centroid, p.maxRange, p.width, p.height}});
  ChildSeries::readColors(id, COLORS, items);
  ChildSeries::readStates(id, STATES, items);
  ChildSeries::readTargets(id, TARGETS, items);
}

void GateDataSource::writeRow_(unsigned long id, const Values& row) const
{
  if (row.has(POINTS))
  {
    PIData::PIGatePoint point;
    point.azimuth = row.cells[0];
    point.elevation = row.cells[1];
    point.minRange = row.cells[2];
    point.centroid = row.cells[3];
    point.maxRange = row.cells[4];
    point.width = row.cells[5];
    point.height = row.cells[6];
    point.time = row.time;
    PIData::addDataPoint(id, &point);
  }
  ChildSeries::writeCommands(id, row, COLORS, 7, STATES, 8, TARGETS, 9);
}

} // namespace QtSep
