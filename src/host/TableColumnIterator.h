#pragma once

#include "host/DataTableRowT.h"

#include <memory>
#include <vector>

namespace PIData
{

/**
 * @brief Walks the values of one column of a table in time order, from the time it was
 * opened at. The host fills it with the column's non-NULL cells.
 */
class TableColumnIterator
{
public:
  /// One value of the column.
  struct Entry
  {
    double time;
    std::shared_ptr<const DataTableCell> cell;
  };

  /// @return true while the iterator stands on a value.
  bool isValid() const { return position_ < entries_.size(); }
  /// @return the time of the value stood on, seconds; -1 when not valid.
  double getTime() const { return isValid() ? entries_[position_].time : -1.0; }
  /// Reads the value stood on. @return 0 for success
  template <typename T>
  int getValue(T& value) const
  {
    return isValid() ? entries_[position_].cell->getValue(value) : 1;
  }
  /// Moves to the next value.
  void next()
  {
    if (isValid())
      ++position_;
  }

  /// Used by the host: sets the values and stands on the first.
  void reset(std::vector<Entry> entries)
  {
    entries_ = std::move(entries);
    position_ = 0;
  }

private:
  std::vector<Entry> entries_;
  std::size_t position_ = 0;
};

} // namespace PIData
