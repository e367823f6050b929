#include "files/GdalLayerReader.h"

#include "files/NumberText.h"

#include <cpl_time.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>

namespace kelvor
{

namespace
{

constexpr double DEG = M_PI / 180.0;

const char* const TIME_FIELDS[] = {"time", "timestamp", "when", "datetime"};
/// Fields that tell a feature's track apart: an id, else a name.
const char* const ID_FIELDS[] = {"track_id", "track_fid", "route_fid"};
const char* const NAME_FIELDS[] = {"track_name", "track", "platform", "name"};
const char* const ALTITUDE_FIELDS[] = {"ele", "alt", "altitude", "elevation"};
const char* const MOTION_FIELDS[] = {"yaw", "pitch", "roll", "ve", "vn", "vu"};
/// GPX's structure fields and KML's display fields: they describe the file, not the platform.
const char* const PASSED_OVER[] = {"track_fid",  "track_seg_id", "track_seg_point_id", "route_fid", "route_point_id",
                                   "altitudemode", "tessellate", "extrude",           "visibility", "draworder",
                                   "icon",         "snippet",     "begin",             "end",        "times"};

/// The latest Unix second taken, about the year 5000: beyond it times are no times a track holds.
constexpr double LATEST_SECONDS = 1e11;

/// @return whether a number read as Unix seconds can be a track's time
bool plausibleSeconds(double seconds)
{
  return std::isfinite(seconds) && std::fabs(seconds) <= LATEST_SECONDS;
}

std::string lower(std::string text)
{
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

template <std::size_t N>
int indexIn(const char* const (&names)[N], const std::string& name)
{
  for (std::size_t i = 0; i < N; ++i)
    if (name == names[i])
      return static_cast<int>(i);
  return -1;
}

/// @return Unix seconds of a GDAL date-time, to the millisecond; a zone other than UTC is taken off.
double unixSeconds(const OGRField& field)
{
  struct tm broken = {};
  broken.tm_year = field.Date.Year - 1900;
  broken.tm_mon = field.Date.Month - 1;
  broken.tm_mday = field.Date.Day;
  broken.tm_hour = field.Date.Hour;
  broken.tm_min = field.Date.Minute;
  double seconds = static_cast<double>(CPLYMDHMSToUnixTime(&broken));
  // 100 is UTC, each step from it a quarter of an hour east; 0 (unknown) and 1 (local) are read as UTC.
  if (field.Date.TZFlag > 1)
    seconds -= (field.Date.TZFlag - 100) * 900.0;
  return seconds + std::round(static_cast<double>(field.Date.Second) * 1000.0) / 1000.0;
}

} // namespace

struct GdalLayerReader::Fields
{
  std::vector<int> time;      ///< the time fields, in order of preference
  int trackId = -1;           ///< the field holding the track's id
  int trackName = -1;         ///< the field holding the track's name
  int altitude = -1;
  int motion[6] = {-1, -1, -1, -1, -1, -1}; ///< yaw, pitch, roll, ve, vn, vu
  int times = -1;             ///< a line's list of vertex times
  std::vector<int> generic;   ///< the fields kept as generic data

  explicit Fields(OGRFeatureDefn& definition)
  {
    const int count = definition.GetFieldCount();
    std::vector<std::string> names(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
      names[static_cast<std::size_t>(i)] = lower(definition.GetFieldDefn(i)->GetNameRef());
    for (const char* wanted : TIME_FIELDS)
      for (int i = 0; i < count; ++i)
        if (names[static_cast<std::size_t>(i)] == wanted)
          time.push_back(i);
    // Else a date-time field of any name: what GIS layers use for a time.
    for (int i = 0; i < count && time.empty(); ++i)
      if (definition.GetFieldDefn(i)->GetType() == OFTDateTime && indexIn(PASSED_OVER, names[static_cast<std::size_t>(i)]) < 0)
        time.push_back(i);
    for (const char* wanted : ID_FIELDS)
      for (int i = 0; i < count && trackId < 0; ++i)
        if (names[static_cast<std::size_t>(i)] == wanted)
          trackId = i;
    for (const char* wanted : NAME_FIELDS)
      for (int i = 0; i < count && trackName < 0; ++i)
        if (names[static_cast<std::size_t>(i)] == wanted)
          trackName = i;
    for (const char* wanted : ALTITUDE_FIELDS)
      for (int i = 0; i < count && altitude < 0; ++i)
        if (names[static_cast<std::size_t>(i)] == wanted)
          altitude = i;
    for (int i = 0; i < count; ++i)
    {
      std::string name = names[static_cast<std::size_t>(i)];
      // GPX keeps fields of its own in extensions, read back with the "ogr_" prefix.
      const std::string bare = name.rfind("ogr_", 0) == 0 ? name.substr(4) : name;
      const int m = indexIn(MOTION_FIELDS, bare);
      if (m >= 0 && motion[m] < 0)
        motion[m] = i;
      else if (name == "times")
        times = i;
      else if (i != trackId && i != trackName && i != altitude && std::find(time.begin(), time.end(), i) == time.end() &&
               indexIn(PASSED_OVER, name) < 0 && indexIn(ALTITUDE_FIELDS, name) < 0 && indexIn(TIME_FIELDS, name) < 0)
        generic.push_back(i);
    }
  }
};

GdalLayerReader::Track& GdalLayerReader::Tracks::find(const std::string& key, const std::string& name)
{
  const auto found = byKey.find(key);
  if (found != byKey.end())
    return list[found->second];
  byKey.emplace(key, list.size());
  keys.push_back(key);
  list.emplace_back();
  list.back().name = name;
  return list.back();
}

void GdalLayerReader::Tracks::take(Tracks& other)
{
  for (std::size_t t = 0; t < other.list.size(); ++t)
  {
    Track& track = other.list[t];
    Track& into = find(other.keys[t], track.name);
    into.millis = into.millis || track.millis;
    into.points.insert(into.points.end(), track.points.begin(), track.points.end());
    into.features.insert(into.features.end(), track.features.begin(), track.features.end());
    into.layers.insert(into.layers.end(), track.layers.begin(), track.layers.end());
    into.generic.insert(into.generic.end(), track.generic.begin(), track.generic.end());
  }
  other = Tracks();
}

std::string GdalLayerReader::Summary::describe() const
{
  const auto plural = [](std::size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
  };
  std::string text = "'" + name + "' ";
  if (features == 0)
    return text + "is empty";
  std::vector<std::string> parts;
  if (points)
    parts.push_back(plural(points, "point", "points") +
                    (timeField ? (timedPoints ? ", " + std::to_string(timedPoints) + " with a time" : ", none with a time")
                               : " and no time field"));
  if (lines)
    parts.push_back(plural(lines, "line", "lines") + " with " + plural(vertices, "vertex", "vertices") +
                    (timedLines ? ", " + std::to_string(timedLines) + " with times" : " and no M values or times field"));
  if (features > points + lines)
    parts.push_back(plural(features - points - lines, "feature", "features") + " neither point nor line");
  for (std::size_t i = 0; i < parts.size(); ++i)
    text += (i ? "; " : "") + parts[i];
  return text;
}

GdalLayerReader::GdalLayerReader(const std::string& path, ReadReport& report) : path_(path), report_(report) {}

GdalLayerReader::~GdalLayerReader() = default;

GdalLayerReader::Summary GdalLayerReader::read(OGRLayer& layer)
{
  Summary summary;
  summary.name = layer.GetName();
  layerIndex_ = static_cast<std::uint32_t>(layerNames_.size());
  layerNames_.push_back(summary.name);
  Fields fields(*layer.GetLayerDefn());
  summary.timeField = !fields.time.empty();
  std::unique_ptr<OGRCoordinateTransformation> transform;
  if (!toWgs84_(layer.GetSpatialRef(), transform))
  {
    fail_(summary.name, 0, "cannot take its coordinates to WGS 84");
    return summary;
  }
  Tracks points, lines;
  layer.ResetReading();
  for (OGRFeatureUniquePtr feature(layer.GetNextFeature()); feature; feature.reset(layer.GetNextFeature()))
  {
    const std::size_t number = ++summary.features;
    const OGRGeometry* geometry = feature->GetGeometryRef();
    if (!geometry)
      continue;
    const OGRwkbGeometryType type = wkbFlatten(geometry->getGeometryType());
    if (type == wkbPoint)
    {
      ++summary.points;
      summary.timedPoints += readPoint_(*feature, *geometry->toPoint(), fields, transform.get(), summary.name,
                                        number, points);
    }
    else if (type == wkbLineString || type == wkbMultiLineString)
    {
      ++summary.lines;
      summary.timedLines += readLine_(*feature, *geometry, fields, transform.get(), summary, number, lines);
    }
    if (report_.errors.size() >= 20)
      break;
  }
  if (summary.timedPoints)
    points_.take(points);
  if (summary.timedLines)
    lines_.take(lines);
  return summary;
}

void GdalLayerReader::fail_(const std::string& layer, std::size_t feature, const std::string& reason)
{
  report_.errors.push_back(path_ + ":" + layer + (feature ? ":feature " + std::to_string(feature) : "") + ": " + reason);
}

bool GdalLayerReader::toWgs84_(const OGRSpatialReference* from, std::unique_ptr<OGRCoordinateTransformation>& transform)
{
  // Without a reference system, or in WGS 84 degrees, x is the longitude and y the latitude.
  if (!from || (from->IsGeographic() && std::fabs(from->GetSemiMajor() - SRS_WGS84_SEMIMAJOR) < 1e-3 &&
                std::fabs(from->GetInvFlattening() - SRS_WGS84_INVFLATTENING) < 1e-6))
    return true;
  OGRSpatialReference wgs84;
  wgs84.SetWellKnownGeogCS("WGS84");
  wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  transform.reset(OGRCreateCoordinateTransformation(from, &wgs84));
  return transform != nullptr;
}

bool GdalLayerReader::place_(OGRCoordinateTransformation* transform, double x, double y, StoredPlatformPoint& p,
            const std::string& layer, std::size_t number)
{
  if (transform && !transform->Transform(1, &x, &y))
  {
    fail_(layer, number, "cannot take its coordinates to WGS 84");
    return false;
  }
  if (!std::isfinite(x) || !std::isfinite(y) || std::fabs(y) > 90.0)
  {
    fail_(layer, number, "bad position " + NumberText::format(y) + ", " + NumberText::format(x));
    return false;
  }
  p.lat = y * DEG;
  p.lon = x * DEG;
  return true;
}

bool GdalLayerReader::time_(OGRFeature& feature, const Fields& fields, double& seconds, bool& millis, const std::string& layer,
           std::size_t number)
{
  seconds = NO_TIME;
  for (int i : fields.time)
  {
    if (!feature.IsFieldSetAndNotNull(i))
      continue;
    const OGRFieldType type = feature.GetFieldDefnRef(i)->GetType();
    if (type == OFTInteger || type == OFTInteger64 || type == OFTReal)
    {
      seconds = feature.GetFieldAsDouble(i);
      millis = false;
      if (plausibleSeconds(seconds))
        return true;
      fail_(layer, number, "bad time " + NumberText::format(seconds) + ": Unix seconds, within the years 1 to 5000");
      return false;
    }
    OGRField parsed;
    const OGRField* field = feature.GetRawFieldRef(i);
    if (type != OFTDateTime && type != OFTDate)
    {
      const char* text = feature.GetFieldAsString(i);
      if (!OGRParseDate(text, &parsed, 0))
      {
        fail_(layer, number, std::string("bad time '") + text + "': a date-time such as 2024-07-01T12:00:00.25Z");
        return false;
      }
      field = &parsed;
    }
    seconds = unixSeconds(*field);
    millis = true;
    return true;
  }
  return true;
}

void GdalLayerReader::generic_(OGRFeature& feature, const Fields& fields, double time, Track& track)
{
  for (int i : fields.generic)
  {
    if (!feature.IsFieldSetAndNotNull(i))
      continue;
    const std::string tag = feature.GetFieldDefnRef(i)->GetNameRef();
    std::string value = feature.GetFieldAsString(i);
    std::string& last = track.lastValue[tag];
    if (last == value && !track.generic.empty())
      continue;
    last = value;
    PIData::PIGenericDataPoint item;
    item.time = time;
    item.tag = tag;
    item.value = std::move(value);
    track.generic.push_back(std::move(item));
  }
}

GdalLayerReader::Track& GdalLayerReader::trackOf_(OGRFeature& feature, const Fields& fields, const std::string& layer, std::size_t number,
                       bool line, Tracks& tracks)
{
  const bool named = fields.trackName >= 0 && feature.IsFieldSetAndNotNull(fields.trackName);
  const std::string name = named ? feature.GetFieldAsString(fields.trackName) : std::string();
  if (fields.trackId >= 0 && feature.IsFieldSetAndNotNull(fields.trackId))
  {
    const std::string id = feature.GetFieldAsString(fields.trackId);
    // Ids count within their layer, as GPX's track_fid does.
    return tracks.find(layer + '\x1f' + id, named ? name : layer + " " + id);
  }
  if (named)
    return tracks.find('\x1f' + name, name);
  if (line)
    return tracks.find(layer + '\x1f' + std::to_string(number), layer + " " + std::to_string(number));
  return tracks.find(layer, layer);
}

std::size_t GdalLayerReader::readPoint_(OGRFeature& feature, const OGRPoint& point, const Fields& fields,
                       OGRCoordinateTransformation* transform, const std::string& layer, std::size_t number, Tracks& tracks)
{
  double time = NO_TIME;
  bool millis = false;
  StoredPlatformPoint p;
  if (!time_(feature, fields, time, millis, layer, number) || !place_(transform, point.getX(), point.getY(), p, layer, number))
    return 0;
  p.time = time;
  if (point.Is3D())
    p.alt = point.getZ();
  else if (fields.altitude >= 0 && feature.IsFieldSetAndNotNull(fields.altitude))
    p.alt = feature.GetFieldAsDouble(fields.altitude);
  double motion[6];
  bool has[6];
  for (int m = 0; m < 6; ++m)
  {
    has[m] = fields.motion[m] >= 0 && feature.IsFieldSetAndNotNull(fields.motion[m]);
    motion[m] = has[m] ? feature.GetFieldAsDouble(fields.motion[m]) : 0.0;
  }
  if (has[0] && has[1] && has[2])
    p.yaw = motion[0] * DEG, p.pitch = motion[1] * DEG, p.roll = motion[2] * DEG;
  if (has[3] && has[4] && has[5])
    p.velEast = motion[3], p.velNorth = motion[4], p.velUp = motion[5];
  Track& track = trackOf_(feature, fields, layer, number, false, tracks);
  track.millis = track.millis || millis;
  track.points.push_back(p);
  track.features.push_back(number);
  track.layers.push_back(layerIndex_);
  generic_(feature, fields, time, track);
  return time == NO_TIME ? 0 : 1;
}

std::size_t GdalLayerReader::readLine_(OGRFeature& feature, const OGRGeometry& geometry, const Fields& fields,
                      OGRCoordinateTransformation* transform, Summary& summary, std::size_t number,
                      Tracks& tracks)
{
  std::vector<const OGRLineString*> parts;
  if (wkbFlatten(geometry.getGeometryType()) == wkbLineString)
    parts.push_back(geometry.toLineString());
  else
    for (const OGRLineString* part : *geometry.toMultiLineString())
      parts.push_back(part);
  std::size_t vertices = 0;
  for (const OGRLineString* part : parts)
    vertices += static_cast<std::size_t>(part->getNumPoints());
  summary.vertices += vertices;
  // Vertex times: the M values, else a list of one Unix second a vertex.
  std::vector<double> times;
  if (geometry.IsMeasured())
  {
    for (const OGRLineString* part : parts)
      for (int i = 0; i < part->getNumPoints(); ++i)
        times.push_back(part->getM(i));
  }
  else if (fields.times >= 0 && feature.IsFieldSetAndNotNull(fields.times))
  {
    int count = 0;
    const OGRFieldType type = feature.GetFieldDefnRef(fields.times)->GetType();
    if (type == OFTRealList)
    {
      const double* list = feature.GetFieldAsDoubleList(fields.times, &count);
      times.assign(list, list + count);
    }
    else if (type == OFTIntegerList)
    {
      const int* list = feature.GetFieldAsIntegerList(fields.times, &count);
      times.assign(list, list + count);
    }
    else if (type == OFTInteger64List)
    {
      const GIntBig* list = feature.GetFieldAsInteger64List(fields.times, &count);
      for (int i = 0; i < count; ++i)
        times.push_back(static_cast<double>(list[i]));
    }
    if (times.size() != vertices)
    {
      fail_(summary.name, number, "times lists " + std::to_string(times.size()) + " times for " +
                                      std::to_string(vertices) + " vertices");
      return 0;
    }
  }
  if (times.empty())
    return 0;
  Track& track = trackOf_(feature, fields, summary.name, number, true, tracks);
  std::size_t vertex = 0;
  for (const OGRLineString* part : parts)
  {
    for (int i = 0; i < part->getNumPoints(); ++i, ++vertex)
    {
      StoredPlatformPoint p;
      if (!plausibleSeconds(times[vertex]))
      {
        fail_(summary.name, number, "vertex " + std::to_string(vertex + 1) + " has no time in Unix seconds");
        return 0;
      }
      if (!place_(transform, part->getX(i), part->getY(i), p, summary.name, number))
        return 0;
      p.time = times[vertex];
      p.alt = part->Is3D() ? part->getZ(i) : 0.0;
      track.points.push_back(p);
      track.features.push_back(number);
      track.layers.push_back(layerIndex_);
    }
  }
  if (!times.empty())
    generic_(feature, fields, *std::min_element(times.begin(), times.end()), track);
  return 1;
}

} // namespace kelvor
