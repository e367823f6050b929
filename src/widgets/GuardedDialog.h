#pragma once

#include <QDialog>
#include <QPointer>
#include <QWidget>

#include <utility>

namespace kelQt
{

/**
 * @brief A modal dialog made on the heap for one exec(), safe against its parent going while it
 * is open.
 *
 * exec() serves events, and one of them may delete the window that owns the dialog (the host
 * closing its scenario takes the editor window and its tabs with it). A dialog on the caller's
 * stack would then be destroyed a second time when the caller returns, and the caller would go
 * on with a deleted `this`. Here the dialog is held by a QPointer and deleted only if it still
 * exists, and exec() answers "rejected" when the dialog or its parent went, so that the caller
 * simply returns.
 */
template <typename Dialog>
class GuardedDialog
{
public:
  /// Makes the dialog with these constructor arguments; its parent is the widget watched.
  template <typename... Args>
  explicit GuardedDialog(Args&&... args)
    : dialog_(new Dialog(std::forward<Args>(args)...)), parent_(dialog_->parentWidget()), hadParent_(parent_ != nullptr)
  {
  }
  ~GuardedDialog() { delete dialog_.data(); }
  GuardedDialog(const GuardedDialog&) = delete;
  GuardedDialog& operator=(const GuardedDialog&) = delete;

  /**
   * Runs the dialog modally.
   * \returns the dialog's own result (QDialog::Accepted, or a QMessageBox button), or
   * QDialog::Rejected when the dialog or its parent was deleted while it was open
   */
  int exec()
  {
    const int result = dialog_->exec();
    return alive() ? result : static_cast<int>(QDialog::Rejected);
  }

  /// \returns true while the dialog, and the parent it was made with, both exist
  bool alive() const { return dialog_ && (!hadParent_ || parent_); }

  Dialog* operator->() const { return dialog_.data(); }
  Dialog& operator*() const { return *dialog_; }
  Dialog* get() const { return dialog_.data(); }

private:
  QPointer<Dialog> dialog_;
  QPointer<QWidget> parent_;
  bool hadParent_;
};

} // namespace kelQt
