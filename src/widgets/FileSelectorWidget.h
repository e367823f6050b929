#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace kelQt
{

/// A file name in a line edit, with a button that opens a file chooser.
class FileSelectorWidget : public QWidget
{
  Q_OBJECT
public:
  explicit FileSelectorWidget(QWidget* parent = nullptr);

  /// @return the file name shown.
  QString filename() const;
  /// @return the chooser's filter, as "Scenarios (*.kls)".
  QString filter() const { return filter_; }
  void setFilter(const QString& filter) { filter_ = filter; }
  /// @param title the chooser's window title
  void setBrowserTitle(const QString& title) { title_ = title; }
  /// @param forSaving true to choose a file to write, which need not exist yet
  void setForSaving(bool forSaving) { forSaving_ = forSaving; }

public slots:
  /// Shows name; emits filenameChanged when it differs from the one shown.
  void setFilename(const QString& name);

signals:
  /// The file name changed, by the user or by setFilename.
  void filenameChanged(const QString& name);
  /// The text shown changed, at every key the user types as well; filenameChanged waits until the typing is done.
  void textChanged(const QString& text);

private:
  void browse_();

  QLineEdit* edit_;
  QToolButton* button_;
  QString filter_;
  QString last_;
  QString title_ = "Select File";
  bool forSaving_ = false;
};

} // namespace kelQt
