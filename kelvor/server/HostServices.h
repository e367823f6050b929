#pragma once

#include "host/UniqueID.h"

#include <string>

namespace kelvor
{

/**
 * @brief What the server needs of a window system: cursors, notifications, the progress
 * dialog and the 3-D view. The application implements it with widgets; HeadlessHostServices
 * serves tests and the command line.
 */
class HostServices
{
public:
  virtual ~HostServices() = default;

  virtual void beginWaitCursor() = 0;
  virtual void endWaitCursor() = 0;
  /// A line of the notification stream. @param severity 0 most severe to 7
  virtual void notify(const std::string& text, int severity) = 0;
  /// A message that goes by itself. @param duration 0 short, 1 medium, 2 long
  virtual void showToast(const std::string& text, int duration) = 0;
  /// @return the application's main window (a QMainWindow*), null without one.
  virtual void* mainWindow() = 0;

  /// Opens a progress dialog. @return its handle, from 1
  virtual long createProgress(const std::string& title, const std::string& label, int count) = 0;
  virtual void showProgress(long handle) = 0;
  virtual void setProgressMaximum(long handle, int maximum) = 0;
  virtual void setProgressValue(long handle, int value) = 0;
  /// @return true once the user asked to cancel.
  virtual bool isProgressCanceled(long handle) = 0;
  /// Lets the window system serve its events.
  virtual void runWhileEvents(long handle) = 0;
  virtual void destroyProgress(long handle) = 0;

  /// The geodetic point under the mouse. @return false when the cursor is off the globe
  virtual bool mouseCursorLla(double& lat, double& lon, double& alt) = 0;
  /// Draws a line between two geodetic points (radians, metres). @return its id, from 1
  virtual long createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2, double alt2,
                                  unsigned int color, int width) = 0;
  virtual void removeAnimatedLine(long id) = 0;
  /// @return the name of the view with focus.
  virtual std::string currentViewport() = 0;
  /// Makes the view's camera follow an entity; 0 releases it.
  virtual void tetherCamera(const std::string& viewport, UniqueID_t id) = 0;
  /// Sends mouse events of the view to plug-ins first, until released.
  virtual void grabMouse() = 0;
  virtual void releaseMouse() = 0;
  /// The plug-in menu items changed.
  virtual void pluginMenusChanged() = 0;
};

} // namespace kelvor
