#include "merge/PlatformMerge.h"

#include "host/GenericDataTags.h"
#include "host/PIDataCategories.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataTableCreateHelper.h"
#include "host/PIDataTables.h"
#include "host/PIKELVOR.h"
#include "merge/CommonMerge.h"

#include <QString>

#include <algorithm>
#include <set>

namespace QtSep
{

namespace
{

/// Adds the cells of each source row that the target table lacks at that row's time.
class MergeFunctor : public PIData::PerDataTableRowFunctor
{
public:
  MergeFunctor(long targetTable, const std::map<long, long>& columns) : targetTable_(targetTable), columns_(columns) {}

  bool operator()(const PIData::DataTableRowT& row) override
  {
    std::map<long, const PIData::DataTableCell*> added; // by target column, so they go in ascending order
    for (const auto& [sourceColumn, cell] : row.cells())
    {
      const auto found = columns_.find(static_cast<long>(sourceColumn));
      if (found == columns_.end())
        continue;
      PIData::TableColumnIterator existing;
      if (PIData::getDataTableColumnValueIterator(targetTable_, found->second, row.time(), &existing) == 0 &&
          existing.isValid() && existing.getTime() == row.time())
        continue; // the target's own value stays
      added[found->second] = cell;
    }
    PIData::DataTableRowT merged(row.time());
    for (const auto& [column, cell] : added)
      merged.setCell(static_cast<unsigned long>(column), cell->clone());
    if (!merged.empty())
      PIData::addDataTableRow(targetTable_, merged);
    return true;
  }

private:
  long targetTable_;
  const std::map<long, long>& columns_;
};

/// Whether the target needs an entry: it says nothing of that name yet, or something else.
template <typename Entry>
bool needValue(const std::map<std::string, Entry>& atStart, const std::string& name, const Entry& entry)
{
  const auto found = atStart.find(name);
  if (found == atStart.end())
    return true;
  if (found->second.time == entry.time)
    return false;
  return found->second.value != entry.value;
}

template <typename Entry>
void sortByTime(std::vector<Entry>& entries)
{
  std::stable_sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.time < b.time; });
}

bool stillInForce(const PIData::PIGenericDataPoint& item, double start)
{
  return item.expiration == -1.0 || item.time + item.expiration > start;
}

/**
 * Copies a piecewise-constant series into the slice: the value carried into the slice first,
 * at carryTime (or its own time when carryTime is not given), then every entry of the slice.
 * @param entries the series from its early fetch time up to the slice's end, ascending
 * @param write writes one entry at a time
 */
template <typename Entry, typename TimeOf, typename Write>
void writeCarried(const std::vector<Entry>& entries, double start, const double* carryTime, TimeOf timeOf, Write write)
{
  if (entries.empty())
    return;
  std::size_t first = 0;
  while (first < entries.size() && timeOf(entries[first]) < start)
    ++first;
  if (first > 0)
  {
    const Entry& carried = entries[first - 1];
    write(carried, carryTime ? *carryTime : timeOf(carried));
  }
  for (std::size_t i = first; i < entries.size(); ++i)
    write(entries[i], timeOf(entries[i]));
}

const double STATIC_TIME = -1.0;
const double NOT_STATIC_FROM = 0.0;

template <typename T>
double pairTime(const std::pair<double, T>& entry)
{
  return entry.first;
}

template <typename Header>
std::string headerName(UniqueID_t id)
{
  Header header;
  PIData::getHeader(id, &header);
  return header.name;
}

template <typename Header>
std::map<std::string, UniqueID_t> namesOf(const std::vector<UniqueID_t>& ids)
{
  std::map<std::string, UniqueID_t> names;
  for (UniqueID_t id : ids)
  {
    Header header;
    if (PIData::getHeader(id, &header) == 0)
      names.emplace(header.name, id); // the first of a name stays
  }
  return names;
}

std::vector<UniqueID_t> listOf(void (*list)(UniqueID_t, std::vector<UniqueID_t>*), UniqueID_t parent)
{
  std::vector<UniqueID_t> ids;
  list(parent, &ids);
  return ids;
}

/**
 * Merges each source child into the target's child of its merge name, making that child when
 * missing; a second source child of one name joins the first. A child that cannot be made is
 * passed over.
 */
template <typename Header, typename MergeName, typename Create, typename Merge>
void mergeByName(std::map<std::string, UniqueID_t> names, const std::vector<UniqueID_t>& sourceChildren,
                 MergeName mergeName, Create create, Merge merge)
{
  for (UniqueID_t child : sourceChildren)
  {
    const std::string name = mergeName(headerName<Header>(child));
    auto found = names.find(name);
    if (found == names.end())
    {
      const UniqueID_t made = create(child);
      if (made == 0)
        continue;
      found = names.emplace(name, made).first;
    }
    merge(found->second, child);
  }
}

} // namespace

PlatformMerge::PlatformMerge() : mergeSuffix_(CommonMerge::MergeSuffix) {}

PlatformMerge::~PlatformMerge() = default;

void PlatformMerge::mergePlatform(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(source, start, end, &points, PIData::PICoordReferenceFrame());
  const bool isStaticPlatform = points.size() == 1 && points.front().time == STATIC_TIME;
  if (!isStaticPlatform && !points.empty())
    PIData::addDataPoints(target, &points);
  mergeBeamsToPlatform_(target, source, start, end);
  mergeLasersToPlatform_(target, source, start, end);
  mergeLobGroupsToPlatform_(target, source, start, end);
  mergeCategoryData_(target, source, start, end);
  mergeDataTables_(target, source, start, end);
  mergeGenericData_(target, source, start, end);
  mergeStates_(target, source, start, end, false);
  mergePlatformGogs_(target, source);
}

// Children: each source child merges into the target's child of its merge name, made when missing.

void PlatformMerge::mergeBeamsToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  mergeByName<PIData::PIBeamHeader>(
    getPlatformBeamNames_(target), listOf(PIData::getBeamList, source),
    [this](const std::string& name) { return createMergeName_(name); },
    [this, target](UniqueID_t beam) { return createEmptyBeam_(target, beam); },
    [this, start, end](UniqueID_t into, UniqueID_t beam) {
      PIData::PIBeamHeader header;
      PIData::getHeader(beam, &header);
      // A target beam's geometry comes from its target, not from points.
      mergeBeam_(into, beam, start, end, header.beamType == PIData::PI_BEAM_TARGET);
    });
}

void PlatformMerge::mergeBeam_(UniqueID_t target, UniqueID_t source, double start, double end, bool skipPoints)
{
  if (!skipPoints)
  {
    std::vector<PIData::PIBeamPoint> points;
    PIData::getDataPoints(source, start, end, &points);
    for (const auto& point : points)
      PIData::addDataPoint(target, &point);
  }
  mergeChildData_(target, source, start, end);
  mergeColors_(target, source, start, end, false);
  mergeStates_(target, source, start, end, false);
  mergeTargets_(target, source, start, end);

  mergeByName<PIData::PIGateHeader>(
    getBeamGateNames_(target), listOf(PIData::getGateList, source),
    [this](const std::string& name) { return createMergeName_(name); },
    [this, target](UniqueID_t gate) { return createEmptyGate_(target, gate); },
    [this, start, end](UniqueID_t into, UniqueID_t gate) { mergeGate_(into, gate, start, end); });
}

void PlatformMerge::mergeGate_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PIGatePoint> points;
  PIData::getDataPoints(source, start, end, &points);
  for (const auto& point : points)
    PIData::addDataPoint(target, &point);
  mergeChildData_(target, source, start, end);
  mergeColors_(target, source, start, end, false);
  mergeStates_(target, source, start, end, false);
  mergeTargets_(target, source, start, end);
}

void PlatformMerge::mergeLasersToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  mergeByName<PIData::PILaserHeader>(
    getPlatformLaserNames_(target), listOf(PIData::getLaserList, source),
    [this](const std::string& name) { return createMergeName_(name); },
    [this, target](UniqueID_t laser) { return createEmptyLaser_(target, laser); },
    [this, start, end](UniqueID_t into, UniqueID_t laser) { mergeLaser_(into, laser, start, end); });
}

void PlatformMerge::mergeLaser_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PILaserPoint> points;
  PIData::getDataPoints(source, start, end, &points);
  for (const auto& point : points)
    PIData::addLaserOriDataPoint(target, &point);
  mergeChildData_(target, source, start, end);
  mergeColors_(target, source, start, end, true);
  mergeStates_(target, source, start, end, true);
  mergeLaserMaxRange_(target, source, start, end);
  mergeLaserWidth_(target, source, start, end);
  mergeLaserOffset_(target, source, start, end);
}

void PlatformMerge::mergeLobGroupsToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  mergeByName<PIData::PILobHeader>(
    getPlatformLobGroupNames_(target), listOf(PIData::getLobList, source),
    [this](const std::string& name) { return createMergeName_(name); },
    [this, target](UniqueID_t lob) { return createEmptyLobGroup_(target, lob); },
    [this, start, end](UniqueID_t into, UniqueID_t lob) { mergeLobGroup_(into, lob, start, end); });
}

void PlatformMerge::mergeLobGroup_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PILobPoint> points;
  PIData::getDataPoints(source, start, end, &points);
  for (const auto& point : points)
    PIData::addDataPoint(target, &point);
  mergeChildData_(target, source, start, end);
  mergeStates_(target, source, start, end, true);
  mergeLobGroupDrawStyles_(target, source, start, end);
}

void PlatformMerge::mergeChildData_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  mergeCategoryData_(target, source, start, end);
  mergeGenericData_(target, source, start, end);
  mergeDataTables_(target, source, start, end);
}

// Category and generic data: the target keeps what it says at the slice's start, and a value
// set before the slice that still holds is carried in at exactly the start.

void PlatformMerge::mergeCategoryData_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  using Item = PIData::PICategoryDataPoint;
  std::vector<Item> targetItems;
  PIData::retrieveAllCategoryData(target, &targetItems);
  sortByTime(targetItems);
  std::set<std::string> staticNames;
  std::map<std::string, Item> atStart;
  for (const Item& item : targetItems)
  {
    if (item.time == STATIC_TIME)
      staticNames.insert(item.name);
    else if (item.time <= start)
      atStart[item.name] = item;
    else if (item.time > end)
      break;
  }

  std::vector<Item> sourceItems;
  PIData::retrieveAllCategoryData(source, &sourceItems);
  sortByTime(sourceItems);
  std::map<std::string, Item> pending;
  for (const Item& item : sourceItems)
  {
    if (item.time == STATIC_TIME)
    {
      if (staticNames.count(item.name))
        continue;
      PIData::addCategoryData(target, &item);
      if (!staticNames.empty())
        pending[item.name] = item;
    }
    else if (item.time < start)
      pending[item.name] = item;
    else if (item.time == start)
    {
      pending.erase(item.name);
      if (needValue(atStart, item.name, item))
        PIData::addCategoryData(target, &item);
    }
    else if (item.time <= end)
      PIData::addCategoryData(target, &item);
    else
      break;
  }
  for (const auto& [name, item] : pending)
  {
    if (item.time == STATIC_TIME)
      continue;
    Item carried = item;
    carried.time = start;
    if (needValue(atStart, name, carried))
      PIData::addCategoryData(target, &carried);
  }
}

void PlatformMerge::mergeGenericData_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  using Item = PIData::PIGenericDataPoint;
  std::map<std::string, Item> atStart;
  for (const Item& item : getGenericDataNoCallsign_(target))
  {
    if (item.time > end)
      break;
    if (item.time <= start && stillInForce(item, start))
      atStart[item.tag] = item;
  }
  const auto need = [&atStart](const Item& item) { return needValue(atStart, item.tag, item); };

  std::map<std::string, Item> pending;
  for (const Item& item : getGenericDataNoCallsign_(source))
  {
    if (item.time > end)
      break;
    if (item.time > start)
      PIData::createGenericData(target, &item);
    else if (!stillInForce(item, start))
      continue;
    else if (item.time < start)
      pending[item.tag] = item;
    else
    {
      pending.erase(item.tag);
      if (need(item))
        PIData::createGenericData(target, &item);
    }
  }
  for (const auto& [tag, item] : pending)
  {
    Item carried = item;
    carried.time = start;
    if (carried.expiration != -1.0)
      carried.expiration -= start - item.time; // it still ends when it did
    if (need(carried))
      PIData::createGenericData(target, &carried);
  }
}

std::vector<PIData::PIGenericDataPoint> PlatformMerge::getGenericDataNoCallsign_(UniqueID_t id)
{
  std::vector<PIData::PIGenericDataPoint> all;
  PIData::getDataPoints(id, &all);
  const QString callsign = KELVOR_GD_CALLSIGN;
  all.erase(std::remove_if(all.begin(), all.end(),
                           [&callsign](const PIData::PIGenericDataPoint& item) {
                             return QString::fromStdString(item.tag).compare(callsign, Qt::CaseInsensitive) == 0;
                           }),
            all.end());
  sortByTime(all);
  return all;
}

void PlatformMerge::mergeDataTables_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<long> tables;
  PIData::getAllDataTableIDs(source, &tables);
  for (long table : tables)
    mergeDataTable_(target, table, start, end);
}

void PlatformMerge::mergeDataTable_(UniqueID_t target, long sourceTable, double start, double end)
{
  const std::string name = PIData::getDataTableName(sourceTable);
  std::vector<long> sourceColumns;
  PIData::getDataTableColumns(sourceTable, &sourceColumns);
  long targetTable = 0;
  if (PIData::findDataTable(target, name, &targetTable) != 1)
  {
    // A new table starts from the source's first column; the others join below.
    if (sourceColumns.empty())
      return;
    std::string columnName;
    UTILS::UnitType_t units = UTILS::UNITS_NONE;
    UTILS::VariableType_t type{};
    PIData::getDataTableColumnName(sourceTable, sourceColumns.front(), &columnName);
    PIData::getDataTableColumnUnits(sourceTable, sourceColumns.front(), &units);
    PIData::getDataTableColumnStorageType(sourceTable, sourceColumns.front(), &type);
    PIData::PIDataTableCreateHelper helper;
    helper.addColumn(columnName, type, units);
    if (helper.create(target, name, &targetTable) != 1)
      return;
    const std::vector<UTILS::UnitType_t> columnUnits = {units};
    if (PIData::setDataTableColumnUnits(targetTable, &columnUnits) != 0)
      return;
  }

  std::map<std::string, long> targetColumns;
  std::vector<long> existing;
  PIData::getDataTableColumns(targetTable, &existing);
  for (long column : existing)
  {
    std::string columnName;
    PIData::getDataTableColumnName(targetTable, column, &columnName);
    targetColumns.emplace(columnName, column);
  }
  std::map<long, long> columnMap;
  for (long column : sourceColumns)
  {
    std::string columnName;
    PIData::getDataTableColumnName(sourceTable, column, &columnName);
    auto found = targetColumns.find(columnName);
    if (found == targetColumns.end())
    {
      UTILS::UnitType_t units = UTILS::UNITS_NONE;
      UTILS::VariableType_t type{};
      PIData::getDataTableColumnUnits(sourceTable, column, &units);
      PIData::getDataTableColumnStorageType(sourceTable, column, &type);
      long added = 0;
      if (PIData::addDataTableColumn(targetTable, &added, columnName, type, units) != 0)
        continue;
      found = targetColumns.emplace(columnName, added).first;
    }
    columnMap[column] = found->second;
  }
  MergeFunctor functor(targetTable, columnMap);
  PIData::forEachDataTableRow(sourceTable, start, end, &functor);
}

// Piecewise-constant series: the value in force at the slice's start may date from long before.

void PlatformMerge::mergeColors_(UniqueID_t target, UniqueID_t source, double start, double end, bool isStatic)
{
  std::vector<std::pair<double, unsigned int>> colors;
  PIData::getColors(source, isStatic ? STATIC_TIME : NOT_STATIC_FROM, end, &colors);
  writeCarried(colors, start, isStatic ? &STATIC_TIME : nullptr, pairTime<unsigned int>,
               [target](const std::pair<double, unsigned int>& c, double time) { PIData::setColor(target, c.second, time); });
}

void PlatformMerge::mergeStates_(UniqueID_t target, UniqueID_t source, double start, double end, bool isStatic)
{
  std::vector<std::pair<double, int>> states;
  PIData::getStates(source, isStatic ? STATIC_TIME : NOT_STATIC_FROM, end, &states);
  writeCarried(states, start, isStatic ? &STATIC_TIME : nullptr, pairTime<int>,
               [target](const std::pair<double, int>& s, double time) {
                 PIData::setStatus(target, static_cast<PIVisibilityStatus_t>(s.second), time);
               });
}

void PlatformMerge::mergeTargets_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<std::pair<double, UniqueID_t>> targets;
  PIData::getTargets(source, NOT_STATIC_FROM, end, &targets);
  writeCarried(targets, start, nullptr, pairTime<UniqueID_t>,
               [target](const std::pair<double, UniqueID_t>& t, double time) { PIData::setTarget(target, t.second, time); });
}

void PlatformMerge::mergeLaserMaxRange_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<std::pair<double, double>> ranges;
  PIData::getLaserMaxRange(source, STATIC_TIME, end, &ranges);
  writeCarried(ranges, start, &STATIC_TIME, pairTime<double>, [target](const std::pair<double, double>& r, double time) {
    PIData::addLaserMaxRangeDataPoint(target, time, r.second);
  });
}

void PlatformMerge::mergeLaserWidth_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<std::pair<double, int>> widths;
  PIData::getLaserWidths(source, STATIC_TIME, end, &widths);
  writeCarried(widths, start, &STATIC_TIME, pairTime<int>, [target](const std::pair<double, int>& w, double time) {
    PIData::addLaserWidthDataPoint(target, time, w.second);
  });
}

void PlatformMerge::mergeLaserOffset_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PILaserOffset> offsets;
  PIData::getLaserOffsets(source, STATIC_TIME, end, &offsets);
  writeCarried(offsets, start, &STATIC_TIME, [](const PIData::PILaserOffset& o) { return o.time; },
               [target](PIData::PILaserOffset o, double time) {
                 o.time = time;
                 PIData::addLaserOffsetDataPoint(target, &o);
               });
}

void PlatformMerge::mergeLobGroupDrawStyles_(UniqueID_t target, UniqueID_t source, double start, double end)
{
  std::vector<PIData::PILobDrawStyle> styles;
  PIData::getLobDrawStyles(source, NOT_STATIC_FROM, end, &styles);
  writeCarried(styles, start, nullptr, [](const PIData::PILobDrawStyle& s) { return s.time; },
               [target](PIData::PILobDrawStyle s, double time) {
                 s.time = time;
                 PIData::addLobDrawStyle(target, &s);
               });
}

void PlatformMerge::mergePlatformGogs_(UniqueID_t target, UniqueID_t source)
{
  std::vector<std::string> files;
  PIKELVOR::getAttachedGOGFiles(source, &files);
  for (const std::string& file : files)
    PIKELVOR::loadGOGFile(file, target);
}

// Empty children carry the source child's header under the merge name.

UniqueID_t PlatformMerge::createEmptyBeam_(UniqueID_t target, UniqueID_t sourceBeam)
{
  PIData::PIBeamPoint seed{0.0, 0.0, 0.0, PIData::clockGetBegin()};
  PIData::PIBeamHeader header;
  if (PIData::getHeader(sourceBeam, &header) != 0)
    return 0;
  header.name = createMergeName_(header.name);
  const UniqueID_t made = PIData::createBeam(target, &header, &seed, true);
  PIData::flushEntityData(made, PIData::FLUSH_ALL);
  return made;
}

UniqueID_t PlatformMerge::createEmptyGate_(UniqueID_t targetBeam, UniqueID_t sourceGate)
{
  PIData::PIGatePoint seed;
  seed.time = PIData::clockGetBegin();
  PIData::PIGateHeader header;
  if (PIData::getHeader(sourceGate, &header) != 0)
    return 0;
  header.name = createMergeName_(header.name);
  const UniqueID_t made = PIData::createGate(targetBeam, &header, &seed, true);
  PIData::flushEntityData(made, PIData::FLUSH_ALL);
  return made;
}

UniqueID_t PlatformMerge::createEmptyLaser_(UniqueID_t target, UniqueID_t sourceLaser)
{
  PIData::PILaserHeader header;
  if (PIData::getHeader(sourceLaser, &header) != 0)
    return 0;
  header.name = createMergeName_(header.name);
  return PIData::createLaser(target, &header, 0);
}

UniqueID_t PlatformMerge::createEmptyLobGroup_(UniqueID_t target, UniqueID_t sourceLob)
{
  PIData::PILobHeader header;
  if (PIData::getHeader(sourceLob, &header) != 0)
    return 0;
  header.name = createMergeName_(header.name);
  return PIData::createLob(target, &header);
}

PlatformMerge::NameMap PlatformMerge::getPlatformBeamNames_(UniqueID_t platform) const
{
  return namesOf<PIData::PIBeamHeader>(listOf(PIData::getBeamList, platform));
}

PlatformMerge::NameMap PlatformMerge::getBeamGateNames_(UniqueID_t beam) const
{
  return namesOf<PIData::PIGateHeader>(listOf(PIData::getGateList, beam));
}

PlatformMerge::NameMap PlatformMerge::getPlatformLaserNames_(UniqueID_t platform) const
{
  return namesOf<PIData::PILaserHeader>(listOf(PIData::getLaserList, platform));
}

PlatformMerge::NameMap PlatformMerge::getPlatformLobGroupNames_(UniqueID_t platform) const
{
  return namesOf<PIData::PILobHeader>(listOf(PIData::getLobList, platform));
}

} // namespace QtSep
