#pragma once

#include "host/PICoordReferenceFrame.h"

#include <string>

namespace PIData
{

/// Header of a laser.
struct PILaserHeader
{
  std::string name;            ///< display name
  PICoordReferenceFrame frame; ///< frame of the laser's orientation
  bool relative = false;       ///< orientation relative to the host platform
  UniqueID_t originalId = 0;   ///< id the entity's source assigned
};

} // namespace PIData
