#pragma once

namespace PIData
{

/// Scope of PIData::flushEntityData.
enum FlushType : int
{
  FLUSH_ALL = 0,                ///< everything time-stamped, the first point included
  FLUSH_POINTS = 1,             ///< the points only; colour, state and target commands stay
  FLUSH_POINTS_AND_COMMANDS = 2 ///< points and commands
};

} // namespace PIData
