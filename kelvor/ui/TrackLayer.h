#pragma once

#include "files/GogShape.h"
#include "host/UniqueID.h"

#include <marble/LayerInterface.h>

#include <QColor>

#include <map>
#include <string>
#include <vector>

namespace kelvor
{

class ScenarioStore;

/**
 * @brief What the globe draws over the map: every platform's whole track (coloured stretch by
 * stretch from the track-colour generic data, width and length from the preference rules,
 * hidden by the draw flag "Hidden"), each platform's position at the clock's time with its
 * name, GOG overlays and animated lines.
 *
 * Preference rules name a setting and its value, and the platforms by a regular expression
 * over their names: ruleName=TracksWidth ruleValue="3" nameExpression="^Eagle 1$". Without a
 * name expression a rule applies to every platform. The settings are TracksWidth (pixels),
 * TracksLength (seconds of track behind the current time, -1 for all of it) and TracksDrawMode
 * ("points" draws the points alone; "bridge", "line" and others join them). The short form
 * "TrackWidth=3", optionally after a platform's name and a colon ("Eagle 1:TrackWidth=4"),
 * reads as well.
 */
class TrackLayer : public Marble::LayerInterface
{
public:
  /// A line between two geodetic points, radians and metres.
  struct Line
  {
    double lat1, lon1, lat2, lon2;
    QColor color;
    int width;
  };

  explicit TrackLayer(const ScenarioStore& store) : store_(store) {}

  QStringList renderPosition() const override { return {"HOVERS_ABOVE_SURFACE"}; }
  bool render(Marble::GeoPainter* painter, Marble::ViewportParams* viewport, const QString& renderPosition,
              Marble::GeoSceneLayer* layer) override;

  /// Most track points drawn for one platform; longer tracks are drawn from a sample.
  static constexpr std::size_t MAX_DRAWN_POINTS = 4000;

  std::map<long, Line>& lines() { return lines_; }
  /// Drops the cached overlays, so that files attached since are read.
  void clearOverlays() { overlays_.clear(); }
  /// @return the colour of a platform's track at its end: its latest track-colour item, else one of a palette.
  QColor trackColor(UniqueID_t id) const;
  /**
   * @param time seconds since the reference year
   * @return the track colour in force at time: the latest item at or before it, else the first
   *   item, else one of a palette; always opaque, as a track is drawn
   */
  QColor trackColorAt(UniqueID_t id, double time) const;
  /// @return errors of the overlay files read so far.
  const std::vector<std::string>& overlayErrors() const { return overlayErrors_; }

  /// How one platform's track is drawn, from the preference rules.
  struct TrackStyle
  {
    int width = 2;
    double length = -1.0; ///< seconds behind the current time; -1 for the whole track
    bool points = false;
  };
  /// @return the style of the track of the platform of that name.
  TrackStyle trackStyle(const std::string& name) const;

private:
  /// The platform's track-colour items by time, the unreadable left out.
  std::vector<std::pair<double, QColor>> colorTimeline_(UniqueID_t id) const;
  /// A colour of the palette for a platform without track colours.
  static QColor palette_(UniqueID_t id);
  static QColor colorAt_(const std::vector<std::pair<double, QColor>>& timeline, double time, const QColor& fallback);
  void drawTrack_(Marble::GeoPainter* painter, UniqueID_t id, double time);
  void drawOverlays_(Marble::GeoPainter* painter);

  const ScenarioStore& store_;
  std::map<long, Line> lines_;
  std::map<std::string, std::vector<GogShape>> overlays_;
  std::vector<std::string> overlayErrors_;
};

} // namespace kelvor
