#pragma once

#include "host/UniqueID.h"

#include <cstdint>

namespace PIData
{

/// How a line-of-bearing group draws from a time on; the defaults are an editor row's.
struct PILobDrawStyle
{
  double time = PI_INVALID_DOUBLE;    ///< seconds since the reference year
  unsigned int color1 = 0x00FF00FF;   ///< first colour, RGBA
  unsigned int color2 = 0xFF0000FF;   ///< second colour, RGBA
  std::uint16_t stipple1 = 0xFF00;    ///< first stipple pattern
  std::uint16_t stipple2 = 0x00FF;    ///< second stipple pattern
  std::int32_t pixelWidth = 2;        ///< line width, pixels
};

} // namespace PIData
