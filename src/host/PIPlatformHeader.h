#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Header of a platform.
struct PIPlatformHeader
{
  std::string name = "Unknown";       ///< display name
  std::string iconFile = "UnknownV.png"; ///< icon file name
  UniqueID_t originalId = 0;          ///< id the entity's source assigned
};

} // namespace PIData
