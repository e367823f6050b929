#include "ui/TrackLayer.h"

#include "files/GogReader.h"
#include "host/GenericDataTags.h"
#include "store/ScenarioStore.h"

#include <marble/GeoDataCoordinates.h>
#include <marble/GeoDataLineString.h>
#include <marble/GeoDataLinearRing.h>
#include <marble/GeoPainter.h>

#include <QPen>
#include <QRegularExpression>

#include <algorithm>

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

/// What a preference rule says: a setting, its value and the platforms it is for.
struct RuleFields
{
  QString setting;
  QString value;
  QString nameExpression; ///< a regular expression over names; empty for every platform
  QString exactName;      ///< the short form's platform name; empty for every platform

  bool matches(const std::string& name) const
  {
    const QString text = QString::fromStdString(name);
    if (!exactName.isEmpty())
      return exactName == text;
    return nameExpression.isEmpty() || QRegularExpression(nameExpression).match(text).hasMatch();
  }
};

/// Reads key=value and key="quoted value" pairs, separated by blanks.
std::map<QString, QString> keywordPairs(const QString& text)
{
  static const QRegularExpression pair(R"re((\w+)=(?:"([^"]*)"|(\S*)))re");
  std::map<QString, QString> pairs;
  for (auto it = pair.globalMatch(text); it.hasNext();)
  {
    const QRegularExpressionMatch m = it.next();
    pairs[m.captured(1)] = m.capturedStart(2) >= 0 ? m.captured(2) : m.captured(3);
  }
  return pairs;
}

RuleFields parseRule(const std::string& rule)
{
  const QString text = QString::fromStdString(rule);
  RuleFields fields;
  if (text.contains("ruleName="))
  {
    const auto pairs = keywordPairs(text);
    auto field = [&pairs](const char* key) { auto it = pairs.find(key); return it == pairs.end() ? QString() : it->second; };
    fields.setting = field("ruleName");
    fields.value = field("ruleValue");
    fields.nameExpression = field("nameExpression");
    return fields;
  }
  // The short form: [name:]setting=value.
  const int equals = text.indexOf('=');
  if (equals < 0)
    return fields;
  QString head = text.left(equals);
  const int colon = head.indexOf(':');
  if (colon >= 0)
  {
    fields.exactName = head.left(colon);
    head = head.mid(colon + 1);
  }
  fields.setting = head.trimmed();
  fields.value = text.mid(equals + 1).trimmed();
  return fields;
}

} // namespace

std::vector<std::pair<double, QColor>> TrackLayer::colorTimeline_(UniqueID_t id) const
{
  std::vector<std::pair<double, QColor>> timeline;
  const Entity* e = store_.entity(id);
  if (!e)
    return timeline;
  for (const PIData::PIGenericDataPoint& item : e->generic)
  {
    if (item.tag != KELVOR_GD_TRACKCOLOR)
      continue;
    bool ok = false;
    const unsigned int color = QString::fromStdString(item.value).toUInt(&ok, 0);
    if (ok)
      timeline.emplace_back(item.time, rgba(color));
  }
  std::stable_sort(timeline.begin(), timeline.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  return timeline;
}

QColor TrackLayer::colorAt_(const std::vector<std::pair<double, QColor>>& timeline, double time, const QColor& fallback)
{
  if (timeline.empty())
    return fallback;
  auto after = std::upper_bound(timeline.begin(), timeline.end(), time,
                                [](double t, const auto& entry) { return t < entry.first; });
  QColor color = after == timeline.begin() ? timeline.front().second : std::prev(after)->second;
  color.setAlpha(255);
  return color;
}

QColor TrackLayer::palette_(UniqueID_t id)
{
  return PALETTE[id % (sizeof(PALETTE) / sizeof(PALETTE[0]))];
}

QColor TrackLayer::trackColor(UniqueID_t id) const
{
  const auto timeline = colorTimeline_(id);
  return timeline.empty() ? palette_(id) : timeline.back().second;
}

QColor TrackLayer::trackColorAt(UniqueID_t id, double time) const
{
  return colorAt_(colorTimeline_(id), time, palette_(id));
}

TrackLayer::TrackStyle TrackLayer::trackStyle(const std::string& name) const
{
  TrackStyle style;
  for (const PreferenceRule& rule : store_.preferenceRules())
  {
    const RuleFields fields = parseRule(rule.text);
    if (fields.setting.isEmpty() || !fields.matches(name))
      continue;
    const QString& setting = fields.setting;
    if (setting.compare("TracksWidth", Qt::CaseInsensitive) == 0 || setting.compare("TrackWidth", Qt::CaseInsensitive) == 0)
      style.width = std::max(1, fields.value.toInt());
    else if (setting.compare("TracksLength", Qt::CaseInsensitive) == 0 ||
             setting.compare("TrackLength", Qt::CaseInsensitive) == 0)
      style.length = fields.value.toDouble();
    else if (setting.compare("TracksDrawMode", Qt::CaseInsensitive) == 0 ||
             setting.compare("TrackDrawMode", Qt::CaseInsensitive) == 0)
      style.points = fields.value.compare("Points", Qt::CaseInsensitive) == 0;
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
  const auto timeline = colorTimeline_(id);
  const QColor fallback = palette_(id);
  // The whole track shows unless a track length limits it to the time behind the clock.
  const double from = style.length >= 0.0 ? time - style.length : -1e300;
  const double to = style.length >= 0.0 ? time : 1e300;
  const std::size_t count = points.countRange(from, to);
  const std::size_t stride = std::max<std::size_t>(1, count / MAX_DRAWN_POINTS);
  // One line per stretch of one colour; neighbouring stretches share their boundary point.
  std::vector<std::pair<QColor, Marble::GeoDataLineString>> stretches;
  std::size_t i = 0;
  points.forRange(from, to, [&](const StoredPlatformPoint& p) {
    const bool last = ++i == count;
    const QColor color = colorAt_(timeline, p.time, fallback);
    if (stretches.empty() || stretches.back().first != color)
    {
      Marble::GeoDataLineString line;
      if (!stretches.empty() && !style.points)
        line << stretches.back().second.last();
      stretches.emplace_back(color, line);
    }
    else if ((i - 1) % stride != 0 && !last)
      return;
    stretches.back().second << at(p.lat, p.lon, p.alt);
  });
  const int width = style.width + (store_.drawFlag(id, "Highlight") ? 2 : 0);
  for (const auto& [color, line] : stretches)
  {
    painter->setPen(QPen(color, width));
    if (style.points)
      for (int k = 0; k < line.size(); ++k)
        painter->drawEllipse(line.at(k), width + 2, width + 2);
    else if (line.size() > 1)
      painter->drawPolyline(line);
  }
  const QColor color = colorAt_(timeline, time, fallback);

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
