#include "host/PIDataTables.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

PI_DATA_CATCHALL tableRecord(int selector, long table, long column = 0, UniqueID_t entity = 0)
{
  return PIRequest::catchAll(selector, {table, column, static_cast<std::int64_t>(entity)});
}

int withPointers(PI_DATA_CATCHALL r, std::initializer_list<void*> pointers)
{
  for (void* p : pointers)
    if (!p)
      return r.integerAt(0) == PISelector::TABLE_ADD ? 0 : 1;
  r.pointers = pointers;
  return PIRequest::send(PISF_DATA_TABLE, r);
}

} // namespace

int addDataTable(UniqueID_t id, const std::string& name, const std::vector<std::string>* columnNames,
                 const std::vector<UTILS::VariableType_t>* columnTypes, long* tableId)
{
  auto r = tableRecord(PISelector::TABLE_ADD, 0, 0, id);
  r.strings = {name};
  return withPointers(r, {const_cast<std::vector<std::string>*>(columnNames),
                          const_cast<std::vector<UTILS::VariableType_t>*>(columnTypes), tableId});
}

int findDataTable(UniqueID_t id, const std::string& name, long* tableId)
{
  if (!tableId)
    return 0;
  auto r = tableRecord(PISelector::TABLE_FIND, 0, 0, id);
  r.strings = {name};
  r.pointers = {tableId};
  return PIRequest::send(PISF_DATA_TABLE, r);
}

int removeDataTable(long tableId)
{
  auto r = tableRecord(PISelector::TABLE_REMOVE, tableId);
  return PIRequest::send(PISF_DATA_TABLE, r);
}

int setDataTableColumnUnits(long tableId, const std::vector<UTILS::UnitType_t>* units)
{
  return withPointers(tableRecord(PISelector::TABLE_SET_COLUMN_UNITS, tableId),
                      {const_cast<std::vector<UTILS::UnitType_t>*>(units)});
}

int addDataTableRow(long tableId, const DataTableRowT& row)
{
  return withPointers(tableRecord(PISelector::TABLE_ADD_ROW, tableId), {const_cast<DataTableRowT*>(&row)});
}

int forEachDataTableRow(long tableId, double begin, double end, PerDataTableRowFunctor* functor)
{
  auto r = tableRecord(PISelector::TABLE_FOR_EACH_ROW, tableId);
  r.doubles = {begin, end};
  return withPointers(r, {functor});
}

int getDataTableColumnName(long tableId, long columnId, std::string* name)
{
  return withPointers(tableRecord(PISelector::TABLE_GET_COLUMN_NAME, tableId, columnId), {name});
}

int getDataTableColumnUnits(long tableId, long columnId, UTILS::UnitType_t* units)
{
  return withPointers(tableRecord(PISelector::TABLE_GET_COLUMN_UNITS, tableId, columnId), {units});
}

int getDataTableColumnStorageType(long tableId, long columnId, UTILS::VariableType_t* type)
{
  return withPointers(tableRecord(PISelector::TABLE_GET_COLUMN_STORAGE_TYPE, tableId, columnId), {type});
}

int addDataTableColumn(long tableId, long* columnId, const std::string& name, UTILS::VariableType_t type,
                       UTILS::UnitType_t units)
{
  auto r = tableRecord(PISelector::TABLE_ADD_COLUMN, tableId);
  r.integers.push_back(type);
  r.integers.push_back(units);
  r.strings = {name};
  return withPointers(r, {columnId});
}

int getAllDataTableIDs(UniqueID_t id, std::vector<long>* tableIds)
{
  return withPointers(tableRecord(PISelector::TABLE_GET_ALL_IDS, 0, 0, id), {tableIds});
}

std::string getDataTableName(long tableId)
{
  auto r = tableRecord(PISelector::TABLE_GET_NAME, tableId);
  handle(PISF_DATA_TABLE, &r);
  return r.strings.empty() ? std::string() : r.strings[0];
}

int getDataTableColumns(long tableId, std::vector<long>* columnIds)
{
  return withPointers(tableRecord(PISelector::TABLE_GET_COLUMNS, tableId), {columnIds});
}

int getDataTableColumnValueIterator(long tableId, long columnId, const double& time, TableColumnIterator* iterator)
{
  auto r = tableRecord(PISelector::TABLE_GET_COLUMN_VALUE_ITERATOR, tableId, columnId);
  r.doubles = {time};
  return withPointers(r, {iterator});
}

} // namespace PIData
