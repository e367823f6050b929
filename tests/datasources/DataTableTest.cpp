#include "datasources/DataTableDataSource.h"
#include "datasources/EntityDataModel.h"
#include "host/PIData.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "utils/TimeString.h"

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

#include <limits>

using namespace QtSep;

namespace
{

/// A platform with a table of every storage type, NULL cells in every column, and an internal table.
class DataTables : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    PIData::PIPlatformPoint point;
    point.time = 5.0;
    point.position = {0.5, -2.0, 100.0};
    hawk = PIData::createPlatform(&header, &point);
    const std::vector<std::string> names{"U8", "I64", "Fuel", "Ratio", "Mode", "Raw"};
    const std::vector<UTILS::VariableType_t> types{UTILS::VT_UINT8, UTILS::VT_INT64, UTILS::VT_DOUBLE,
                                                   UTILS::VT_FLOAT, UTILS::VT_STRING, UTILS::VT_BLOB};
    PIData::addDataTable(hawk, "Telemetry", &names, &types, &telemetry);
    const std::vector<UTILS::UnitType_t> units{UTILS::UNITS_NONE, UTILS::UNITS_NONE, UTILS::UNITS_DISTANCE,
                                               UTILS::UNITS_NONE, UTILS::UNITS_NONE, UTILS::UNITS_NONE};
    PIData::setDataTableColumnUnits(telemetry, &units);
    PIData::getDataTableColumns(telemetry, &columns);
    PIData::DataTableRowT first(10.0);
    first.setCellValue(columns[0], std::uint8_t(7));
    first.setCellValue(columns[1], std::int64_t(-9000000000));
    first.setCellValue(columns[2], std::numeric_limits<double>::quiet_NaN());
    first.setCellValue(columns[4], std::string("cruise"));
    first.setCellValue(columns[5], UTILS::Blob{0x01, 0xFF});
    PIData::addDataTableRow(telemetry, first);
    PIData::DataTableRowT second(20.0);
    second.setCellValue(columns[2], -std::numeric_limits<double>::infinity());
    second.setCellValue(columns[3], 0.5f);
    PIData::addDataTableRow(telemetry, second);
    const std::vector<std::string> one{"x"};
    const std::vector<UTILS::VariableType_t> doubles{UTILS::VT_DOUBLE};
    long internal = 0;
    PIData::addDataTable(hawk, "__Internal_TrackHistoryTable__", &one, &doubles, &internal);
    source = std::make_unique<DataTableDataSource>(formatter);
    model.setDataSource(source.get());
    model.setUniqueId(hawk);
  }

  QString shown(int row, int column) const { return model.index(row, column).data().toString(); }
  bool type(int row, int column, const QString& text) { return model.setData(model.index(row, column), text); }

  UniqueID_t hawk = 0;
  long telemetry = 0;
  std::vector<long> columns;
  kelCore::UnitContextAdapter units;
  kelCore::UnitContextFormatter formatter{units};
  EntityDataModel model;
  std::unique_ptr<DataTableDataSource> source;
};

} // namespace

TEST_F(DataTables, EveryTypeShowsItsCellsAndNullWhereARowHasNone)
{
  ASSERT_EQ(1, source->tableComboBox()->count()) << "the host's own tables are not listed";
  EXPECT_EQ("Telemetry", source->tableComboBox()->itemText(0));
  ASSERT_EQ(2, model.rowCount());
  ASSERT_EQ(7, model.columnCount());
  EXPECT_EQ("Time", source->columnName(0));
  EXPECT_EQ("Fuel", source->columnName(3));
  EXPECT_EQ("7", shown(0, 1)) << "an 8-bit value as a number";
  EXPECT_EQ("-9000000000", shown(0, 2));
  EXPECT_EQ("NaN", shown(0, 3));
  EXPECT_EQ("-Infinity", shown(1, 3));
  EXPECT_EQ("NULL", shown(0, 4));
  EXPECT_EQ("cruise", shown(0, 5));
  EXPECT_EQ("BLOB", shown(0, 6));
  EXPECT_EQ("NULL", shown(1, 6));
  EXPECT_TRUE(source->data(1, 1, DataSource::Role::Raw).isNull());
  EXPECT_EQ(-9000000000LL, source->data(0, 2, DataSource::Role::Raw).toLongLong());
  EXPECT_FALSE(source->isColumnEditable(6)) << "blobs are read-only";
  EXPECT_TRUE(source->isColumnEditable(5));
}

TEST_F(DataTables, CellsParseByTheirTypeAndNullIsExact)
{
  EXPECT_TRUE(type(0, 5, "  climb \n"));
  EXPECT_EQ("climb", shown(0, 5)) << "text is trimmed";
  EXPECT_TRUE(type(1, 5, "null"));
  EXPECT_EQ("null", shown(1, 5)) << "only NULL exactly empties a cell";
  EXPECT_FALSE(type(1, 1, "null"));
  EXPECT_FALSE(type(1, 1, "300")) << "an unsigned 8-bit value past 255";
  EXPECT_TRUE(type(1, 1, "255"));
  EXPECT_TRUE(type(0, 3, "inf"));
  EXPECT_EQ("Infinity", shown(0, 3));
  EXPECT_TRUE(type(1, 3, "nAn"));
  EXPECT_EQ("NaN", shown(1, 3));
  EXPECT_TRUE(type(0, 2, "NULL"));
  EXPECT_EQ("NULL", shown(0, 2));
  EXPECT_FALSE(type(0, 6, "00")) << "a blob cannot be typed";
  EXPECT_TRUE(source->isDirty(0, 2));
  EXPECT_FALSE(source->isDirty(0, 1));
  model.revert(model.index(0, 2));
  EXPECT_EQ("-9000000000", shown(0, 2)) << "reverted from NULL";
}

TEST_F(DataTables, ApplyMakesTheTableAnewWithItsColumnsUnitsAndRows)
{
  ModelChecker checked(&model);
  ASSERT_TRUE(type(1, 4, "12.25"));
  model.copyRow(1);
  ASSERT_TRUE(type(2, 0, "30"));
  EXPECT_TRUE(source->isAddedRow(2));
  EXPECT_TRUE(source->isDirty(2, 3)) << "an added row is dirty in every cell";
  // A row of only NULLs disappears at Apply.
  model.copyRow(0);
  for (int column = 1; column <= 6; ++column)
    type(1, column, "NULL");
  const long before = source->tableId();
  model.commitChanges();
  EXPECT_NE(before, source->tableId()) << "a new table, a new id";
  EXPECT_EQ(0, PIData::getDataTableName(before).size()) << "the old table is gone";
  long found = 0;
  ASSERT_EQ(1, PIData::findDataTable(hawk, "Telemetry", &found));
  EXPECT_EQ(source->tableId(), found);
  EXPECT_EQ(found, source->tableComboBox()->itemData(0).toLongLong()) << "the chooser knows the new id";
  std::vector<long> ids;
  PIData::getDataTableColumns(found, &ids);
  ASSERT_EQ(6u, ids.size());
  UTILS::VariableType_t storage = UTILS::VT_UNKNOWN;
  PIData::getDataTableColumnStorageType(found, ids[5], &storage);
  EXPECT_EQ(UTILS::VT_BLOB, storage);
  UTILS::UnitType_t unit = UTILS::UNITS_NONE;
  PIData::getDataTableColumnUnits(found, ids[2], &unit);
  EXPECT_EQ(UTILS::UNITS_DISTANCE, unit);
  ASSERT_EQ(3, model.rowCount()) << "10, 20 and the copy at 30; the NULL row went";
  EXPECT_EQ("BLOB", shown(0, 6)) << "the blob survived";
  EXPECT_EQ("12.25", shown(1, 4).left(5));
  EXPECT_FALSE(model.isDirty());

  model.deleteRows({0, 1, 2});
  EXPECT_FALSE(source->isValid()) << "a table of no rows cannot be applied";
}

TEST_F(DataTables, AnEmptyTableTakesItsFirstRowAtTheEntitysEarliestTime)
{
  const std::vector<std::string> names{"Count"};
  const std::vector<UTILS::VariableType_t> types{UTILS::VT_INT32};
  long empty = 0;
  PIData::addDataTable(hawk, "Empty", &names, &types, &empty);
  model.setUniqueId(hawk);
  QSignalSpy begun(source.get(), &DataTableDataSource::beginLayoutChanged);
  source->tableComboBox()->setCurrentIndex(source->tableComboBox()->findText("Empty"));
  EXPECT_EQ(1, begun.count()) << "another table restructures the model";
  EXPECT_EQ(0, model.rowCount());
  EXPECT_EQ(0, model.copyRow(-1));
  EXPECT_EQ(5.0, source->time(0)) << "the platform's first point";
}

TEST_F(DataTables, DeletingATableAsksAndOnlyYesRemovesIt)
{
  {
    WhenShown<QMessageBox> no([](QMessageBox& box) {
      EXPECT_EQ("Delete Data Table", box.windowTitle());
      EXPECT_EQ("A data table delete cannot be undone.  Are you sure?", box.text());
      box.button(QMessageBox::No)->click();
    });
    source->deleteButton()->click();
  }
  EXPECT_EQ("Telemetry", PIData::getDataTableName(telemetry));
  {
    WhenShown<QMessageBox> yes([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    source->deleteButton()->click();
  }
  EXPECT_EQ("", PIData::getDataTableName(telemetry));
  EXPECT_EQ(0, source->tableComboBox()->count());
  EXPECT_FALSE(source->deleteButton()->isEnabled());
  EXPECT_EQ(0, model.columnCount());
}

TEST_F(DataTables, TimeUnitsHaveNamesBothWays)
{
  for (UTILS::UnitType_t unit : {UTILS::UNITS_SECONDS, UTILS::UNITS_ORDINAL, UTILS::UNITS_ISO8601})
    EXPECT_EQ(unit, UTILS::getTimeFormatValue(UTILS::getTimeFormatString(unit)));
  EXPECT_EQ("Month Day", UTILS::getTimeFormatString(UTILS::UNITS_MONTHDAY));
  EXPECT_EQ("unknown", UTILS::getTimeFormatString(UTILS::UNITS_DISTANCE));
  services.notifications.clear();
  EXPECT_EQ(UTILS::UNITS_NONE, UTILS::getTimeFormatValue("fortnights"));
  ASSERT_EQ(1u, services.notifications.size());
  EXPECT_EQ("WARNING:  Unrecognized Time Format fortnights\n", services.notifications[0].first);
}

TEST_F(DataTables, APastedRowTakesEachCellAsStoredAndRefusesWhatItsColumnCannotHold)
{
  // A paste: a new row, then each cell in the raw form another table gave.
  source->copyRow(2, 2);
  const std::vector<QVariant> raw{QVariant(-1.0), QVariant(qulonglong(200)), QVariant(), QVariant(1e300),
                                  QVariant(0.25), QVariant(QString("  as typed ")), QVariant(QByteArray("\x02\x03", 2))};
  for (int column = 0; column < static_cast<int>(raw.size()); ++column)
    EXPECT_EQ(0, source->setData(2, column, raw[column])) << "column " << column;
  for (int column : {1, 2, 3, 4, 6})
    EXPECT_EQ(raw[column], source->data(2, column, DataSource::Role::Raw)) << "column " << column;
  EXPECT_EQ(QVariant(QString("as typed")), source->data(2, 5, DataSource::Role::Raw)) << "text is text, trimmed";
  EXPECT_DOUBLE_EQ(-1.0, source->time(2)) << "a static row pasted stays static";

  EXPECT_NE(0, source->setData(2, 1, QVariant(qulonglong(256)))) << "past an unsigned 8-bit cell";
  EXPECT_NE(0, source->setData(2, 1, QVariant(qlonglong(-1))));
  EXPECT_NE(0, source->setData(2, 4, QVariant(1e300))) << "past a float";
  EXPECT_NE(0, source->setData(2, 2, QVariant(2.5))) << "a fraction in an integer cell";
  EXPECT_NE(0, source->setData(2, 6, QVariant(qulonglong(1)))) << "a number in a blob cell";
  EXPECT_NE(0, source->setData(2, 0, QVariant(qulonglong(1)))) << "a time must be a number of seconds";
  EXPECT_EQ(QVariant(qulonglong(200)), source->data(2, 1, DataSource::Role::Raw)) << "refusals change nothing";
}
