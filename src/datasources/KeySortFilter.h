#pragma once

#include <QSortFilterProxyModel>

#include <vector>

namespace QtSep
{

/**
 * @brief The point editor's sort and filter: rows of equal time keep their order, and with a
 * key set only the rows whose column 1 shows that key pass (a category name, a generic tag).
 *
 * A sort of a million rows asks for two values at each of some twenty million comparisons.
 * So the values of the column sorted on (and the rows' times) are read once into a cache, kept
 * as long as the source's rows stay as they are and updated cell by cell as they are edited;
 * the order is the one the plain comparison gives.
 */
class KeySortFilter : public QSortFilterProxyModel
{
  Q_OBJECT
public:
  explicit KeySortFilter(QObject* parent = nullptr);

  /// @return the key rows must show in column 1; empty for all rows
  const QString& key() const { return key_; }
  void setSourceModel(QAbstractItemModel* model) override;

public slots:
  /// Shows only rows of key; an empty key shows all.
  void setKey(const QString& key);

protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
  /// The values of one column and role, by source row; numbers only, a missing value as +inf.
  struct ColumnCache
  {
    int column = -1;
    int role = -1;
    bool usable = false; ///< false when a value of the column is not a number
    std::vector<double> values;
  };

  /// @return the cache of column and role, read anew when it is not the one held
  const ColumnCache& cacheOf_(ColumnCache& cache, int column, int role) const;
  /// Reads one row into a cache. @return false when the value is not a number
  bool readRow_(ColumnCache& cache, int row) const;
  void forgetCaches_();
  void updateCachedRows_(const QModelIndex& topLeft, const QModelIndex& bottomRight);

  QString key_;
  bool resetting_ = false; ///< the source model is between the begin and end of a reset
  mutable ColumnCache times_;
  mutable ColumnCache sorted_;
};

} // namespace QtSep
