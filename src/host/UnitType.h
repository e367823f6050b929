#pragma once

namespace UTILS
{

/// Unit of a data table column. Values the editor does not name pass through unchanged.
enum UnitType_t : int
{
  UNITS_NONE = 0,      ///< no unit
  UNITS_ANGLE = 11,    ///< an angle, radians in the record
  UNITS_DISTANCE = 20  ///< a distance, metres in the record
};

} // namespace UTILS
