#pragma once

#include "files/ReadReport.h"
#include "host/PIGenericDataPoint.h"
#include "store/StoredPlatformPoint.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

class OGRCoordinateTransformation;
class OGRFeature;
class OGRGeometry;
class OGRLayer;
class OGRPoint;
class OGRSpatialReference;

namespace kelvor
{

/**
 * @brief Reads the layers of one vector file, through GDAL, into tracks of points (point layers
 * with a time field) and tracks of lines (line layers whose vertices carry times). Positions
 * come out in WGS 84 (radians), altitudes in metres, times in Unix seconds (NO_TIME for a
 * feature without one). Every feature that cannot be read is an error of the report, as
 * "file:layer:feature N: reason".
 */
class GdalLayerReader
{
public:
  /// The time of a point whose feature has none: a static point.
  static constexpr double NO_TIME = -std::numeric_limits<double>::infinity();

  /// One platform to be: its points and generic data with times in Unix seconds, until the reference year is known.
  struct Track
  {
    std::string name;
    bool millis = false;                          ///< times from date-times: exact to the millisecond
    std::vector<StoredPlatformPoint> points;
    std::vector<std::size_t> features;            ///< the feature of each point, from 1
    std::vector<std::uint32_t> layers;            ///< the layer of each point, an index into layerNames()
    std::vector<PIData::PIGenericDataPoint> generic;
    std::map<std::string, std::string> lastValue; ///< each tag's value as last kept
  };

  /// Tracks by what tells them apart (an id, a name), in the order they appear.
  struct Tracks
  {
    std::vector<Track> list;
    std::vector<std::string> keys;
    std::map<std::string, std::size_t> byKey;

    /// @return the track of that key, made with that name when it is new
    Track& find(const std::string& key, const std::string& name);
    /// Adds the points and data of other's tracks to the tracks of the same keys; other is left empty.
    void take(Tracks& other);
  };

  /// What one layer held, for the message of a file without times.
  struct Summary
  {
    std::string name;
    std::size_t features = 0;
    std::size_t points = 0, timedPoints = 0;
    std::size_t lines = 0, vertices = 0, timedLines = 0;
    bool timeField = false;

    /// @return "'NAME' 3 points, none with a time" and the like
    std::string describe() const;
  };

  /// @param path the file, for messages @param report takes the errors
  GdalLayerReader(const std::string& path, ReadReport& report);
  ~GdalLayerReader();

  /// Reads every feature of a layer; its tracks are kept when some feature has a time.
  Summary read(OGRLayer& layer);

  /// @return the tracks of the point layers read so far
  Tracks& points() { return points_; }
  /// @return the tracks of the line layers read so far
  Tracks& lines() { return lines_; }
  /// @return the names of the layers read, in order: what Track::layers indexes.
  const std::vector<std::string>& layerNames() const { return layerNames_; }

private:
  /// The roles of a layer's fields, found by name once a layer.
  struct Fields;

  void fail_(const std::string& layer, std::size_t feature, const std::string& reason);
  /// @return false when the layer's reference system cannot be taken to WGS 84
  static bool toWgs84_(const OGRSpatialReference* from, std::unique_ptr<OGRCoordinateTransformation>& transform);
  /// @return false, after saying why, for a vertex (x, y in the layer's system) that cannot be taken to WGS 84
  bool place_(OGRCoordinateTransformation* transform, double x, double y, StoredPlatformPoint& p,
              const std::string& layer, std::size_t number);
  /**
   * Reads the first time field set. @param seconds receives Unix seconds, NO_TIME when none is set
   * @return false, after saying why, for a time that cannot be read
   */
  bool time_(OGRFeature& feature, const Fields& fields, double& seconds, bool& millis, const std::string& layer,
             std::size_t number);
  /// Keeps a feature's generic fields whose value changed since the track's last.
  static void generic_(OGRFeature& feature, const Fields& fields, double time, Track& track);
  /// @return the feature's track: by its id, else its name; a line without either is a track, a point the layer's
  static Track& trackOf_(OGRFeature& feature, const Fields& fields, const std::string& layer, std::size_t number,
                         bool line, Tracks& tracks);
  /// @return 1 when the point has a time, else 0
  std::size_t readPoint_(OGRFeature& feature, const OGRPoint& point, const Fields& fields,
                         OGRCoordinateTransformation* transform, const std::string& layer, std::size_t number,
                         Tracks& tracks);
  /// @return 1 when every vertex of the line has a time, else 0
  std::size_t readLine_(OGRFeature& feature, const OGRGeometry& geometry, const Fields& fields,
                        OGRCoordinateTransformation* transform, Summary& summary, std::size_t number, Tracks& tracks);

  const std::string& path_;
  ReadReport& report_;
  Tracks points_, lines_;
  std::vector<std::string> layerNames_;
  std::uint32_t layerIndex_ = 0;
};

} // namespace kelvor
