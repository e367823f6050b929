#pragma once

#include "server/HostServices.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace kelvor
{

/**
 * @brief Host services without a window: it keeps what it is told so that tests and the
 * command line can read it back. The progress dialog counts and is canceled only when asked.
 */
class HeadlessHostServices : public HostServices
{
public:
  struct Progress
  {
    std::string title;
    std::string label;
    int maximum = 0;
    int value = 0;
    bool shown = false;
    int eventRuns = 0;
  };
  struct Line
  {
    double lat1, lon1, alt1, lat2, lon2, alt2;
    unsigned int color;
    int width;
  };

  std::vector<std::pair<std::string, int>> notifications; ///< text and severity, in order
  std::vector<std::pair<std::string, int>> toasts;        ///< text and duration, in order
  int waitCursorDepth = 0;                                ///< begun and not yet ended
  int waitCursorBegins = 0;                               ///< every begin
  std::map<long, Progress> progress;                      ///< open dialogs
  bool cancelProgress = false;                            ///< what isProgressCanceled answers
  bool cursorOnGlobe = false;                             ///< whether mouseCursorLla succeeds
  double cursorLat = 0.0, cursorLon = 0.0, cursorAlt = 0.0;
  std::map<long, Line> lines;                             ///< animated lines on show
  std::string viewport = "Main View";
  std::pair<std::string, UniqueID_t> tether;              ///< last tetherCamera
  bool mouseGrabbed = false;
  int menuChanges = 0;
  std::function<void(const Progress&)> progressStepped;   ///< told of each new value of a progress dialog

  void beginWaitCursor() override;
  void endWaitCursor() override;
  void notify(const std::string& text, int severity) override { notifications.emplace_back(text, severity); }
  void showToast(const std::string& text, int duration) override { toasts.emplace_back(text, duration); }
  void* mainWindow() override { return nullptr; }
  long createProgress(const std::string& title, const std::string& label, int count) override;
  void showProgress(long handle) override;
  void setProgressMaximum(long handle, int maximum) override;
  void setProgressValue(long handle, int value) override;
  bool isProgressCanceled(long) override { return cancelProgress; }
  void runWhileEvents(long handle) override;
  void destroyProgress(long handle) override { progress.erase(handle); }
  bool mouseCursorLla(double& lat, double& lon, double& alt) override;
  long createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2, double alt2,
                          unsigned int color, int width) override;
  void removeAnimatedLine(long id) override { lines.erase(id); }
  std::string currentViewport() override { return viewport; }
  void tetherCamera(const std::string& name, UniqueID_t id) override { tether = {name, id}; }
  void grabMouse() override { mouseGrabbed = true; }
  void releaseMouse() override { mouseGrabbed = false; }
  void pluginMenusChanged() override { ++menuChanges; }

private:
  long nextHandle_ = 1;
};

} // namespace kelvor
