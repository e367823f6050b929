#include "server/HeadlessHostServices.h"

namespace kelvor
{

void HeadlessHostServices::beginWaitCursor()
{
  ++waitCursorDepth;
  ++waitCursorBegins;
}

void HeadlessHostServices::endWaitCursor()
{
  if (waitCursorDepth > 0)
    --waitCursorDepth;
}

long HeadlessHostServices::createProgress(const std::string& title, const std::string& label, int count)
{
  const long handle = nextHandle_++;
  progress[handle] = Progress{title, label, count, 0, false, 0};
  return handle;
}

void HeadlessHostServices::showProgress(long handle)
{
  if (progress.count(handle))
    progress[handle].shown = true;
}

void HeadlessHostServices::setProgressMaximum(long handle, int maximum)
{
  if (progress.count(handle))
    progress[handle].maximum = maximum;
}

void HeadlessHostServices::setProgressValue(long handle, int value)
{
  if (!progress.count(handle))
    return;
  progress[handle].value = value;
  if (progressStepped)
    progressStepped(progress[handle]);
}

void HeadlessHostServices::runWhileEvents(long handle)
{
  if (progress.count(handle))
    ++progress[handle].eventRuns;
}

bool HeadlessHostServices::mouseCursorLla(double& lat, double& lon, double& alt)
{
  if (!cursorOnGlobe)
    return false;
  lat = cursorLat;
  lon = cursorLon;
  alt = cursorAlt;
  return true;
}

long HeadlessHostServices::createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2,
                                              double alt2, unsigned int color, int width)
{
  const long id = nextHandle_++;
  lines[id] = Line{lat1, lon1, alt1, lat2, lon2, alt2, color, width};
  return id;
}

} // namespace kelvor
