#pragma once

class QApplication;
class QMainWindow;

namespace PluginUtils
{

/**
 * @brief The plug-in's bridge to Qt: the host's main window, and an application of its own
 * only when the plug-in runs without a host.
 */
class QtApplicationProxy
{
public:
  /// Makes a QApplication with the one argument "kelvor9" when none exists, then finds the first main window.
  QtApplicationProxy();
  /// Deletes only the application it made.
  ~QtApplicationProxy();
  QtApplicationProxy(const QtApplicationProxy&) = delete;
  QtApplicationProxy& operator=(const QtApplicationProxy&) = delete;

  /// @return the host's main window, null when there is none.
  QMainWindow* mainWindow() const { return mainWindow_; }

private:
  QApplication* ownApplication_ = nullptr;
  QMainWindow* mainWindow_ = nullptr;
};

} // namespace PluginUtils
