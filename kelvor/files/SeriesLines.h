#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvor
{

/**
 * @brief The file line of each item a reader put into one series, kept in the series' order,
 * so that a record which replaces an earlier one at its time can name the earlier one's line.
 *
 * Four bytes an item while a file is read. A line number fits them: a file of 2^32 lines would
 * hold more points than the store can keep in memory.
 */
class SeriesLines
{
public:
  /**
   * Notes where a record went.
   * @param index the position the series gave the item
   * @param replaced true when the item replaced the one held at index
   * @param line the record's line, from 1
   * @return the line of the item replaced; 0 when none was
   */
  std::size_t place(std::size_t index, bool replaced, std::size_t line);
  /// Notes that a record's item went after every item held. @param line the record's line, from 1
  void append(std::size_t line) { lines_.push_back(static_cast<std::uint32_t>(line)); }

private:
  std::vector<std::uint32_t> lines_;
};

} // namespace kelvor
