#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Gate types as the host numbers them; the gaps are the host's.
enum PIGateType_t : int
{
  PI_GATE_ABSOLUTE = 1, ///< "Absolute"
  PI_GATE_TARGET = 3,   ///< "Target"
  PI_GATE_BODY = 11     ///< "Body"
};

/// Header of a gate.
struct PIGateHeader
{
  std::string name = "UNKNOWN"; ///< display name
  int gateType = 0;             ///< a PIGateType_t value, 0 when not set
  UniqueID_t originalId = 0;    ///< id the entity's source assigned
};

} // namespace PIData
