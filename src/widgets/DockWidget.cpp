#include "widgets/DockWidget.h"

#include <QMainWindow>

namespace kelQt
{

DockWidget::DockWidget(const QString& title, QMainWindow* mainWindow) : QDockWidget(title, mainWindow)
{
  setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
  if (mainWindow)
    mainWindow->addDockWidget(Qt::RightDockWidgetArea, this);
  else
    setFloating(true);
  hide();
}

void DockWidget::closeEvent(QCloseEvent* event)
{
  QDockWidget::closeEvent(event);
  emit closedGui();
}

} // namespace kelQt
