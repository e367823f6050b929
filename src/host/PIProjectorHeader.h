#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Header of a projector.
struct PIProjectorHeader
{
  std::string name = "Unknown"; ///< display name
  UniqueID_t originalId = 0;    ///< id the entity's source assigned
};

} // namespace PIData
