#pragma once

#include "host/UniqueID.h"
#include "host/UnitType.h"
#include "host/VariableType.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace PIData
{

/// Builds a data table column by column, then makes it under an entity.
class PIDataTableCreateHelper
{
public:
  /// Thrown by create() when no column was added.
  class CreateException : public std::runtime_error
  {
  public:
    explicit CreateException(const std::string& what) : std::runtime_error(what) {}
  };

  /// Adds a column. @param name its name @param type its storage type @param units its unit
  void addColumn(const std::string& name, UTILS::VariableType_t type, UTILS::UnitType_t units = UTILS::UNITS_NONE);
  /**
   * Makes the table under entity id.
   * @param tableId receives the new table's id
   * @return 1 for success, 0 for failure, as addDataTable
   * @throw CreateException "Must addColumn() before create()" without columns
   */
  int create(UniqueID_t id, const std::string& tableName, long* tableId) const;

private:
  std::vector<std::string> names_;
  std::vector<UTILS::VariableType_t> types_;
  std::vector<UTILS::UnitType_t> units_;
};

} // namespace PIData
