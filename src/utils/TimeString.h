#pragma once

#include "kelCore/TimeFormat.h"
#include "utils/NumericBase.h"

#include <ctime>
#include <string>

namespace UTILS
{

/// @return "Sun" for 0 up to "Sat" for 6 (Thursday is "Thr"); throws kelCore::TimeException otherwise.
std::string getStringFromDay(int weekday);
/// @return 0 for "Sun" up to 6 for "Sat", in any case of letters; throws kelCore::TimeException otherwise.
int getDayFromString(const std::string& name);
/// @return "Jan" for 0 up to "Dec" for 11; throws kelCore::TimeException otherwise.
std::string getStringFromMonth(int month);
/// @return 0 for "Jan" up to 11 for "Dec", in any case of letters; throws kelCore::TimeException otherwise.
int getMonthFromString(const std::string& name);

/**
 * Writes a time as text.
 * @param seconds seconds since the start of referenceYear, UTC
 * @param referenceYear the year the seconds count from, e.g. 2026
 * @param format the text form; a value outside kelCore::TimeFormat throws
 * @param precision decimals of the seconds, 0 to 9
 * @param padLeadingField elapsed forms (seconds, minutes, hours) pad their first field to two digits
 * @param showPlusSign elapsed forms write "+" before a time that is not negative
 * @param base only BASE_DECIMAL writes; other bases throw
 * @throws kelCore::TimeException with "Unknown format flag for time string." for an unknown format
 */
std::string printTimeString(double seconds, int referenceYear, kelCore::TimeFormat format, unsigned short precision,
  bool padLeadingField = false, bool showPlusSign = false, NumericBase_t base = BASE_DECIMAL);

/**
 * printTimeString for callers that show the text: a time that cannot be written gives an empty
 * text and a line on the error stream instead of an exception. Arguments as printTimeString's.
 */
std::string getTimeString(int referenceYear, double seconds, kelCore::TimeFormat format, unsigned short precision,
  bool padLeadingField = false, bool showPlusSign = false, NumericBase_t base = BASE_DECIMAL);

/**
 * @param seconds seconds since the start of a year, not negative
 * @return "DDD HH:MM:SS.sss", the day of the year counted from 001 and the time of day
 */
std::string getJdayStringFromSeconds(double seconds);

/// @return the fields of time, one "tm_name = value" per line, for diagnostics.
std::string printTimeStruct(const tm& time);

} // namespace UTILS
