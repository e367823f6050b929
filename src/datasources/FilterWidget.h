#pragma once

#include <QMap>
#include <QString>
#include <QWidget>

#include <string>

class QComboBox;

namespace QtSep
{

/**
 * @brief A combo box of the keys in a table (category names, generic data tags), with "All"
 * first, so the table can show the rows of one key at a time. Keys are counted: a key stays
 * listed while any row uses it.
 */
class FilterWidget : public QWidget
{
  Q_OBJECT
public:
  explicit FilterWidget(QWidget* parent = nullptr);

  /// Counts one more use of key. @param update list a new key at once
  void addKey(const std::string& key, bool update);
  /// Counts one use less; a key used no more leaves the list. An unknown key does nothing.
  void removeKey(const std::string& key);
  /// Forgets every key, and shows "All".
  void clear();
  /// Lists the keys added without update, keeping the key shown where it is still listed.
  void showKeys() { updateFilterComboBox_(); }
  /// Shows key; an empty or unlisted key shows "All" and signals an empty key.
  void setCurrentKey(const QString& key);
  /// @return the key shown; empty for "All"
  const QString& currentKey() const { return currentKey_; }
  QComboBox* comboBox() const { return combo_; }

signals:
  /// The key shown changed; empty for "All".
  void currentKeyChanged(const QString& key);

private:
  void updateFilterComboBox_();
  void setKey_(int index);
  void fireSelectedKeyChanged_(const QString& key);

  QComboBox* combo_;
  QMap<QString, int> keys_;
  QString currentKey_;
};

} // namespace QtSep
