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
 * ve, vn, vu; name. Angles are degrees, altitudes metres, velocities east, north, up in m/s.
 * Rows of one name make one platform; without a name column the file is one platform named
 * after the file.
 *
 * The time column holds what the first row's time shows, and every row must hold the same:
 * - ISO 8601 date-times ("2024-07-01T12:00:00.25Z", a blank for the "T", an offset such as
 *   "+02:00" instead of the "Z", any fraction of a second), as GPS tools and GIS exports write;
 * - seconds since the Unix epoch: a number of at least 100,000,000 (March 1973);
 * - seconds since the reference year: a smaller number, or -1 for a static point.
 * With date-times and epoch seconds the reference year is the year of the first time, unless
 * the options give one; times are then seconds since its start.
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
    int referenceYear = 0; ///< the scenario's reference year; 0 for the year of the first dated time
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
