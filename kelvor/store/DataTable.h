#pragma once

#include "host/DataTableRowT.h"
#include "host/UniqueID.h"
#include "host/UnitType.h"

#include <map>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief A time-indexed table with typed columns under an entity. A row at a time already
 * held merges into it, cell by cell; a column without a cell in a row is NULL there. Cells
 * are kept in their column's storage type.
 */
class DataTable
{
public:
  struct Column
  {
    long id = 0;
    std::string name;
    UTILS::VariableType_t type = UTILS::VT_UNKNOWN;
    UTILS::UnitType_t units = UTILS::UNITS_NONE;
  };

  DataTable(long id, UniqueID_t owner, std::string name) : id_(id), owner_(owner), name_(std::move(name)) {}

  long id() const { return id_; }
  UniqueID_t owner() const { return owner_; }
  const std::string& name() const { return name_; }
  const std::vector<Column>& columns() const { return columns_; }
  const std::map<double, PIData::DataTableRowT>& rows() const { return rows_; }

  /// Adds a column. @return its id
  long addColumn(const std::string& name, UTILS::VariableType_t type, UTILS::UnitType_t units = UTILS::UNITS_NONE);
  /// @return the column of that id, or null.
  const Column* column(long id) const;
  /// Sets the units of the columns in order. @return false when there are more units than columns
  bool setColumnUnits(const std::vector<UTILS::UnitType_t>& units);
  /**
   * Merges a row in: each cell converted to its column's type.
   * @return false, adding nothing, when a cell names no column or cannot be converted
   */
  bool addRow(const PIData::DataTableRowT& row);
  /// Removes every row with a time in [begin, end].
  void removeRows(double begin, double end);
  void clearRows() { rows_.clear(); }

private:
  long id_;
  UniqueID_t owner_;
  std::string name_;
  std::vector<Column> columns_;
  long nextColumnId_ = 1;
  std::map<double, PIData::DataTableRowT> rows_;
};

/// @return a new empty cell of a storage type, null for VT_UNKNOWN.
PIData::DataTableCell* makeCell(UTILS::VariableType_t type);
/// Copies from's value into to, converting to to's type. @return 0 for success
int copyCellValue(const PIData::DataTableCell& from, PIData::DataTableCell& to);

} // namespace kelvor
