#pragma once

/// The clock's display format; carried to the time widgets as a plain integer.
enum PITimeFormat_t : int
{
  PI_TIMEFORMAT_SECONDS = 1,  ///< seconds since the reference year
  PI_TIMEFORMAT_MINUTES = 2,  ///< minutes
  PI_TIMEFORMAT_HOURS = 3,    ///< hours
  PI_TIMEFORMAT_ORDINAL = 4,  ///< "DDD YYYY HH:MM:SS.sss"
  PI_TIMEFORMAT_MONTHDAY = 5, ///< "Mon DD YYYY HH:MM:SS.sss"
  PI_TIMEFORMAT_DTG = 6,      ///< date-time group
  PI_TIMEFORMAT_ISO8601 = 7   ///< ISO 8601
};
