#pragma once

#include "files/ReadReport.h"
#include "store/ScenarioStore.h"

#include <istream>
#include <string>

namespace kelvor
{

/**
 * @brief Reads platform tracks from CSV: a header line naming the columns, then one point a
 * line. Columns, in any order and any case: time, lat, lon, alt (required); yaw, pitch, roll;
 * ve, vn, vu; name. Angles are degrees, altitudes metres, velocities east, north, up in m/s,
 * times seconds since the reference year. Rows of one name make one platform; without a name
 * column the file is one platform named after the file.
 *
 * Bad rows are reported as "file:line: reason" and the rest is read; strict mode refuses the
 * file whole, leaving the store alone.
 */
class CsvTrackReader
{
public:
  struct Options
  {
    bool strict = false;  ///< refuse the whole file at its first bad row
    bool replace = true;  ///< true: the tracks become a new scenario; false: added to the one loaded
  };

  explicit CsvTrackReader(ScenarioStore& store);
  CsvTrackReader(ScenarioStore& store, Options options);

  ReadReport readFile(const std::string& path);
  /// @param name the file's name: in messages, and the platform's name without a name column
  ReadReport read(std::istream& in, const std::string& name);

  /// Splits one CSV line at commas; double quotes group a field ("" inside is one quote).
  static bool splitCsv(const std::string& line, std::vector<std::string>& fields);

private:
  ScenarioStore& store_;
  Options options_;
};

} // namespace kelvor
