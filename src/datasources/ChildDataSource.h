#pragma once

#include "datasources/DataSource.h"

#include <QObject>

#include <array>
#include <cstdint>
#include <deque>
#include <vector>

namespace kelCore
{
class UnitContextFormatter;
}

namespace QtSep
{

/**
 * @brief The table of a child entity's data: the several time series the host keeps for the
 * entity (points, colours, states, targets, and the like) merged into one row a distinct time,
 * and split again on commit.
 *
 * A row has a value only in the series that hold an entry at its time; the other cells are
 * null and may be typed into. The columns of one series lie side by side, and a series is
 * valid or not in a row as a whole: typing into one cell of an empty series makes the series'
 * other cells zero. A subclass names its columns, reads its series and writes a row back.
 *
 * Rows are built from all series at once, sorted by time: reading a million points costs a
 * sort, not a search and an insertion each.
 */
class ChildDataSource : public QObject, public DataSource
{
  Q_OBJECT
public:
  /// How a column shows and reads its values.
  enum class Kind
  {
    ANGLE,    ///< radians, shown in the angle units
    DISTANCE, ///< metres, shown in the distance units
    RANGE,    ///< metres, or negative for none, shown as "-1.0"
    COLOR,    ///< RGBA, shown through the formatter
    STATE,    ///< on or off
    TARGET,   ///< a platform, by name; 0 for none
    INTEGER,  ///< a whole number, such as a width in pixels
    STIPPLE   ///< a 16-bit line pattern
  };

  /// A column past the time: its heading, its kind, and the series it belongs to.
  struct ColumnLayout
  {
    const char* title;
    Kind kind;
    int series;
  };

  /// The most columns any kind has past the time, and the most of one series.
  static constexpr int MAX_CELLS = 11;
  static constexpr int MAX_SERIES_CELLS = 7;

  /// One entry of one series as the host holds it: its series, time, and values in column order.
  struct Item
  {
    int series = 0;
    double time = 0.0;
    std::array<double, MAX_SERIES_CELLS> values{};
  };

  /// A row's values: the time, the cells past it, and which series hold an entry.
  struct Values
  {
    double time = 0.0;
    std::array<double, MAX_CELLS> cells{};
    std::uint16_t valid = 0; ///< a bit a series

    bool has(int series) const { return (valid >> series) & 1U; }
  };

  ~ChildDataSource() override;

  void setUniqueId(unsigned long id, bool load) override;
  unsigned long uniqueId() const override { return id_; }
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  int columnCount() const override { return static_cast<int>(columns_.size()) + 1; }
  double time(int row) const override { return inRange_(row) ? rows_[row].edited.time : 0.0; }
  QVariant data(int row, int column, Role role) const override;
  std::string columnName(int column) const override;
  /// @return whether any row is left; children have no static rule
  bool isValid() const override { return !rows_.empty(); }
  bool canDeleteRow() const override;
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
  QWidget* widget() override { return nullptr; }
  bool handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return false; }
  void applyUnitsChange() override {}

protected:
  /**
   * @param formatter the user's units; it outlives the source
   * @param columns the columns past the time, a series' columns side by side
   * @param lastRowStays true when the entity's last row may not be deleted
   */
  ChildDataSource(const kelCore::UnitContextFormatter& formatter, std::vector<ColumnLayout> columns, bool lastRowStays,
                  QObject* parent);

  /// Reads every series of the entity, each entry an item.
  virtual void readSeries_(unsigned long id, std::vector<Item>& items) const = 0;
  /// Removes the entity's data before the rows are written back.
  virtual void flush_(unsigned long id) const;
  /// Writes one row's valid series to the host.
  virtual void writeRow_(unsigned long id, const Values& row) const = 0;
  /// Reads the header of a newly edited entity, for rules that depend on it.
  virtual void readHeader_(unsigned long) {}
  /// @return whether a column may be edited in this entity; every column by default
  virtual bool isCellEditable_(int) const { return true; }

  /// @return the value of a series' column in a row: the column's index among the cells
  int firstColumnOf_(int series) const;

private:
  struct Entry
  {
    explicit Entry(const Values& values, bool isAdded = false) : asRead(values), edited(values), added(isAdded) {}
    Values asRead;
    Values edited;
    bool added;
  };

  bool inRange_(int row) const { return row >= 0 && row < rowCount(); }
  const ColumnLayout* layout_(int column) const;
  /**
   * Puts text (in the user's units) or a typed value (as stored) into a cell; the cell's series
   * becomes valid, or invalid for empty text or a null value. @return 0, or 1 when refused
   */
  template <typename Input>
  int setCell_(Values& row, int cell, const ColumnLayout& layout, const Input& input);
  /// Reads a 16-bit line pattern, "0x" hexadecimal or decimal; empty text clears it.
  int setStipple_(const std::string& text, double& out, bool& valid);
  /// Marks a series as holding an entry or not; a series that begins to hold one starts at zero.
  void setSeriesValid_(Values& row, int series, bool valid) const;
  QVariant display_(const ColumnLayout& layout, double value) const;
  QVariant raw_(const ColumnLayout& layout, double value) const;

  const kelCore::UnitContextFormatter& formatter_;
  std::vector<ColumnLayout> columns_;
  bool lastRowStays_;
  unsigned long id_ = 0;
  std::deque<Entry> rows_;
  bool dirty_ = false;
};

} // namespace QtSep
