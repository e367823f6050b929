#pragma once

#include "files/ReadReport.h"
#include "files/RecordPlacer.h"
#include "files/SeriesLines.h"
#include "kelCore/CoordinateConverter.h"
#include "store/ScenarioStore.h"

#include <array>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief Reads KELVOR Lite's scenario files (".kls"): one command a line; see
 * docs/scenario-format.md.
 *
 * Every line that cannot be read is reported as "file:line: reason" and the rest is loaded;
 * in strict mode any such line refuses the file whole. A text that is no scenario file at all
 * is always refused whole. A refused file leaves the store as it was.
 */
class ScenarioReader
{
public:
  struct Options
  {
    bool strict = false; ///< refuse the whole file at its first bad line
  };

  /// @param store receives the scenario, replacing what it held, when the file is accepted
  explicit ScenarioReader(ScenarioStore& store);
  ScenarioReader(ScenarioStore& store, Options options);

  /// Reads a file. @return what was read and every error
  ReadReport readFile(const std::string& path);
  /// Reads a stream; name is used in error messages.
  ReadReport read(std::istream& in, const std::string& name);
  /// Reads text; name is used in error messages.
  ReadReport readText(const std::string& text, const std::string& name);

private:
  using Tokens = std::vector<std::string>;
  /// The series of an entity whose records a file may give twice at one time.
  enum Series
  {
    POINTS,
    LASER_RANGES,
    LASER_WIDTHS,
    LASER_OFFSETS,
    LOB_STYLES,
    PROJECTOR_STATES,
    STATES,
    COLORS,
    TARGETS,
    GENERIC,
    CATEGORIES,
    SERIES_COUNT
  };
  struct FileEntity
  {
    UniqueID_t id;               ///< the id in the store
    PIScenarioObjectType_t kind;
    std::array<SeriesLines, SERIES_COUNT> lines{}; ///< the lines of each series' items
  };
  struct FileTable
  {
    long id;                     ///< the id in the store
    std::vector<long> columns;   ///< store column ids in file order
    std::map<double, std::size_t> rowLines{}; ///< the line of each row's time
  };

  void readLine_(std::string_view line);
  std::string command_(const Tokens& t);
  bool finish_(ReadReport& report);

  // Values of a line; each returns an error text, empty when the field was read.
  std::string number_(const Tokens& t, std::size_t i, const char* field, double& value) const;
  std::string angle_(const Tokens& t, std::size_t i, const char* field, double& value) const;
  std::string time_(const Tokens& t, std::size_t i, double& value) const;
  std::string integer_(const Tokens& t, std::size_t i, const char* field, std::int64_t& value) const;
  std::string color_(const Tokens& t, std::size_t i, unsigned int& value) const;
  std::string text_(const Tokens& t, std::size_t i, const char* field, std::string& value) const;
  std::string entity_(const Tokens& t, std::size_t i, int kinds, Entity*& entity);
  /// As above, and file receives what the reader keeps of the entity.
  std::string entity_(const Tokens& t, std::size_t i, int kinds, Entity*& entity, FileEntity*& file);
  template <typename T>
  void place_(FileEntity& file, Series series, TimeSeries<T>& items, const T& item);
  template <typename T, typename Key>
  void placeKeyed_(FileEntity& file, Series series, std::vector<T>& items, const T& item, Key key, const char* what);
  std::string newEntity_(const EntityHeader& header, UniqueID_t host, std::int64_t fileId);

  std::string header_(const Tokens& t);
  std::string referenceYear_(const Tokens& t);
  std::string origin_(const Tokens& t);
  std::string tangentPlane_(const Tokens& t);
  std::string description_(const Tokens& t);
  std::string classification_(const Tokens& t);
  std::string wind_(const Tokens& t);
  std::string coordinateFrame_(const Tokens& t);
  std::string positions_(const Tokens& t);
  std::string angles_(const Tokens& t);
  std::string platform_(const Tokens& t);
  std::string point_(const Tokens& t);
  std::string beam_(const Tokens& t);
  std::string beamPoint_(const Tokens& t);
  std::string gate_(const Tokens& t);
  std::string gatePoint_(const Tokens& t);
  std::string laser_(const Tokens& t);
  std::string laserPoint_(const Tokens& t);
  std::string laserValue_(const Tokens& t);
  std::string laserOffset_(const Tokens& t);
  std::string lob_(const Tokens& t);
  std::string lobPoint_(const Tokens& t);
  std::string lobStyle_(const Tokens& t);
  std::string projector_(const Tokens& t);
  std::string projectorFov_(const Tokens& t);
  std::string projectorState_(const Tokens& t);
  std::string custom_(const Tokens& t);
  std::string alias_(const Tokens& t);
  std::string originalId_(const Tokens& t);
  std::string state_(const Tokens& t);
  std::string color_(const Tokens& t);
  std::string target_(const Tokens& t);
  std::string generic_(const Tokens& t);
  std::string category_(const Tokens& t);
  std::string table_(const Tokens& t);
  std::string column_(const Tokens& t);
  std::string row_(const Tokens& t);
  std::string gog_(const Tokens& t);
  std::string rule_(const Tokens& t);
  std::string drawFlag_(const Tokens& t);

  ScenarioStore& store_;
  Options options_;
  ScenarioStore staged_;
  std::string name_;
  std::size_t lineNumber_ = 0;
  bool headerSeen_ = false;
  bool notAScenario_ = false;
  ReadReport report_;
  RecordPlacer placer_{report_, name_};
  Tokens tokens_;
  std::vector<bool> quoted_;
  kelCore::CoordinateSystem positionSystem_ = kelCore::CoordinateSystem::LLA;
  bool degrees_ = true;
  kelCore::CoordinateConverter converter_;
  std::map<std::int64_t, FileEntity> entities_;
  std::map<std::int64_t, FileTable> tables_;
  std::set<UniqueID_t> originalIdsGiven_; ///< entities whose original id an original-id line gave
};

} // namespace kelvor
