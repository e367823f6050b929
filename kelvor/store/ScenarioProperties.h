#pragma once

#include "host/PICoordReferenceFrame.h"

#include <string>

namespace kelvor
{

/// Scenario-wide properties: what the whole scenario is referred to.
struct ScenarioProperties
{
  bool initialized = false;               ///< true once a scenario was opened or made
  int referenceYear = 1970;               ///< the year every time counts from
  double latOrigin = 0.0;                 ///< radians
  double lonOrigin = 0.0;                 ///< radians
  double altOrigin = 0.0;                 ///< metres
  double tangentPlaneX = 0.0;             ///< metres
  double tangentPlaneY = 0.0;             ///< metres
  double tangentPlaneAngle = 0.0;         ///< radians
  std::string description;
  std::string classification = "UNCLASSIFIED";
  unsigned int classificationColor = 0x00FF00FF; ///< RGBA
  double windSpeed = 0.0;                 ///< metres per second
  double windDirection = 0.0;             ///< radians, where the wind blows from
  /// The frame the scenario's points are given in; its origin, when unset, is the one above.
  PIData::PICoordReferenceFrame frame;
};

} // namespace kelvor
