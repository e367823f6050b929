#pragma once

#include <cstdint>
#include <vector>

namespace QtSep
{

class DataSource;

/**
 * @brief Moves a whole scenario in time: a new reference year and a new start, every
 * time-stamped value of every entity shifted with them (points, child series, category data,
 * generic data, data tables). Static values (-1) stay. The edits go through the point editor's
 * data sources, so each kind of data is rewritten as the editor's Apply rewrites it.
 */
class AdjustScenarioTimes
{
public:
  /**
   * Sets the reference year and shifts every value by the distance from the clock's begin to
   * the new start. With the year alone changed and the start's seconds kept, values keep their
   * seconds: the scenario is relabelled.
   * @param referenceYear the new reference year
   * @param startSeconds the new start, seconds since the start of the new reference year
   * @return the entities shifted
   */
  std::vector<std::uint64_t> execute(int referenceYear, double startSeconds);

  /**
   * Maps every time-stamped value of one entity through time x multiplication + addition.
   * @param id the entity @param multiplication a factor of the times @param addition seconds added
   */
  static void adjustEntityTime(std::uint64_t id, double multiplication, double addition);

private:
  /**
   * Maps the times of a loaded source's rows, and applies it when any changed.
   * @param writeAlways apply even when no row moved (the source's data were flushed meanwhile)
   */
  static void adjustDataSourceTime_(DataSource& source, double multiplication, double addition,
                                    bool writeAlways = false);
  /// Maps a platform's points, colours, states and targets.
  static void adjustPlatformCommands_(std::uint64_t id, DataSource& points, double multiplication, double addition);
};

} // namespace QtSep
