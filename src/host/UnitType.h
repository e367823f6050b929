#pragma once

namespace UTILS
{

/// Unit of a data table column. Values the editor does not name pass through unchanged.
enum UnitType_t : int
{
  UNITS_NONE = 0,      ///< no unit
  // Times: the number is the kelCore::TimeFormat the time is shown in.
  UNITS_SECONDS = 1,   ///< a time in seconds
  UNITS_MINUTES = 2,   ///< a time in minutes
  UNITS_HOURS = 3,     ///< a time in hours
  UNITS_ORDINAL = 4,   ///< a time as day of the year
  UNITS_MONTHDAY = 5,  ///< a time as month and day
  UNITS_DTG = 6,       ///< a time as a date-time group
  UNITS_ISO8601 = 7,   ///< a time in ISO 8601
  UNITS_ANGLE = 11,    ///< an angle, radians in the record
  UNITS_DISTANCE = 20  ///< a distance, metres in the record
};

} // namespace UTILS
