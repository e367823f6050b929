#include "kelCore/Calendar.h"

#include "kelCore/Exception.h"
#include "kelCore/StringUtils.h"

#include <cmath>
#include <cstdio>

namespace kelCore
{

namespace
{

const char* const MONTHS[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int DAYS_IN_MONTH[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr double SECONDS_PER_DAY = 86400.0;

long long powerOfTen(int digits)
{
  long long p = 1;
  for (int i = 0; i < digits; ++i)
    p *= 10;
  return p;
}

} // namespace

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInYear(int year) { return isLeapYear(year) ? 366 : 365; }

double secondsInYear(int year) { return daysInYear(year) * SECONDS_PER_DAY; }

int daysInMonth(int year, int month)
{
  if (month < 0 || month > 11)
    return 0;
  return DAYS_IN_MONTH[month] + (month == 1 && isLeapYear(year) ? 1 : 0);
}

std::string monthName(int month)
{
  if (month < 0 || month > 11)
    throw TimeException("The given month is not valid.");
  return MONTHS[month];
}

int monthFromName(const std::string& name)
{
  for (int m = 0; m < 12; ++m)
    if (caseCompare(name, MONTHS[m]) == 0)
      return m;
  return -1;
}

double secondsBetweenYears(int fromYear, int toYear)
{
  // Whole 400-year cycles have a fixed length, so far years cost no long loop.
  constexpr double CYCLE_SECONDS = 146097.0 * SECONDS_PER_DAY;
  const int sign = toYear >= fromYear ? 1 : -1;
  int low = sign > 0 ? fromYear : toYear;
  const int high = sign > 0 ? toYear : fromYear;
  double total = ((high - low) / 400) * CYCLE_SECONDS;
  low += ((high - low) / 400) * 400;
  for (int y = low; y < high; ++y)
    total += secondsInYear(y);
  return sign * total;
}

TimeFields splitTimeOfYear(int year, double seconds, int precision)
{
  TimeFields f;
  f.precision = precision < 0 ? 0 : (precision > 9 ? 9 : precision);
  const long long scale = powerOfTen(f.precision);
  long long units = std::llround(seconds * static_cast<double>(scale));
  const long long yearUnits = static_cast<long long>(daysInYear(year)) * 86400LL * scale;
  if (units >= yearUnits)
  {
    units -= yearUnits;
    ++year;
  }
  f.year = year;
  f.fraction = units % scale;
  long long whole = units / scale;
  f.second = static_cast<int>(whole % 60);
  whole /= 60;
  f.minute = static_cast<int>(whole % 60);
  whole /= 60;
  f.hour = static_cast<int>(whole % 24);
  f.dayOfYear = static_cast<int>(whole / 24);
  int day = f.dayOfYear;
  f.month = 0;
  while (f.month < 11 && day >= daysInMonth(year, f.month))
    day -= daysInMonth(year, f.month++);
  f.dayOfMonth = day + 1;
  return f;
}

std::string secondsText(int second, long long fraction, int precision)
{
  char buffer[32];
  if (precision <= 0)
    std::snprintf(buffer, sizeof(buffer), "%02d", second);
  else
    std::snprintf(buffer, sizeof(buffer), "%02d.%0*lld", second, precision, fraction);
  return buffer;
}

} // namespace kelCore
