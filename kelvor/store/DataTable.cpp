#include "store/DataTable.h"

#include <memory>

namespace kelvor
{

using namespace PIData;

DataTableCell* makeCell(UTILS::VariableType_t type)
{
  switch (type)
  {
  case UTILS::VT_UINT8: return new DataTableCellTyped<std::uint8_t>();
  case UTILS::VT_INT8: return new DataTableCellTyped<std::int8_t>();
  case UTILS::VT_UINT16: return new DataTableCellTyped<std::uint16_t>();
  case UTILS::VT_INT16: return new DataTableCellTyped<std::int16_t>();
  case UTILS::VT_UINT32: return new DataTableCellTyped<std::uint32_t>();
  case UTILS::VT_INT32: return new DataTableCellTyped<std::int32_t>();
  case UTILS::VT_UINT64: return new DataTableCellTyped<std::uint64_t>();
  case UTILS::VT_INT64: return new DataTableCellTyped<std::int64_t>();
  case UTILS::VT_FLOAT: return new DataTableCellTyped<float>();
  case UTILS::VT_DOUBLE: return new DataTableCellTyped<double>();
  case UTILS::VT_STRING: return new DataTableCellTyped<std::string>();
  case UTILS::VT_BLOB: return new DataTableCellTyped<UTILS::Blob>();
  case UTILS::VT_UNKNOWN: break;
  }
  return nullptr;
}

namespace
{

template <typename T>
int copyAs(const DataTableCell& from, DataTableCell& to)
{
  T value{};
  return from.getValue(value) == 0 ? to.setValue(value) : 1;
}

} // namespace

int copyCellValue(const DataTableCell& from, DataTableCell& to)
{
  // Read the source in its own type, so nothing is lost before the target converts.
  switch (from.type())
  {
  case UTILS::VT_UINT8: return copyAs<std::uint8_t>(from, to);
  case UTILS::VT_INT8: return copyAs<std::int8_t>(from, to);
  case UTILS::VT_UINT16: return copyAs<std::uint16_t>(from, to);
  case UTILS::VT_INT16: return copyAs<std::int16_t>(from, to);
  case UTILS::VT_UINT32: return copyAs<std::uint32_t>(from, to);
  case UTILS::VT_INT32: return copyAs<std::int32_t>(from, to);
  case UTILS::VT_UINT64: return copyAs<std::uint64_t>(from, to);
  case UTILS::VT_INT64: return copyAs<std::int64_t>(from, to);
  case UTILS::VT_FLOAT: return copyAs<float>(from, to);
  case UTILS::VT_DOUBLE: return copyAs<double>(from, to);
  case UTILS::VT_STRING: return copyAs<std::string>(from, to);
  case UTILS::VT_BLOB: return copyAs<UTILS::Blob>(from, to);
  case UTILS::VT_UNKNOWN: break;
  }
  return 1;
}

long DataTable::addColumn(const std::string& name, UTILS::VariableType_t type, UTILS::UnitType_t units)
{
  columns_.push_back(Column{nextColumnId_, name, type, units});
  return nextColumnId_++;
}

const DataTable::Column* DataTable::column(long id) const
{
  for (const Column& c : columns_)
    if (c.id == id)
      return &c;
  return nullptr;
}

bool DataTable::setColumnUnits(const std::vector<UTILS::UnitType_t>& units)
{
  if (units.size() > columns_.size())
    return false;
  for (std::size_t i = 0; i < units.size(); ++i)
    columns_[i].units = units[i];
  return true;
}

bool DataTable::addRow(const DataTableRowT& row)
{
  DataTableRowT converted(row.time());
  for (const auto& [columnId, cell] : row.cells())
  {
    const Column* c = column(static_cast<long>(columnId));
    if (!c || !cell)
      return false;
    std::unique_ptr<DataTableCell> typed(makeCell(c->type));
    if (!typed || copyCellValue(*cell, *typed) != 0)
      return false;
    converted.setCell(columnId, typed.release());
  }
  auto [it, added] = rows_.emplace(row.time(), DataTableRowT(row.time()));
  (void)added;
  for (const auto& [columnId, cell] : converted.cells())
    it->second.setCell(columnId, cell->clone());
  return true;
}

void DataTable::removeRows(double begin, double end)
{
  rows_.erase(rows_.lower_bound(begin), rows_.upper_bound(end));
}

} // namespace kelvor
