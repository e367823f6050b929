#pragma once

#include <QDialog>

class QCheckBox;

namespace UTILS
{

/// A question with OK and Cancel and a check box such as "Do not ask again".
class ConfirmDialog : public QDialog
{
  Q_OBJECT
public:
  /// @param text the question @param checkText the check box's text @param parent owner window
  ConfirmDialog(const QString& text, const QString& checkText, QWidget* parent = nullptr);

  /// @return true when the check box is set.
  bool isChecked() const;
  QCheckBox* checkBox() const { return check_; }

private:
  QCheckBox* check_;
};

} // namespace UTILS
