#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Line-of-bearing group types as the host numbers them.
enum PILobType_t : int
{
  PI_LOB_RELATIVE = 1, ///< "Relative"
  PI_LOB_ABSOLUTE = 2  ///< "Absolute"
};

/// Header of a line-of-bearing group.
struct PILobHeader
{
  std::string name;              ///< display name
  UniqueID_t originalId = 0;     ///< id the entity's source assigned
  int lobType = PI_LOB_ABSOLUTE; ///< a PILobType_t value
};

} // namespace PIData
