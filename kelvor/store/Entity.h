#pragma once

#include "host/PIBeamHeader.h"
#include "host/PIBeamPoint.h"
#include "host/PICategoryDataPoint.h"
#include "host/PICustomRenderingHeader.h"
#include "host/PIGateHeader.h"
#include "host/PIGatePoint.h"
#include "host/PIGenericDataPoint.h"
#include "host/PILaserHeader.h"
#include "host/PILaserOffset.h"
#include "host/PILaserPoint.h"
#include "host/PILobDrawStyle.h"
#include "host/PILobHeader.h"
#include "host/PILobPoint.h"
#include "host/PIPlatformHeader.h"
#include "host/PIProjectorHeader.h"
#include "host/PIProjectorPoint.h"
#include "host/PIScenarioObjectType.h"
#include "store/StoredPlatformPoint.h"
#include "store/TimeSeries.h"

#include <string>
#include <variant>
#include <vector>

namespace kelvor
{

/// The header of an entity of any kind.
using EntityHeader = std::variant<PIData::PIPlatformHeader, PIData::PIBeamHeader, PIData::PIGateHeader,
                                  PIData::PILaserHeader, PIData::PILobHeader, PIData::PIProjectorHeader,
                                  PIData::PICustomRenderingHeader>;

/// @return the kind whose header variant holds.
PIScenarioObjectType_t kindOfHeader(const EntityHeader& header);
/// @return the entity's name from its header.
std::string nameOfHeader(const EntityHeader& header);
/// @return the original id from the header.
UniqueID_t originalIdOfHeader(const EntityHeader& header);

/**
 * @brief One entity of the scenario with all its time-stamped data. Which series are used
 * depends on the kind; the others stay empty.
 */
struct Entity
{
  UniqueID_t id = 0;
  PIScenarioObjectType_t kind = PI_NONE_TYPE;
  UniqueID_t host = 0;               ///< the parent; 0 for a platform
  EntityHeader header;
  std::vector<UniqueID_t> children;  ///< in the order they were made
  std::string alias;                 ///< shown instead of the name when useAlias is set
  bool useAlias = false;

  TimeSeries<StoredPlatformPoint> platformPoints;
  TimeSeries<PIData::PIBeamPoint> beamPoints;
  TimeSeries<PIData::PIGatePoint> gatePoints;
  TimeSeries<PIData::PILaserPoint> laserPoints;
  TimeSeries<PIData::PILaserOffset> laserOffsets;
  TimeSeries<TimedValue<double>> laserMaxRange;   ///< metres
  TimeSeries<TimedValue<int>> laserWidths;        ///< pixels
  TimeSeries<PIData::PILobPoint> lobPoints;
  TimeSeries<PIData::PILobDrawStyle> lobDrawStyles;
  TimeSeries<PIData::PIProjectorPoint> projectorFov;
  TimeSeries<TimedValue<int>> projectorOnOff;     ///< 1 on, 0 off

  TimeSeries<TimedValue<unsigned int>> colors;    ///< RGBA
  TimeSeries<TimedValue<int>> states;             ///< PIVisibilityStatus_t
  TimeSeries<TimedValue<UniqueID_t>> targets;

  std::vector<PIData::PICategoryDataPoint> categories; ///< by time, then name
  std::vector<PIData::PIGenericDataPoint> generic;     ///< by time, then tag
  std::vector<long> tables;                            ///< data tables hung under the entity

  /**
   * @return the number of points of the entity's own kind: a platform's positions; a beam's,
   * gate's, laser's or LOB group's pointings; a projector's fields of view; a custom
   * rendering's states. Laser ranges, widths and offsets, LOB styles, projector on/off and the
   * commands (states, colours, targets) of the other kinds are no points.
   */
  std::size_t pointCount() const;
  /// @return the earliest time of the entity's points, -1 when it has none.
  double earliestTime() const;
  /// @return the earliest time of the entity's timed (not static) points, -1 when it has none.
  double earliestTimedTime() const;
  /// @return the latest time of the entity's points, -1 when it has none.
  double latestTime() const;
  /// Removes the points of the entity's own kind and of its laser, LOB and projector series.
  void clearPoints();
  /// Removes the colour, state and target commands.
  void clearCommands();
  /**
   * Makes the target commands and the target of a target beam that name an entity name none.
   * @return whether anything changed
   */
  bool retarget(UniqueID_t gone);
  /// @return whether a target command or the target of a target beam names that entity
  bool aimsAt(UniqueID_t id) const;
};

} // namespace kelvor
