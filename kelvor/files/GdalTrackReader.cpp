#include "files/GdalTrackReader.h"

#include "files/GdalScope.h"
#include "files/NumberText.h"
#include "files/SameRecord.h"

#include <cpl_string.h>
#include <cpl_time.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <limits>
#include <map>
#include <memory>
#include <numeric>

namespace kelvor
{

namespace
{

constexpr double DEG = M_PI / 180.0;
/// The time of a point whose feature has none: a static point.
constexpr double NO_TIME = -std::numeric_limits<double>::infinity();

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

/// @return the Unix second at which a year begins.
double yearStart(int year)
{
  struct tm broken = {};
  broken.tm_year = year - 1900;
  broken.tm_mday = 1;
  return static_cast<double>(CPLYMDHMSToUnixTime(&broken));
}

/// The roles of a layer's fields, found by name once a layer.
struct Fields
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

/// One platform to be: its points and generic data with times in Unix seconds, until the reference year is known.
struct Track
{
  std::string name;
  bool millis = false;                       ///< times from date-times: exact to the millisecond
  std::vector<StoredPlatformPoint> points;
  std::vector<std::size_t> features;         ///< the feature of each point, from 1
  std::vector<std::uint32_t> layers;         ///< the layer of each point, an index into the file's layer names
  std::vector<PIData::PIGenericDataPoint> generic;
  std::map<std::string, std::string> lastValue; ///< each tag's value as last kept
};

/// Tracks by what tells them apart (an id, a name), in the order they appear.
struct Tracks
{
  std::vector<Track> list;
  std::vector<std::string> keys;
  std::map<std::string, std::size_t> byKey;

  /// @param name the track's name, when it is new
  Track& find(const std::string& key, const std::string& name)
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

  void take(Tracks& other)
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
};

/// What one layer held, for the message of a file without times.
struct LayerSummary
{
  std::string name;
  std::size_t features = 0;
  std::size_t points = 0, timedPoints = 0;
  std::size_t lines = 0, vertices = 0, timedLines = 0;
  bool timeField = false;

  std::string describe() const
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
};

/// Reads the layers of one file into tracks of points and tracks of lines.
class LayerReader
{
public:
  LayerReader(const std::string& path, ReadReport& report) : path_(path), report_(report) {}

  /// Reads every feature of a layer; its tracks are kept when some feature has a time.
  LayerSummary read(OGRLayer& layer)
  {
    LayerSummary summary;
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

  Tracks& points() { return points_; }
  Tracks& lines() { return lines_; }
  /// @return the names of the layers read, in order: what Track::layers indexes.
  const std::vector<std::string>& layerNames() const { return layerNames_; }

private:
  void fail_(const std::string& layer, std::size_t feature, const std::string& reason)
  {
    report_.errors.push_back(path_ + ":" + layer + (feature ? ":feature " + std::to_string(feature) : "") + ": " + reason);
  }

  /// @return false when the layer's reference system cannot be taken to WGS 84
  static bool toWgs84_(const OGRSpatialReference* from, std::unique_ptr<OGRCoordinateTransformation>& transform)
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

  /// @return false, after saying why, for a vertex that cannot be taken to WGS 84
  bool place_(OGRCoordinateTransformation* transform, double x, double y, StoredPlatformPoint& p,
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

  /**
   * Reads the first time field set. @param seconds receives Unix seconds, NO_TIME when none is set
   * @return false, after saying why, for a time that cannot be read
   */
  bool time_(OGRFeature& feature, const Fields& fields, double& seconds, bool& millis, const std::string& layer,
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
        return true;
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

  /// Keeps a feature's generic fields whose value changed since the track's last.
  static void generic_(OGRFeature& feature, const Fields& fields, double time, Track& track)
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

  /// @return the feature's track: by its id, else its name; a line without either is a track, a point the layer's
  static Track& trackOf_(OGRFeature& feature, const Fields& fields, const std::string& layer, std::size_t number,
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

  /// @return 1 when the point has a time, else 0
  std::size_t readPoint_(OGRFeature& feature, const OGRPoint& point, const Fields& fields,
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

  /// @return 1 when every vertex of the line has a time, else 0
  std::size_t readLine_(OGRFeature& feature, const OGRGeometry& geometry, const Fields& fields,
                        OGRCoordinateTransformation* transform, LayerSummary& summary, std::size_t number,
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
        if (!std::isfinite(times[vertex]))
        {
          fail_(summary.name, number, "vertex " + std::to_string(vertex + 1) + " has no time");
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

  const std::string& path_;
  ReadReport& report_;
  Tracks points_, lines_;
  std::vector<std::string> layerNames_;
  std::uint32_t layerIndex_ = 0;
};

/// @return the name of each GPX track by its id (the track points' track_fid); none when the file cannot be read.
std::map<long long, std::string> gpxTrackNames(const std::string& path, char** drivers)
{
  GdalScope gdal;
  std::map<long long, std::string> names;
  GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers, nullptr, nullptr));
  OGRLayer* tracks = dataset ? dataset->GetLayerByName("tracks") : nullptr;
  if (!tracks)
    return names;
  const int name = tracks->GetLayerDefn()->GetFieldIndex("name");
  if (name < 0)
    return names;
  // Only the names: the tracks' vertices are read again with their times from the track points.
  tracks->SetIgnoredFields(std::vector<const char*>{"OGR_GEOMETRY", nullptr}.data());
  for (OGRFeatureUniquePtr f(tracks->GetNextFeature()); f; f.reset(tracks->GetNextFeature()))
    if (f->IsFieldSetAndNotNull(name))
      names[f->GetFID()] = f->GetFieldAsString(name);
  return names;
}

/// Puts the points of one track into time order, noting the points that take another's time.
void orderPoints(Track& track, const std::string& path, const std::vector<std::string>& layers, ReadReport& report)
{
  auto& points = track.points;
  const auto earlier = [&](std::size_t a, std::size_t b) { return points[a].time < points[b].time; };
  std::vector<std::size_t> order(points.size());
  std::iota(order.begin(), order.end(), 0);
  if (!std::is_sorted(points.begin(), points.end(),
                      [](const StoredPlatformPoint& a, const StoredPlatformPoint& b) { return a.time < b.time; }))
    std::stable_sort(order.begin(), order.end(), earlier);
  for (std::size_t i = 1; i < order.size(); ++i)
  {
    const StoredPlatformPoint& before = points[order[i - 1]];
    const StoredPlatformPoint& now = points[order[i]];
    if (before.time != now.time)
      continue;
    if (sameRecord(before, now))
    {
      ++report.repeats;
      continue;
    }
    ++report.replaced;
    report.warnings.push_back(path + ":" + layers[track.layers[order[i]]] + ":feature " + std::to_string(track.features[order[i]]) +
                              ": replaces the point of feature " + std::to_string(track.features[order[i - 1]]) +
                              " at time " + NumberText::format(now.time));
  }
}

} // namespace

GdalTrackReader::GdalTrackReader(ScenarioStore& store) : GdalTrackReader(store, Options{}) {}

GdalTrackReader::GdalTrackReader(ScenarioStore& store, Options options) : store_(store), options_(std::move(options)) {}

const std::vector<std::string>& GdalTrackReader::trackDrivers()
{
  static const std::vector<std::string> names{"GPX",     "KML",        "LIBKML",         "GeoJSON",
                                              "GeoJSONSeq", "TopoJSON", "GPKG",          "ESRI Shapefile",
                                              "FlatGeobuf", "MapInfo File", "OpenFileGDB"};
  return names;
}

std::vector<std::string> GdalTrackReader::fileFilters()
{
  GdalScope gdal;
  std::vector<std::string> filters;
  for (const std::string& name : trackDrivers())
  {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(name.c_str());
    const char* extensions = driver ? driver->GetMetadataItem(GDAL_DMD_EXTENSIONS) : nullptr;
    if (!extensions || !*extensions)
      continue;
    const CPLStringList list(CSLTokenizeString(extensions));
    std::string patterns;
    for (int e = 0; e < list.size(); ++e)
      patterns += std::string(patterns.empty() ? "" : " ") + "*." + list[e];
    const char* longName = driver->GetMetadataItem(GDAL_DMD_LONGNAME);
    filters.push_back(std::string(longName ? longName : driver->GetDescription()) + " (" + patterns + ")");
  }
  std::sort(filters.begin(), filters.end());
  return filters;
}

ReadReport GdalTrackReader::readFile(const std::string& path)
{
  ReadReport report;
  GdalScope gdal;
  const auto fail = [&](const std::string& reason) {
    report.errors.push_back(path + ": " + reason);
    return report;
  };
  CPLStringList drivers;
  for (const std::string& driver : options_.drivers.empty() ? trackDrivers() : options_.drivers)
    drivers.AddString(driver.c_str());
  GDALDatasetUniquePtr dataset(
      GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers.List(), nullptr, nullptr));
  if (!dataset)
  {
    VSIStatBufL stat;
    if (VSIStatL(path.c_str(), &stat) != 0)
      return ReadReport::unopened(path);
    return fail("not a vector file GDAL reads" + (gdal.failed() ? ": " + gdal.firstFailure("") : std::string()));
  }

  LayerReader reader(path, report);
  std::vector<LayerSummary> summaries;
  std::map<long long, std::string> names;
  const bool gpx = EQUAL(dataset->GetDriver()->GetDescription(), "GPX");
  if (gpx)
  {
    // Each layer of a GPX file is a pass over it: the track names (the tracks layer) are read on
    // a second thread, over a dataset of its own, while the track points are read here.
    std::future<std::map<long long, std::string>> trackNames =
        std::async(std::launch::async, gpxTrackNames, path, drivers.List());
    // A GPX file's tracks, else its route, else its waypoints.
    for (const char* name : {"track_points", "route_points", "waypoints"})
    {
      OGRLayer* layer = dataset->GetLayerByName(name);
      if (!layer)
        continue;
      summaries.push_back(reader.read(*layer));
      if (!reader.points().list.empty() || !report.errors.empty())
        break;
    }
    names = trackNames.get();
  }
  else
  {
    for (OGRLayer* layer : dataset->GetLayers())
    {
      summaries.push_back(reader.read(*layer));
      if (!report.errors.empty())
        break;
    }
  }
  if (gdal.failed())
    return fail("cannot be read to its end: " + gdal.firstFailure(""));
  for (const LayerSummary& s : summaries)
    report.lines += s.features;
  if (!report.errors.empty())
    return report;

  Tracks& tracks = reader.points().list.empty() ? reader.lines() : reader.points();
  if (tracks.list.empty())
  {
    std::size_t features = 0;
    for (const LayerSummary& s : summaries)
      features += s.features;
    std::string found;
    for (const LayerSummary& s : summaries)
      found += (found.empty() ? "" : "; ") + s.describe();
    const std::string layerCount =
        std::to_string(summaries.size()) + (summaries.size() == 1 ? " layer: " : " layers: ");
    return fail((features ? "no times: " : "no features: ") + layerCount + (found.empty() ? "none" : found));
  }
  if (gpx)
  {
    // GPX track points name their track by its id; the tracks layer holds the names.
    const std::string prefix = "track_points\x1f";
    for (std::size_t t = 0; t < tracks.list.size(); ++t)
    {
      if (tracks.keys[t].rfind(prefix, 0) != 0)
        continue;
      const auto named = names.find(std::atoll(tracks.keys[t].c_str() + prefix.size()));
      if (named != names.end() && !named->second.empty())
        tracks.list[t].name = named->second;
    }
  }

  // The reference year: as asked, that of the scenario joined, or the year of the earliest time.
  int year = options_.referenceYear != 0 ? options_.referenceYear : (options_.replace ? 0 : store_.properties().referenceYear);
  if (year == 0)
  {
    double earliest = std::numeric_limits<double>::infinity();
    for (const Track& track : tracks.list)
      for (const StoredPlatformPoint& p : track.points)
        if (p.time != NO_TIME)
          earliest = std::min(earliest, p.time);
    struct tm broken = {};
    CPLUnixTimeToYMDHMS(static_cast<GIntBig>(std::floor(earliest)), &broken);
    year = broken.tm_year + 1900;
  }
  const double start = yearStart(year);
  ScenarioStore staged;
  for (Track& track : tracks.list)
  {
    const auto since = [&](double unix) {
      if (unix == NO_TIME)
        return -1.0;
      const double t = unix - start;
      return track.millis ? std::round(t * 1000.0) / 1000.0 : t;
    };
    for (std::size_t i = 0; i < track.points.size(); ++i)
    {
      StoredPlatformPoint& p = track.points[i];
      p.time = since(p.time);
      if (p.time < 0.0 && p.time != -1.0)
      {
        report.errors.push_back(path + ":" + reader.layerNames()[track.layers[i]] + ":feature " + std::to_string(track.features[i]) +
                                ": time before the reference year " + std::to_string(year));
        return report;
      }
    }
    for (PIData::PIGenericDataPoint& g : track.generic)
      g.time = since(g.time);
    orderPoints(track, path, reader.layerNames(), report);
    std::stable_sort(track.generic.begin(), track.generic.end(), [](const auto& a, const auto& b) {
      return a.time < b.time || (a.time == b.time && a.tag < b.tag);
    });
    PIData::PIPlatformHeader header;
    header.name = track.name;
    header.originalId = staged.entityCount() + 1;
    const UniqueID_t id = staged.createEntity(header, 0);
    Entity& entity = *staged.editEntity(id);
    entity.platformPoints.insertMany(std::move(track.points));
    entity.generic = std::move(track.generic);
    ++report.entities;
  }
  report.noteRepeats(path);

  if (options_.replace)
  {
    staged.editProperties().referenceYear = year;
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
      Entity& to = *store_.editEntity(id);
      to.platformPoints = from.platformPoints;
      to.generic = from.generic;
    }
    store_.scenarioReset();
  }
  report.loaded = true;
  return report;
}

} // namespace kelvor
