#include "host/QtApplicationProxy.h"

#include <QApplication>
#include <QMainWindow>

namespace PluginUtils
{

namespace
{

int argumentCount = 1;
char applicationName[] = "kelvor9";
char* arguments[] = {applicationName, nullptr};

} // namespace

QtApplicationProxy::QtApplicationProxy()
{
  if (!QApplication::instance())
    ownApplication_ = new QApplication(argumentCount, arguments);
  for (QWidget* widget : QApplication::topLevelWidgets())
  {
    if (auto* window = qobject_cast<QMainWindow*>(widget))
    {
      mainWindow_ = window;
      break;
    }
  }
}

QtApplicationProxy::~QtApplicationProxy() { delete ownApplication_; }

} // namespace PluginUtils
