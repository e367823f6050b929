#pragma once

#include <QDialog>

class QVBoxLayout;

namespace kelQt
{

class EntityFilter;

/// The modeless "Entity Filters" window: the editors of a tree's filters, one under another.
class FilterDialog : public QDialog
{
  Q_OBJECT
public:
  explicit FilterDialog(QWidget* parent = nullptr);

  /// Shows the editor of filter, if it has one. @param filter not owned; it outlives the dialog
  void addFilter(const EntityFilter& filter);
  /// @return the number of filter editors shown.
  int editorCount() const { return editorCount_; }

signals:
  /// The window was closed by the user.
  void closedGui();

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  /// Grows the window to show every editor whole, up to most of the screen's height.
  void fitToEditors_();

  QWidget* list_;
  QVBoxLayout* editors_;
  int editorCount_ = 0;
};

} // namespace kelQt
