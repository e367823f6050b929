#include "files/GdalTrackReader.h"

#include "files/GdalLayerReader.h"
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

/// @return the Unix second at which a year begins.
double yearStart(int year)
{
  struct tm broken = {};
  broken.tm_year = year - 1900;
  broken.tm_mday = 1;
  return static_cast<double>(CPLYMDHMSToUnixTime(&broken));
}

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
void orderPoints(GdalLayerReader::Track& track, const std::string& path, const std::vector<std::string>& layers, ReadReport& report)
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

/// Names the tracks of GPX track points, which name their track by its id, from the tracks layer's names.
void nameGpxTracks(GdalLayerReader::Tracks& tracks, const std::map<long long, std::string>& names)
{
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

/// Reads a file's layers: a GPX file's tracks (else its route, else its waypoints), any other file's every layer.
std::vector<GdalLayerReader::Summary> readLayers(GDALDataset& dataset, const std::string& path, CPLStringList& drivers,
                                                 GdalLayerReader& reader, const ReadReport& report)
{
  std::vector<GdalLayerReader::Summary> summaries;
  if (!EQUAL(dataset.GetDriver()->GetDescription(), "GPX"))
  {
    for (OGRLayer* layer : dataset.GetLayers())
    {
      summaries.push_back(reader.read(*layer));
      if (!report.errors.empty())
        break;
    }
    return summaries;
  }
  // Each layer of a GPX file is a pass over it: the track names (the tracks layer) are read on
  // a second thread, over a dataset of its own, while the track points are read here.
  std::future<std::map<long long, std::string>> trackNames =
      std::async(std::launch::async, gpxTrackNames, path, drivers.List());
  for (const char* name : {"track_points", "route_points", "waypoints"})
  {
    OGRLayer* layer = dataset.GetLayerByName(name);
    if (!layer)
      continue;
    summaries.push_back(reader.read(*layer));
    if (!reader.points().list.empty() || !report.errors.empty())
      break;
  }
  nameGpxTracks(reader.points(), trackNames.get());
  return summaries;
}

/// @return what the layers held, for a file without times or features
std::string nothingFound(const std::vector<GdalLayerReader::Summary>& summaries)
{
  std::size_t features = 0;
  std::string found;
  for (const GdalLayerReader::Summary& s : summaries)
  {
    features += s.features;
    found += (found.empty() ? "" : "; ") + s.describe();
  }
  const std::string layerCount = std::to_string(summaries.size()) + (summaries.size() == 1 ? " layer: " : " layers: ");
  return (features ? "no times: " : "no features: ") + layerCount + (found.empty() ? "none" : found);
}

/// Takes a track's times from Unix seconds to seconds since the reference year. @return false, after saying why, for a time before it
bool toScenarioTimes(GdalLayerReader::Track& track, int year, const std::vector<std::string>& layers,
                     const std::string& path, ReadReport& report)
{
  const double start = yearStart(year);
  const auto since = [&](double unix) {
    const double t = unix - start;
    return track.millis ? std::round(t * 1000.0) / 1000.0 : t;
  };
  for (std::size_t i = 0; i < track.points.size(); ++i)
  {
    StoredPlatformPoint& p = track.points[i];
    // A feature without a time is a static point; a time before the year cannot be one.
    const bool timed = p.time != GdalLayerReader::NO_TIME;
    p.time = timed ? since(p.time) : -1.0;
    if (timed && p.time < 0.0)
    {
      report.errors.push_back(path + ":" + layers[track.layers[i]] + ":feature " + std::to_string(track.features[i]) +
                              ": time before the reference year " + std::to_string(year));
      return false;
    }
  }
  for (PIData::PIGenericDataPoint& g : track.generic)
    g.time = g.time == GdalLayerReader::NO_TIME ? -1.0 : since(g.time);
  return true;
}

/// Makes a track's platform in the staging store, its generic data in time and tag order.
void stagePlatform(GdalLayerReader::Track& track, ScenarioStore& staged)
{
  std::stable_sort(track.generic.begin(), track.generic.end(),
                   [](const auto& a, const auto& b) { return a.time < b.time || (a.time == b.time && a.tag < b.tag); });
  PIData::PIPlatformHeader header;
  header.name = track.name;
  header.originalId = staged.entityCount() + 1;
  const UniqueID_t id = staged.createEntity(header, 0);
  Entity& entity = *staged.editEntity(id);
  entity.platformPoints.insertMany(std::move(track.points));
  entity.generic = std::move(track.generic);
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
    return fail("not a track file of the formats read here (GPX, KML, GeoJSON, TopoJSON, GeoPackage, shapefile, "
                "FlatGeobuf, MapInfo, FileGDB)" +
                (gdal.failed() ? ": " + gdal.firstFailure("") : std::string()));
  }

  GdalLayerReader reader(path, report);
  const std::vector<GdalLayerReader::Summary> summaries = readLayers(*dataset, path, drivers, reader, report);
  if (gdal.failed())
    return fail("cannot be read to its end: " + gdal.firstFailure(""));
  for (const GdalLayerReader::Summary& s : summaries)
    report.lines += s.features;
  if (!report.errors.empty())
    return report;
  GdalLayerReader::Tracks& tracks = reader.points().list.empty() ? reader.lines() : reader.points();
  if (tracks.list.empty())
    return fail(nothingFound(summaries));

  const int year = referenceYear_(tracks);
  ScenarioStore staged;
  for (GdalLayerReader::Track& track : tracks.list)
  {
    if (!toScenarioTimes(track, year, reader.layerNames(), path, report))
      return report;
    orderPoints(track, path, reader.layerNames(), report);
    stagePlatform(track, staged);
    ++report.entities;
  }
  report.noteRepeats(path);
  commit_(staged, year);
  report.loaded = true;
  return report;
}

int GdalTrackReader::referenceYear_(const GdalLayerReader::Tracks& tracks) const
{
  // As asked, that of the scenario the tracks join, or the year of the earliest time.
  if (options_.referenceYear != 0)
    return options_.referenceYear;
  if (!options_.replace)
    return store_.properties().referenceYear;
  double earliest = std::numeric_limits<double>::infinity();
  for (const GdalLayerReader::Track& track : tracks.list)
    for (const StoredPlatformPoint& p : track.points)
      if (p.time != GdalLayerReader::NO_TIME)
        earliest = std::min(earliest, p.time);
  struct tm broken = {};
  CPLUnixTimeToYMDHMS(static_cast<GIntBig>(std::floor(earliest)), &broken);
  return broken.tm_year + 1900;
}

void GdalTrackReader::commit_(ScenarioStore& staged, int year)
{
  if (options_.replace)
  {
    staged.editProperties().referenceYear = year;
    staged.editProperties().initialized = true;
    staged.autoConfigureClock();
    store_.replaceWith(staged);
    return;
  }
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

} // namespace kelvor
