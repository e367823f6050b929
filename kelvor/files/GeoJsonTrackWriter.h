#pragma once

#include "store/ScenarioStore.h"

#include <ostream>
#include <vector>

namespace kelvor
{

/**
 * @brief Writes platforms' tracks as one GeoJSON feature collection named "tracks", the
 * layout GdalTrackWriter describes: a LineString a platform (track_id, name, begin, end and a
 * "times" list of each vertex's Unix second), then a Point a point (track_id, track, time,
 * alt, yaw, pitch, roll, ve, vn, vu; a field without a value is left out, a static point's
 * time is null). Longitude, latitude in WGS 84 degrees and altitude in metres; times UTC to
 * the millisecond; numbers in their shortest text that reads back to the same double.
 *
 * Our own writer rather than GDAL's: GDAL builds a JSON object of each feature and prints
 * every number with printf, twelve seconds for a million points; this streams the text in
 * under one. GDAL reads what it writes, as it reads any GeoJSON.
 */
class GeoJsonTrackWriter
{
public:
  explicit GeoJsonTrackWriter(const ScenarioStore& store) : store_(store) {}

  /// Writes the platforms, in that order; ids of other entities are passed over.
  void write(std::ostream& out, const std::vector<UniqueID_t>& platforms) const;

private:
  const ScenarioStore& store_;
};

} // namespace kelvor
