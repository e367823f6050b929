#pragma once

#include "host/PIMouseEvent.h"
#include "host/UniqueID.h"
#include "ui/TrackLayer.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Marble
{
class MarbleWidget;
}

namespace kelvor
{

class ScenarioStore;

/**
 * @brief The 3-D globe: the map with the scenario drawn over it. Mouse events go to the
 * plug-ins first; a right-click on an entity asks for the plug-ins' menu with click kind 0.
 */
class GlobeWidget : public QWidget
{
  Q_OBJECT
public:
  /// Offers a mouse event to the plug-ins; true when one consumed it.
  using MouseHandler = std::function<bool(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&)>;

  /// @param mapTheme Marble's id of the map theme to open with (see MapThemes)
  GlobeWidget(ScenarioStore& store, const QString& mapTheme, QWidget* parent = nullptr);
  ~GlobeWidget() override;

  void setMouseHandler(MouseHandler handler) { mouseHandler_ = std::move(handler); }
  /// Draws the map with another theme. @param id Marble's theme id, as "earth/plain/plain.dgml"
  void setMapTheme(const QString& id);
  /// @return Marble's id of the map theme drawn.
  QString mapTheme() const;
  /// Redraws; follows the tethered entity.
  void refresh();
  /// Centres the view on the scenario's data.
  void showScenario();
  /// The geodetic point under the mouse. @return false when the cursor is off the globe
  bool cursorLla(double& lat, double& lon) const;
  /// Makes the camera follow an entity; 0 releases it.
  void tether(UniqueID_t id) { tethered_ = id; }
  /// While grabbed, the plug-ins' handling of the mouse is all the view does.
  void setMouseGrabbed(bool grabbed) { grabbed_ = grabbed; }
  TrackLayer& layer() { return *layer_; }
  Marble::MarbleWidget* marble() const { return marble_; }
  /// @return the platform whose current position is within a few pixels of (x, y), else 0.
  UniqueID_t entityAt(int x, int y) const;

signals:
  /// The mouse moved over the globe. @param lat radians @param lon radians
  void cursorMoved(double lat, double lon);
  /// A right-click on an entity in the view.
  void contextMenuRequested(UniqueID_t id, const QPoint& globalPosition);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  ScenarioStore& store_;
  Marble::MarbleWidget* marble_;
  std::unique_ptr<TrackLayer> layer_;
  MouseHandler mouseHandler_;
  UniqueID_t tethered_ = 0;
  bool grabbed_ = false;
  bool cursorOnGlobe_ = false;
  double cursorLat_ = 0.0;
  double cursorLon_ = 0.0;
};

} // namespace kelvor
