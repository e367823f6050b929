#include "validation/ValidateScenario.h"

#include "host/PIData.h"
#include "host/PIDataTables.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>

namespace QtSep
{

const std::string ValidateScenario::INTERNAL_TABLE_PREFIX = "__Internal_";

namespace
{

constexpr double STATIC_TIME = -1.0;
constexpr double LATEST = std::numeric_limits<double>::max();

enum DataKind
{
  GENERIC_DATA = 0,
  CATEGORY_DATA = 1,
  DATA_TABLE = 2
};

using Solution = ValidateScenario::Solution;

/// What every repair shares: the entity and how the repair went.
class EntitySolution : public Solution
{
public:
  explicit EntitySolution(UniqueID_t id) : id_(id) {}
  State state() const override { return state_; }
  bool canMerge(const Solution*) const override { return false; }
  void merge(const Solution*) override {}

protected:
  /// Ends an apply. @return 0 when applied
  int finish_()
  {
    if (state_ == FAILED)
      return 1;
    fireChangeCallback(id_);
    return 0;
  }
  UniqueID_t id_;
  State state_ = NOT_TRIED;
};

/// Holds the last point to the scenario's end.
class DuplicatePoint : public EntitySolution
{
public:
  using EntitySolution::EntitySolution;
  std::string title() const override { return "Duplicate Point"; }
  std::string toolTip() const override { return "Duplicate the last TSPI point with the scenario end time."; }
  int apply() override
  {
    state_ = FAILED;
    const double scenarioEnd = PIData::getLatestTime(0);
    PIData::PIPlatformPoint last;
    if (PIData::getDataPoint(id_, PIData::getLatestTime(id_), &last, PI_RETRIEVE_AT_OR_BEFORE) == 0 &&
        last.time < scenarioEnd)
    {
      last.time = scenarioEnd;
      if (PIData::addDataPoint(id_, &last) == 0)
        state_ = APPLIED;
    }
    return finish_();
  }
};

/// Grows the platform's track at either end to cover its data.
class ExpandPoints : public EntitySolution
{
public:
  ExpandPoints(UniqueID_t id, double start, double end) : EntitySolution(id), start_(start), end_(end) {}
  std::string title() const override { return "Expand"; }
  std::string toolTip() const override { return "Add points to the host entity to cover the time range."; }
  bool canMerge(const Solution* other) const override
  {
    const auto* expand = dynamic_cast<const ExpandPoints*>(other);
    return expand && expand->id_ == id_;
  }
  void merge(const Solution* other) override
  {
    const auto* expand = static_cast<const ExpandPoints*>(other);
    start_ = std::min(start_, expand->start_);
    end_ = std::max(end_, expand->end_);
  }
  int apply() override
  {
    state_ = FAILED;
    if (PIData::getEarliestTime(id_) > start_)
      addPoint_(0.0, PI_RETRIEVE_AT_OR_AFTER, start_, [this](double time) { return start_ < time; });
    if (end_ > PIData::getLatestTime(id_))
      addPoint_(LATEST, PI_RETRIEVE_AT_OR_BEFORE, end_, [this](double time) { return end_ > time; });
    return finish_();
  }

private:
  template <typename Reaches>
  void addPoint_(double at, PIDataRetrievalMethod_t method, double stamp, Reaches reaches)
  {
    PIData::PIPlatformPoint point;
    if (PIData::getDataPoint(id_, at, &point, method) != 0 || !reaches(point.time))
      return;
    point.time = stamp;
    if (PIData::addDataPoint(id_, &point) == 0)
      state_ = APPLIED;
  }
  double start_;
  double end_;
};

/// Removes an empty data table.
class RemoveDataTable : public EntitySolution
{
public:
  RemoveDataTable(UniqueID_t id, long table) : EntitySolution(id), table_(table) {}
  std::string title() const override { return "Remove"; }
  std::string toolTip() const override { return "Remove the data table."; }
  int apply() override
  {
    state_ = FAILED;
    if (PIData::removeDataTable(table_) != 1)
      return 1;
    state_ = APPLIED;
    return finish_();
  }

private:
  long table_;
};

/// Rows of a table over the whole time axis.
class RowCollector : public PIData::PerDataTableRowFunctor
{
public:
  bool operator()(const PIData::DataTableRowT& row) override
  {
    rows.push_back(row);
    return true;
  }
  std::vector<PIData::DataTableRowT> rows;
};

std::vector<PIData::DataTableRowT> rowsOf(long table)
{
  RowCollector collector;
  PIData::forEachDataTableRow(table, 0.0, LATEST, &collector);
  return collector.rows;
}

/// Removes the data that lie outside the host's time range.
class TrimPoints : public EntitySolution
{
public:
  TrimPoints(UniqueID_t id, int kind, long table = 0) : EntitySolution(id), kinds_{kind}, table_(table) {}
  std::string title() const override { return "Trim Points"; }
  std::string toolTip() const override
  {
    std::vector<std::string> applies;
    if (kinds_.count(CATEGORY_DATA))
      applies.push_back("Category Data");
    if (kinds_.count(GENERIC_DATA))
      applies.push_back("Generic Data");
    if (kinds_.count(DATA_TABLE))
      applies.push_back("Data Table");
    std::string text = "Remove points until the points are within the time range of the host entity.\n"
                       "Applies to the following: ";
    for (std::size_t i = 0; i < applies.size(); ++i)
      text += (i ? ", " : "") + applies[i];
    return text;
  }
  bool canMerge(const Solution* other) const override
  {
    const auto* trim = dynamic_cast<const TrimPoints*>(other);
    return trim && trim->id_ == id_;
  }
  void merge(const Solution* other) override
  {
    const auto* trim = static_cast<const TrimPoints*>(other);
    kinds_.insert(trim->kinds_.begin(), trim->kinds_.end());
    // The first table found stays the one trimmed; a line begun by category or generic data has
    // none yet and takes the first that arrives.
    if (table_ == 0)
      table_ = trim->table_;
  }
  int apply() override
  {
    state_ = FAILED;
    const double start = PIData::getEarliestTime(id_);
    const double end = getPlatformLatestTime(id_);
    if (kinds_.count(CATEGORY_DATA))
      trimCategories_(start, end);
    if (kinds_.count(GENERIC_DATA))
      trimGeneric_(start, end);
    if (kinds_.count(DATA_TABLE))
      trimTable_(start, end);
    return finish_();
  }

private:
  static bool outside(double time, double start, double end) { return time < start || time > end; }

  void trimCategories_(double start, double end)
  {
    std::vector<PIData::PICategoryDataPoint> items;
    PIData::retrieveAllCategoryData(id_, &items);
    for (const auto& item : items)
    {
      if (item.time != STATIC_TIME && outside(item.time, start, end) && PIData::removeCategoryData(id_, &item) == 0)
        state_ = APPLIED;
    }
  }

  void trimGeneric_(double start, double end)
  {
    // The host deletes generic data by tag only: the tags with data inside go and come back trimmed.
    std::vector<PIData::PIGenericDataPoint> items;
    PIData::getDataPoints(id_, &items);
    std::set<std::string> tagsInside;
    bool anyOutside = false;
    for (const auto& item : items)
    {
      if (outside(item.time, start, end))
        anyOutside = true;
      else
        tagsInside.insert(item.tag);
    }
    if (!anyOutside)
      return;
    for (const std::string& tag : tagsInside)
      PIData::deleteGenericData(id_, tag);
    for (const auto& item : items)
    {
      if (!outside(item.time, start, end))
        PIData::createGenericData(id_, &item);
    }
    state_ = APPLIED;
  }

  void trimTable_(double start, double end)
  {
    const std::vector<PIData::DataTableRowT> rows = rowsOf(table_);
    if (rows.empty())
    {
      if (PIData::removeDataTable(table_) == 1)
        state_ = APPLIED;
      return;
    }
    if (std::none_of(rows.begin(), rows.end(), [&](const auto& row) { return outside(row.time(), start, end); }))
      return;
    // Made anew with the rows inside the range, both ends included.
    const std::string name = PIData::getDataTableName(table_);
    std::vector<long> columns;
    PIData::getDataTableColumns(table_, &columns);
    std::vector<std::string> names(columns.size());
    std::vector<UTILS::VariableType_t> types(columns.size());
    std::vector<UTILS::UnitType_t> units(columns.size());
    for (std::size_t c = 0; c < columns.size(); ++c)
    {
      PIData::getDataTableColumnName(table_, columns[c], &names[c]);
      PIData::getDataTableColumnStorageType(table_, columns[c], &types[c]);
      PIData::getDataTableColumnUnits(table_, columns[c], &units[c]);
    }
    long remade = 0;
    if (PIData::removeDataTable(table_) != 1 || PIData::addDataTable(id_, name, &names, &types, &remade) != 1)
      return;
    PIData::setDataTableColumnUnits(remade, &units);
    std::vector<long> newColumns;
    PIData::getDataTableColumns(remade, &newColumns);
    std::map<long, long> byName;
    for (std::size_t c = 0; c < columns.size(); ++c)
    {
      for (long column : newColumns)
      {
        std::string newName;
        PIData::getDataTableColumnName(remade, column, &newName);
        if (newName == names[c])
          byName[columns[c]] = column;
      }
    }
    for (const auto& row : rows)
    {
      if (outside(row.time(), start, end))
        continue;
      PIData::DataTableRowT copy(row.time());
      for (const auto& [column, cell] : row.cells())
        copy.setCell(static_cast<unsigned long>(byName[static_cast<long>(column)]), cell->clone());
      PIData::addDataTableRow(remade, copy);
    }
    table_ = remade;
    state_ = APPLIED;
  }

  std::set<int> kinds_;
  long table_;
};

template <typename Pair>
double lastTime(const std::vector<Pair>& entries)
{
  return entries.back().first;
}

} // namespace

ValidateScenario::Issue::Issue(Code code, UniqueID_t id, Solution* first, Solution* second) : code_(code), uniqueId_(id)
{
  for (Solution* solution : {first, second})
  {
    if (solution)
      solutions_.emplace_back(solution);
  }
}

ValidateScenario::Issue::~Issue() = default;

std::string ValidateScenario::Issue::description() const
{
  const std::string name = getEntityName(uniqueId_);
  switch (code_)
  {
  case NO_NON_STATIC_PLATFORM: return "Scenario must contain at least one non-static platform.";
  case NO_POINTS: return "Entity " + name + " must contain points.";
  case TOO_FEW_POINTS: return "The non-static platform " + name + " must have at least two TSPI points.";
  case OUTSIDE_HOST_RANGE: return "Data outside the time range of the host entity " + name + ".";
  case CHILD_OUTSIDE_HOST_RANGE:
    return "Data for entity " + name + " outside the time range of the host entity " + getEntityHostName(uniqueId_) + ".";
  case NO_COLOR: return "Must define a color for entity " + name + ".";
  case COLOR_OUTSIDE_RANGE: return "Color values outside the time range of the entity " + name + ".";
  case NO_STATE: return "Must define a state for entity " + name + ".";
  case STATE_OUTSIDE_RANGE: return "State values outside the time range of the entity " + name + ".";
  case NO_TARGET: return "Must define a target for entity " + name + ".";
  case TARGET_OUTSIDE_RANGE: return "Target values outside the time range of the entity " + name + ".";
  case NO_DRAW_STYLE: return "Must define a draw style for entity " + name + ".";
  case DRAW_STYLE_OUTSIDE_RANGE: return "Draw style outside the time range of the entity " + name + ".";
  case MAX_RANGE_OUTSIDE_RANGE: return "Maximum range outside the time range of the laser entity " + name + ".";
  case WIDTH_OUTSIDE_RANGE: return "Pixel width outside the time range of the laser entity " + name + ".";
  case OFFSET_OUTSIDE_RANGE: return "Offset outside the time range of the laser entity " + name + ".";
  }
  return "N/A";
}

void ValidateScenario::Issue::getSolutions(std::vector<Solution*>& solutions) const
{
  for (const auto& solution : solutions_)
    solutions.push_back(solution.get());
}

bool ValidateScenario::Issue::canApplyASolution() const
{
  bool untried = false;
  for (const auto& solution : solutions_)
  {
    if (solution->state() == Solution::APPLIED)
      return false;
    untried = untried || solution->state() == Solution::NOT_TRIED;
  }
  return untried;
}

void ValidateScenario::Issue::appendSolution(Solution* solution)
{
  solutions_.emplace_back(solution);
}

ValidateScenario::ValidateScenario() = default;
ValidateScenario::~ValidateScenario() = default;

void ValidateScenario::clearIssues_()
{
  issues_.clear();
}

void ValidateScenario::getIssues(std::vector<Issue*>& issues) const
{
  for (const auto& issue : issues_)
    issues.push_back(issue.get());
}

bool ValidateScenario::anySolutionsAvaiable() const
{
  return std::any_of(issues_.begin(), issues_.end(), [](const auto& issue) { return issue->canApplyASolution(); });
}

std::size_t ValidateScenario::fixAll(const FixTried& tried)
{
  std::size_t repaired = 0;
  for (std::size_t i = 0; i < issues_.size(); ++i)
  {
    if (!issues_[i]->canApplyASolution())
      continue;
    std::vector<Solution*> solutions;
    issues_[i]->getSolutions(solutions);
    for (std::size_t s = 0; s < solutions.size(); ++s)
    {
      if (solutions[s]->state() != Solution::NOT_TRIED)
        continue;
      const bool applied = solutions[s]->apply() == 0;
      if (tried)
        tried(i, s, applied);
      if (applied)
      {
        ++repaired;
        break;
      }
    }
  }
  return repaired;
}

void ValidateScenario::add_(Issue* issue)
{
  issues_.emplace_back(issue);
}

void ValidateScenario::mergeOrAppend_(Issue* issue)
{
  std::unique_ptr<Issue> added(issue);
  const auto same = std::find_if(issues_.begin(), issues_.end(), [&](const auto& existing) {
    return existing->code() == added->code() && existing->uniqueId() == added->uniqueId();
  });
  if (same != issues_.end())
  {
    std::vector<Solution*> held;
    std::vector<Solution*> arriving;
    (*same)->getSolutions(held);
    added->getSolutions(arriving);
    bool mergeable = held.size() == arriving.size();
    for (std::size_t i = 0; mergeable && i < held.size(); ++i)
      mergeable = held[i]->canMerge(arriving[i]);
    if (mergeable)
    {
      // One entity gets one line for one kind of trouble.
      for (std::size_t i = 0; i < held.size(); ++i)
        held[i]->merge(arriving[i]);
      return;
    }
  }
  issues_.push_back(std::move(added));
}

int ValidateScenario::validate()
{
  clearIssues_();
  if (!PIData::isScenarioInitialized())
    return 1;
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  if (platforms.empty())
  {
    add_(new Issue(NO_NON_STATIC_PLATFORM, 0));
    return 0;
  }
  bool nonStatic = false;
  for (UniqueID_t id : platforms)
    validatePlatform_(id, nonStatic);
  validateCustomRenderers_(0, PIData::getEarliestTime(0), PIData::getLatestTime(0));
  if (!nonStatic)
    add_(new Issue(NO_NON_STATIC_PLATFORM, 0));
  return 0;
}

void ValidateScenario::validatePlatform_(UniqueID_t id, bool& nonStatic)
{
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(id, PIData::getEarliestTime(0), PIData::getLatestTime(0), &points);
  if (points.empty())
  {
    add_(new Issue(NO_POINTS, id));
    return;
  }
  double start = PIData::getEarliestTime(0);
  double end = PIData::getLatestTime(0);
  if (points.size() == 1 && points.front().time != STATIC_TIME)
  {
    add_(new Issue(TOO_FEW_POINTS, id, new DuplicatePoint(id)));
    return;
  }
  if (points.size() > 1)
  {
    start = PIData::getEarliestTime(id);
    end = PIData::getLatestTime(id);
    nonStatic = true;
  }
  // Only the platform's own track can grow to cover its data.
  validateData_(id, start, end, true);
  validateBeams_(id, start, end);
  validateLasers_(id, start, end);
  validateLobs_(id, start, end);
  validateCustomRenderers_(id, start, end);
  validateProjectors_(id, start, end);
}

namespace
{

std::vector<UniqueID_t> children(void (*list)(UniqueID_t, std::vector<UniqueID_t>*), UniqueID_t host)
{
  std::vector<UniqueID_t> ids;
  list(host, &ids);
  return ids;
}

int beamType(UniqueID_t id)
{
  PIData::PIBeamHeader header;
  PIData::getHeader(id, &header);
  return header.beamType;
}

} // namespace

void ValidateScenario::validateBeams_(UniqueID_t host, double start, double end)
{
  for (UniqueID_t id : children(PIData::getBeamList, host))
    validateBeam_(id, start, end);
}

void ValidateScenario::validateGates_(UniqueID_t host, double start, double end)
{
  for (UniqueID_t id : children(PIData::getGateList, host))
    validateGate_(id, start, end);
}

void ValidateScenario::validateLasers_(UniqueID_t host, double start, double end)
{
  for (UniqueID_t id : children(PIData::getLaserList, host))
    validateLaser_(id, start, end);
}

void ValidateScenario::validateLobs_(UniqueID_t host, double start, double end)
{
  for (UniqueID_t id : children(PIData::getLobList, host))
    validateLob_(id, start, end);
}

void ValidateScenario::validateProjectors_(UniqueID_t host, double start, double end)
{
  for (UniqueID_t id : children(PIData::getProjectorList, host))
    validateProjector_(id, start, end);
}

void ValidateScenario::validateCustomRenderers_(UniqueID_t host, double start, double end)
{
  std::vector<UniqueID_t> ids;
  if (host == 0)
  {
    // The scenario's own renderings: those without a host.
    std::vector<UniqueID_t> all;
    PIData::getCustomRenderingList(&all);
    std::copy_if(all.begin(), all.end(), std::back_inserter(ids), [](UniqueID_t id) { return PIData::getObjectHost(id) == 0; });
  }
  else
    ids = children(PIData::getCustomRenderingList, host);
  for (UniqueID_t id : ids)
    validateCustomRenderer_(id, start, end);
}

template <typename Point>
bool ValidateScenario::validateSpan_(UniqueID_t id, double start, double end, bool emptyIsFine, double& first)
{
  std::vector<Point> points;
  PIData::getDataPoints(id, 0.0, LATEST, &points);
  if (points.empty())
  {
    if (!emptyIsFine)
      add_(new Issue(NO_POINTS, id));
    return false;
  }
  first = points.front().time;
  if (first < start || points.back().time > end)
    add_(new Issue(CHILD_OUTSIDE_HOST_RANGE, id));
  return true;
}

void ValidateScenario::validateBeam_(UniqueID_t id, double start, double end)
{
  const bool targetBeam = beamType(id) == PIData::PI_BEAM_TARGET;
  double first = 0.0;
  if (!validateSpan_<PIData::PIBeamPoint>(id, start, end, targetBeam, first))
    return;
  validateData_(id, first, end, false);
  validateColor_(id, end);
  validateState_(id, end);
  validateTarget_(id, end);
  validateGates_(id, first, end);
  validateProjectors_(id, first, end);
}

void ValidateScenario::validateGate_(UniqueID_t id, double start, double end)
{
  double first = 0.0;
  if (!validateSpan_<PIData::PIGatePoint>(id, start, end, false, first))
    return;
  validateData_(id, first, end, false);
  validateColor_(id, end);
  validateState_(id, end);
}

void ValidateScenario::validateLaser_(UniqueID_t id, double start, double end)
{
  double first = 0.0;
  if (!validateSpan_<PIData::PILaserPoint>(id, start, end, false, first))
    return;
  validateData_(id, first, end, false);
  validateColor_(id, end);
  validateState_(id, end);
  validateLaserSeries_(id, end);
}

void ValidateScenario::validateLob_(UniqueID_t id, double start, double end)
{
  double first = 0.0;
  if (!validateSpan_<PIData::PILobPoint>(id, start, end, false, first))
    return;
  validateLobDrawStyle_(id, end);
  validateData_(id, first, end, false);
}

void ValidateScenario::validateProjector_(UniqueID_t id, double, double end)
{
  std::vector<PIData::PIProjectorPoint> points;
  PIData::getDataPoints(id, 0.0, LATEST, &points);
  if (points.empty())
    add_(new Issue(NO_POINTS, id));
  else if (points.back().time > end)
    add_(new Issue(OUTSIDE_HOST_RANGE, id));
}

void ValidateScenario::validateCustomRenderer_(UniqueID_t id, double start, double end)
{
  validateData_(id, start, end, false);
}

void ValidateScenario::validateData_(UniqueID_t id, double start, double end, bool allowExpand)
{
  validateCategoryData_(id, start, end, allowExpand);
  validateGenericData_(id, start, end, allowExpand);
  validateDataTables_(id, start, end, allowExpand);
}

void ValidateScenario::outsideRange_(UniqueID_t id, double first, double last, bool allowExpand, int kind, long table)
{
  auto* issue = new Issue(OUTSIDE_HOST_RANGE, id);
  if (allowExpand)
    issue->appendSolution(new ExpandPoints(id, first, last));
  issue->appendSolution(new TrimPoints(id, kind, table));
  mergeOrAppend_(issue);
}

void ValidateScenario::validateCategoryData_(UniqueID_t id, double start, double end, bool allowExpand)
{
  std::vector<PIData::PICategoryDataPoint> items;
  PIData::retrieveAllCategoryData(id, &items);
  for (const auto& item : items)
  {
    if (item.time != STATIC_TIME && (item.time < start || item.time > end))
    {
      outsideRange_(id, item.time, items.back().time, allowExpand, CATEGORY_DATA);
      return;
    }
  }
}

void ValidateScenario::validateGenericData_(UniqueID_t id, double start, double end, bool allowExpand)
{
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(id, &items);
  for (const auto& item : items)
  {
    if (item.time < start || item.time > end)
    {
      outsideRange_(id, item.time, items.back().time, allowExpand, GENERIC_DATA);
      return;
    }
  }
}

void ValidateScenario::validateDataTables_(UniqueID_t id, double start, double end, bool allowExpand)
{
  std::vector<long> tables;
  PIData::getAllDataTableIDs(id, &tables);
  for (long table : tables)
    validateDataTable_(id, table, start, end, allowExpand);
}

void ValidateScenario::validateDataTable_(UniqueID_t id, long table, double start, double end, bool allowExpand)
{
  if (PIData::getDataTableName(table).rfind(INTERNAL_TABLE_PREFIX, 0) == 0)
    return;
  const std::vector<PIData::DataTableRowT> rows = rowsOf(table);
  if (rows.empty())
  {
    add_(new Issue(TOO_FEW_POINTS, id, new RemoveDataTable(id, table)));
    return;
  }
  if (rows.front().time() < start || rows.back().time() > end)
    outsideRange_(id, rows.front().time(), rows.back().time(), allowExpand, DATA_TABLE, table);
}

void ValidateScenario::validateColor_(UniqueID_t id, double end)
{
  const bool laser = PIData::getObjectType(id) == PI_LASER_TYPE;
  std::vector<std::pair<double, unsigned int>> colors;
  PIData::getColors(id, laser ? STATIC_TIME : 0.0, LATEST, &colors);
  if (colors.empty())
  {
    if (!laser)
      add_(new Issue(NO_COLOR, id));
  }
  else if (lastTime(colors) > end)
    add_(new Issue(COLOR_OUTSIDE_RANGE, id));
}

void ValidateScenario::validateState_(UniqueID_t id, double end)
{
  const bool laser = PIData::getObjectType(id) == PI_LASER_TYPE;
  std::vector<std::pair<double, int>> states;
  PIData::getStates(id, laser ? STATIC_TIME : 0.0, LATEST, &states);
  if (states.empty())
    add_(new Issue(NO_STATE, id));
  else if (lastTime(states) > end)
    add_(new Issue(STATE_OUTSIDE_RANGE, id));
}

void ValidateScenario::validateTarget_(UniqueID_t id, double end)
{
  std::vector<std::pair<double, UniqueID_t>> targets;
  PIData::getTargets(id, 0.0, LATEST, &targets);
  if (targets.empty())
  {
    if (beamType(id) == PIData::PI_BEAM_TARGET)
      add_(new Issue(NO_TARGET, id));
  }
  else if (lastTime(targets) > end)
    add_(new Issue(TARGET_OUTSIDE_RANGE, id));
}

void ValidateScenario::validateLobDrawStyle_(UniqueID_t id, double end)
{
  std::vector<PIData::PILobDrawStyle> styles;
  PIData::getLobDrawStyles(id, 0.0, LATEST, &styles);
  if (styles.empty())
    add_(new Issue(NO_DRAW_STYLE, id));
  else if (styles.back().time > end)
    add_(new Issue(DRAW_STYLE_OUTSIDE_RANGE, id));
}

void ValidateScenario::validateLaserSeries_(UniqueID_t id, double end)
{
  std::vector<std::pair<double, double>> ranges;
  PIData::getLaserMaxRange(id, STATIC_TIME, LATEST, &ranges);
  if (!ranges.empty() && lastTime(ranges) > end)
    add_(new Issue(MAX_RANGE_OUTSIDE_RANGE, id));
  std::vector<std::pair<double, int>> widths;
  PIData::getLaserWidths(id, STATIC_TIME, LATEST, &widths);
  if (!widths.empty() && lastTime(widths) > end)
    add_(new Issue(WIDTH_OUTSIDE_RANGE, id));
  std::vector<PIData::PILaserOffset> offsets;
  PIData::getLaserOffsets(id, STATIC_TIME, LATEST, &offsets);
  if (!offsets.empty() && offsets.back().time > end)
    add_(new Issue(OFFSET_OUTSIDE_RANGE, id));
}

} // namespace QtSep
