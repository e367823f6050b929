#include "kelCore/Iso8601TimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include <regex>

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
  static const std::regex pattern(R"((\d{4})-(\d{2})-(\d{2})[T ](\d{2}):(\d{2}):(\d{2}(\.\d*)?)Z?)");
  std::smatch m;
  double seconds = 0.0;
  if (!std::regex_match(text, m, pattern) || !readSecondsField(m[6].str(), seconds))
    return 1;
  return makeCalendarStamp(std::stoi(m[1].str()), std::stoi(m[2].str()) - 1, std::stoi(m[3].str()),
                           std::stoi(m[4].str()), std::stoi(m[5].str()), seconds, stamp)
             ? 0
             : 1;
}

} // namespace kelCore
