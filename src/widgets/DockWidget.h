#pragma once

#include <QDockWidget>

class QMainWindow;

namespace kelQt
{

/**
 * A titled window that docks in a main window, or floats when there is none, and stays hidden
 * until shown. Closing hides it; the owner decides when it goes.
 */
class DockWidget : public QDockWidget
{
  Q_OBJECT
public:
  /// @param title the window title @param mainWindow the window to dock in; null for a floating window
  DockWidget(const QString& title, QMainWindow* mainWindow);

signals:
  /// The user closed the window.
  void closedGui();

protected:
  void closeEvent(QCloseEvent* event) override;
};

} // namespace kelQt
