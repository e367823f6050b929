#include "server/TableRequests.h"

#include "host/PIServerSelectors.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/TableColumnIterator.h"
#include "server/ServerState.h"
#include "store/ScenarioStore.h"

#include <string>
#include <vector>

namespace kelvor
{

namespace
{

// Writes the status slot; tables answer 1 for a successful add, find or remove.
std::int64_t status(PI_DATA_CATCHALL& r, std::int64_t value)
{
  if (r.integers.size() > 1)
    r.integers[1] = value;
  return value;
}

template <typename T>
T* out(PI_DATA_CATCHALL& r, std::size_t i)
{
  return static_cast<T*>(r.pointerAt(i));
}

} // namespace

std::int64_t TableRequests::serve(void* record)
{
  if (!record)
    return 0;
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  ScenarioStore& store = state_.store;
  const long tableId = static_cast<long>(r.integerAt(2));
  const long columnId = static_cast<long>(r.integerAt(3));
  const UniqueID_t entityId = static_cast<UniqueID_t>(r.integerAt(4));
  const std::string name = r.strings.empty() ? std::string() : r.strings[0];
  // Only the selectors that change a table take it to change; the rest read its const side.
  const int selector = static_cast<int>(r.integerAt(0));
  const bool changes = selector == PISelector::TABLE_SET_COLUMN_UNITS || selector == PISelector::TABLE_ADD_ROW ||
                       selector == PISelector::TABLE_ADD_COLUMN;
  const DataTable* table = store.table(tableId);
  DataTable* changed = changes && table ? store.editTable(tableId) : nullptr;
  const DataTable::Column* column = table ? table->column(columnId) : nullptr;
  constexpr std::int64_t OK = 0, FAILED = 1;

  switch (r.integerAt(0))
  {
  case PISelector::TABLE_ADD: {
    const auto* names = out<const std::vector<std::string>>(r, 0);
    const auto* types = out<const std::vector<UTILS::VariableType_t>>(r, 1);
    auto* newId = out<long>(r, 2);
    if (!names || !types || !newId || names->size() != types->size())
      return status(r, 0);
    const long id = store.addTable(entityId, name);
    if (!id)
      return status(r, 0);
    for (std::size_t i = 0; i < names->size(); ++i)
      store.editTable(id)->addColumn((*names)[i], (*types)[i]);
    *newId = id;
    store.dataChanged({entityId});
    return status(r, 1);
  }
  case PISelector::TABLE_FIND: {
    const Entity* e = store.entity(entityId);
    auto* found = out<long>(r, 0);
    if (!e || !found)
      return status(r, 0);
    for (long id : e->tables)
      if (store.table(id)->name() == name)
        return *found = id, status(r, 1);
    return status(r, 0);
  }
  case PISelector::TABLE_REMOVE: {
    const UniqueID_t owner = table ? table->owner() : 0;
    if (!store.removeTable(tableId))
      return status(r, 0);
    store.dataChanged({owner});
    return status(r, 1);
  }
  case PISelector::TABLE_SET_COLUMN_UNITS: {
    const auto* units = out<const std::vector<UTILS::UnitType_t>>(r, 0);
    return status(r, changed && units && changed->setColumnUnits(*units) ? OK : FAILED);
  }
  case PISelector::TABLE_ADD_ROW: {
    const auto* row = out<const PIData::DataTableRowT>(r, 0);
    if (!table || !row || !changed->addRow(*row))
      return status(r, FAILED);
    store.dataChanged({table->owner()});
    return status(r, OK);
  }
  case PISelector::TABLE_FOR_EACH_ROW: {
    auto* functor = out<PIData::PerDataTableRowFunctor>(r, 0);
    if (!table || !functor)
      return status(r, FAILED);
    const double begin = r.doubleAt(0), end = r.doubleAt(1);
    for (auto it = table->rows().lower_bound(begin); it != table->rows().end() && it->first <= end; ++it)
      if (!(*functor)(it->second))
        break;
    return status(r, OK);
  }
  case PISelector::TABLE_GET_COLUMN_NAME:
    if (!column || !out<std::string>(r, 0))
      return status(r, FAILED);
    *out<std::string>(r, 0) = column->name;
    return status(r, OK);
  case PISelector::TABLE_GET_COLUMN_UNITS:
    if (!column || !out<UTILS::UnitType_t>(r, 0))
      return status(r, FAILED);
    *out<UTILS::UnitType_t>(r, 0) = column->units;
    return status(r, OK);
  case PISelector::TABLE_GET_COLUMN_STORAGE_TYPE:
    if (!column || !out<UTILS::VariableType_t>(r, 0))
      return status(r, FAILED);
    *out<UTILS::VariableType_t>(r, 0) = column->type;
    return status(r, OK);
  case PISelector::TABLE_ADD_COLUMN: {
    auto* newColumn = out<long>(r, 0);
    if (!table || !newColumn)
      return status(r, FAILED);
    *newColumn = changed->addColumn(name, static_cast<UTILS::VariableType_t>(r.integerAt(5)),
                                    static_cast<UTILS::UnitType_t>(r.integerAt(6)));
    return status(r, OK);
  }
  case PISelector::TABLE_GET_ALL_IDS: {
    const Entity* e = store.entity(entityId);
    auto* ids = out<std::vector<long>>(r, 0);
    if (!e || !ids)
      return status(r, FAILED);
    *ids = e->tables;
    return status(r, OK);
  }
  case PISelector::TABLE_GET_NAME:
    r.strings.resize(1);
    r.strings[0] = table ? table->name() : std::string();
    return status(r, table ? OK : FAILED);
  case PISelector::TABLE_GET_COLUMNS: {
    auto* ids = out<std::vector<long>>(r, 0);
    if (!table || !ids)
      return status(r, FAILED);
    ids->clear();
    for (const auto& c : table->columns())
      ids->push_back(c.id);
    return status(r, OK);
  }
  case PISelector::TABLE_GET_COLUMN_VALUE_ITERATOR: {
    auto* iterator = out<PIData::TableColumnIterator>(r, 0);
    if (!column || !iterator)
      return status(r, FAILED);
    std::vector<PIData::TableColumnIterator::Entry> entries;
    for (auto it = table->rows().lower_bound(r.doubleAt(0)); it != table->rows().end(); ++it)
      if (const PIData::DataTableCell* cell = it->second.findCell(static_cast<unsigned long>(columnId)))
        entries.push_back({it->first, std::shared_ptr<const PIData::DataTableCell>(cell->clone())});
    iterator->reset(std::move(entries));
    return status(r, OK);
  }
  default:
    return status(r, FAILED);
  }
}

} // namespace kelvor
