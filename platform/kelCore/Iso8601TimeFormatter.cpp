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
  // The zone: "Z", none (taken as UTC), or the offset from UTC that GPS and GIS tools write,
  // "+HH:MM", "+HHMM" or "+HH" (or "-"); the stamp is the moment in UTC.
  int offsetMinutes = 0;
  if (!in.optional('Z'))
  {
    const bool ahead = in.literal('+');
    if (ahead || in.literal('-'))
    {
      int hours = 0, minutes = 0;
      if (!in.digits(2, 2, hours) || (in.literal(':') && !in.digits(2, 2, minutes)))
        return 1;
      in.digits(2, 2, minutes);
      if (hours > 23 || minutes > 59)
        return 1;
      offsetMinutes = (ahead ? 1 : -1) * (hours * 60 + minutes);
    }
  }
  if (!in.atEnd() || !makeCalendarStamp(year, month - 1, day, hour, minute, seconds, stamp))
    return 1;
  stamp = stamp - Seconds(offsetMinutes * 60.0);
  return 0;
}

} // namespace kelCore
