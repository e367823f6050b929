#include "files/CsvTrackReader.h"

#include "files/NumberText.h"
#include "files/RecordPlacer.h"
#include "kelCore/StringUtils.h"

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
    for (int c = TIME; c < NAME && bad.empty(); ++c)
      if (index[c] >= 0 && !NumberText::parse(fields[static_cast<std::size_t>(index[c])], value[c]))
        bad = "bad number '" + fields[static_cast<std::size_t>(index[c])] + "' for " + COLUMN_NAMES[c];
    if (bad.empty() && value[TIME] < 0.0 && value[TIME] != -1.0)
      bad = "bad time '" + fields[static_cast<std::size_t>(index[TIME])] + "'";
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
    placer.place(staged.entity(platform.id)->platformPoints, platform.lines, p, lineNumber, "the point");
  }
  report.lines = lineNumber;
  report.noteRepeats(name);
  if (options_.strict && !report.errors.empty())
    return report;
  if (options_.replace)
  {
    staged.properties().initialized = true;
    staged.autoConfigureClock();
    store_.replaceWith(staged);
  }
  else
  {
    for (UniqueID_t staging : staged.list(PI_PLATFORM_TYPE))
    {
      const Entity& from = *staged.entity(staging);
      const UniqueID_t id = store_.createEntity(from.header, 0);
      store_.entity(id)->platformPoints = from.platformPoints;
    }
    store_.scenarioReset();
  }
  report.loaded = true;
  return report;
}

} // namespace kelvor
