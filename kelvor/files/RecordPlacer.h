#pragma once

#include "files/ReadReport.h"
#include "files/SameRecord.h"
#include "files/SeriesLines.h"
#include "store/TimeSeries.h"

#include <string>

namespace kelvor
{

/**
 * @brief Puts the records a reader reads into their series. The later of two records of one
 * series and time replaces the earlier, as the store has it, and the report says so: a warning
 * naming both lines when they differ, a count when the later repeats the earlier.
 */
class RecordPlacer
{
public:
  /// @param report receives the replacements @param file the file's name, for the warnings
  RecordPlacer(ReadReport& report, const std::string& file) : report_(report), file_(file) {}

  /**
   * @param lines the lines of series' items, kept with it
   * @param line the record's line @param what the item, as "the point", for the warning
   */
  template <typename T>
  void place(TimeSeries<T>& series, SeriesLines& lines, const T& item, std::size_t line, const char* what) const
  {
    // A recording arrives in time order: most records append, and replace nothing.
    if (series.empty() || series.back().time < item.time)
    {
      series.insert(item);
      lines.append(line);
      return;
    }
    T earlier{};
    const auto placed = series.insert(item, &earlier);
    const std::size_t earlierLine = lines.place(placed.index, placed.replaced, line);
    if (placed.replaced)
      report_.noteReplacement(file_, line, earlierLine, what, item.time, sameRecord(earlier, item));
  }

private:
  ReadReport& report_;
  const std::string& file_;
};

} // namespace kelvor
