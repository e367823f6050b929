#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// One item of category data: a named value in force from its time on.
struct PICategoryDataPoint
{
  double time = PI_INVALID_DOUBLE; ///< seconds since the reference year; -1 for static
  std::string name;                ///< category name
  std::string value;               ///< category value
};

} // namespace PIData
