#pragma once

#include "host/PICoordSystem.h"
#include "host/PIMagneticVariance.h"
#include "host/PIPoint.h"
#include "host/PIVerticalDatum.h"

namespace PIData
{

/**
 * @brief The coordinate frame in which a platform point's position, orientation and velocity
 * are given. An origin equal to PI_INVALID_POINT means: use the scenario's origin.
 */
struct PICoordReferenceFrame
{
  PICoordSystem_t coordinateSystem = PI_COORDSYS_LLA;     ///< system of the values
  double latOrigin = PI_INVALID_POINT.x;                  ///< origin latitude, radians
  double lonOrigin = PI_INVALID_POINT.y;                  ///< origin longitude, radians
  double altOrigin = PI_INVALID_POINT.z;                  ///< origin altitude, metres
  PIVerticalDatum_t verticalDatum = PI_VERTDATUM_WGS84;   ///< vertical datum
  double verticalOffsetValue = 0.0;                       ///< vertical offset, metres
  PIMagneticVariance_t magneticVariance = PI_MAGVAR_TRUE; ///< magnetic variance kind
  double magneticVarianceValue = 0.0;                     ///< magnetic variance, radians
  double tangentPlaneXOffset = 0.0;                       ///< tangent-plane x offset, metres
  double tangentPlaneYOffset = 0.0;                       ///< tangent-plane y offset, metres
  double tangentPlaneAngle = 0.0;                         ///< tangent-plane rotation, radians
  double eciReferenceTime = 0.0;                          ///< ECI reference time, seconds

  /// @return true when the origin is unset and the scenario's origin applies.
  bool usesScenarioOrigin() const
  {
    return latOrigin == PI_INVALID_POINT.x && lonOrigin == PI_INVALID_POINT.y && altOrigin == PI_INVALID_POINT.z;
  }

  /// Equal when every field is exactly equal.
  bool operator==(const PICoordReferenceFrame& o) const
  {
    return coordinateSystem == o.coordinateSystem && latOrigin == o.latOrigin && lonOrigin == o.lonOrigin &&
           altOrigin == o.altOrigin && verticalDatum == o.verticalDatum &&
           verticalOffsetValue == o.verticalOffsetValue && magneticVariance == o.magneticVariance &&
           magneticVarianceValue == o.magneticVarianceValue && tangentPlaneXOffset == o.tangentPlaneXOffset &&
           tangentPlaneYOffset == o.tangentPlaneYOffset && tangentPlaneAngle == o.tangentPlaneAngle &&
           eciReferenceTime == o.eciReferenceTime;
  }
  bool operator!=(const PICoordReferenceFrame& o) const { return !(*this == o); }
};

} // namespace PIData
