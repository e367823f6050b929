#pragma once

#include "host/DataTableRowT.h"
#include "host/TableColumnIterator.h"
#include "host/UniqueID.h"
#include "host/UnitType.h"

#include <string>
#include <vector>

/// @file Scenario access: data tables. A table and a column are named by long ids.
/// addDataTable, findDataTable and removeDataTable answer 1 for success; the rest 0.

namespace PIData
{

/**
 * Makes a table under an entity with columns of those names and storage types.
 * @param tableId receives the new table's id @return 1 for success, 0 for failure
 */
int addDataTable(UniqueID_t id, const std::string& name, const std::vector<std::string>* columnNames,
                 const std::vector<UTILS::VariableType_t>* columnTypes, long* tableId);
/// Finds a table of the entity by name. @return 1 when found (tableId set), 0 otherwise
int findDataTable(UniqueID_t id, const std::string& name, long* tableId);
/// Removes a table. @return 1 for success, 0 for failure
int removeDataTable(long tableId);
/// Sets the units of the columns, in order. @return 0 for success
int setDataTableColumnUnits(long tableId, const std::vector<UTILS::UnitType_t>* units);
/// Adds a row; its cells merge into a row of the same time. @return 0 for success
int addDataTableRow(long tableId, const DataTableRowT& row);
/// Calls functor with each row with begin <= time <= end, in time order. @return 0 for success
int forEachDataTableRow(long tableId, double begin, double end, PerDataTableRowFunctor* functor);
int getDataTableColumnName(long tableId, long columnId, std::string* name);
int getDataTableColumnUnits(long tableId, long columnId, UTILS::UnitType_t* units);
int getDataTableColumnStorageType(long tableId, long columnId, UTILS::VariableType_t* type);
/// Adds a column. @param columnId receives its id @return 0 for success
int addDataTableColumn(long tableId, long* columnId, const std::string& name, UTILS::VariableType_t type,
                       UTILS::UnitType_t units = UTILS::UNITS_NONE);
int getAllDataTableIDs(UniqueID_t id, std::vector<long>* tableIds);
/// @return the table's name, empty for an unknown id.
std::string getDataTableName(long tableId);
int getDataTableColumns(long tableId, std::vector<long>* columnIds);
/// Opens an iterator over a column's values from time on. @return 0 for success
int getDataTableColumnValueIterator(long tableId, long columnId, const double& time, TableColumnIterator* iterator);

} // namespace PIData
