#pragma once

#include "datasources/DataSource.h"

#include <QObject>

#include <deque>
#include <memory>
#include <string>

namespace kelCore
{
class UnitContextFormatter;
}

namespace QtSep
{

class FilterWidget;

/**
 * @brief The table of an entity's time-stamped key and value items (category data, generic
 * data): columns time, key, value, all editable. Each row's key is counted in the source's own
 * FilterWidget, so the point editor can show the rows of one key at a time; rows hidden by the
 * filter are kept and committed all the same.
 *
 * The kinds differ only in how their items are read and written back, which a subclass gives.
 */
class KeyValueDataSource : public QObject, public DataSource
{
  Q_OBJECT
public:
  /// One item: time (seconds, -1 static), key, value, and a lifetime some kinds carry unread.
  struct Item
  {
    double time = 0.0;
    std::string key;
    std::string value;
    double expiration = -1.0;
  };

  enum Column
  {
    TIME = 0,
    KEY = 1, ///< the column the key filter reads
    VALUE = 2
  };

  ~KeyValueDataSource() override;

  void setUniqueId(unsigned long id, bool load) override;
  unsigned long uniqueId() const override { return id_; }
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  int columnCount() const override { return 3; }
  double time(int row) const override { return inRange_(row) ? rows_[row].edited.time : 0.0; }
  QVariant data(int row, int column, Role role) const override;
  std::string columnName(int column) const override;
  bool isValid() const override { return true; }
  bool canDeleteRow() const override { return rowCount() > 0; }
  bool isDirty() const override { return dirty_; }
  bool isDirty(int row, int column) const override;
  void commitChanges(bool refresh) override;
  void deleteRows(const std::vector<int>& rows) override;
  int setData(int row, int column, const QVariant& value) override;
  int revert(int row, int column) override;
  bool isColumnEditable(int) const override { return true; }
  int moveRow(int from, int to) override;
  int getCopyDestination(int row) const override;
  void copyRow(int row, int destination) override;
  bool isAddedRow(int row) const override { return inRange_(row) && rows_[row].added; }
  /// @return the key filter of the rows
  QWidget* widget() override;
  bool handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return false; }
  void applyUnitsChange() override {}

  FilterWidget& filterWidget() const { return *filter_; }

protected:
  /// @param keyTitle,valueTitle the headings of columns 1 and 2 @param newKey the key of a first item
  KeyValueDataSource(const kelCore::UnitContextFormatter& formatter, const char* keyTitle, const char* valueTitle,
                     const char* newKey, QObject* parent);

  /// @return every item the entity holds, in time order
  virtual std::vector<Item> readItems_(unsigned long id) const = 0;
  /// Replaces every item the entity holds by these, in order.
  virtual void writeItems_(unsigned long id, const std::vector<Item>& items) const = 0;

private:
  struct Entry
  {
    explicit Entry(const Item& item, bool isAdded = false) : asRead(item), edited(item), added(isAdded) {}
    Item asRead;
    Item edited;
    bool added;
  };

  bool inRange_(int row) const { return row >= 0 && row < rowCount(); }

  const kelCore::UnitContextFormatter& formatter_;
  const char* keyTitle_;
  const char* valueTitle_;
  const char* newKey_;
  unsigned long id_ = 0;
  std::deque<Entry> rows_;
  bool dirty_ = false;
  std::unique_ptr<FilterWidget> filter_;
};

} // namespace QtSep
