#include "kelCore/OrdinalTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include "kelCore/TextScanner.h"

namespace kelCore
{

std::string OrdinalTimeFormatter::toString(const TimeStamp& stamp, int, unsigned short precision) const
{
  const TimeFields f = splitTimeOfYear(stamp.referenceYear(), stamp.secondsSinceRefYear().Double(), precision);
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), "%03d %04d %02d:%02d:", f.dayOfYear + 1, f.year, f.hour, f.minute);
  return buffer + secondsText(f.second, f.fraction, f.precision);
}

int OrdinalTimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int) const
{
  TextScanner in(text);
  int day = 0, year = 0, hour = 0, minute = 0;
  double seconds = 0.0;
  if (!in.digits(1, 3, day) || !in.blanks() || !in.digits(4, 4, year) || !in.blanks() || !in.digits(1, 2, hour) ||
      !in.literal(':') || !in.digits(2, 2, minute) || !in.literal(':') || !in.seconds(seconds) || !in.atEnd())
    return 1;
  return makeOrdinalStamp(year, day, hour, minute, seconds, stamp) ? 0 : 1;
}

} // namespace kelCore
