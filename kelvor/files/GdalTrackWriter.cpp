#include "files/GdalTrackWriter.h"

#include "files/AtomicFile.h"
#include "files/GdalScope.h"
#include "files/GeoJsonTrackWriter.h"

#include <cpl_string.h>
#include <cpl_time.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace kelvor
{

namespace
{

constexpr double DEG = 180.0 / M_PI;

std::string endingOf(const std::string& path)
{
  const auto slash = path.find_last_of('/');
  const auto dot = path.find_last_of('.');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
    return std::string();
  std::string ending = path.substr(dot);
  for (char& c : ending)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending;
}

/// Times of one scenario as GDAL takes them.
class Clock
{
public:
  explicit Clock(int referenceYear)
  {
    struct tm broken = {};
    broken.tm_year = referenceYear - 1900;
    broken.tm_mday = 1;
    start_ = CPLYMDHMSToUnixTime(&broken);
  }

  /// @param seconds since the reference year @return the Unix second, with its fraction
  double unix(double seconds) const { return static_cast<double>(start_) + seconds; }

  /// Sets a date-time field to a time, UTC, to the millisecond. @param seconds since the reference year
  void set(OGRFeature& feature, int field, double seconds) const
  {
    const long long millis = std::llround(seconds * 1000.0);
    const long long whole = millis >= 0 ? millis / 1000 : -((-millis + 999) / 1000);
    const long long day = whole >= 0 ? whole / 86400 : -((-whole + 86399) / 86400);
    if (day != day_)
    {
      // A track spends many points in one day: its date is worked out once.
      day_ = day;
      CPLUnixTimeToYMDHMS(start_ + day * 86400, &date_);
    }
    const long long inDay = whole - day * 86400;
    const float second = static_cast<float>(inDay % 60) + static_cast<float>(millis - whole * 1000) / 1000.0f;
    feature.SetField(field, date_.tm_year + 1900, date_.tm_mon + 1, date_.tm_mday, static_cast<int>(inDay / 3600),
                     static_cast<int>(inDay / 60 % 60), second, 100);
  }

private:
  GIntBig start_ = 0;
  mutable long long day_ = std::numeric_limits<long long>::min();
  mutable struct tm date_ = {};
};

/// The point fields' indexes in a layer; -1 for one the layer lacks.
struct PointFields
{
  int track = -1, id = -1, time = -1, alt = -1, motion[6] = {-1, -1, -1, -1, -1, -1}, segment = -1, mode = -1;
};

const char* const MOTION[] = {"yaw", "pitch", "roll", "ve", "vn", "vu"};

int addField(OGRLayer& layer, const char* name, OGRFieldType type)
{
  const int existing = layer.GetLayerDefn()->GetFieldIndex(name);
  if (existing >= 0)
    return existing;
  OGRFieldDefn field(name, type);
  if (layer.CreateField(&field) != OGRERR_NONE)
    return -1;
  return layer.GetLayerDefn()->GetFieldIndex(name);
}

/// @param motion false when no point has orientation or velocity: GPX then writes no extensions
PointFields pointFields(OGRLayer& layer, bool gpx, bool kml, bool motion)
{
  PointFields f;
  if (gpx)
  {
    // GPX's own track point fields: the trk, its segment, ele and time; the rest go to extensions.
    f.id = addField(layer, "track_fid", OFTInteger);
    f.segment = addField(layer, "track_seg_id", OFTInteger);
    f.track = addField(layer, "track_name", OFTString);
    f.alt = addField(layer, "ele", OFTReal);
    f.time = addField(layer, "time", OFTDateTime);
  }
  else
  {
    // Platforms may share a name: the id tells their points apart.
    f.id = addField(layer, "track_id", OFTInteger64);
    f.track = addField(layer, "track", OFTString);
    // KML's placemarks take their TimeStamp from this field.
    f.time = addField(layer, kml ? "timestamp" : "time", OFTDateTime);
    f.alt = addField(layer, "alt", OFTReal);
    if (kml)
      f.mode = addField(layer, "altitudeMode", OFTString);
  }
  for (int m = 0; m < 6 && (motion || !gpx); ++m)
    f.motion[m] = addField(layer, MOTION[m], OFTReal);
  return f;
}

bool writePoints(OGRLayer& layer, const PointFields& f, const Entity& platform, long long number, const Clock& clock,
                 bool gpx)
{
  OGRFeature feature(layer.GetLayerDefn());
  const std::string name = nameOfHeader(platform.header);
  for (const StoredPlatformPoint& p : platform.platformPoints)
  {
    feature.UnsetField(f.time);
    for (int m = 0; m < 6; ++m)
      if (f.motion[m] >= 0)
        feature.UnsetField(f.motion[m]);
    feature.SetFID(OGRNullFID);
    feature.SetField(f.id, static_cast<GIntBig>(number));
    if (gpx)
      feature.SetField(f.segment, 0);
    feature.SetField(f.track, name.c_str());
    if (p.time >= 0.0)
      clock.set(feature, f.time, p.time);
    feature.SetField(f.alt, p.alt);
    if (f.mode >= 0)
      feature.SetField(f.mode, "absolute");
    if (p.hasOrientation())
    {
      feature.SetField(f.motion[0], p.yaw * DEG);
      feature.SetField(f.motion[1], p.pitch * DEG);
      feature.SetField(f.motion[2], p.roll * DEG);
    }
    if (p.hasVelocity())
    {
      feature.SetField(f.motion[3], p.velEast);
      feature.SetField(f.motion[4], p.velNorth);
      feature.SetField(f.motion[5], p.velUp);
    }
    if (gpx)
      feature.SetGeometryDirectly(new OGRPoint(p.lon * DEG, p.lat * DEG));
    else
      feature.SetGeometryDirectly(new OGRPoint(p.lon * DEG, p.lat * DEG, p.alt));
    if (layer.CreateFeature(&feature) != OGRERR_NONE)
      return false;
  }
  return true;
}

/// Writes the platform's timed points as one line. @param measured true for M values as the vertices' Unix seconds
bool writeLine(OGRLayer& layer, const Entity& platform, long long number, const Clock& clock, bool measured, bool kml)
{
  OGRLineString* line = new OGRLineString();
  double begin = -1.0, end = -1.0;
  for (const StoredPlatformPoint& p : platform.platformPoints)
  {
    if (p.time < 0.0)
      continue;
    if (begin < 0.0)
      begin = p.time;
    end = p.time;
    if (measured)
      line->addPoint(p.lon * DEG, p.lat * DEG, p.alt, clock.unix(p.time));
    else
      line->addPoint(p.lon * DEG, p.lat * DEG, p.alt);
  }
  OGRFeature feature(layer.GetLayerDefn());
  feature.SetGeometryDirectly(line);
  if (line->getNumPoints() < 2)
    return true;
  OGRFeatureDefn& definition = *layer.GetLayerDefn();
  feature.SetField(definition.GetFieldIndex("track_id"), static_cast<GIntBig>(number));
  feature.SetField(definition.GetFieldIndex("name"), nameOfHeader(platform.header).c_str());
  clock.set(feature, definition.GetFieldIndex("begin"), begin);
  clock.set(feature, definition.GetFieldIndex("end"), end);
  if (kml)
    feature.SetField(definition.GetFieldIndex("altitudeMode"), "absolute");
  return layer.CreateFeature(&feature) == OGRERR_NONE;
}

bool lineFields(OGRLayer& layer, bool kml)
{
  return addField(layer, "track_id", OFTInteger64) >= 0 && addField(layer, "name", OFTString) >= 0 && addField(layer, "begin", OFTDateTime) >= 0 &&
         addField(layer, "end", OFTDateTime) >= 0 &&
         (!kml || addField(layer, "altitudeMode", OFTString) >= 0);
}

/// Makes the data reach the disk before the rename makes it the file.
void syncFile(const std::string& path)
{
  if (FILE* f = std::fopen(path.c_str(), "rb"))
  {
    ::fsync(fileno(f));
    std::fclose(f);
  }
}

} // namespace

std::string GdalTrackWriter::driverFor(const std::string& path)
{
  const std::string ending = endingOf(path);
  if (ending == ".gpx")
    return "GPX";
  if (ending == ".kml")
    return "LIBKML";
  if (ending == ".geojson" || ending == ".json")
    return "GeoJSON";
  if (ending == ".gpkg")
    return "GPKG";
  return std::string();
}

bool GdalTrackWriter::writeFile(const std::string& path, const std::vector<UniqueID_t>& platforms,
                                std::string& error) const
{
  const std::string driverName = driverFor(path);
  if (driverName.empty())
  {
    error = "cannot write " + path + ": its ending names no track format (.gpx, .kml, .geojson or .gpkg)";
    return false;
  }
  if (driverName == "GeoJSON")
    return AtomicFile::write(
        path, [&](std::ostream& out) { GeoJsonTrackWriter(store_).write(out, platforms); }, error);
  GdalScope gdal;
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driverName.c_str());
  if (!driver)
  {
    error = "cannot write " + path + ": this GDAL has no " + driverName + " driver";
    return false;
  }
  // The temporary file keeps the ending: some drivers choose what they write by it.
  const std::string temporary = path + ".saving" + endingOf(path);
  VSIUnlink(temporary.c_str());
  const bool gpx = driverName == "GPX", kml = driverName == "LIBKML";
  CPLStringList options;
  if (gpx)
    options.SetNameValue("GPX_USE_EXTENSIONS", "YES");
  GDALDatasetUniquePtr dataset;
  const auto failed = [&](const std::string& reason) {
    error = "cannot write " + path + ": " + gdal.firstFailure(reason);
    // Some drivers write their file as the dataset closes: it goes before the file does.
    dataset.reset();
    VSIUnlink(temporary.c_str());
    return false;
  };
  {
    dataset.reset(driver->Create(temporary.c_str(), 0, 0, 0, GDT_Unknown, options.List()));
    if (!dataset)
      return failed("cannot create " + temporary);
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const bool transaction = dataset->TestCapability(ODsCTransactions) && dataset->StartTransaction() == OGRERR_NONE;
    OGRLayer* lines = nullptr;
    OGRLayer* points = nullptr;
    if (gpx)
      points = dataset->CreateLayer("track_points", &wgs84, wkbPoint, nullptr);
    else
    {
      lines = dataset->CreateLayer("tracks", &wgs84, kml ? wkbLineString25D : wkbLineStringZM, nullptr);
      points = dataset->CreateLayer("points", &wgs84, wkbPoint25D, nullptr);
    }
    if (!points || (!gpx && !lines) || (lines && !lineFields(*lines, kml)))
      return failed("cannot make its layers");
    bool motion = false;
    for (UniqueID_t id : platforms)
      if (const Entity* platform = store_.entity(id))
        for (auto p = platform->platformPoints.begin(); p != platform->platformPoints.end() && !motion; ++p)
          motion = p->hasOrientation() || p->hasVelocity();
    const PointFields fields = pointFields(*points, gpx, kml, motion);
    if (fields.track < 0 || fields.id < 0 || fields.time < 0 || fields.alt < 0)
      return failed("cannot make its fields");
    const Clock clock(store_.properties().referenceYear);
    long long number = 0;
    for (UniqueID_t id : platforms)
    {
      const Entity* platform = store_.entity(id);
      if (!platform || platform->kind != PI_PLATFORM_TYPE)
        continue;
      if (lines && !writeLine(*lines, *platform, number, clock, !kml, kml))
        return failed("cannot write the line of " + nameOfHeader(platform->header));
      if (!writePoints(*points, fields, *platform, number++, clock, gpx))
        return failed("cannot write the points of " + nameOfHeader(platform->header));
    }
    if (transaction && dataset->CommitTransaction() != OGRERR_NONE)
      return failed("cannot finish the file");
    if (gdal.failed())
      return failed("");
  }
  dataset.reset();
  // Closing flushes what the driver held back; a failure there shows only as a reported error.
  if (gdal.failed())
    return failed("");
  syncFile(temporary);
  if (std::rename(temporary.c_str(), path.c_str()) != 0)
  {
    error = "cannot replace " + path + ": " + std::strerror(errno);
    VSIUnlink(temporary.c_str());
    return false;
  }
  return true;
}

} // namespace kelvor
