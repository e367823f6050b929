#pragma once

#include "host/DataTableCellTyped.h"

#include <utility>
#include <vector>

namespace PIData
{

/**
 * @brief One row of a data table: a time and the cells it holds, by column id. A column
 * without a cell in the row is NULL there. The row owns its cells; a copy copies them.
 */
class DataTableRowT
{
public:
  using Cells = std::vector<std::pair<unsigned long, DataTableCell*>>;

  DataTableRowT() = default;
  /// @param time seconds since the reference year
  explicit DataTableRowT(double time) : time_(time) {}
  DataTableRowT(const DataTableRowT& other) : time_(other.time_) { copyCells_(other); }
  DataTableRowT& operator=(const DataTableRowT& other)
  {
    if (this != &other)
    {
      clear();
      time_ = other.time_;
      copyCells_(other);
    }
    return *this;
  }
  DataTableRowT(DataTableRowT&& other) noexcept : time_(other.time_), cells_(std::move(other.cells_)) { other.cells_.clear(); }
  DataTableRowT& operator=(DataTableRowT&& other) noexcept
  {
    if (this != &other)
    {
      clear();
      time_ = other.time_;
      cells_ = std::move(other.cells_);
      other.cells_.clear();
    }
    return *this;
  }
  ~DataTableRowT() { clear(); }

  double time() const { return time_; }
  void setTime(double time) { time_ = time; }
  const Cells& cells() const { return cells_; }
  bool empty() const { return cells_.empty(); }

  /// @return the cell of the column, null when NULL there.
  DataTableCell* findCell(unsigned long columnId) const
  {
    for (const auto& cell : cells_)
      if (cell.first == columnId)
        return cell.second;
    return nullptr;
  }

  /// Reads the column's value as T. @return 0 for success; 1 when NULL or not convertible
  template <typename T>
  int getCell(unsigned long columnId, T& value) const
  {
    const DataTableCell* cell = findCell(columnId);
    return cell ? cell->getValue(value) : 1;
  }

  /// Sets the column's value, keeping its cell's type, or adds a cell of type T. @return 0 for success
  template <typename T>
  int setCellValue(unsigned long columnId, const T& value)
  {
    if (DataTableCell* cell = findCell(columnId))
      return cell->setValue(value);
    cells_.emplace_back(columnId, new DataTableCellTyped<T>(value));
    return 0;
  }

  /// As setCellValue, on the cells of a row. @return 0 for success
  template <typename T>
  static int setCellValueT(DataTableRowT& row, unsigned long columnId, const T& value)
  {
    return row.setCellValue(columnId, value);
  }

  /// Takes ownership of cell as the column's value, replacing any before.
  void setCell(unsigned long columnId, DataTableCell* cell)
  {
    removeCell(columnId);
    if (cell)
      cells_.emplace_back(columnId, cell);
  }

  /// Makes the column NULL in this row. @return true when it held a cell
  bool removeCell(unsigned long columnId)
  {
    for (auto it = cells_.begin(); it != cells_.end(); ++it)
    {
      if (it->first == columnId)
      {
        delete it->second;
        cells_.erase(it);
        return true;
      }
    }
    return false;
  }

  void clear()
  {
    for (auto& cell : cells_)
      delete cell.second;
    cells_.clear();
  }

private:
  void copyCells_(const DataTableRowT& other)
  {
    cells_.reserve(other.cells_.size());
    for (const auto& cell : other.cells_)
      cells_.emplace_back(cell.first, cell.second->clone());
  }

  double time_ = 0.0;
  Cells cells_;
};

/// Called by the host for each row of a table in time order; return false to stop.
class PerDataTableRowFunctor
{
public:
  virtual ~PerDataTableRowFunctor() = default;
  /// @param row a copy of the row, valid during the call @return true to go on
  virtual bool operator()(const DataTableRowT& row) = 0;
};

} // namespace PIData
