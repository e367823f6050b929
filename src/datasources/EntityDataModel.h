#pragma once

#include <QAbstractItemModel>
#include <QColor>

#include <vector>

namespace QtSep
{

class DataSource;

/// Background of a cell edited and not applied.
extern const QColor EDIT_RED;
/// Background of a row added and not applied; it wins over EDIT_RED.
extern const QColor ADDED_ROW_YELLOW;

/**
 * @brief The flat item model of a DataSource, for the point editor's table.
 *
 * Every edit goes to the source's scratch copy as text in the user's units. A row whose time
 * is edited moves to keep the rows in time order; it lands after rows of an equal time.
 * The source is not owned, and may be null: the model is then empty.
 */
class EntityDataModel : public QAbstractItemModel
{
  Q_OBJECT
public:
  /// Item roles beyond Qt's own.
  enum Roles
  {
    TIME_ROLE = Qt::UserRole,      ///< 256: the row's time, seconds since the reference year (double)
    RAW_ROLE = Qt::UserRole + 1,   ///< 257: the cell in storage units
    DIRTY_ROLE = Qt::UserRole + 2  ///< 258: whether the cell differs from its value as read (bool)
  };

  explicit EntityDataModel(QObject* parent = nullptr);

  /// @param source not owned; null for none. Resets the model when it changes.
  void setDataSource(DataSource* source);
  DataSource* dataSource() const { return source_; }
  /// Loads an entity into the source, inside a reset.
  void setUniqueId(unsigned long id);
  unsigned long uniqueId() const;
  bool isValid() const;
  bool canDeleteRow() const;
  bool isDirty() const;
  /// Writes the source's scratch copy to the host and reads it back, inside a reset.
  void commitChanges();
  /// Copies a row (-1: none) to where the source puts copies. @return the new row, or -1 without a source
  int copyRow(int row);
  /// @param rows source rows, ascending
  void deleteRows(const std::vector<int>& rows);
  /// Puts a cell back as read; the whole row repaints, and a reverted time may move the row.
  void revert(const QModelIndex& index);
  /// The user's units changed: the source recomputes, every cell and heading repaints.
  void applyUnitsChange();

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

public slots:
  /// For a source that restructures itself: the begin and end of its change.
  void requestBeginResetModel();
  void requestEndResetModel();

private:
  /// Moves an edited row to its place in time order, after rows of an equal time.
  void handleTimeChange_(const QModelIndex& index);

  DataSource* source_ = nullptr;
};

} // namespace QtSep
