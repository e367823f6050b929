#pragma once

namespace kelCore
{

/// Text forms of a time.
enum class TimeFormat : int
{
  SECONDS = 1,  ///< seconds since the reference year: "3725.500"
  MINUTES = 2,  ///< minutes and seconds since the reference year: "62:05.500"
  HOURS = 3,    ///< hours, minutes and seconds since the reference year: "1:02:05.500"
  ORDINAL = 4,  ///< "DDD YYYY HH:MM:SS.sss", day of the year from 001
  MONTHDAY = 5, ///< "Mon DD YYYY HH:MM:SS.sss"
  DTG = 6,      ///< date-time group: "DDHHMM:SS.sss Z MONYY"
  ISO8601 = 7   ///< "YYYY-MM-DDTHH:MM:SS.sssZ"
};

} // namespace kelCore
