#include "ui/WindowHostServices.h"

#include "ui/GlobeWidget.h"
#include "ui/MainWindow.h"
#include "ui/NotificationsDock.h"

#include <QApplication>
#include <QProgressDialog>
#include <QStatusBar>

namespace kelvor
{

void WindowHostServices::setWindow(MainWindow* window)
{
  window_ = window;
  for (const auto& [text, severity] : pending_)
    notify(text, severity);
  pending_.clear();
}

void WindowHostServices::beginWaitCursor()
{
  if (waitDepth_++ == 0)
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void WindowHostServices::endWaitCursor()
{
  if (waitDepth_ > 0 && --waitDepth_ == 0)
    QApplication::restoreOverrideCursor();
}

void WindowHostServices::notify(const std::string& text, int severity)
{
  if (!window_)
  {
    pending_.emplace_back(text, severity);
    return;
  }
  window_->notifications()->add(QString::fromStdString(text), severity);
}

void WindowHostServices::showToast(const std::string& text, int duration)
{
  if (window_)
    window_->showToast(QString::fromStdString(text), duration);
}

void* WindowHostServices::mainWindow() { return window_.data(); }

long WindowHostServices::createProgress(const std::string& title, const std::string& label, int count)
{
  auto* dialog = new QProgressDialog(QString::fromStdString(label), QObject::tr("Cancel"), 0, count, window_.data());
  dialog->setWindowTitle(QString::fromStdString(title));
  dialog->setWindowModality(Qt::WindowModal);
  dialog->setMinimumDuration(0);
  const long id = nextId_++;
  progress_[id] = dialog;
  return id;
}

void WindowHostServices::showProgress(long handle)
{
  if (progress_.count(handle))
    progress_[handle]->show();
}

void WindowHostServices::setProgressMaximum(long handle, int maximum)
{
  if (progress_.count(handle))
    progress_[handle]->setMaximum(maximum);
}

void WindowHostServices::setProgressValue(long handle, int value)
{
  if (progress_.count(handle))
    progress_[handle]->setValue(value);
}

bool WindowHostServices::isProgressCanceled(long handle)
{
  return progress_.count(handle) && progress_[handle]->wasCanceled();
}

void WindowHostServices::runWhileEvents(long) { QApplication::processEvents(); }

void WindowHostServices::destroyProgress(long handle)
{
  auto it = progress_.find(handle);
  if (it == progress_.end())
    return;
  it->second->deleteLater();
  progress_.erase(it);
}

bool WindowHostServices::mouseCursorLla(double& lat, double& lon, double& alt)
{
  alt = 0.0;
  return window_ && window_->globe()->cursorLla(lat, lon);
}

long WindowHostServices::createAnimatedLine(double lat1, double lon1, double, double lat2, double lon2, double,
                                            unsigned int color, int width)
{
  if (!window_)
    return 0;
  const long id = nextId_++;
  const QColor qcolor((color >> 24) & 0xFF, (color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
  window_->globe()->layer().lines()[id] = TrackLayer::Line{lat1, lon1, lat2, lon2, qcolor, width};
  window_->globe()->refresh();
  return id;
}

void WindowHostServices::removeAnimatedLine(long id)
{
  if (!window_)
    return;
  window_->globe()->layer().lines().erase(id);
  window_->globe()->refresh();
}

void WindowHostServices::tetherCamera(const std::string&, UniqueID_t id)
{
  if (window_)
    window_->globe()->tether(id);
}

void WindowHostServices::grabMouse()
{
  if (window_)
    window_->globe()->setMouseGrabbed(true);
}

void WindowHostServices::releaseMouse()
{
  if (window_)
    window_->globe()->setMouseGrabbed(false);
}

void WindowHostServices::pluginMenusChanged()
{
  if (window_)
    window_->rebuildPluginMenu();
}

} // namespace kelvor
