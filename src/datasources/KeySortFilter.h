#pragma once

#include <QSortFilterProxyModel>

namespace QtSep
{

/**
 * @brief The point editor's sort and filter: rows of equal time keep their order, and with a
 * key set only the rows whose column 1 shows that key pass (a category name, a generic tag).
 */
class KeySortFilter : public QSortFilterProxyModel
{
  Q_OBJECT
public:
  explicit KeySortFilter(QObject* parent = nullptr);

  /// @return the key rows must show in column 1; empty for all rows
  const QString& key() const { return key_; }

public slots:
  /// Shows only rows of key; an empty key shows all.
  void setKey(const QString& key);

protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
  QString key_;
};

} // namespace QtSep
