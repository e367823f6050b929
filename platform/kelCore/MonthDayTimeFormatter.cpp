#include "kelCore/MonthDayTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include "kelCore/TextScanner.h"

namespace kelCore
{

std::string MonthDayTimeFormatter::toString(const TimeStamp& stamp, int, unsigned short precision) const
{
  const TimeFields f = splitTimeOfYear(stamp.referenceYear(), stamp.secondsSinceRefYear().Double(), precision);
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), "%s %02d %04d %02d:%02d:", monthName(f.month).c_str(), f.dayOfMonth, f.year,
                f.hour, f.minute);
  return buffer + secondsText(f.second, f.fraction, f.precision);
}

int MonthDayTimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int) const
{
  TextScanner in(text);
  std::string month;
  int day = 0, year = 0, hour = 0, minute = 0;
  double seconds = 0.0;
  if (!in.letters(3, month) || !in.blanks() || !in.digits(1, 2, day) || !in.blanks() || !in.digits(4, 4, year) ||
      !in.blanks() || !in.digits(1, 2, hour) || !in.literal(':') || !in.digits(2, 2, minute) || !in.literal(':') ||
      !in.seconds(seconds) || !in.atEnd())
    return 1;
  return makeCalendarStamp(year, monthFromName(month), day, hour, minute, seconds, stamp) ? 0 : 1;
}

} // namespace kelCore
