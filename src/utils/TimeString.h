#pragma once

#include "kelCore/TimeFormat.h"
#include "host/UnitType.h"
#include "utils/NumericBase.h"
#include "utils/TimeFormatMatch.h"

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

/**
 * An estimate of the time a task still needs, for progress dialogs.
 * @param percentDone the share of the task done, 0 to 100
 * @param elapsedSeconds seconds the task has run so far
 * @return "Calculating" below 1 percent, "Moments" under a second, "N Seconds" under a minute,
 *   "H:MM:00" under a day (minutes rounded up), else "N.N Days"
 */
std::string getTimeRemainingText(double percentDone, double elapsedSeconds);

/**
 * @param seconds seconds since the start of referenceYear, UTC
 * @param referenceYear the year the seconds count from
 * @return the moment as "YYYYMMDD_HHMMSS", fit for a file name
 */
std::string getFilenameFromTime(double seconds, int referenceYear);

/// @return the computer's clock now, UTC, as "YYYY-MM-DD HH:MM:SS".
std::string getSystemTimeString();

/// @return text followed by "_" and the computer's clock now as getFilenameFromTime writes it.
std::string appendTimeToString(const std::string& text);

/// @return the fields of time, one "tm_name = value" per line, for diagnostics.
std::string printTimeStruct(const tm& time);

/// @return the pattern name of a layout, such as "JJJ yyyy HH:MM:SS.sss"; "NO MATCH" for MATCH_NONE.
std::string getTimeMatchString(TimeFormatMatch_t match);

/// @return the layout text has, after surrounding blanks are dropped; MATCH_NONE when it has none.
TimeFormatMatch_t getTimeMatch(const std::string& text);

/**
 * Reads a time in any recognised layout. Month and weekday names are read in any case of
 * letters; a two-digit year YY is 20YY below 70 and 19YY from 70; a weekday name is not checked
 * against the date.
 * @param text the time text
 * @param year on entry the year for layouts that name none; on return the year the result counts from
 * @return seconds since the start of year, UTC; elapsed layouts give the seconds they state
 * @throws kelCore::TimeException when the text has no layout or a field is out of range
 */
double parseTimeString(const std::string& text, int& year);

/// @return seconds of an elapsed "HH:MM:SS.sss"; throws kelCore::TimeException for any other text.
double getHHMMSSFromString(const std::string& text);

/// @return the year a time text names, or defaultYear when it names none; throws as parseTimeString.
int getYearFromTimeString(const std::string& text, int defaultYear);

/// @return seconds since the start of a year of "DDD HH:MM:SS.sss"; throws kelCore::TimeException for any other text.
double getSecondsFromJdayString(const std::string& text);

/// @return the name of a time unit of a data table column ("Seconds", "Ordinal", ...); "unknown" for a unit that is no time
std::string getTimeFormatString(UnitType_t units);
/**
 * @return the time unit of that name, as getTimeFormatString writes it; UNITS_NONE, with a
 * warning to the notification stream, for a name that is none
 */
UnitType_t getTimeFormatValue(const std::string& text);

} // namespace UTILS
