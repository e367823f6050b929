#pragma once

#include "files/GdalLayerReader.h"
#include "files/ReadReport.h"
#include "store/ScenarioStore.h"

#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief Reads platform tracks from any vector file GDAL reads: GPX, KML, GeoJSON, GeoPackage,
 * shapefiles and the rest. One platform a track:
 * - point layers whose features carry a time (a date-time field named time, timestamp, when
 *   or datetime, or a field of the DateTime type; text in ISO 8601 or GDAL's own
 *   "2024/03/01 00:00:00.125+00"; numbers as Unix seconds), grouped into tracks by an id
 *   (track_id, track_fid or route_fid; ids count within their layer), else by a name (the
 *   first of track_name, track, platform or name the layer has); a layer without either is one
 *   track. A track is named by its name field, else as "LAYER ID". A GPX file gives its track
 *   points, a track for each trk (its segments joined) named after it; without track points
 *   its route points, else its waypoints.
 * - line layers (LineString, MultiLineString) whose vertices carry their time: M values in Unix
 *   seconds, or a "times" field listing one Unix second a vertex. Features of one id or name
 *   make one track; without either each feature is a track, named "LAYER N".
 * When a file holds both, as the files of GdalTrackWriter do, the point layers are read: they
 * hold orientation and velocity as well.
 *
 * Positions are taken to WGS 84 from the layer's reference system. The altitude (metres) is
 * the geometry's Z, or without one an ele, alt, altitude or elevation field. Fields yaw,
 * pitch, roll (degrees) and ve, vn, vu (east, north, up, m/s), also with GPX's "ogr_" prefix,
 * give orientation and velocity. Every other field becomes generic data of the platform, the
 * tag the field's name and the value its text, at each time the value changes; the structure
 * fields of GPX and the display fields of KML are passed over. A feature without a time in a
 * timed layer is a static point (time -1) of its track.
 *
 * Times are seconds since the reference year: the year asked for, that of a loaded scenario
 * the tracks join, or else the year of the earliest time. Date-time fields keep milliseconds.
 *
 * The read is all or nothing: a file without times, without features, that GDAL cannot open
 * or read to its end, or with one feature that cannot be read, leaves the store alone, and the
 * report says why, as "file: reason" or "file:layer:feature N: reason" (N counts from 1).
 */
class GdalTrackReader
{
public:
  struct Options
  {
    bool replace = true;               ///< true: the tracks become a new scenario; false: added to the one loaded
    int referenceYear = 0;             ///< the scenario's reference year; 0 for the year of the earliest time
    std::vector<std::string> drivers;  ///< the GDAL drivers that may open the file (short names); empty for trackDrivers()
  };

  explicit GdalTrackReader(ScenarioStore& store);
  GdalTrackReader(ScenarioStore& store, Options options);

  /// @param path a file, or a GDAL virtual path such as /vsimem/track.gpx
  ReadReport readFile(const std::string& path);

  /**
   * @return the drivers of the track files read unless others are asked for: files on disk
   * only, none that reaches a server or other files by reference (virtual layers, web
   * services, databases, schemas fetched by GML) or runs a program (GPSBabel)
   */
  static const std::vector<std::string>& trackDrivers();

  /// @return the name filters of a file dialog for the vector formats GDAL reads, "GPX (*.gpx)" and so on
  static std::vector<std::string> fileFilters();

private:
  /// @return the reference year of the tracks' scenario
  int referenceYear_(const GdalLayerReader::Tracks& tracks) const;
  /// Puts the staged platforms in the store: as a new scenario of that reference year, or added to the one loaded.
  void commit_(ScenarioStore& staged, int year);

  ScenarioStore& store_;
  Options options_;
};

} // namespace kelvor
