#include "utils/BoxSelectMouseHandler.h"

#include "host/PIKELVOR.h"

#include <utility>

namespace PluginUtils
{

namespace
{

constexpr double PI = 3.141592653589793;
/// Lines of the box are drawn at the surface.
constexpr double BOX_ALTITUDE = 0.0;
constexpr unsigned int BOX_COLOUR = 0xFFFF00FF; // yellow, opaque
constexpr int BOX_WIDTH = 2;

} // namespace

BoxSelectMouseHandler::~BoxSelectMouseHandler() { removeLines_(); }

bool BoxSelectMouseHandler::cursor_(double& lat, double& lon)
{
  double readLat = PI_INVALID_DOUBLE;
  double readLon = PI_INVALID_DOUBLE;
  if (PIKELVOR::getMouseCursorLLA(&readLat, &readLon, nullptr, 1) != 0 || readLat == PI_INVALID_DOUBLE ||
      readLon == PI_INVALID_DOUBLE)
    return false;
  lat = readLat;
  lon = readLon;
  return true;
}

bool BoxSelectMouseHandler::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent&,
                                             std::vector<unsigned long>& ids)
{
  switch (type)
  {
  case PIGUI::PI_MOUSE_PRESS:
    drawing_ = cursor_(firstLat_, firstLon_);
    return drawing_;
  case PIGUI::PI_MOUSE_MOVE:
    if (!drawing_)
      return false;
    redrawBox_();
    return true;
  case PIGUI::PI_MOUSE_RELEASE:
    if (!drawing_)
      return false;
    drawing_ = false;
    if (cursor_(secondLat_, secondLon_))
    {
      sortVertices_();
      process_(ids);
    }
    removeLines_();
    return true;
  default:
    return false;
  }
}

int BoxSelectMouseHandler::process_(std::vector<unsigned long>&) { return 0; }

void BoxSelectMouseHandler::sortVertices_()
{
  if (firstLat_ > secondLat_)
    std::swap(firstLat_, secondLat_);
  if (firstLon_ > secondLon_)
    std::swap(firstLon_, secondLon_);
}

void BoxSelectMouseHandler::redrawBox_()
{
  double lat = 0.0;
  double lon = 0.0;
  if (!cursor_(lat, lon))
    return;
  removeLines_();
  const double corners[5][2] = {
    {firstLat_, firstLon_}, {firstLat_, lon}, {lat, lon}, {lat, firstLon_}, {firstLat_, firstLon_}};
  for (int i = 0; i < 4; ++i)
  {
    const long line = PIKELVOR::createAnimatedLine(corners[i][0], corners[i][1], BOX_ALTITUDE, corners[i + 1][0],
                                                   corners[i + 1][1], BOX_ALTITUDE, BOX_COLOUR, BOX_WIDTH);
    if (line != 0)
      lines_.push_back(line);
  }
}

void BoxSelectMouseHandler::removeLines_()
{
  for (long line : lines_)
    PIKELVOR::removeAnimatedLine(line);
  lines_.clear();
}

bool BoxSelectMouseHandler::crossesDateLine_(double east, double west) { return east - west > PI; }

bool BoxSelectMouseHandler::isContained_(const PIData::PIPlatformPoint& point, double north, double east, double south,
                                         double west)
{
  if (point.frame.coordinateSystem != PI_COORDSYS_LLA || point.position.x == PI_INVALID_DOUBLE ||
      point.position.y == PI_INVALID_DOUBLE)
    return false;
  if (crossesDateLine_(east, west))
    return isContained_(point, north, PI, south, east) || isContained_(point, north, west, south, -PI);
  const double lat = point.position.x;
  const double lon = point.position.y;
  return lat >= south && lat <= north && lon >= west && lon <= east;
}

} // namespace PluginUtils
