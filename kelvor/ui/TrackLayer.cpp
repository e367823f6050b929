#include "ui/TrackLayer.h"

#include "files/GogReader.h"
#include "host/GenericDataTags.h"
#include "store/ScenarioStore.h"

#include <marble/GeoDataCoordinates.h>
#include <marble/GeoDataLineString.h>
#include <marble/GeoDataLinearRing.h>
#include <marble/GeoPainter.h>

#include <QPen>

namespace kelvor
{

namespace
{

const QColor PALETTE[] = {QColor(255, 80, 80), QColor(80, 200, 255), QColor(255, 210, 60), QColor(120, 255, 120),
                          QColor(255, 120, 255), QColor(255, 160, 60)};

Marble::GeoDataCoordinates at(double lat, double lon, double alt = 0.0)
{
  return Marble::GeoDataCoordinates(lon, lat, alt, Marble::GeoDataCoordinates::Radian);
}

QColor rgba(unsigned int c) { return QColor((c >> 24) & 0xFF, (c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }

} // namespace

QColor TrackLayer::trackColor(UniqueID_t id) const
{
  const Entity* e = store_.entity(id);
  if (!e)
    return PALETTE[0];
  for (auto it = e->generic.rbegin(); it != e->generic.rend(); ++it)
  {
    if (it->tag != KELVOR_GD_TRACKCOLOR)
      continue;
    bool ok = false;
    const unsigned int color = QString::fromStdString(it->value).toUInt(&ok, 0);
    if (ok)
      return rgba(color);
  }
  return PALETTE[id % (sizeof(PALETTE) / sizeof(PALETTE[0]))];
}

TrackLayer::TrackStyle TrackLayer::trackStyle(const std::string& name) const
{
  TrackStyle style;
  for (const PreferenceRule& rule : store_.preferenceRules())
  {
    std::string text = rule.text;
    const auto colon = text.find(':');
    if (colon != std::string::npos)
    {
      if (text.substr(0, colon) != name)
        continue;
      text = text.substr(colon + 1);
    }
    const auto equals = text.find('=');
    if (equals == std::string::npos)
      continue;
    const QString key = QString::fromStdString(text.substr(0, equals)).trimmed();
    const QString value = QString::fromStdString(text.substr(equals + 1)).trimmed();
    if (key.compare("TrackWidth", Qt::CaseInsensitive) == 0)
      style.width = std::max(1, value.toInt());
    else if (key.compare("TrackLength", Qt::CaseInsensitive) == 0)
      style.length = value.toDouble();
    else if (key.compare("TrackDrawMode", Qt::CaseInsensitive) == 0)
      style.points = value.compare("Points", Qt::CaseInsensitive) == 0;
  }
  return style;
}

bool TrackLayer::render(Marble::GeoPainter* painter, Marble::ViewportParams*, const QString&, Marble::GeoSceneLayer*)
{
  const double time = store_.clock().time();
  for (UniqueID_t id : store_.list(PI_PLATFORM_TYPE))
    if (!store_.drawFlag(id, "Hidden"))
      drawTrack_(painter, id, time);
  drawOverlays_(painter);
  for (const auto& [id, line] : lines_)
  {
    QPen pen(line.color, line.width, Qt::DashLine);
    painter->setPen(pen);
    Marble::GeoDataLineString segment;
    segment << at(line.lat1, line.lon1) << at(line.lat2, line.lon2);
    painter->drawPolyline(segment);
  }
  return true;
}

void TrackLayer::drawTrack_(Marble::GeoPainter* painter, UniqueID_t id, double time)
{
  const Entity& e = *store_.entity(id);
  const auto& points = e.platformPoints;
  if (points.empty())
    return;
  const std::string name = e.useAlias && !e.alias.empty() ? e.alias : nameOfHeader(e.header);
  const TrackStyle style = trackStyle(name);
  const QColor color = trackColor(id);
  // The whole track shows unless a track length limits it to the time behind the clock.
  const double from = style.length >= 0.0 ? time - style.length : -1e300;
  const double to = style.length >= 0.0 ? time : 1e300;
  const std::size_t count = points.countRange(from, to);
  const std::size_t stride = std::max<std::size_t>(1, count / MAX_DRAWN_POINTS);
  Marble::GeoDataLineString track;
  std::size_t i = 0;
  points.forRange(from, to, [&](const StoredPlatformPoint& p) {
    if (i++ % stride == 0 || i == count)
      track << at(p.lat, p.lon, p.alt);
  });
  const int width = style.width + (store_.drawFlag(id, "Highlight") ? 2 : 0);
  painter->setPen(QPen(color, width));
  if (style.points)
    for (int k = 0; k < track.size(); ++k)
      painter->drawEllipse(track.at(k), width + 2, width + 2);
  else if (track.size() > 1)
    painter->drawPolyline(track);

  // The position at the clock's time; a static platform is always where its point is.
  const StoredPlatformPoint* now = points.atOrBefore(time);
  if (!now)
    now = &points.front();
  painter->setPen(QPen(Qt::white, 1));
  painter->setBrush(color);
  painter->drawEllipse(at(now->lat, now->lon, now->alt), 9, 9);
  // A dark shadow keeps the label readable over any imagery.
  const QString label = QString::fromStdString(name);
  painter->setPen(QPen(QColor(0, 0, 0, 200)));
  painter->drawText(at(now->lat, now->lon, now->alt), label, 9, -5);
  painter->setPen(QPen(Qt::white));
  painter->drawText(at(now->lat, now->lon, now->alt), label, 8, -6);
}

void TrackLayer::drawOverlays_(Marble::GeoPainter* painter)
{
  for (const auto& [id, files] : store_.allGogFiles())
  {
    for (const std::string& file : files)
    {
      if (!overlays_.count(file))
        overlays_[file] = GogReader::readFile(file, overlayErrors_);
      for (const GogShape& shape : overlays_[file])
      {
        if (shape.coordinates != GogShape::GEODETIC)
          continue; // plots have no place on the globe
        Marble::GeoDataLineString line;
        for (const auto& p : shape.points)
          line << Marble::GeoDataCoordinates(p.y, p.x, p.z, Marble::GeoDataCoordinates::Degree);
        QPen pen(rgba(shape.color), shape.width,
                 shape.style == "dash" ? Qt::DashLine : (shape.style == "dot" ? Qt::DotLine : Qt::SolidLine));
        painter->setPen(pen);
        if (shape.kind == GogShape::POINTS)
          for (int k = 0; k < line.size(); ++k)
            painter->drawEllipse(line.at(k), 5, 5);
        else if (shape.kind == GogShape::POLYGON)
          painter->drawPolygon(Marble::GeoDataLinearRing(line));
        else if (line.size() > 1)
          painter->drawPolyline(line);
      }
    }
  }
}

} // namespace kelvor
