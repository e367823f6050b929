#include "datasources/BeamDataSource.h"

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

BeamDataSource::BeamDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext&,
                               QObject* parent)
  : ChildDataSource(formatter,
                    {{"Azimuth", Kind::ANGLE, POINTS},
                     {"Elevation", Kind::ANGLE, POINTS},
                     {"Length", Kind::DISTANCE, POINTS},
                     {"Color (RGBA)", Kind::COLOR, COLORS},
                     {"State", Kind::STATE, STATES},
                     {"Target", Kind::TARGET, TARGETS}},
                    true, parent)
{
}

void BeamDataSource::readHeader_(unsigned long id)
{
  PIData::PIBeamHeader header;
  targetBeam_ = id != 0 && PIData::getHeader(id, &header) == 0 && header.beamType == PIData::PI_BEAM_TARGET;
}

bool BeamDataSource::isCellEditable_(int column) const { return !targetBeam_ || column > 3; }

void BeamDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  std::vector<PIData::PIBeamPoint> points;
  PIData::getDataPoints(id, ChildSeries::FIRST, ChildSeries::LAST, &points);
  for (const PIData::PIBeamPoint& point : points)
    items.push_back(Item{POINTS, point.time, {point.azimuth, point.elevation, point.length}});
  ChildSeries::readColors(id, COLORS, items);
  ChildSeries::readStates(id, STATES, items);
  ChildSeries::readTargets(id, TARGETS, items);
}

void BeamDataSource::writeRow_(unsigned long id, const Values& row) const
{
  if (row.has(POINTS))
  {
    const PIData::PIBeamPoint point{row.cells[0], row.cells[1], row.cells[2], row.time};
    PIData::addDataPoint(id, &point);
  }
  ChildSeries::writeCommands(id, row, COLORS, 3, STATES, 4, TARGETS, 5);
}

} // namespace QtSep
