#include "kelCore/MonthDayTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include <regex>

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
  static const std::regex pattern(R"(([A-Za-z]{3})\s+(\d{1,2})\s+(\d{4})\s+(\d{1,2}):(\d{2}):(\d{1,2}(\.\d*)?))");
  std::smatch m;
  double seconds = 0.0;
  if (!std::regex_match(text, m, pattern) || !readSecondsField(m[6].str(), seconds))
    return 1;
  const int month = monthFromName(m[1].str());
  return makeCalendarStamp(std::stoi(m[3].str()), month, std::stoi(m[2].str()), std::stoi(m[4].str()),
                           std::stoi(m[5].str()), seconds, stamp)
             ? 0
             : 1;
}

} // namespace kelCore
