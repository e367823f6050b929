#pragma once

#include "store/ScenarioStore.h"

#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief Writes platforms' tracks to the files other tools read, through GDAL, by the file's
 * ending: .gpx (GPX), .kml (KML), .geojson or .json (GeoJSON), .gpkg (GeoPackage).
 *
 * Each platform is a line with a time a vertex, and each of its points a point feature with
 * fields time, alt (metres), yaw, pitch, roll (degrees), ve, vn, vu (east, north, up, m/s),
 * the platform's name in "track" and its place in the list in "track_id" (platforms may share
 * a name); a field without a value is a point without that datum:
 * - GPX: one trk a platform, named after it, whose trkpt carry ele and time, and orientation
 *   and velocity as extensions (ogr:yaw and so on) when any point has them;
 * - KML: a "tracks" folder of lines with a TimeSpan, a "points" folder of placemarks with a
 *   TimeStamp (the time field is "timestamp"); altitudes absolute;
 * - GeoJSON (one layer a file): one feature collection of the lines, each with begin, end and
 *   a "times" list of the Unix second of each vertex, and the points, written by
 *   GeoJsonTrackWriter (GDAL's own writer takes ten times as long);
 * - GeoPackage: a "tracks" layer of LineStringZM, M the Unix second of each vertex, and a
 *   "points" layer.
 * Positions are WGS 84 degrees; times are UTC date-times to the millisecond (M values and
 * times lists are Unix seconds, as precise as a double holds them). A static point has no time; a platform with fewer than
 * two timed points has no line. GdalTrackReader reads every one of these files back to the
 * same platforms and points.
 *
 * The file is written to a temporary file beside it and renamed over it once whole, so a
 * failure leaves it as it was.
 */
class GdalTrackWriter
{
public:
  explicit GdalTrackWriter(const ScenarioStore& store) : store_(store) {}

  /// @return the GDAL driver writing a path of that ending: "GPX", "LIBKML", "GeoJSON", "GPKG"; empty for another
  static std::string driverFor(const std::string& path);

  /**
   * @param platforms the platforms written, in that order
   * @param error receives "cannot write PATH: reason" when the file could not be written
   * @return false when the file could not be written; it is then unchanged
   */
  bool writeFile(const std::string& path, const std::vector<UniqueID_t>& platforms, std::string& error) const;

private:
  const ScenarioStore& store_;
};

} // namespace kelvor
