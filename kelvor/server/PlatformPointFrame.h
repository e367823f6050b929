#pragma once

#include "host/PIPlatformPoint.h"
#include "kelCore/CoordinateConverter.h"
#include "store/ScenarioProperties.h"
#include "store/StoredPlatformPoint.h"

namespace kelvor
{

/**
 * @brief Converts stored platform points to and from the frame a request names. A frame
 * whose origin is unset takes the scenario's origin and tangent plane.
 */
class PlatformPointFrame
{
public:
  /// @param frame the frame asked for @param scenario the scenario's origin and tangent plane
  PlatformPointFrame(const PIData::PICoordReferenceFrame& frame, const ScenarioProperties& scenario);

  /// @return the frame as points carry it: the origin filled in when it was unset.
  const PIData::PICoordReferenceFrame& frame() const { return frame_; }
  /// @return the stored point as a record in the frame.
  PIData::PIPlatformPoint toRecord(const StoredPlatformPoint& stored) const;
  /// @return the record, given in its own frame, as the store keeps it.
  static StoredPlatformPoint fromRecord(const PIData::PIPlatformPoint& point, const ScenarioProperties& scenario);
  /**
   * @return the record, given in this frame (as made from the same frame record), as the store
   * keeps it: for many points of one frame the frame is set up once, not for each.
   */
  StoredPlatformPoint fromRecordInFrame(const PIData::PIPlatformPoint& point) const;
  /// @return kelCore's system for a PICoordSystem_t value; above 9, LLA.
  static kelCore::CoordinateSystem kelCoreSystem(int piSystem);

private:
  double elapsedEci_(double time) const;

  PIData::PICoordReferenceFrame frame_;
  kelCore::CoordinateSystem system_;
  kelCore::CoordinateConverter converter_;
};

} // namespace kelvor
