#pragma once

#include <QDockWidget>

#include <functional>

class QListWidget;
class QListWidgetItem;

namespace kelvor
{

class StoreJournal;

/**
 * The undo history: the scenario as opened (or "Older steps dropped" where the journal was cut
 * to its budget), then every step done, then the steps undone, greyed. Choosing a row undoes or
 * redoes as many steps as it takes to come to the state after that row.
 */
class UndoHistoryDock : public QDockWidget
{
  Q_OBJECT
public:
  /// @param moveBy undoes (negative) or redoes (positive) that many steps
  UndoHistoryDock(std::function<void(int)> moveBy, QWidget* parent = nullptr);

  /// Lists the journal's steps anew; null lists nothing.
  void showJournal(const StoreJournal* journal);
  /// @return the list of rows
  QListWidget* list() const { return list_; }

  /// The text of the first row when older steps are gone.
  static const char* const CUT_TEXT;
  /// The text of the first row otherwise.
  static const char* const START_TEXT;

private:
  void chosen_(QListWidgetItem* item);

  std::function<void(int)> moveBy_;
  QListWidget* list_;
  /// The row of the present state: the newest step done, 0 for none.
  int present_ = 0;
};

} // namespace kelvor
