#pragma once

#include "host/PIMouseEvent.h"
#include "host/PIPlatformPoint.h"

#include <vector>

namespace PluginUtils
{

/**
 * @brief Draws a latitude-longitude box in the host's 3-D view from a press, the moves and a
 * release of the mouse, and hands the finished box to process_.
 *
 * While the mouse is dragged the box shows as four animated lines from the first corner to the
 * cursor; they go when the mouse is released. A press or release off the globe draws nothing.
 * Corners are radians; after sortVertices_ the first corner is the south-west one.
 */
class BoxSelectMouseHandler
{
public:
  virtual ~BoxSelectMouseHandler();

  /**
   * Follows one mouse event of the host's view.
   * @param ids the entities the box is tested against, passed to process_
   * \returns true when the event was used for the box
   */
  bool handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event,
                        std::vector<unsigned long>& ids);

  /// \returns whether a box is being dragged
  bool drawing() const { return drawing_; }

  /**
   * \returns whether a point lies in the box, sides included; false unless the point is in
   * latitude, longitude and altitude with both angles set. A box wider than half the globe is
   * taken to cross the date line (longitudes west of west and east of east).
   * @param north,east,south,west the box, radians
   */
  static bool isContained_(const PIData::PIPlatformPoint& point, double north, double east, double south, double west);
  /// \returns whether a box from west to east (radians) spans more than half the globe
  static bool crossesDateLine_(double east, double west);

protected:
  /// The box is done: test the entities against it. \returns 0
  virtual int process_(std::vector<unsigned long>& ids);

  double firstLat_ = 0.0;
  double firstLon_ = 0.0;
  double secondLat_ = 0.0;
  double secondLon_ = 0.0;

private:
  /// Reads the cursor. \returns false when it is off the globe
  static bool cursor_(double& lat, double& lon);
  void sortVertices_();
  void redrawBox_();
  void removeLines_();

  std::vector<long> lines_;
  bool drawing_ = false;
};

} // namespace PluginUtils
