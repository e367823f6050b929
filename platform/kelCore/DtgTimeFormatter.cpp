#include "kelCore/DtgTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cctype>
#include <cstdio>
#include "kelCore/TextScanner.h"

namespace kelCore
{

std::string DtgTimeFormatter::toString(const TimeStamp& stamp, int, unsigned short precision) const
{
  const TimeFields f = splitTimeOfYear(stamp.referenceYear(), stamp.secondsSinceRefYear().Double(), precision);
  std::string month = monthName(f.month);
  for (char& c : month)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  char head[32];
  std::snprintf(head, sizeof(head), "%02d%02d%02d:", f.dayOfMonth, f.hour, f.minute);
  char tail[32];
  std::snprintf(tail, sizeof(tail), " Z %s%02d", month.c_str(), ((f.year % 100) + 100) % 100);
  return head + secondsText(f.second, f.fraction, f.precision) + tail;
}

int DtgTimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int) const
{
  TextScanner in(text);
  int day = 0, hour = 0, minute = 0, twoDigitYear = 0;
  double seconds = 0.0;
  std::string month;
  if (!in.digits(2, 2, day) || !in.digits(2, 2, hour) || !in.digits(2, 2, minute) || !in.literal(':') ||
      !in.seconds(seconds) || !in.blanks() || !in.literal('Z', true) || !in.blanks() || !in.letters(3, month) ||
      !in.digits(2, 2, twoDigitYear) || !in.atEnd())
    return 1;
  const int year = twoDigitYear < 70 ? 2000 + twoDigitYear : 1900 + twoDigitYear;
  return makeCalendarStamp(year, monthFromName(month), day, hour, minute, seconds, stamp) ? 0 : 1;
}

} // namespace kelCore
