#pragma once

#include <string>

/// @file Calendar arithmetic of the Gregorian calendar, and the fields of a time of year.

namespace kelCore
{

/// @return true for a Gregorian leap year.
bool isLeapYear(int year);
/// @return 366 for a leap year, else 365.
int daysInYear(int year);
/// @return seconds in the year.
double secondsInYear(int year);
/// @return days in a month (0 for January) of the year.
int daysInMonth(int year, int month);
/// @return "Jan" to "Dec" for 0 to 11; throws TimeException for any other month.
std::string monthName(int month);
/// @return 0 to 11 for a month's three-letter name in any case, -1 for anything else.
int monthFromName(const std::string& name);
/// @return seconds from the start of fromYear to the start of toYear (negative when toYear is earlier).
double secondsBetweenYears(int fromYear, int toYear);

/// A time of year split into fields, rounded to a number of decimals.
struct TimeFields
{
  int year = 1970;       ///< the year, after any carry from rounding
  int dayOfYear = 0;     ///< 0 for January 1
  int month = 0;         ///< 0 for January
  int dayOfMonth = 1;    ///< from 1
  int hour = 0;          ///< 0 to 23
  int minute = 0;        ///< 0 to 59
  int second = 0;        ///< 0 to 59
  long long fraction = 0; ///< the decimals of the second, as an integer of precision digits
  int precision = 0;     ///< decimals
};

/**
 * Splits seconds into the year (0 <= seconds < secondsInYear(year)) into fields, rounding
 * to precision decimals first so that 59.9996 at three decimals gives the next minute.
 */
TimeFields splitTimeOfYear(int year, double seconds, int precision);

/// @return "SS" or "SS.sss" of a second and its decimals.
std::string secondsText(int second, long long fraction, int precision);

} // namespace kelCore
