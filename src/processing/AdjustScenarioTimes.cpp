#include "processing/AdjustScenarioTimes.h"

#include "datasources/CategoryDataSource.h"
#include "datasources/DataTableDataSource.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/GenericDataSource.h"
#include "host/PICommon.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "host/PIDataTables.h"
#include "kelCore/TimeFormat.h"
#include "plugin/ActionUtilities.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"

#include <QComboBox>
#include <QString>

#include <cfloat>

namespace QtSep
{

namespace
{

constexpr double STATIC_TIME = -1.0;
/// Decimals of the seconds the data tables read their times back from.
constexpr int SECONDS_PRECISION = 9;

} // namespace

std::vector<std::uint64_t> AdjustScenarioTimes::execute(int referenceYear, double startSeconds)
{
  const int oldYear = PIData::getReferenceYear();
  const double oldBegin = PIData::clockGetBegin();
  const double oldTime = PIData::clockGetTime();
  if (referenceYear != oldYear)
    PIData::setReferenceYear(referenceYear);
  const double offset = startSeconds - oldBegin;
  std::vector<UniqueID_t> ids;
  PIData::getObjectList(&ids);
  std::vector<std::uint64_t> shifted;
  if (!ids.empty() && offset != 0.0)
  {
    PICommon::beginWaitCursor();
    for (UniqueID_t id : ids)
    {
      adjustEntityTime(id, 1.0, offset);
      shifted.push_back(id);
    }
    PICommon::endWaitCursor();
  }
  PIData::clockAutoConfigureBeginEnd();
  PIData::clockSetTime(oldTime + offset, 0.0);
  if (!shifted.empty() || referenceYear != oldYear)
    fireChangeCallback(std::vector<unsigned long>(shifted.begin(), shifted.end()));
  return shifted;
}

void AdjustScenarioTimes::adjustEntityTime(std::uint64_t id, double multiplication, double addition)
{
  // Times are read and written as plain seconds, whatever the user's format.
  kelCore::UnitContextAdapter units;
  units.setTimeFormat(kelCore::TimeFormat::SECONDS);
  units.setTimePrecision(SECONDS_PRECISION);
  units.setReferenceYear(PIData::getReferenceYear());
  const kelCore::UnitContextFormatter formatter(units);

  EntityDataSourceProxy points(formatter, units);
  points.setUniqueId(id, true);
  if (PIData::getObjectType(id) == PI_PLATFORM_TYPE)
    adjustPlatformCommands_(id, points, multiplication, addition);
  else
    adjustDataSourceTime_(points, multiplication, addition);
  CategoryDataSource categories(formatter);
  categories.setUniqueId(id, true);
  adjustDataSourceTime_(categories, multiplication, addition);
  GenericDataSource generic(formatter);
  generic.setUniqueId(id, true);
  adjustDataSourceTime_(generic, multiplication, addition);

  DataTableDataSource tables(formatter);
  tables.setUniqueId(id, true);
  std::vector<long> ids;
  for (int index = 0; index < tables.tableComboBox()->count(); ++index)
    ids.push_back(static_cast<long>(tables.tableComboBox()->itemData(index).toLongLong()));
  for (long table : ids)
  {
    tables.loadDataTable(table);
    adjustDataSourceTime_(tables, multiplication, addition);
  }
}

void AdjustScenarioTimes::adjustPlatformCommands_(std::uint64_t id, DataSource& points, double multiplication,
                                                  double addition)
{
  // A platform's colours, states and targets are no rows of its points; they move all the same.
  std::vector<std::pair<double, unsigned int>> colors;
  std::vector<std::pair<double, int>> states;
  std::vector<std::pair<double, UniqueID_t>> targets;
  PIData::getColors(id, -DBL_MAX, DBL_MAX, &colors);
  PIData::getStates(id, -DBL_MAX, DBL_MAX, &states);
  PIData::getTargets(id, -DBL_MAX, DBL_MAX, &targets);
  const bool commands = !colors.empty() || !states.empty() || !targets.empty();
  if (commands)
    PIData::flushEntityData(id, PIData::FLUSH_POINTS_AND_COMMANDS);
  adjustDataSourceTime_(points, multiplication, addition, commands);
  const auto mapped = [&](double time) { return time == STATIC_TIME ? time : time * multiplication + addition; };
  for (const auto& [time, color] : colors)
    PIData::setColor(id, color, mapped(time));
  for (const auto& [time, state] : states)
    PIData::setStatus(id, static_cast<PIVisibilityStatus_t>(state), mapped(time));
  for (const auto& [time, target] : targets)
    PIData::setTarget(id, target, mapped(time));
}

void AdjustScenarioTimes::adjustDataSourceTime_(DataSource& source, double multiplication, double addition,
                                                bool writeAlways)
{
  if (source.uniqueId() == 0 && source.rowCount() == 0)
    return;
  bool changed = writeAlways;
  for (int row = 0; row < source.rowCount(); ++row)
  {
    const double time = source.time(row);
    if (time == STATIC_TIME)
      continue;
    // The time as a number where the source takes one (fast, and exact); else as text in
    // seconds, which every source reads.
    const double mapped = time * multiplication + addition;
    const bool taken = source.setData(row, 0, QVariant(mapped)) == 0 ||
                       source.setData(row, 0, QString::number(mapped, 'f', SECONDS_PRECISION)) == 0;
    changed = changed || taken;
  }
  if (changed)
    source.commitChanges(false);
}

} // namespace QtSep
