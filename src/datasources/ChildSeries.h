#pragma once

#include "datasources/ChildDataSource.h"
#include "host/PIDataPoints.h"

#include <cfloat>
#include <vector>

namespace QtSep
{

/// Readers and writers of the series several child kinds share: colours, states and targets.
namespace ChildSeries
{

/// The whole time range of a child's series.
constexpr double FIRST = -DBL_MAX;
constexpr double LAST = DBL_MAX;

/// Appends pairs of time and value as one-value items of a series.
template <typename T>
void appendPairs(const std::vector<std::pair<double, T>>& pairs, int series, std::vector<ChildDataSource::Item>& items)
{
  for (const auto& [time, value] : pairs)
  {
    ChildDataSource::Item item;
    item.series = series;
    item.time = time;
    item.values[0] = static_cast<double>(value);
    items.push_back(item);
  }
}

inline void readColors(unsigned long id, int series, std::vector<ChildDataSource::Item>& items)
{
  std::vector<std::pair<double, unsigned int>> colors;
  PIData::getColors(id, FIRST, LAST, &colors);
  appendPairs(colors, series, items);
}

inline void readStates(unsigned long id, int series, std::vector<ChildDataSource::Item>& items)
{
  std::vector<std::pair<double, int>> states;
  PIData::getStates(id, FIRST, LAST, &states);
  appendPairs(states, series, items);
}

inline void readTargets(unsigned long id, int series, std::vector<ChildDataSource::Item>& items)
{
  std::vector<std::pair<double, UniqueID_t>> targets;
  PIData::getTargets(id, FIRST, LAST, &targets);
  appendPairs(targets, series, items);
}

/// Writes a row's colour, state and target where it holds them; a series number below 0 is none.
inline void writeCommands(unsigned long id, const ChildDataSource::Values& row, int colorSeries, int colorCell,
                          int stateSeries, int stateCell, int targetSeries = -1, int targetCell = -1)
{
  if (colorSeries >= 0 && row.has(colorSeries))
    PIData::setColor(id, static_cast<unsigned int>(row.cells[colorCell]), row.time);
  if (stateSeries >= 0 && row.has(stateSeries))
    PIData::setStatus(id, row.cells[stateCell] != 0.0 ? PI_VISIBILITY_ON : PI_VISIBILITY_OFF, row.time);
  if (targetSeries >= 0 && row.has(targetSeries))
    PIData::setTarget(id, static_cast<UniqueID_t>(row.cells[targetCell]), row.time);
}

} // namespace ChildSeries

} // namespace QtSep
