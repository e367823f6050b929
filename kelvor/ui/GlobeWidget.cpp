#include "ui/GlobeWidget.h"

#include "store/ScenarioStore.h"

#include <marble/AbstractFloatItem.h>
#include <marble/GeoDataLatLonBox.h>
#include <marble/MarbleWidget.h>
#include <marble/ViewportParams.h>

#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace kelvor
{

namespace
{

constexpr int PICK_RADIUS_PIXELS = 12;

PIGUI::PIMouseEvent toPluginEvent(const QMouseEvent& e)
{
  PIGUI::PIMouseEvent out;
  out.x = e.x();
  out.y = e.y();
  out.button = e.button() == Qt::LeftButton ? 1 : (e.button() == Qt::MiddleButton ? 2 : (e.button() == Qt::RightButton ? 3 : 0));
  out.modifiers = (e.modifiers() & Qt::ShiftModifier ? 1 : 0) | (e.modifiers() & Qt::ControlModifier ? 2 : 0) |
                  (e.modifiers() & Qt::AltModifier ? 4 : 0);
  return out;
}

} // namespace

GlobeWidget::GlobeWidget(ScenarioStore& store, const QString& mapTheme, QWidget* parent)
  : QWidget(parent), store_(store), marble_(new Marble::MarbleWidget(this)), layer_(std::make_unique<TrackLayer>(store))
{
  setObjectName("Globe");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(marble_);
  marble_->setProjection(Marble::Spherical);
  setMapTheme(mapTheme);
  marble_->addLayer(layer_.get());
  marble_->setMouseTracking(true);
  marble_->installEventFilter(this);
}

GlobeWidget::~GlobeWidget() { marble_->removeLayer(layer_.get()); }

void GlobeWidget::setMapTheme(const QString& id)
{
  marble_->setMapThemeId(id);
  // Of Marble's own overlays the scale bar serves a scenario; the overview map would cover
  // tracks in its corner and the crosshairs whatever is at the centre.
  if (Marble::AbstractFloatItem* overview = marble_->floatItem("overviewmap"))
    overview->setVisible(false);
  marble_->setShowCrosshairs(false);
  marble_->setShowScaleBar(true);
}

QString GlobeWidget::mapTheme() const { return marble_->mapThemeId(); }

void GlobeWidget::refresh()
{
  if (tethered_)
  {
    const Entity* e = store_.entity(tethered_);
    const StoredPlatformPoint* now = e ? e->platformPoints.atOrBefore(store_.clock().time()) : nullptr;
    if (now)
      marble_->centerOn(now->lon * 180.0 / M_PI, now->lat * 180.0 / M_PI);
  }
  marble_->update();
}

void GlobeWidget::showScenario()
{
  // The box around every first and last point, with a margin; the scenario origin without data.
  double north = -M_PI, south = M_PI, east = -2 * M_PI, west = 2 * M_PI;
  for (UniqueID_t id : store_.list(PI_PLATFORM_TYPE))
  {
    const auto& points = store_.entity(id)->platformPoints;
    for (const StoredPlatformPoint* p : {points.empty() ? nullptr : &points.front(), points.empty() ? nullptr : &points.back()})
    {
      if (!p)
        continue;
      north = std::max(north, p->lat);
      south = std::min(south, p->lat);
      east = std::max(east, p->lon);
      west = std::min(west, p->lon);
    }
  }
  if (north < south)
  {
    marble_->centerOn(store_.properties().lonOrigin * 180.0 / M_PI, store_.properties().latOrigin * 180.0 / M_PI);
    return refresh();
  }
  const double margin = std::max({(north - south) * 0.1, (east - west) * 0.1, 0.005});
  marble_->centerOn(Marble::GeoDataLatLonBox(north + margin, south - margin, east + margin, west - margin,
                                             Marble::GeoDataCoordinates::Radian));
  refresh();
}

bool GlobeWidget::cursorLla(double& lat, double& lon) const
{
  if (!cursorOnGlobe_)
    return false;
  lat = cursorLat_;
  lon = cursorLon_;
  return true;
}

UniqueID_t GlobeWidget::entityAt(int x, int y) const
{
  const double time = store_.clock().time();
  UniqueID_t best = 0;
  double bestDistance = PICK_RADIUS_PIXELS;
  for (UniqueID_t id : store_.list(PI_PLATFORM_TYPE))
  {
    const auto& points = store_.entity(id)->platformPoints;
    if (points.empty())
      continue;
    const StoredPlatformPoint* now = points.atOrBefore(time);
    if (!now)
      now = &points.front();
    qreal sx = 0, sy = 0;
    if (!marble_->screenCoordinates(now->lon * 180.0 / M_PI, now->lat * 180.0 / M_PI, sx, sy))
      continue;
    const double distance = std::hypot(sx - x, sy - y);
    if (distance <= bestDistance)
    {
      best = id;
      bestDistance = distance;
    }
  }
  return best;
}

bool GlobeWidget::eventFilter(QObject* watched, QEvent* event)
{
  if (watched != marble_)
    return QWidget::eventFilter(watched, event);
  PIGUI::PIMouseEventType_t type;
  switch (event->type())
  {
  case QEvent::MouseButtonPress: type = PIGUI::PI_MOUSE_PRESS; break;
  case QEvent::MouseButtonRelease: type = PIGUI::PI_MOUSE_RELEASE; break;
  case QEvent::MouseButtonDblClick: type = PIGUI::PI_MOUSE_DOUBLE_CLICK; break;
  case QEvent::MouseMove: type = PIGUI::PI_MOUSE_MOVE; break;
  default: return QWidget::eventFilter(watched, event);
  }
  auto* mouse = static_cast<QMouseEvent*>(event);
  qreal lon = 0, lat = 0;
  cursorOnGlobe_ = marble_->geoCoordinates(mouse->x(), mouse->y(), lon, lat, Marble::GeoDataCoordinates::Radian);
  cursorLat_ = lat;
  cursorLon_ = lon;
  if (cursorOnGlobe_ && type == PIGUI::PI_MOUSE_MOVE)
    emit cursorMoved(lat, lon);
  // The plug-ins see the mouse first.
  if (mouseHandler_ && mouseHandler_(type, toPluginEvent(*mouse)))
    return true;
  if (grabbed_)
    return true;
  if (type == PIGUI::PI_MOUSE_PRESS && mouse->button() == Qt::RightButton)
  {
    if (const UniqueID_t id = entityAt(mouse->x(), mouse->y()))
    {
      emit contextMenuRequested(id, mouse->globalPos());
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace kelvor
