#include "files/CsvTrackReader.h"

#include "files/NumberText.h"
#include "files/RecordPlacer.h"
#include "kelCore/Iso8601TimeFormatter.h"
#include "kelCore/StringUtils.h"
#include "kelCore/TimeStamp.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>

namespace kelvor
{

namespace
{

constexpr double DEG = M_PI / 180.0;

enum Column
{
  TIME,
  LAT,
  LON,
  ALT,
  YAW,
  PITCH,
  ROLL,
  VE,
  VN,
  VU,
  NAME,
  COLUMN_COUNT
};

const char* const COLUMN_NAMES[COLUMN_COUNT] = {"time", "lat", "lon", "alt", "yaw", "pitch", "roll", "ve", "vn", "vu", "name"};

/// What the time column holds, as its first row shows.
enum class TimeKind
{
  UNKNOWN,
  SINCE_REFERENCE_YEAR, ///< seconds since the start of the reference year, -1 for static
  UNIX_SECONDS,         ///< seconds since 1970-01-01T00:00:00Z
  DATE_TIME             ///< ISO 8601 date-times
};

/// Epoch seconds from here on are taken for Unix time (March 1973); smaller numbers are seconds
/// since the reference year, which a scenario of three years would not reach.
constexpr double UNIX_SECONDS_FROM = 1e8;
/// The first Unix second of the year 10000: dates have four-digit years.
constexpr double UNIX_SECONDS_TO = 253402300800.0;

/**
 * Reads the times of one file: decides at the first row what the column holds and which year
 * the times count from, then converts every row's time to seconds since that year.
 */
class TimeColumn
{
public:
  /// @param referenceYear the year asked for; 0 for that of the first dated time
  explicit TimeColumn(int referenceYear) : referenceYear_(referenceYear) {}

  /// @return false, with the reason, for a time this column cannot hold
  bool read(const std::string& text, double& seconds, std::string& error)
  {
    if (kind_ == TimeKind::UNKNOWN)
      kind_ = kindOf_(text);
    if (kind_ == TimeKind::DATE_TIME)
    {
      kelCore::TimeStamp stamp;
      if (kelCore::Iso8601TimeFormatter().fromString(text, stamp, 1970) != 0)
      {
        error = "bad time '" + text + "': an ISO 8601 date-time such as 2024-07-01T12:00:00.25Z, as in the first row";
        return false;
      }
      return since_(stamp, seconds);
    }
    double value = 0.0;
    if (!NumberText::parse(text, value))
    {
      error = "bad number '" + text + "' for time";
      return false;
    }
    if (value < 0.0 && value != -1.0)
    {
      error = "bad time '" + text + "'";
      return false;
    }
    if (kind_ == TimeKind::SINCE_REFERENCE_YEAR || value == -1.0)
    {
      seconds = value;
      return true;
    }
    if (value >= UNIX_SECONDS_TO)
    {
      error = "bad time '" + text + "': Unix seconds past the year 9999";
      return false;
    }
    return since_(kelCore::TimeStamp(1970, kelCore::Seconds(value)), seconds);
  }

  /// @return the year the times count from; 0 when no row decided it and none was asked for
  int referenceYear() const { return referenceYear_; }

private:
  static TimeKind kindOf_(const std::string& text)
  {
    // A date begins with its four-digit year and a dash; no number does.
    if (text.size() > 4 && text[4] == '-')
      return TimeKind::DATE_TIME;
    double value = 0.0;
    return NumberText::parse(text, value) && value >= UNIX_SECONDS_FROM ? TimeKind::UNIX_SECONDS
                                                                         : TimeKind::SINCE_REFERENCE_YEAR;
  }

  bool since_(const kelCore::TimeStamp& stamp, double& seconds)
  {
    if (referenceYear_ == 0)
      referenceYear_ = stamp.referenceYear();
    seconds = stamp.secondsSinceRefYear(referenceYear_).Double();
    return true;
  }

  int referenceYear_;
  TimeKind kind_ = TimeKind::UNKNOWN;
};

std::string baseName(const std::string& path)
{
  const auto slash = path.find_last_of('/');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  const auto dot = name.find_last_of('.');
  return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

} // namespace

CsvTrackReader::CsvTrackReader(ScenarioStore& store) : CsvTrackReader(store, Options{false, true}) {}

CsvTrackReader::CsvTrackReader(ScenarioStore& store, Options options) : store_(store), options_(options) {}

bool CsvTrackReader::splitCsv(const std::string& line, std::vector<std::string>& fields)
{
  fields.clear();
  std::string field;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i)
  {
    const char c = line[i];
    if (quoted)
    {
      if (c == '"' && i + 1 < line.size() && line[i + 1] == '"')
        field += '"', ++i;
      else if (c == '"')
        quoted = false;
      else
        field += c;
    }
    else if (c == '"')
      quoted = true;
    else if (c == ',')
      fields.push_back(kelCore::trim(field)), field.clear();
    else if (c != '\r')
      field += c;
  }
  fields.push_back(kelCore::trim(field));
  return !quoted;
}

ReadReport CsvTrackReader::readFile(const std::string& path)
{
  std::ifstream in(path, std::ios::binary);
  if (!in)
    return ReadReport::unopened(path);
  return read(in, path);
}

ReadReport CsvTrackReader::read(std::istream& in, const std::string& name)
{
  ReadReport report;
  auto fail = [&](std::size_t line, const std::string& reason) {
    report.errors.push_back(name + ":" + std::to_string(line) + ": " + reason);
  };
  std::string line;
  std::vector<std::string> fields;
  std::size_t lineNumber = 0;
  int index[COLUMN_COUNT];
  std::fill(std::begin(index), std::end(index), -1);
  // The header: the first line that is not blank.
  while (std::getline(in, line))
  {
    ++lineNumber;
    if (!kelCore::trim(line).empty())
      break;
  }
  if (!splitCsv(line, fields) || kelCore::trim(line).empty())
  {
    fail(std::max<std::size_t>(lineNumber, 1), "no header line: expected time,lat,lon,alt");
    return report;
  }
  for (std::size_t i = 0; i < fields.size(); ++i)
  {
    int column = -1;
    for (int c = 0; c < COLUMN_COUNT; ++c)
      if (kelCore::caseCompare(fields[i], COLUMN_NAMES[c]) == 0)
        column = c;
    if (column < 0)
      fail(lineNumber, "unknown column '" + fields[i] + "'");
    else if (index[column] >= 0)
      fail(lineNumber, "column '" + fields[i] + "' given twice");
    else
      index[column] = static_cast<int>(i);
  }
  for (int c : {TIME, LAT, LON, ALT})
    if (index[c] < 0)
      fail(lineNumber, std::string("no '") + COLUMN_NAMES[c] + "' column");
  const bool hasOrientation = index[YAW] >= 0 && index[PITCH] >= 0 && index[ROLL] >= 0;
  const bool hasVelocity = index[VE] >= 0 && index[VN] >= 0 && index[VU] >= 0;
  if (!report.errors.empty())
    return report;

  ScenarioStore staged;
  struct Platform
  {
    UniqueID_t id = 0;
    SeriesLines lines; ///< the line of each point
  };
  std::map<std::string, Platform> platforms;
  const RecordPlacer placer(report, name);
  const std::string fileName = baseName(name);
  // Tracks added to a loaded scenario count their dated times from its year.
  TimeColumn times(options_.referenceYear != 0 ? options_.referenceYear
                                               : (options_.replace ? 0 : store_.properties().referenceYear));
  while (std::getline(in, line))
  {
    ++lineNumber;
    if (kelCore::trim(line).empty())
      continue;
    if (!splitCsv(line, fields))
    {
      fail(lineNumber, "unterminated quote");
      continue;
    }
    if (fields.size() < static_cast<std::size_t>(*std::max_element(std::begin(index), std::end(index)) + 1))
    {
      fail(lineNumber, "missing field: " + std::to_string(fields.size()) + " fields for the header's columns");
      continue;
    }
    double value[NAME] = {0};
    std::string bad;
    for (int c = LAT; c < NAME && bad.empty(); ++c)
      if (index[c] >= 0 && !NumberText::parse(fields[static_cast<std::size_t>(index[c])], value[c]))
        bad = "bad number '" + fields[static_cast<std::size_t>(index[c])] + "' for " + COLUMN_NAMES[c];
    if (bad.empty())
      times.read(fields[static_cast<std::size_t>(index[TIME])], value[TIME], bad);
    if (!bad.empty())
    {
      fail(lineNumber, bad);
      continue;
    }
    const std::string platformName = index[NAME] >= 0 ? fields[static_cast<std::size_t>(index[NAME])] : fileName;
    Platform& platform = platforms[platformName];
    if (!platform.id)
    {
      PIData::PIPlatformHeader header;
      header.name = platformName;
      header.originalId = platforms.size();
      platform.id = staged.createEntity(header, 0);
      ++report.entities;
    }
    StoredPlatformPoint p;
    p.time = value[TIME];
    p.lat = value[LAT] * DEG;
    p.lon = value[LON] * DEG;
    p.alt = value[ALT];
    if (hasOrientation)
      p.yaw = value[YAW] * DEG, p.pitch = value[PITCH] * DEG, p.roll = value[ROLL] * DEG;
    if (hasVelocity)
      p.velEast = value[VE], p.velNorth = value[VN], p.velUp = value[VU];
    placer.place(staged.editEntity(platform.id)->platformPoints, platform.lines, p, lineNumber, "the point");
  }
  report.lines = lineNumber;
  report.noteRepeats(name);
  if (options_.strict && !report.errors.empty())
    return report;
  if (options_.replace)
  {
    if (times.referenceYear() != 0)
      staged.editProperties().referenceYear = times.referenceYear();
    staged.editProperties().initialized = true;
    staged.autoConfigureClock();
    store_.replaceWith(staged);
  }
  else
  {
    for (UniqueID_t staging : staged.list(PI_PLATFORM_TYPE))
    {
      const Entity& from = *staged.entity(staging);
      const UniqueID_t id = store_.createEntity(from.header, 0);
      store_.editEntity(id)->platformPoints = from.platformPoints;
    }
    store_.scenarioReset();
  }
  report.loaded = true;
  return report;
}

} // namespace kelvor
