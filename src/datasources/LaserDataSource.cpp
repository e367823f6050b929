#include "datasources/LaserDataSource.h"

#include "datasources/ChildSeries.h"

namespace QtSep
{

namespace
{

enum Series
{
  POINTS,
  COLORS,
  STATES,
  OFFSETS,
  RANGES,
  WIDTHS
};

} // namespace

LaserDataSource::LaserDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext&,
                                 QObject* parent)
  : ChildDataSource(formatter,
                    {{"Azimuth", Kind::ANGLE, POINTS},
                     {"Elevation", Kind::ANGLE, POINTS},
                     {"Roll", Kind::ANGLE, POINTS},
                     {"Color (RGBA)", Kind::COLOR, COLORS},
                     {"State", Kind::STATE, STATES},
                     {"X Offset", Kind::DISTANCE, OFFSETS},
                     {"Y Offset", Kind::DISTANCE, OFFSETS},
                     {"Z Offset", Kind::DISTANCE, OFFSETS},
                     {"Maximum Range", Kind::DISTANCE, RANGES},
                     {"Width", Kind::INTEGER, WIDTHS}},
                    true, parent)
{
}

void LaserDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  std::vector<PIData::PILaserPoint> points;
  PIData::getDataPoints(id, ChildSeries::FIRST, ChildSeries::LAST, &points);
  for (const PIData::PILaserPoint& p : points)
    items.push_back(Item{POINTS, p.time, {p.azimuth, p.elevation, p.roll}});
  ChildSeries::readColors(id, COLORS, items);
  ChildSeries::readStates(id, STATES, items);
  std::vector<PIData::PILaserOffset> offsets;
  PIData::getLaserOffsets(id, ChildSeries::FIRST, ChildSeries::LAST, &offsets);
  for (const PIData::PILaserOffset& o : offsets)
    items.push_back(Item{OFFSETS, o.time, {o.x, o.y, o.z}});
  std::vector<std::pair<double, double>> ranges;
  PIData::getLaserMaxRange(id, ChildSeries::FIRST, ChildSeries::LAST, &ranges);
  ChildSeries::appendPairs(ranges, RANGES, items);
  std::vector<std::pair<double, int>> widths;
  PIData::getLaserWidths(id, ChildSeries::FIRST, ChildSeries::LAST, &widths);
  ChildSeries::appendPairs(widths, WIDTHS, items);
}

void LaserDataSource::writeRow_(unsigned long id, const Values& row) const
{
  if (row.has(POINTS))
  {
    PIData::PILaserPoint point;
    point.azimuth = row.cells[0];
    point.elevation = row.cells[1];
    point.roll = row.cells[2];
    point.time = row.time;
    PIData::addLaserOriDataPoint(id, &point);
  }
  ChildSeries::writeCommands(id, row, COLORS, 3, STATES, 4);
  if (row.has(OFFSETS))
  {
    const PIData::PILaserOffset offset{row.cells[5], row.cells[6], row.cells[7], row.time};
    PIData::addLaserOffsetDataPoint(id, &offset);
  }
  if (row.has(RANGES))
    PIData::addLaserMaxRangeDataPoint(id, row.time, row.cells[8]);
  if (row.has(WIDTHS))
    PIData::addLaserWidthDataPoint(id, row.time, static_cast<int>(row.cells[9]));
}

} // namespace QtSep
