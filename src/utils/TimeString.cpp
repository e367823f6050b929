#include "utils/TimeString.h"

#include "kelCore/Calendar.h"
#include "kelCore/Exception.h"
#include "kelCore/StringUtils.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "kelCore/TimeStamp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <sstream>

namespace UTILS
{

namespace
{

const std::array<const char*, 7> DAY_NAMES = {"Sun", "Mon", "Tue", "Wed", "Thr", "Fri", "Sat"};
const std::array<const char*, 12> MONTH_NAMES = {
  "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

template <size_t N>
int indexOfName(const std::array<const char*, N>& names, const std::string& name, const char* failure)
{
  for (size_t i = 0; i < N; ++i)
  {
    if (kelCore::caseCompare(name, names[i]) == 0)
      return static_cast<int>(i);
  }
  throw kelCore::TimeException(failure);
}

template <size_t N>
std::string nameAt(const std::array<const char*, N>& names, int index, const char* failure)
{
  if (index < 0 || index >= static_cast<int>(N))
    throw kelCore::TimeException(failure);
  return names[index];
}

bool isKnownFormat(kelCore::TimeFormat format)
{
  const int value = static_cast<int>(format);
  return value >= static_cast<int>(kelCore::TimeFormat::SECONDS) && value <= static_cast<int>(kelCore::TimeFormat::ISO8601);
}

bool isElapsedFormat(kelCore::TimeFormat format)
{
  return format == kelCore::TimeFormat::SECONDS || format == kelCore::TimeFormat::MINUTES ||
    format == kelCore::TimeFormat::HOURS;
}

// The elapsed forms' first field is the digits before the first ':' or '.', after any sign.
std::string withPaddedLeadingField(const std::string& text)
{
  const size_t start = (!text.empty() && text[0] == '-') ? 1 : 0;
  const size_t end = text.find_first_of(":.", start);
  const size_t digits = (end == std::string::npos ? text.size() : end) - start;
  if (digits >= 2)
    return text;
  return text.substr(0, start) + std::string(2 - digits, '0') + text.substr(start);
}

const kelCore::TimeFormatterRegistry& formatters()
{
  static const kelCore::TimeFormatterRegistry registry;
  return registry;
}

// The computer's clock now, UTC, in a strftime layout.
std::string systemTimeText(const char* layout)
{
  const std::time_t now = std::time(nullptr);
  tm utc{};
  gmtime_r(&now, &utc);
  char text[32];
  std::strftime(text, sizeof(text), layout, &utc);
  return text;
}

} // namespace

std::string getStringFromDay(int weekday)
{
  return nameAt(DAY_NAMES, weekday, "The given weekday number is not valid.");
}

int getDayFromString(const std::string& name)
{
  return indexOfName(DAY_NAMES, name, "The given weekday name is not valid.");
}

std::string getStringFromMonth(int month)
{
  return nameAt(MONTH_NAMES, month, "The given month is not valid.");
}

int getMonthFromString(const std::string& name)
{
  return indexOfName(MONTH_NAMES, name, "The given month name is not valid.");
}

std::string printTimeString(double seconds, int referenceYear, kelCore::TimeFormat format, unsigned short precision,
  bool padLeadingField, bool showPlusSign, NumericBase_t base)
{
  if (!isKnownFormat(format))
    throw kelCore::TimeException("Unknown format flag for time string.");
  if (base != BASE_DECIMAL)
    throw kelCore::TimeException("Time strings are written in decimal only.");
  if (!std::isfinite(seconds))
    throw kelCore::TimeException("The time is not a finite number of seconds.");
  const kelCore::TimeStamp stamp(referenceYear, seconds);
  std::string text = formatters().toString(format, stamp, referenceYear, precision);
  if (!isElapsedFormat(format))
    return text;
  if (padLeadingField)
    text = withPaddedLeadingField(text);
  if (showPlusSign && (text.empty() || text[0] != '-'))
    text.insert(0, "+");
  return text;
}

std::string getTimeString(int referenceYear, double seconds, kelCore::TimeFormat format, unsigned short precision,
  bool padLeadingField, bool showPlusSign, NumericBase_t base)
{
  try
  {
    return printTimeString(seconds, referenceYear, format, precision, padLeadingField, showPlusSign, base);
  }
  catch (const kelCore::TimeException& e)
  {
    std::cerr << "Caught TimeException, could not get a time string: " << e.what() << "\n";
    return std::string();
  }
}

std::string getJdayStringFromSeconds(double seconds)
{
  if (!std::isfinite(seconds) || seconds < 0.0)
    throw kelCore::TimeException("The time is not a non-negative number of seconds.");
  const long long millis = std::llround(seconds * 1000.0);
  const long long wholeSeconds = millis / 1000;
  char text[48];
  std::snprintf(text, sizeof(text), "%03lld %02lld:%02lld:%02lld.%03lld", wholeSeconds / 86400 + 1,
    (wholeSeconds / 3600) % 24, (wholeSeconds / 60) % 60, wholeSeconds % 60, millis % 1000);
  return text;
}

std::string getTimeRemainingText(double percentDone, double elapsedSeconds)
{
  if (!(percentDone >= 1.0) || !(elapsedSeconds >= 0.0))
    return "Calculating";
  const double remaining = elapsedSeconds * (100.0 - std::min(percentDone, 100.0)) / percentDone;
  char text[48];
  if (remaining < 1.0)
    return "Moments";
  if (remaining < 60.0)
    std::snprintf(text, sizeof(text), "%.0f Seconds", std::ceil(remaining));
  else if (remaining < 86400.0)
  {
    const long long minutes = static_cast<long long>(std::ceil(remaining / 60.0));
    std::snprintf(text, sizeof(text), "%lld:%02lld:00", minutes / 60, minutes % 60);
  }
  else
    std::snprintf(text, sizeof(text), "%.1f Days", remaining / 86400.0);
  return text;
}

std::string getFilenameFromTime(double seconds, int referenceYear)
{
  if (!std::isfinite(seconds))
    throw kelCore::TimeException("The time is not a finite number of seconds.");
  const kelCore::TimeStamp stamp(referenceYear, seconds);
  const kelCore::TimeFields f = kelCore::splitTimeOfYear(stamp.referenceYear(), stamp.secondsSinceRefYear().Double(), 0);
  char text[48];
  std::snprintf(text, sizeof(text), "%04d%02d%02d_%02d%02d%02d", f.year, f.month + 1, f.dayOfMonth, f.hour, f.minute,
    f.second);
  return text;
}

std::string getSystemTimeString()
{
  return systemTimeText("%Y-%m-%d %H:%M:%S");
}

std::string appendTimeToString(const std::string& text)
{
  return text + "_" + systemTimeText("%Y%m%d_%H%M%S");
}

std::string printTimeStruct(const tm& time)
{
  std::ostringstream out;
  out << "tm_sec = " << time.tm_sec << "\n"
      << "tm_min = " << time.tm_min << "\n"
      << "tm_hour = " << time.tm_hour << "\n"
      << "tm_mday = " << time.tm_mday << "\n"
      << "tm_mon = " << time.tm_mon << "\n"
      << "tm_year = " << time.tm_year << "\n"
      << "tm_wday = " << time.tm_wday << "\n"
      << "tm_yday = " << time.tm_yday << "\n"
      << "tm_isdst = " << time.tm_isdst << "\n";
  return out.str();
}

} // namespace UTILS
