#include "kelCore/Iso8601TimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include "kelCore/TextScanner.h"

namespace kelCore
{

std::string Iso8601TimeFormatter::toString(const TimeStamp& stamp, int, unsigned short precision) const
{
  const TimeFields f = splitTimeOfYear(stamp.referenceYear(), stamp.secondsSinceRefYear().Double(), precision);
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), "%04d-%02d-%02dT%02d:%02d:", f.year, f.month + 1, f.dayOfMonth, f.hour,
                f.minute);
  return buffer + secondsText(f.second, f.fraction, f.precision) + "Z";
}

int Iso8601TimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int) const
{
  TextScanner in(text);
  int year = 0, month = 0, day = 0, hour = 0, minute = 0;
  double seconds = 0.0;
  if (!in.digits(4, 4, year) || !in.literal('-') || !in.digits(2, 2, month) || !in.literal('-') ||
      !in.digits(2, 2, day) || !(in.literal('T') || in.literal(' ')) || !in.digits(2, 2, hour) || !in.literal(':') ||
      !in.digits(2, 2, minute) || !in.literal(':') || !in.seconds(seconds))
    return 1;
  in.optional('Z');
  if (!in.atEnd())
    return 1;
  return makeCalendarStamp(year, month - 1, day, hour, minute, seconds, stamp) ? 0 : 1;
}

} // namespace kelCore
