#include "ui/UndoHistoryDock.h"

#include "store/StoreJournal.h"

#include <QListWidget>
#include <QSignalBlocker>

namespace kelvor
{

const char* const UndoHistoryDock::CUT_TEXT = "Older steps dropped";
const char* const UndoHistoryDock::START_TEXT = "Scenario as opened";

UndoHistoryDock::UndoHistoryDock(std::function<void(int)> moveBy, QWidget* parent)
  : QDockWidget(tr("Undo History"), parent), moveBy_(std::move(moveBy)), list_(new QListWidget(this))
{
  setObjectName("UndoHistoryDock");
  list_->setObjectName("undoHistory");
  setWidget(list_);
  connect(list_, &QListWidget::itemClicked, this, &UndoHistoryDock::chosen_);
}

void UndoHistoryDock::showJournal(const StoreJournal* journal)
{
  const QSignalBlocker quiet(list_);
  list_->clear();
  present_ = 0;
  if (!journal)
    return;
  list_->addItem(tr(journal->cut() ? CUT_TEXT : START_TEXT));
  for (const auto& step : journal->undoSteps())
    list_->addItem(QString::fromStdString(step->name));
  present_ = list_->count() - 1;
  const auto& redo = journal->redoSteps();
  for (auto it = redo.rbegin(); it != redo.rend(); ++it)
  {
    auto* item = new QListWidgetItem(QString::fromStdString((*it)->name), list_);
    item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
  }
  list_->setCurrentRow(present_);
}

void UndoHistoryDock::chosen_(QListWidgetItem* item)
{
  const int row = list_->row(item);
  if (row != present_ && moveBy_)
    moveBy_(row - present_);
}

} // namespace kelvor
