#include "host/PIDataTableCreateHelper.h"

#include "host/PIDataTables.h"

namespace PIData
{

void PIDataTableCreateHelper::addColumn(const std::string& name, UTILS::VariableType_t type, UTILS::UnitType_t units)
{
  names_.push_back(name);
  types_.push_back(type);
  units_.push_back(units);
}

int PIDataTableCreateHelper::create(UniqueID_t id, const std::string& tableName, long* tableId) const
{
  if (names_.empty())
    throw CreateException("Must addColumn() before create()");
  long created = 0;
  if (addDataTable(id, tableName, &names_, &types_, &created) != 1)
    return 0;
  setDataTableColumnUnits(created, &units_);
  if (tableId)
    *tableId = created;
  return 1;
}

} // namespace PIData
