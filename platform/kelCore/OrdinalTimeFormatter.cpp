#include "kelCore/OrdinalTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cstdio>
#include <regex>

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
  static const std::regex pattern(R"((\d{1,3})\s+(\d{4})\s+(\d{1,2}):(\d{2}):(\d{1,2}(\.\d*)?))");
  std::smatch m;
  double seconds = 0.0;
  if (!std::regex_match(text, m, pattern) || !readSecondsField(m[5].str(), seconds))
    return 1;
  return makeOrdinalStamp(std::stoi(m[2].str()), std::stoi(m[1].str()), std::stoi(m[3].str()), std::stoi(m[4].str()),
                          seconds, stamp)
             ? 0
             : 1;
}

} // namespace kelCore
