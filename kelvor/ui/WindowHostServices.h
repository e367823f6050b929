#pragma once

#include "server/HostServices.h"

#include <QPointer>

#include <map>

class QProgressDialog;

namespace kelvor
{

class MainWindow;

/// Host services of the desktop application: cursors, docks, dialogs and the globe.
class WindowHostServices : public HostServices
{
public:
  /// Sets the window the services act on; before that, lines wait and the rest does nothing.
  void setWindow(MainWindow* window);

  void beginWaitCursor() override;
  void endWaitCursor() override;
  void notify(const std::string& text, int severity) override;
  void showToast(const std::string& text, int duration) override;
  void* mainWindow() override;
  long createProgress(const std::string& title, const std::string& label, int count) override;
  void showProgress(long handle) override;
  void setProgressMaximum(long handle, int maximum) override;
  void setProgressValue(long handle, int value) override;
  bool isProgressCanceled(long handle) override;
  void runWhileEvents(long handle) override;
  void destroyProgress(long handle) override;
  bool mouseCursorLla(double& lat, double& lon, double& alt) override;
  long createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2, double alt2,
                          unsigned int color, int width) override;
  void removeAnimatedLine(long id) override;
  std::string currentViewport() override { return "Main View"; }
  void tetherCamera(const std::string& viewport, UniqueID_t id) override;
  void grabMouse() override;
  void releaseMouse() override;
  void pluginMenusChanged() override;

private:
  QPointer<MainWindow> window_;
  std::vector<std::pair<std::string, int>> pending_;
  std::map<long, QProgressDialog*> progress_;
  long nextId_ = 1;
  int waitDepth_ = 0;
};

} // namespace kelvor
