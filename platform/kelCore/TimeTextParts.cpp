#include "kelCore/TimeTextParts.h"

#include "kelCore/Calendar.h"

#include <cmath>
#include <cstdio>

namespace kelCore
{

std::string elapsedText(double seconds, int fields, int precision)
{
  const bool negative = seconds < 0.0;
  const int p = precision < 0 ? 0 : (precision > 9 ? 9 : precision);
  long long scale = 1;
  for (int i = 0; i < p; ++i)
    scale *= 10;
  const long long units = std::llround(std::fabs(seconds) * static_cast<double>(scale));
  long long whole = units / scale;
  const long long fraction = units % scale;
  std::string text = negative && units != 0 ? "-" : "";
  if (fields == 1)
  {
    char buffer[48];
    if (p == 0)
      std::snprintf(buffer, sizeof(buffer), "%lld", whole);
    else
      std::snprintf(buffer, sizeof(buffer), "%lld.%0*lld", whole, p, fraction);
    return text + buffer;
  }
  const int second = static_cast<int>(whole % 60);
  whole /= 60;
  char buffer[48];
  if (fields == 2)
    std::snprintf(buffer, sizeof(buffer), "%lld:", whole);
  else
    std::snprintf(buffer, sizeof(buffer), "%lld:%02lld:", whole / 60, whole % 60);
  return text + buffer + secondsText(second, fraction, p);
}

bool makeCalendarStamp(int year, int month, int day, int hour, int minute, double seconds, TimeStamp& stamp)
{
  if (month < 0 || month > 11 || day < 1 || day > daysInMonth(year, month))
    return false;
  int dayOfYear = day;
  for (int m = 0; m < month; ++m)
    dayOfYear += daysInMonth(year, m);
  return makeOrdinalStamp(year, dayOfYear, hour, minute, seconds, stamp);
}

bool makeOrdinalStamp(int year, int dayOfYear, int hour, int minute, double seconds, TimeStamp& stamp)
{
  if (dayOfYear < 1 || dayOfYear > daysInYear(year) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      seconds < 0.0 || seconds >= 60.0)
    return false;
  stamp = TimeStamp(year, (dayOfYear - 1) * 86400.0 + hour * 3600.0 + minute * 60.0 + seconds);
  return true;
}

} // namespace kelCore
