#pragma once

#include "datasources/DataSource.h"
#include "host/DataTableRowT.h"
#include "host/UnitType.h"
#include "host/VariableType.h"

#include <QObject>

#include <deque>
#include <memory>
#include <string>
#include <vector>

class QComboBox;
class QPushButton;

namespace kelCore
{
class UnitContextFormatter;
}

namespace QtSep
{

/**
 * @brief One data table of an entity at a time, picked in the source's own combo box: a time
 * column and the table's typed columns, a cell absent (NULL) where the row holds none.
 *
 * Apply does not rewrite rows: it deletes the table in the host and creates it again with the
 * same name, columns, types and units and the edited rows, so the table comes back with a new
 * id. A row of only NULL cells is not written. Unknown and blob cells are read-only, and blobs
 * survive an Apply because the edited row carries them.
 */
class DataTableDataSource : public QObject, public DataSource
{
  Q_OBJECT
public:
  /// A column: the host's id (0 for the time), name, storage type and unit.
  struct Column
  {
    unsigned long id;
    std::string name;
    UTILS::VariableType_t type;
    UTILS::UnitType_t units;
  };

  /// @param formatter the user's units, for numbers in float and double cells; it outlives the source
  explicit DataTableDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent = nullptr);
  ~DataTableDataSource() override;

  /// Lists the entity's tables and loads the first.
  void setUniqueId(unsigned long id, bool load) override;
  unsigned long uniqueId() const override { return id_; }
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  int columnCount() const override { return static_cast<int>(columns_.size()); }
  double time(int row) const override { return inRange_(row) ? rows_[row].edited.time() : 0.0; }
  QVariant data(int row, int column, Role role) const override;
  std::string columnName(int column) const override;
  /// @return false for a table without rows, which cannot be applied
  bool isValid() const override { return rowCount() > 0; }
  bool canDeleteRow() const override { return rowCount() > 0; }
  bool isDirty() const override { return dirty_; }
  bool isDirty(int row, int column) const override;
  void commitChanges(bool refresh) override;
  void deleteRows(const std::vector<int>& rows) override;
  int setData(int row, int column, const QVariant& value) override;
  int revert(int row, int column) override;
  bool isColumnEditable(int column) const override;
  int moveRow(int from, int to) override;
  int getCopyDestination(int row) const override;
  void copyRow(int row, int destination) override;
  bool isAddedRow(int row) const override { return inRange_(row) && rows_[row].added; }
  /// @return the table chooser and its delete button
  QWidget* widget() override;
  bool handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return false; }
  void applyUnitsChange() override {}

  /// @return the columns, the time first
  std::vector<Column> getColumns() const { return columns_; }
  /// Loads one table of the entity. @param tableId the host's id of the table
  void loadDataTable(long tableId);
  /// @return the id of the table loaded, -1 for none
  long tableId() const { return tableId_; }
  QComboBox* tableComboBox() const { return combo_; }
  QPushButton* deleteButton() const { return delete_; }

signals:
  /// The table shown is about to change, and has changed: the model resets around it.
  void beginLayoutChanged();
  void endLayoutChanged();

private:
  struct Entry
  {
    explicit Entry(const PIData::DataTableRowT& row, bool isAdded = false) : asRead(row), edited(row), added(isAdded) {}
    PIData::DataTableRowT asRead;
    PIData::DataTableRowT edited;
    bool added;
  };

  bool inRange_(int row) const { return row >= 0 && row < rowCount(); }
  void selectTable_(int index);
  void deleteTable_();
  std::string cellDisplayString_(const PIData::DataTableRowT& row, unsigned long columnId, UTILS::VariableType_t type) const;
  QVariant cellValue_(const PIData::DataTableRowT& row, unsigned long columnId, UTILS::VariableType_t type) const;
  /// Parses text into a cell of the column's type. @return 0, or 1 when refused
  int setCell_(PIData::DataTableRowT& row, const Column& column, const std::string& text);
  /// Sets a cell from a pasted value in storage form; null removes the cell. @return 0, or 1 when refused
  int setTypedData_(PIData::DataTableRowT& edited, int column, const QVariant& value);
  /// Sets a number cell from a pasted number that fits the column's type. @return 0, or 1 when refused
  int setTypedNumber_(PIData::DataTableRowT& row, const Column& column, const QVariant& value);
  bool areCellsEqual_(const PIData::DataTableRowT& a, const PIData::DataTableRowT& b, const Column& column) const;
  void setDirty_() { dirty_ = true; }
  void clearDirty_() { dirty_ = false; }

  const kelCore::UnitContextFormatter& formatter_;
  unsigned long id_ = 0;
  long tableId_ = -1;
  std::vector<Column> columns_;
  std::deque<Entry> rows_;
  bool dirty_ = false;
  std::unique_ptr<QWidget> panel_;
  QComboBox* combo_;
  QPushButton* delete_;
};

} // namespace QtSep
