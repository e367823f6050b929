#include "host/PIData.h"
#include "support/ServerFixture.h"

#include <cmath>
#include <limits>

using namespace PIData;

namespace
{

class DataTables : public ServerFixture
{
protected:
  UniqueID_t owner()
  {
    PIPlatformHeader header;
    PIPlatformPoint first;
    first.time = 0.0;
    first.position = {0, 0, 0};
    return createPlatform(&header, &first);
  }
};

// Collects copies of every row the host hands over.
class Rows : public PerDataTableRowFunctor
{
public:
  bool operator()(const DataTableRowT& row) override
  {
    rows.push_back(row);
    return rows.size() < stopAfter;
  }
  std::vector<DataTableRowT> rows;
  std::size_t stopAfter = 1000;
};

TEST_F(DataTables, EveryStorageTypeWithNullCellsComesBack)
{
  const UniqueID_t id = owner();
  const std::vector<std::string> names = {"u8", "i8", "u16", "i16", "u32", "i32", "u64", "i64", "f", "d", "s", "blob"};
  std::vector<UTILS::VariableType_t> types;
  for (int t = UTILS::VT_UINT8; t <= UTILS::VT_BLOB; ++t)
    types.push_back(static_cast<UTILS::VariableType_t>(t));
  long table = 0;
  ASSERT_EQ(1, addDataTable(id, "Telemetry", &names, &types, &table)) << "add answers 1 for success";
  std::vector<long> columns;
  ASSERT_EQ(0, getDataTableColumns(table, &columns));
  ASSERT_EQ(12u, columns.size());

  DataTableRowT full(5.0);
  full.setCellValue<std::uint8_t>(columns[0], 255);
  full.setCellValue<std::int8_t>(columns[1], -128);
  full.setCellValue<std::uint16_t>(columns[2], 65535);
  full.setCellValue<std::int16_t>(columns[3], -32768);
  full.setCellValue<std::uint32_t>(columns[4], 4000000000u);
  full.setCellValue<std::int32_t>(columns[5], -2000000000);
  full.setCellValue<std::uint64_t>(columns[6], 18000000000000000000ull);
  full.setCellValue<std::int64_t>(columns[7], -9000000000000000000ll);
  full.setCellValue<float>(columns[8], 1.5f);
  full.setCellValue<double>(columns[9], std::numeric_limits<double>::quiet_NaN());
  full.setCellValue<std::string>(columns[10], "text");
  full.setCellValue<UTILS::Blob>(columns[11], UTILS::Blob{1, 2, 3});
  ASSERT_EQ(0, addDataTableRow(table, full));
  DataTableRowT sparse(6.0);
  sparse.setCellValue<double>(columns[9], 2.25);
  ASSERT_EQ(0, addDataTableRow(table, sparse));

  Rows rows;
  forEachDataTableRow(table, 0.0, 100.0, &rows);
  ASSERT_EQ(2u, rows.rows.size());
  const DataTableRowT& a = rows.rows[0];
  std::int8_t i8 = 0;
  std::uint64_t u64 = 0;
  double d = 0.0;
  std::string s;
  UTILS::Blob blob;
  EXPECT_EQ(0, a.getCell(columns[1], i8));
  EXPECT_EQ(-128, i8);
  EXPECT_EQ(0, a.getCell(columns[6], u64));
  EXPECT_EQ(18000000000000000000ull, u64);
  EXPECT_EQ(0, a.getCell(columns[9], d));
  EXPECT_TRUE(std::isnan(d));
  EXPECT_EQ(0, a.getCell(columns[11], blob));
  EXPECT_EQ((UTILS::Blob{1, 2, 3}), blob);
  EXPECT_EQ(0, a.getCell(columns[11], s));
  EXPECT_EQ("blob", s);
  const DataTableRowT& b = rows.rows[1];
  EXPECT_EQ(1, b.getCell(columns[0], i8)) << "a cell not written is NULL";
  EXPECT_EQ(nullptr, b.findCell(columns[10]));

  UTILS::VariableType_t type = UTILS::VT_UNKNOWN;
  getDataTableColumnStorageType(table, columns[11], &type);
  EXPECT_EQ(UTILS::VT_BLOB, type);
  std::string name;
  getDataTableColumnName(table, columns[3], &name);
  EXPECT_EQ("i16", name);
}

TEST_F(DataTables, CellsConvertToTheirColumnsTypeAndRowsOfOneTimeMerge)
{
  const UniqueID_t id = owner();
  PIDataTableCreateHelper helper;
  helper.addColumn("Range", UTILS::VT_DOUBLE, UTILS::UNITS_DISTANCE);
  helper.addColumn("Count", UTILS::VT_INT32);
  long table = 0;
  ASSERT_EQ(1, helper.create(id, "Tracks", &table));
  std::vector<long> columns;
  getDataTableColumns(table, &columns);
  UTILS::UnitType_t units = UTILS::UNITS_NONE;
  getDataTableColumnUnits(table, columns[0], &units);
  EXPECT_EQ(UTILS::UNITS_DISTANCE, units);

  DataTableRowT first(1.0);
  first.setCellValue<std::string>(columns[0], "12.5"); // text into a double column
  addDataTableRow(table, first);
  DataTableRowT second(1.0);
  second.setCellValue<std::int64_t>(columns[1], 7);
  addDataTableRow(table, second);
  DataTableRowT bad(2.0);
  bad.setCellValue<std::string>(columns[1], "seven");
  EXPECT_NE(0, addDataTableRow(table, bad)) << "text that is no number is refused whole";

  Rows rows;
  forEachDataTableRow(table, 0.0, 10.0, &rows);
  ASSERT_EQ(1u, rows.rows.size());
  double range = 0;
  int count = 0;
  EXPECT_EQ(0, rows.rows[0].getCell(columns[0], range));
  EXPECT_EQ(12.5, range);
  EXPECT_EQ(0, rows.rows[0].getCell(columns[1], count));
  EXPECT_EQ(7, count);

  TableColumnIterator it;
  ASSERT_EQ(0, getDataTableColumnValueIterator(table, columns[1], 0.0, &it));
  ASSERT_TRUE(it.isValid());
  EXPECT_EQ(1.0, it.getTime());
  it.next();
  EXPECT_FALSE(it.isValid());
}

TEST_F(DataTables, FindRemoveAndTheBuilderWithoutColumns)
{
  const UniqueID_t id = owner();
  PIDataTableCreateHelper empty;
  long table = 0;
  EXPECT_THROW(
      {
        try
        {
          empty.create(id, "Nothing", &table);
        }
        catch (const PIDataTableCreateHelper::CreateException& e)
        {
          EXPECT_STREQ("Must addColumn() before create()", e.what());
          throw;
        }
      },
      PIDataTableCreateHelper::CreateException);

  PIDataTableCreateHelper helper;
  helper.addColumn("A", UTILS::VT_DOUBLE);
  helper.create(id, "Kept", &table);
  long found = 0;
  EXPECT_EQ(1, findDataTable(id, "Kept", &found));
  EXPECT_EQ(table, found);
  EXPECT_EQ(0, findDataTable(id, "Missing", &found));
  EXPECT_EQ("Kept", getDataTableName(table));
  std::vector<long> ids;
  getAllDataTableIDs(id, &ids);
  EXPECT_EQ(std::vector<long>{table}, ids);
  EXPECT_EQ(1, removeDataTable(table));
  EXPECT_EQ(0, removeDataTable(table));
  EXPECT_EQ("", getDataTableName(table));
  getAllDataTableIDs(id, &ids);
  EXPECT_TRUE(ids.empty());
}

TEST(DataTableCells, TextReadsIntoFloatsWithNamesOfNonNumbers)
{
  DataTableCellTyped<std::string> text("-infinity");
  double d = 0;
  ASSERT_EQ(0, text.getValue(d));
  EXPECT_TRUE(std::isinf(d) && d < 0);
  text.setValue(std::string("nan"));
  float f = 0;
  ASSERT_EQ(0, text.getValue(f));
  EXPECT_TRUE(std::isnan(f));
  text.setValue(std::string("300"));
  std::uint8_t small = 7;
  EXPECT_EQ(1, text.getValue(small)) << "300 does not fit 8 bits";
  EXPECT_EQ(7, small);
  DataTableCellTyped<std::int8_t> eight(65);
  std::string shown;
  eight.getValue(shown);
  EXPECT_EQ("65", shown) << "8-bit values are numbers, not characters";

  DataTableRowT row(1.0);
  row.setCellValue<double>(3, 1.0);
  DataTableRowT copy = row;
  row.setCellValue<double>(3, 2.0);
  double copied = 0;
  copy.getCell(3, copied);
  EXPECT_EQ(1.0, copied) << "a copied row owns copies of its cells";
  EXPECT_TRUE(row.removeCell(3));
  EXPECT_FALSE(row.removeCell(3));
}

} // namespace
