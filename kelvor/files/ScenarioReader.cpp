#include "files/ScenarioReader.h"

#include "files/LineTokenizer.h"
#include "files/NumberText.h"
#include "files/ScenarioVocabulary.h"
#include "kelCore/StringUtils.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>
#include <unordered_map>

namespace kelvor
{

namespace
{

constexpr double DEG = M_PI / 180.0;

// What a warning calls an item of each series, in the order of ScenarioReader::Series:
// "replaces the colour of line 12".
const char* const SERIES_ITEM[] = {"the point", "the range",        "the width", "the offset", "the style",
                                   "the on/off state", "the state", "the colour", "the target"};

std::string missing(const char* field) { return std::string("missing field: expected ") + field; }

bool isValidUtf8(std::string_view text)
{
  std::size_t i = 0;
  while (i < text.size())
  {
    const auto c = static_cast<unsigned char>(text[i]);
    int follow = c < 0x80 ? 0 : (c >> 5) == 0x6 ? 1 : (c >> 4) == 0xE ? 2 : (c >> 3) == 0x1E ? 3 : -1;
    if (follow < 0 || c == 0)
      return false;
    ++i;
    for (int k = 0; k < follow; ++k, ++i)
      if (i >= text.size() || (static_cast<unsigned char>(text[i]) >> 6) != 0x2)
        return false;
  }
  return true;
}

// Whether the optional three values starting at i are present: all given, all "-", or none.
enum class Group
{
  ABSENT,
  PRESENT,
  BROKEN
};

Group groupAt(const std::vector<std::string>& t, std::size_t i)
{
  if (t.size() <= i)
    return Group::ABSENT;
  if (t.size() < i + 3)
    return Group::BROKEN;
  const int dashes = (t[i] == "-") + (t[i + 1] == "-") + (t[i + 2] == "-");
  return dashes == 3 ? Group::ABSENT : (dashes == 0 ? Group::PRESENT : Group::BROKEN);
}

} // namespace

ScenarioReader::ScenarioReader(ScenarioStore& store) : ScenarioReader(store, Options{false}) {}

ScenarioReader::ScenarioReader(ScenarioStore& store, Options options) : store_(store), options_(options) {}

ReadReport ScenarioReader::readFile(const std::string& path)
{
  std::ifstream in(path, std::ios::binary);
  if (!in)
    return ReadReport::unopened(path);
  return read(in, path);
}

ReadReport ScenarioReader::readText(const std::string& text, const std::string& name)
{
  std::istringstream in(text);
  return read(in, name);
}

ReadReport ScenarioReader::read(std::istream& in, const std::string& name)
{
  name_ = name;
  report_ = ReadReport();
  std::string line;
  while (std::getline(in, line))
  {
    ++lineNumber_;
    readLine_(line);
    if (notAScenario_)
      break;
  }
  report_.lines = lineNumber_;
  if (!headerSeen_ && !notAScenario_)
    report_.errors.push_back(name_ + ":" + std::to_string(std::max<std::size_t>(lineNumber_, 1)) +
                             ": empty file: no 'kelvor-scenario 1' line");
  report_.noteRepeats(name_);
  ReadReport result = report_;
  finish_(result);
  return result;
}

bool ScenarioReader::finish_(ReadReport& report)
{
  const bool refused = !headerSeen_ || notAScenario_ || (options_.strict && !report.errors.empty());
  if (refused)
  {
    report.loaded = false;
    return false;
  }
  staged_.autoConfigureClock();
  store_.replaceWith(staged_);
  report.loaded = true;
  return true;
}

void ScenarioReader::readLine_(std::string_view line)
{
  std::string error;
  if (!isValidUtf8(line) && !headerSeen_)
  {
    notAScenario_ = true;
    error = "not a scenario file: binary or not UTF-8 text";
  }
  else if (!isValidUtf8(line))
    error = "not UTF-8 text";
  else if (!LineTokenizer::split(line, tokens_, quoted_, error))
    ;
  else if (tokens_.empty())
    return;
  else
    error = headerSeen_ ? command_(tokens_) : header_(tokens_);
  if (error.empty())
    return;
  report_.errors.push_back(name_ + ":" + std::to_string(lineNumber_) + ": " + error);
}

std::string ScenarioReader::header_(const Tokens& t)
{
  if (kelCore::caseCompare(t[0], "kelvor-scenario") != 0)
  {
    notAScenario_ = true;
    return "not a scenario file: the first line must be 'kelvor-scenario 1'";
  }
  if (t.size() < 2 || t[1] != "1")
  {
    notAScenario_ = true;
    return "unknown scenario file version '" + (t.size() > 1 ? t[1] : std::string()) + "'; this reads version 1";
  }
  headerSeen_ = true;
  staged_.editProperties().initialized = true;
  return t.size() > 2 ? "unexpected text after the version" : std::string();
}

std::string ScenarioReader::command_(const Tokens& t)
{
  using Handler = std::string (ScenarioReader::*)(const Tokens&);
  static const std::unordered_map<std::string, Handler> HANDLERS = {
    {"kelvor-scenario", nullptr},
    {"reference-year", &ScenarioReader::referenceYear_},
    {"origin", &ScenarioReader::origin_},
    {"tangent-plane", &ScenarioReader::tangentPlane_},
    {"description", &ScenarioReader::description_},
    {"classification", &ScenarioReader::classification_},
    {"wind", &ScenarioReader::wind_},
    {"coordinate-frame", &ScenarioReader::coordinateFrame_},
    {"positions", &ScenarioReader::positions_},
    {"angles", &ScenarioReader::angles_},
    {"platform", &ScenarioReader::platform_},
    {"point", &ScenarioReader::point_},
    {"beam", &ScenarioReader::beam_},
    {"beam-point", &ScenarioReader::beamPoint_},
    {"gate", &ScenarioReader::gate_},
    {"gate-point", &ScenarioReader::gatePoint_},
    {"laser", &ScenarioReader::laser_},
    {"laser-point", &ScenarioReader::laserPoint_},
    {"laser-range", &ScenarioReader::laserValue_},
    {"laser-width", &ScenarioReader::laserValue_},
    {"laser-offset", &ScenarioReader::laserOffset_},
    {"lob", &ScenarioReader::lob_},
    {"lob-point", &ScenarioReader::lobPoint_},
    {"lob-style", &ScenarioReader::lobStyle_},
    {"projector", &ScenarioReader::projector_},
    {"projector-fov", &ScenarioReader::projectorFov_},
    {"projector-state", &ScenarioReader::projectorState_},
    {"custom", &ScenarioReader::custom_},
    {"alias", &ScenarioReader::alias_},
    {"original-id", &ScenarioReader::originalId_},
    {"state", &ScenarioReader::state_},
    {"color", &ScenarioReader::color_},
    {"target", &ScenarioReader::target_},
    {"generic", &ScenarioReader::generic_},
    {"category", &ScenarioReader::category_},
    {"table", &ScenarioReader::table_},
    {"column", &ScenarioReader::column_},
    {"row", &ScenarioReader::row_},
    {"gog", &ScenarioReader::gog_},
    {"rule", &ScenarioReader::rule_},
    {"draw-flag", &ScenarioReader::drawFlag_},
  };
  std::string keyword = t[0];
  for (char& c : keyword)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  auto it = HANDLERS.find(keyword);
  if (it == HANDLERS.end())
    return "unknown command '" + t[0] + "'";
  if (!it->second)
    return "a second 'kelvor-scenario' line";
  return (this->*it->second)(t);
}

// Fields.

std::string ScenarioReader::number_(const Tokens& t, std::size_t i, const char* field, double& value) const
{
  if (i >= t.size())
    return missing(field);
  if (!NumberText::parse(t[i], value))
    return "bad number '" + t[i] + "' for " + field;
  return std::string();
}

std::string ScenarioReader::angle_(const Tokens& t, std::size_t i, const char* field, double& value) const
{
  std::string error = number_(t, i, field, value);
  if (error.empty() && degrees_)
    value *= DEG;
  return error;
}

std::string ScenarioReader::time_(const Tokens& t, std::size_t i, double& value) const
{
  if (i >= t.size())
    return missing("TIME");
  // A time before the reference year is negative; only -1 itself stands for a static value.
  if (!NumberText::parse(t[i], value) || !std::isfinite(value))
    return "bad time '" + t[i] + "': seconds since the reference year, or -1 for a static value";
  return std::string();
}

std::string ScenarioReader::integer_(const Tokens& t, std::size_t i, const char* field, std::int64_t& value) const
{
  if (i >= t.size())
    return missing(field);
  if (!NumberText::parse(t[i], value))
    return "bad integer '" + t[i] + "' for " + field;
  return std::string();
}

std::string ScenarioReader::color_(const Tokens& t, std::size_t i, unsigned int& value) const
{
  if (i >= t.size())
    return missing("COLOUR");
  if (!NumberText::parseColor(t[i], value))
    return "bad colour '" + t[i] + "': expected 0xRRGGBBAA";
  return std::string();
}

std::string ScenarioReader::text_(const Tokens& t, std::size_t i, const char* field, std::string& value) const
{
  if (i >= t.size())
    return missing(field);
  value = t[i];
  return std::string();
}

std::string ScenarioReader::entity_(const Tokens& t, std::size_t i, int kinds, Entity*& entity)
{
  FileEntity* file = nullptr;
  return entity_(t, i, kinds, entity, file);
}

std::string ScenarioReader::entity_(const Tokens& t, std::size_t i, int kinds, Entity*& entity, FileEntity*& file)
{
  std::int64_t fileId = 0;
  if (std::string error = integer_(t, i, "ID", fileId); !error.empty())
    return error;
  auto it = entities_.find(fileId);
  if (it == entities_.end())
    return "unknown entity id " + t[i];
  if ((it->second.kind & kinds) == 0)
    return "entity " + t[i] + " is a " + ScenarioVocabulary::kindName(it->second.kind) + ", not a " +
           ScenarioVocabulary::kindNames(kinds);
  entity = staged_.editEntity(it->second.id);
  file = &it->second;
  return std::string();
}

template <typename T>
void ScenarioReader::place_(FileEntity& file, Series series, TimeSeries<T>& items, const T& item)
{
  static_assert(std::size(SERIES_ITEM) == GENERIC, "generic and category data are placed by placeKeyed_");
  placer_.place(items, file.lines[series], item, lineNumber_, SERIES_ITEM[series]);
}

// Generic and category data are kept by time, then by tag or name: one item of a key at a time.
template <typename T, typename Key>
void ScenarioReader::placeKeyed_(FileEntity& file, Series series, std::vector<T>& items, const T& item, Key key,
                                 const char* what)
{
  auto it = std::lower_bound(items.begin(), items.end(), item, [&key](const T& a, const T& b) {
    return a.time < b.time || (a.time == b.time && key(a) < key(b));
  });
  const bool replaced = it != items.end() && it->time == item.time && key(*it) == key(item);
  const std::size_t earlierLine =
      file.lines[series].place(static_cast<std::size_t>(it - items.begin()), replaced, lineNumber_);
  if (!replaced)
    items.insert(it, item);
  else
  {
    report_.noteReplacement(name_, lineNumber_, earlierLine, what + (" " + LineTokenizer::quote(key(item))), item.time,
                            sameRecord(*it, item));
    *it = item;
  }
}

std::string ScenarioReader::newEntity_(const EntityHeader& header, UniqueID_t host, std::int64_t fileId)
{
  if (fileId <= 0)
    return "bad id " + std::to_string(fileId) + ": ids are positive integers";
  if (entities_.count(fileId))
    return "duplicate id " + std::to_string(fileId);
  EntityHeader withId = header;
  std::visit([fileId](auto& h) { h.originalId = static_cast<UniqueID_t>(fileId); }, withId);
  const UniqueID_t id = staged_.createEntity(withId, host);
  if (!id)
    return "a " + ScenarioVocabulary::kindName(kindOfHeader(header)) + " cannot belong to that host";
  entities_[fileId] = FileEntity{id, kindOfHeader(header)};
  ++report_.entities;
  return std::string();
}

// Scenario-wide commands.

std::string ScenarioReader::referenceYear_(const Tokens& t)
{
  std::int64_t year = 0;
  if (std::string error = integer_(t, 1, "YEAR", year); !error.empty())
    return error;
  if (year < 1 || year > 9999)
    return "bad year " + t[1];
  staged_.editProperties().referenceYear = static_cast<int>(year);
  return std::string();
}

std::string ScenarioReader::origin_(const Tokens& t)
{
  double lat = 0, lon = 0, alt = 0;
  for (auto error : {angle_(t, 1, "LAT", lat), angle_(t, 2, "LON", lon), number_(t, 3, "ALT", alt)})
    if (!error.empty())
      return error;
  auto& p = staged_.editProperties();
  p.latOrigin = lat;
  p.lonOrigin = lon;
  p.altOrigin = alt;
  converter_.setReferenceOrigin(lat, lon, alt);
  return std::string();
}

std::string ScenarioReader::tangentPlane_(const Tokens& t)
{
  double x = 0, y = 0, angle = 0;
  for (auto error : {number_(t, 1, "X", x), number_(t, 2, "Y", y), angle_(t, 3, "ANGLE", angle)})
    if (!error.empty())
      return error;
  auto& p = staged_.editProperties();
  p.tangentPlaneX = x;
  p.tangentPlaneY = y;
  p.tangentPlaneAngle = angle;
  converter_.setTangentPlaneOffsets(x, y, angle);
  return std::string();
}

std::string ScenarioReader::description_(const Tokens& t)
{
  return text_(t, 1, "TEXT", staged_.editProperties().description);
}

std::string ScenarioReader::classification_(const Tokens& t)
{
  std::string text;
  unsigned int color = 0;
  for (auto error : {text_(t, 1, "TEXT", text), color_(t, 2, color)})
    if (!error.empty())
      return error;
  staged_.editProperties().classification = text;
  staged_.editProperties().classificationColor = color;
  return std::string();
}

std::string ScenarioReader::wind_(const Tokens& t)
{
  double speed = 0, direction = 0;
  for (auto error : {number_(t, 1, "SPEED", speed), angle_(t, 2, "DIRECTION", direction)})
    if (!error.empty())
      return error;
  staged_.editProperties().windSpeed = speed;
  staged_.editProperties().windDirection = direction;
  return std::string();
}

std::string ScenarioReader::coordinateFrame_(const Tokens& t)
{
  int system = 0;
  if (t.size() < 2 || !ScenarioVocabulary::piSystem(t[1], system))
    return t.size() < 2 ? missing("SYSTEM") : "unknown coordinate system '" + t[1] + "'";
  double eciTime = 0.0;
  if (t.size() > 2)
    if (std::string error = number_(t, 2, "ECI_TIME", eciTime); !error.empty())
      return error;
  staged_.editProperties().frame.coordinateSystem = static_cast<PICoordSystem_t>(system);
  staged_.editProperties().frame.eciReferenceTime = eciTime;
  return std::string();
}

std::string ScenarioReader::positions_(const Tokens& t)
{
  if (t.size() < 2)
    return missing("SYSTEM");
  if (!ScenarioVocabulary::positionSystem(t[1], positionSystem_))
    return "unknown position system '" + t[1] + "': expected LLA, ECEF, NED, NWU, ENU, XEAST or GTP";
  return std::string();
}

std::string ScenarioReader::angles_(const Tokens& t)
{
  if (t.size() < 2)
    return missing("degrees|radians");
  if (kelCore::caseCompare(t[1], "degrees") == 0)
    degrees_ = true;
  else if (kelCore::caseCompare(t[1], "radians") == 0)
    degrees_ = false;
  else
    return "unknown angle unit '" + t[1] + "': expected degrees or radians";
  return std::string();
}

// Entities.

std::string ScenarioReader::platform_(const Tokens& t)
{
  std::int64_t id = 0;
  PIData::PIPlatformHeader header;
  for (auto error : {integer_(t, 1, "ID", id), text_(t, 2, "NAME", header.name)})
    if (!error.empty())
      return error;
  for (std::size_t i = 3; i < t.size(); i += 2)
  {
    if (kelCore::caseCompare(t[i], "icon") != 0)
      return "unknown platform option '" + t[i] + "'";
    if (std::string error = text_(t, i + 1, "FILE", header.iconFile); !error.empty())
      return error;
  }
  return newEntity_(header, 0, id);
}

std::string ScenarioReader::point_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  double time = 0;
  double p[3] = {0, 0, 0};
  if (std::string error = entity_(t, 1, PI_PLATFORM_TYPE, e, f); !error.empty())
    return error;
  if (std::string error = time_(t, 2, time); !error.empty())
    return error;
  const bool lla = positionSystem_ == kelCore::CoordinateSystem::LLA;
  const char* names[3] = {lla ? "LAT" : "P1", lla ? "LON" : "P2", lla ? "ALT" : "P3"};
  for (int k = 0; k < 3; ++k)
  {
    std::string error = (lla && k < 2) ? angle_(t, 3 + k, names[k], p[k]) : number_(t, 3 + k, names[k], p[k]);
    if (!error.empty())
      return error;
  }
  if (t.size() > 12)
    return "too many fields: a point has at most 12";
  kelCore::Coordinate in(positionSystem_, {p[0], p[1], p[2]}, time < 0 ? 0.0 : std::max(0.0, time - staged_.properties().frame.eciReferenceTime));
  const Group orientation = groupAt(t, 6);
  const Group velocity = groupAt(t, 9);
  if (orientation == Group::BROKEN || velocity == Group::BROKEN)
    return "missing field: orientation and velocity come as three values each, or three '-'";
  if (orientation == Group::PRESENT)
  {
    double a[3];
    for (int k = 0; k < 3; ++k)
      if (std::string error = angle_(t, 6 + k, k == 0 ? "YAW" : (k == 1 ? "PITCH" : "ROLL"), a[k]); !error.empty())
        return error;
    in.setOrientation({a[0], a[1], a[2]});
  }
  if (velocity == Group::PRESENT)
  {
    double v[3];
    for (int k = 0; k < 3; ++k)
      if (std::string error = number_(t, 9 + k, "VELOCITY", v[k]); !error.empty())
        return error;
    in.setVelocity({v[0], v[1], v[2]});
  }
  kelCore::Coordinate out = in;
  if (!lla)
    converter_.convert(in, out, kelCore::CoordinateSystem::LLA);
  StoredPlatformPoint s;
  s.time = time;
  s.lat = out.position().x;
  s.lon = out.position().y;
  s.alt = out.position().z;
  if (out.hasOrientation())
    s.yaw = out.orientation().x, s.pitch = out.orientation().y, s.roll = out.orientation().z;
  if (out.hasVelocity())
    s.velEast = out.velocity().x, s.velNorth = out.velocity().y, s.velUp = out.velocity().z;
  place_(*f, POINTS, e->platformPoints, s);
  return std::string();
}

std::string ScenarioReader::beam_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PIBeamHeader header;
  for (auto error : {integer_(t, 1, "ID", id), entity_(t, 2, PI_PLATFORM_TYPE, host), text_(t, 3, "NAME", header.name)})
    if (!error.empty())
      return error;
  if (t.size() < 5)
    return missing("unknown|target|absolute|body");
  if (!ScenarioVocabulary::beamType(t[4], header.beamType))
    return "unknown beam type '" + t[4] + "'";
  for (std::size_t i = 5; i < t.size(); i += 2)
  {
    double* field = nullptr;
    if (kelCore::caseCompare(t[i], "hbw") == 0)
      field = &header.horizontalBeamWidth;
    else if (kelCore::caseCompare(t[i], "vbw") == 0)
      field = &header.verticalBeamWidth;
    else if (kelCore::caseCompare(t[i], "azoffset") == 0)
      field = &header.azimuthOffset;
    else if (kelCore::caseCompare(t[i], "eloffset") == 0)
      field = &header.elevationOffset;
    else
      return "unknown beam option '" + t[i] + "'";
    if (std::string error = angle_(t, i + 1, t[i].c_str(), *field); !error.empty())
      return error;
  }
  return newEntity_(header, host->id, id);
}

std::string ScenarioReader::beamPoint_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PIBeamPoint p;
  for (auto error : {entity_(t, 1, PI_BEAM_TYPE, e, f), time_(t, 2, p.time), angle_(t, 3, "AZ", p.azimuth),
                     angle_(t, 4, "EL", p.elevation), number_(t, 5, "LENGTH", p.length)})
    if (!error.empty())
      return error;
  place_(*f, POINTS, e->beamPoints, p);
  return std::string();
}

std::string ScenarioReader::gate_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PIGateHeader header;
  for (auto error : {integer_(t, 1, "ID", id), entity_(t, 2, PI_BEAM_TYPE, host), text_(t, 3, "NAME", header.name)})
    if (!error.empty())
      return error;
  if (t.size() < 5)
    return missing("absolute|target|body");
  if (!ScenarioVocabulary::gateType(t[4], header.gateType))
    return "unknown gate type '" + t[4] + "'";
  return newEntity_(header, host->id, id);
}

std::string ScenarioReader::gatePoint_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PIGatePoint p;
  for (auto error : {entity_(t, 1, PI_GATE_TYPE, e, f), time_(t, 2, p.time), angle_(t, 3, "AZ", p.azimuth),
                     angle_(t, 4, "EL", p.elevation), angle_(t, 5, "WIDTH", p.width), angle_(t, 6, "HEIGHT", p.height),
                     number_(t, 7, "MINRANGE", p.minRange), number_(t, 8, "MAXRANGE", p.maxRange),
                     number_(t, 9, "CENTROID", p.centroid)})
    if (!error.empty())
      return error;
  place_(*f, POINTS, e->gatePoints, p);
  return std::string();
}

std::string ScenarioReader::laser_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PILaserHeader header;
  for (auto error : {integer_(t, 1, "ID", id), entity_(t, 2, PI_PLATFORM_TYPE, host), text_(t, 3, "NAME", header.name)})
    if (!error.empty())
      return error;
  if (t.size() > 4)
  {
    if (kelCore::caseCompare(t[4], "relative") != 0)
      return "unknown laser option '" + t[4] + "'";
    header.relative = true;
  }
  return newEntity_(header, host->id, id);
}

std::string ScenarioReader::laserPoint_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PILaserPoint p;
  for (auto error : {entity_(t, 1, PI_LASER_TYPE, e, f), time_(t, 2, p.time), angle_(t, 3, "AZ", p.azimuth),
                     angle_(t, 4, "EL", p.elevation), angle_(t, 5, "ROLL", p.roll)})
    if (!error.empty())
      return error;
  place_(*f, POINTS, e->laserPoints, p);
  return std::string();
}

std::string ScenarioReader::laserValue_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  double time = 0, value = 0;
  const bool range = kelCore::caseCompare(t[0], "laser-range") == 0;
  for (auto error : {entity_(t, 1, PI_LASER_TYPE, e, f), time_(t, 2, time), number_(t, 3, range ? "RANGE" : "WIDTH", value)})
    if (!error.empty())
      return error;
  if (range)
    place_(*f, LASER_RANGES, e->laserMaxRange, {time, value});
  else if (value != std::floor(value))
    return "bad integer '" + t[3] + "' for WIDTH";
  else
    place_(*f, LASER_WIDTHS, e->laserWidths, {time, static_cast<int>(value)});
  return std::string();
}

std::string ScenarioReader::laserOffset_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PILaserOffset o;
  for (auto error : {entity_(t, 1, PI_LASER_TYPE, e, f), time_(t, 2, o.time), number_(t, 3, "X", o.x),
                     number_(t, 4, "Y", o.y), number_(t, 5, "Z", o.z)})
    if (!error.empty())
      return error;
  place_(*f, LASER_OFFSETS, e->laserOffsets, o);
  return std::string();
}

std::string ScenarioReader::lob_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PILobHeader header;
  for (auto error : {integer_(t, 1, "ID", id), entity_(t, 2, PI_PLATFORM_TYPE, host), text_(t, 3, "NAME", header.name)})
    if (!error.empty())
      return error;
  if (t.size() < 5)
    return missing("absolute|relative");
  if (!ScenarioVocabulary::lobType(t[4], header.lobType))
    return "unknown LOB type '" + t[4] + "'";
  return newEntity_(header, host->id, id);
}

std::string ScenarioReader::lobPoint_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PILobPoint p;
  for (auto error : {entity_(t, 1, PI_LOB_GROUP_TYPE, e, f), time_(t, 2, p.time), angle_(t, 3, "AZ", p.azimuth),
                     angle_(t, 4, "EL", p.elevation), number_(t, 5, "LENGTH", p.length)})
    if (!error.empty())
      return error;
  place_(*f, POINTS, e->lobPoints, p);
  return std::string();
}

std::string ScenarioReader::lobStyle_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PILobDrawStyle s;
  std::int64_t stipple1 = 0, stipple2 = 0, width = 0;
  for (auto error : {entity_(t, 1, PI_LOB_GROUP_TYPE, e, f), time_(t, 2, s.time), color_(t, 3, s.color1),
                     color_(t, 4, s.color2), integer_(t, 5, "STIPPLE1", stipple1), integer_(t, 6, "STIPPLE2", stipple2),
                     integer_(t, 7, "WIDTH", width)})
    if (!error.empty())
      return error;
  if (stipple1 < 0 || stipple1 > 0xFFFF || stipple2 < 0 || stipple2 > 0xFFFF)
    return "bad stipple: expected 0 to 65535";
  s.stipple1 = static_cast<std::uint16_t>(stipple1);
  s.stipple2 = static_cast<std::uint16_t>(stipple2);
  s.pixelWidth = static_cast<std::int32_t>(width);
  place_(*f, LOB_STYLES, e->lobDrawStyles, s);
  return std::string();
}

std::string ScenarioReader::projector_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PIProjectorHeader header;
  for (auto error : {integer_(t, 1, "ID", id), entity_(t, 2, PI_PLATFORM_TYPE | PI_BEAM_TYPE, host),
                     text_(t, 3, "NAME", header.name)})
    if (!error.empty())
      return error;
  return newEntity_(header, host->id, id);
}

std::string ScenarioReader::projectorFov_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PIProjectorPoint p;
  for (auto error : {entity_(t, 1, PI_PROJECTOR_TYPE, e, f), time_(t, 2, p.time), angle_(t, 3, "FOV", p.fieldOfView)})
    if (!error.empty())
      return error;
  place_(*f, POINTS, e->projectorFov, p);
  return std::string();
}

std::string ScenarioReader::projectorState_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  double time = 0;
  bool on = false;
  for (auto error : {entity_(t, 1, PI_PROJECTOR_TYPE, e, f), time_(t, 2, time)})
    if (!error.empty())
      return error;
  if (t.size() < 4 || !ScenarioVocabulary::onOff(t[3], on))
    return t.size() < 4 ? missing("on|off") : "expected on or off, not '" + t[3] + "'";
  place_(*f, PROJECTOR_STATES, e->projectorOnOff, {time, on ? 1 : 0});
  return std::string();
}

std::string ScenarioReader::custom_(const Tokens& t)
{
  std::int64_t id = 0;
  Entity* host = nullptr;
  PIData::PICustomRenderingHeader header;
  // HOST 0 is the scenario itself: the rendering stands alone.
  const bool standsAlone = t.size() > 2 && t[2] == "0";
  for (auto error : {integer_(t, 1, "ID", id),
                     standsAlone ? std::string() : entity_(t, 2, PI_PLATFORM_TYPE | PI_BEAM_TYPE, host),
                     text_(t, 3, "NAME", header.name), text_(t, 4, "RENDERER", header.renderer)})
    if (!error.empty())
      return error;
  return newEntity_(header, host ? host->id : 0, id);
}

std::string ScenarioReader::alias_(const Tokens& t)
{
  Entity* e = nullptr;
  std::string alias;
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e), text_(t, 2, "ALIAS", alias)})
    if (!error.empty())
      return error;
  e->alias = alias;
  e->useAlias = t.size() > 3 && kelCore::caseCompare(t[3], "shown") == 0;
  return std::string();
}

// The key ties an entity's lines together; an original id given apart is the entity's own.
std::string ScenarioReader::originalId_(const Tokens& t)
{
  Entity* e = nullptr;
  std::uint64_t original = 0;
  if (std::string error = entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e); !error.empty())
    return error;
  if (t.size() < 3)
    return missing("ORIGINAL_ID");
  if (!NumberText::parse(t[2], original))
    return "bad original id '" + t[2] + "': expected 0 to 18446744073709551615";
  if (!originalIdsGiven_.insert(e->id).second)
    return "a second original id for entity " + t[1];
  std::visit([original](auto& h) { h.originalId = original; }, e->header);
  return std::string();
}

// Commands and attributes.

std::string ScenarioReader::state_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  double time = 0;
  bool on = false;
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e, f), time_(t, 2, time)})
    if (!error.empty())
      return error;
  if (t.size() < 4 || !ScenarioVocabulary::onOff(t[3], on))
    return t.size() < 4 ? missing("on|off") : "expected on or off, not '" + t[3] + "'";
  place_(*f, STATES, e->states, {time, on ? 1 : 0});
  return std::string();
}

std::string ScenarioReader::color_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  double time = 0;
  unsigned int color = 0;
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e, f), time_(t, 2, time), color_(t, 3, color)})
    if (!error.empty())
      return error;
  place_(*f, COLORS, e->colors, {time, color});
  return std::string();
}

std::string ScenarioReader::target_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  Entity* targeted = nullptr;
  double time = 0;
  // Target 0 is "no target from then on".
  const bool none = t.size() > 3 && t[3] == "0";
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e, f), time_(t, 2, time),
                     none ? std::string() : entity_(t, 3, ScenarioVocabulary::ANY_ENTITY, targeted)})
    if (!error.empty())
      return error;
  place_(*f, TARGETS, e->targets, {time, targeted ? targeted->id : UniqueID_t(0)});
  return std::string();
}

std::string ScenarioReader::generic_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PIGenericDataPoint g;
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e, f), time_(t, 2, g.time), text_(t, 3, "TAG", g.tag),
                     text_(t, 4, "VALUE", g.value)})
    if (!error.empty())
      return error;
  if (t.size() > 5)
    if (std::string error = number_(t, 5, "EXPIRATION", g.expiration); !error.empty())
      return error;
  placeKeyed_(*f, GENERIC, e->generic, g, [](const auto& item) -> const std::string& { return item.tag; },
              "the generic data");
  return std::string();
}

std::string ScenarioReader::category_(const Tokens& t)
{
  Entity* e = nullptr;
  FileEntity* f = nullptr;
  PIData::PICategoryDataPoint c;
  for (auto error : {entity_(t, 1, ScenarioVocabulary::ANY_ENTITY, e, f), time_(t, 2, c.time), text_(t, 3, "NAME", c.name),
                     text_(t, 4, "VALUE", c.value)})
    if (!error.empty())
      return error;
  placeKeyed_(*f, CATEGORIES, e->categories, c, [](const auto& item) -> const std::string& { return item.name; },
              "the category");
  return std::string();
}

// Data tables.

std::string ScenarioReader::table_(const Tokens& t)
{
  std::int64_t tableId = 0;
  Entity* e = nullptr;
  std::string name;
  for (auto error : {integer_(t, 1, "TABLE_ID", tableId), entity_(t, 2, ScenarioVocabulary::ANY_ENTITY, e),
                     text_(t, 3, "NAME", name)})
    if (!error.empty())
      return error;
  if (tables_.count(tableId))
    return "duplicate table id " + t[1];
  tables_[tableId] = FileTable{staged_.addTable(e->id, name), {}, {}};
  return std::string();
}

std::string ScenarioReader::column_(const Tokens& t)
{
  std::int64_t tableId = 0;
  std::string name;
  for (auto error : {integer_(t, 1, "TABLE_ID", tableId), text_(t, 2, "NAME", name)})
    if (!error.empty())
      return error;
  auto it = tables_.find(tableId);
  if (it == tables_.end())
    return "unknown table id " + t[1];
  UTILS::VariableType_t type = UTILS::VT_UNKNOWN;
  if (t.size() < 4 || !ScenarioVocabulary::storageType(t[3], type))
    return t.size() < 4 ? missing("TYPE") : "unknown column type '" + t[3] + "'";
  std::int64_t units = 0;
  if (t.size() > 4)
    if (std::string error = integer_(t, 4, "UNITS", units); !error.empty())
      return error;
  it->second.columns.push_back(
      staged_.editTable(it->second.id)->addColumn(name, type, static_cast<UTILS::UnitType_t>(units)));
  return std::string();
}

std::string ScenarioReader::row_(const Tokens& t)
{
  std::int64_t tableId = 0;
  double time = 0;
  for (auto error : {integer_(t, 1, "TABLE_ID", tableId), time_(t, 2, time)})
    if (!error.empty())
      return error;
  auto it = tables_.find(tableId);
  if (it == tables_.end())
    return "unknown table id " + t[1];
  const auto& columns = it->second.columns;
  if (t.size() - 3 != columns.size())
    return "a row of table " + t[1] + " has " + std::to_string(columns.size()) + " cells, not " +
           std::to_string(t.size() - 3);
  DataTable* table = staged_.editTable(it->second.id);
  PIData::DataTableRowT row(time);
  for (std::size_t k = 0; k < columns.size(); ++k)
  {
    const std::string& cell = t[3 + k];
    if (cell == "NULL" && !quoted_[3 + k])
      continue;
    std::unique_ptr<PIData::DataTableCell> value(ScenarioVocabulary::parseCell(table->column(columns[k])->type, cell));
    if (!value)
      return "bad cell '" + cell + "' for column " + table->column(columns[k])->name;
    row.setCell(static_cast<unsigned long>(columns[k]), value.release());
  }
  // A second row at a time merges into the first: its cells replace the first's, its NULLs keep them.
  const auto held = table->rows().find(time);
  const std::string before = held == table->rows().end() ? std::string() : ScenarioVocabulary::formatCells(*table, held->second);
  if (!table->addRow(row))
    return "a row of table " + t[1] + " that its columns cannot hold";
  const auto [line, first] = it->second.rowLines.try_emplace(time, lineNumber_);
  if (!first)
  {
    // The row is named by the line that last changed it.
    const bool identical = ScenarioVocabulary::formatCells(*table, table->rows().at(time)) == before;
    report_.noteReplacement(name_, lineNumber_, line->second, "cells of the row", time, identical);
    if (!identical)
      line->second = lineNumber_;
  }
  return std::string();
}

// Overlays and display rules.

std::string ScenarioReader::gog_(const Tokens& t)
{
  std::int64_t fileId = 0;
  std::string file;
  for (auto error : {integer_(t, 1, "ID", fileId), text_(t, 2, "FILE", file)})
    if (!error.empty())
      return error;
  UniqueID_t id = 0;
  if (fileId != 0)
  {
    auto it = entities_.find(fileId);
    if (it == entities_.end())
      return "unknown entity id " + t[1];
    id = it->second.id;
  }
  staged_.attachGogFile(id, file);
  return std::string();
}

std::string ScenarioReader::rule_(const Tokens& t)
{
  std::string text;
  if (std::string error = text_(t, 1, "RULE", text); !error.empty())
    return error;
  staged_.addPreferenceRule(text);
  return std::string();
}

std::string ScenarioReader::drawFlag_(const Tokens& t)
{
  std::int64_t fileId = 0;
  std::string flag;
  for (auto error : {integer_(t, 1, "ID", fileId), text_(t, 2, "FLAG", flag)})
    if (!error.empty())
      return error;
  auto it = entities_.find(fileId);
  if (fileId != 0 && it == entities_.end())
    return "unknown entity id " + t[1];
  staged_.setDrawFlag(fileId == 0 ? 0 : it->second.id, flag, true);
  return std::string();
}

} // namespace kelvor
