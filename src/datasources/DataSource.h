#pragma once

#include "host/PIMouseEvent.h"
#include "host/PIScenarioObjectType.h"

#include <QVariant>

#include <string>
#include <vector>

class QWidget;

namespace kelCore
{
class Units;
}

namespace QtSep
{

/**
 * @brief The editable table of one entity's data, in a scratch copy.
 *
 * Every edit goes to the scratch copy; only commitChanges writes to the host. Rows are in time
 * order as far as the editor keeps them so (it moves a row whose time changes); times are
 * seconds since the scenario's reference year, -1 for a static row.
 *
 * Dirty has two levels. isDirty() is a sticky flag of the entity, set by every accepted
 * change and cleared by setUniqueId or by the revert of the last dirty cell; isDirty(row,
 * column) compares one cell as edited with the cell as read, so a value typed back to what it
 * was reads clean there while the entity stays dirty.
 *
 * The protected helpers parse and compare alike for every source. They store into their
 * reference arguments and answer 0 for accepted, 1 for refused; a refusal changes nothing.
 */
class DataSource
{
public:
  /// What data() gives: the text shown in the user's units, or the value in storage units.
  enum class Role
  {
    Display = 0, ///< a QString in the user's units
    Raw = 1      ///< a double, unsigned int or the like, in storage units (radians, metres, m/s)
  };

  virtual ~DataSource() = default;

  /**
   * Makes id the edited entity, and clears dirty state.
   * @param load true to read the entity's data from the host anew; false to take the id only,
   * with no rows
   */
  virtual void setUniqueId(unsigned long id, bool load) = 0;
  /// @return the edited entity, 0 for none
  virtual unsigned long uniqueId() const = 0;
  virtual int rowCount() const = 0;
  virtual int columnCount() const = 0;
  /// @return the row's time, seconds since the reference year; -1 for a static row, 0 out of range
  virtual double time(int row) const = 0;
  /// @return the cell's value; a null variant for a cell without a value or out of range
  virtual QVariant data(int row, int column, Role role) const = 0;
  /// @return the heading, with its unit's abbreviation where one applies
  virtual std::string columnName(int column) const = 0;
  /// @return whether the scratch copy could be committed now
  virtual bool isValid() const = 0;
  /// @return whether rows may be deleted at all
  virtual bool canDeleteRow() const = 0;
  /// @return whether anything was changed since the last load (sticky)
  virtual bool isDirty() const = 0;
  /// @return whether this cell differs from its value as read
  virtual bool isDirty(int row, int column) const = 0;
  /// Writes the scratch copy to the host. @param refresh then read it back, ending dirty state
  virtual void commitChanges(bool refresh) = 0;
  /// @param rows source row numbers, ascending
  virtual void deleteRows(const std::vector<int>& rows) = 0;
  /// Edits a cell: text in the user's units, or a typed value in storage units. @return 0, or non-zero when refused
  virtual int setData(int row, int column, const QVariant& value) = 0;
  /// Puts a cell back as read. @return 0, or non-zero when the cell was not changed
  virtual int revert(int row, int column) = 0;
  virtual bool isColumnEditable(int column) const = 0;
  /**
   * Moves a row. @param to the destination as beginMoveRows takes it: the row goes before
   * `to`, so for from < to it ends at to - 1. @return 0, or non-zero when nothing moved
   */
  virtual int moveRow(int from, int to) = 0;
  /// @return where copyRow will put a copy of row
  virtual int getCopyDestination(int row) const = 0;
  /// Inserts a copy of row (-1: none selected) at destination, marked as added.
  virtual void copyRow(int row, int destination) = 0;
  /// @return whether the row was added since the last load
  virtual bool isAddedRow(int row) const = 0;
  /// @return the source's own controls, shown above the table; null for none
  virtual QWidget* widget() = 0;
  /// @return true when the source used the host view's mouse event
  virtual bool handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) = 0;
  /// The user's units changed: recompute what depends on them.
  virtual void applyUnitsChange() = 0;

protected:
  /**
   * Reads a number in the units `from` into `to`. Empty text clears the value (valid false).
   * Text that is no number is refused.
   */
  int setDouble_(const std::string& text, double& out, bool& valid, bool& dirty, const kelCore::Units& from,
                 const kelCore::Units& to) const;
  /// Reads a colour as hexadecimal (0xRRGGBBAA or RRGGBBAA); empty text clears it. Never refuses.
  int setColor_(const std::string& text, unsigned int& out, bool& valid, bool& dirty) const;
  /// Reads a truth value ("1", "true", "yes", "on"); empty text clears it. Never refuses.
  int setBoolean_(const std::string& text, bool& out, bool& valid, bool& dirty) const;
  /// Reads a whole number; empty text clears it; other text is refused.
  int setInteger_(const std::string& text, int& out, bool& valid, bool& dirty) const;
  /// Reads a target platform by name, or "0" for none; a name no platform has is refused.
  int setTarget_(const std::string& text, unsigned long& out, bool& valid, bool& dirty) const;
  /**
   * Reads a time in any format the program reads, taken in the scenario's reference year.
   * @param allowStatic also take "-1" and "static" (any case) for the static time -1
   * @param out seconds since the reference year
   */
  int setTime_(const std::string& text, bool allowStatic, double& out, bool& dirty) const;
  /// Takes a time in seconds; a negative one is -1 with allowStatic, refused without.
  int setTime_(const QVariant& value, bool allowStatic, double& out, bool& dirty) const;

  /// Typed forms: a null variant clears the value; a value of the field's own type is taken as it is.
  int setDouble_(const QVariant& value, double& out, bool& valid, bool& dirty) const;
  int setColor_(const QVariant& value, unsigned int& out, bool& valid, bool& dirty) const;
  int setBoolean_(const QVariant& value, bool& out, bool& valid, bool& dirty) const;
  int setInteger_(const QVariant& value, int& out, bool& valid, bool& dirty) const;
  int setTarget_(const QVariant& value, unsigned long& out, bool& valid, bool& dirty) const;

  /// @return equal within 1e-6 when both are valid, equal when neither is, else unequal
  static bool areEqual_(bool validA, double a, bool validB, double b);
  /// As areEqual_, for angles in radians, so that 0 and 2 pi are equal.
  static bool areAnglesEqual_(bool validA, double a, bool validB, double b);
  static bool areEqual_(bool validA, unsigned int a, bool validB, unsigned int b);
  static bool areEqual_(bool validA, unsigned long a, bool validB, unsigned long b);
  static bool areEqual_(bool validA, bool a, bool validB, bool b);

  /// The text a target column shows for no target; it reads back as none.
  static const char* const NO_TARGET_TEXT;

  /// @return whether any cell differs from its value as read (added and deleted rows aside)
  bool hasDirtyCell_() const;

  /// @return the entity's name from its header, "N/A" for a kind without one or a failed read
  static std::string nameFromId_(unsigned long id, PIScenarioObjectType_t type);
  /// @return the entity's alias when it shows one, else its name
  static std::string nameOrAliasFromId_(unsigned long id, PIScenarioObjectType_t type);
};

} // namespace QtSep
