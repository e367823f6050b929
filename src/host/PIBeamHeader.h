#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Beam types as the host numbers them; the gaps are the host's.
enum PIBeamType_t : int
{
  PI_BEAM_UNKNOWN = 0,  ///< "Unknown"
  PI_BEAM_TARGET = 1,   ///< "Target": points at the beam's target entity
  PI_BEAM_ABSOLUTE = 9, ///< "Absolute"
  PI_BEAM_BODY = 10     ///< "Body"
};

/// Header of a beam. The record's own widths are unset; the add action sets 5 degrees.
struct PIBeamHeader
{
  std::string name = "UNKNOWN";                  ///< display name
  double azimuthOffset = PI_INVALID_DOUBLE;      ///< radians
  double elevationOffset = PI_INVALID_DOUBLE;    ///< radians
  double horizontalBeamWidth = PI_INVALID_DOUBLE; ///< radians
  double verticalBeamWidth = PI_INVALID_DOUBLE;  ///< radians
  UniqueID_t targetId = 0;                       ///< target of a target beam
  int beamType = PI_BEAM_UNKNOWN;                ///< a PIBeamType_t value
  bool flag = false;                             ///< carried through unchanged
  UniqueID_t originalId = 0;                     ///< id the entity's source assigned
};

} // namespace PIData
