#include "datasources/LobDataSource.h"

#include "datasources/ChildSeries.h"
#include "host/PIDataTables.h"

namespace QtSep
{

namespace
{

enum Series
{
  POINTS,
  STYLES
};

/// Where the host keeps draw styles of its own; written anew from the table's styles.
const char* const LOB_STYLE_TABLE = "__Internal_LobDrawStyleTable__";

} // namespace

LobDataSource::LobDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext&,
                             QObject* parent)
  : ChildDataSource(formatter,
                    {{"Azimuth", Kind::ANGLE, POINTS},
                     {"Elevation", Kind::ANGLE, POINTS},
                     {"Length", Kind::DISTANCE, POINTS},
                     {"Color 1 (RGBA)", Kind::COLOR, STYLES},
                     {"Color 2 (RGBA)", Kind::COLOR, STYLES},
                     {"Stipple 1", Kind::STIPPLE, STYLES},
                     {"Stipple 2", Kind::STIPPLE, STYLES},
                     {"Pixel Width", Kind::INTEGER, STYLES}},
                    false, parent)
{
}

void LobDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  std::vector<PIData::PILobPoint> points;
  PIData::getDataPoints(id, ChildSeries::FIRST, ChildSeries::LAST, &points);
  for (const PIData::PILobPoint& p : points)
    items.push_back(Item{POINTS, p.time, {p.azimuth, p.elevation, p.length}});
  std::vector<PIData::PILobDrawStyle> styles;
  PIData::getLobDrawStyles(id, ChildSeries::FIRST, ChildSeries::LAST, &styles);
  for (const PIData::PILobDrawStyle& s : styles)
    items.push_back(Item{STYLES, s.time, {static_cast<double>(s.color1), static_cast<double>(s.color2),
                                          static_cast<double>(s.stipple1), static_cast<double>(s.stipple2),
                                          static_cast<double>(s.pixelWidth)}});
}

void LobDataSource::flush_(unsigned long id) const
{
  ChildDataSource::flush_(id);
  long table = 0;
  if (PIData::findDataTable(id, LOB_STYLE_TABLE, &table) != 0)
    PIData::removeDataTable(table);
}

void LobDataSource::writeRow_(unsigned long id, const Values& row) const
{
  if (row.has(POINTS))
  {
    const PIData::PILobPoint point{row.cells[0], row.cells[1], row.cells[2], row.time};
    PIData::addDataPoint(id, &point);
  }
  if (row.has(STYLES))
  {
    PIData::PILobDrawStyle style;
    style.time = row.time;
    style.color1 = static_cast<unsigned int>(row.cells[3]);
    style.color2 = static_cast<unsigned int>(row.cells[4]);
    style.stipple1 = static_cast<std::uint16_t>(row.cells[5]);
    style.stipple2 = static_cast<std::uint16_t>(row.cells[6]);
    style.pixelWidth = static_cast<std::int32_t>(row.cells[7]);
    PIData::addLobDrawStyle(id, &style);
  }
}

} // namespace QtSep
