#include "kelCore/DtgTimeFormatter.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

#include <cctype>
#include <cstdio>
#include <regex>

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
  static const std::regex pattern(R"((\d{2})(\d{2})(\d{2}):(\d{1,2}(\.\d*)?)\s+Z\s+([A-Za-z]{3})(\d{2}))",
                                  std::regex::icase);
  std::smatch m;
  double seconds = 0.0;
  if (!std::regex_match(text, m, pattern) || !readSecondsField(m[4].str(), seconds))
    return 1;
  const int twoDigitYear = std::stoi(m[7].str());
  const int year = twoDigitYear < 70 ? 2000 + twoDigitYear : 1900 + twoDigitYear;
  return makeCalendarStamp(year, monthFromName(m[6].str()), std::stoi(m[1].str()), std::stoi(m[2].str()),
                           std::stoi(m[3].str()), seconds, stamp)
             ? 0
             : 1;
}

} // namespace kelCore
