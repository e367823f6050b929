#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// One item of generic data: a tagged value in force from its time until it expires.
struct PIGenericDataPoint
{
  double time = PI_INVALID_DOUBLE; ///< seconds since the reference year; -1 for static
  double expiration = -1.0;        ///< seconds the item lasts; -1 for never
  std::string tag;                 ///< the tag (see GenericDataTags.h for the host's own)
  std::string value;               ///< the value text
};

} // namespace PIData
