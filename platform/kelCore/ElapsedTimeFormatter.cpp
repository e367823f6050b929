#include "kelCore/ElapsedTimeFormatter.h"

#include "kelCore/StringUtils.h"
#include "kelCore/TimeTextParts.h"

#include <regex>

namespace kelCore
{

namespace
{

int fieldCount(TimeFormat format)
{
  return format == TimeFormat::HOURS ? 3 : (format == TimeFormat::MINUTES ? 2 : 1);
}

} // namespace

std::string ElapsedTimeFormatter::toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const
{
  return elapsedText(stamp.secondsSinceRefYear(referenceYear).Double(), fieldCount(format_), precision);
}

int ElapsedTimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const
{
  static const std::regex seconds(R"((-)?(\d+(\.\d*)?|\.\d+))");
  static const std::regex minutes(R"((-)?(\d+):(\d{1,2}(\.\d*)?))");
  static const std::regex hours(R"((-)?(\d+):(\d{1,2}):(\d{1,2}(\.\d*)?))");
  std::smatch m;
  double total = 0.0;
  double secondsField = 0.0;
  switch (format_)
  {
  case TimeFormat::SECONDS:
    if (!std::regex_match(text, m, seconds) || !isValidNumber(m[2].str(), total, false))
      return 1;
    break;
  case TimeFormat::MINUTES: {
    double wholeMinutes = 0.0;
    if (!std::regex_match(text, m, minutes) || !isValidNumber(m[2].str(), wholeMinutes, false) ||
        !readSecondsField(m[3].str(), secondsField))
      return 1;
    total = wholeMinutes * 60.0 + secondsField;
    break;
  }
  case TimeFormat::HOURS: {
    double wholeHours = 0.0;
    int minute = 0;
    if (!std::regex_match(text, m, hours) || !isValidNumber(m[2].str(), wholeHours, false) ||
        !isValidNumber(m[3].str(), minute, false) || minute > 59 || !readSecondsField(m[4].str(), secondsField))
      return 1;
    total = wholeHours * 3600.0 + minute * 60.0 + secondsField;
    break;
  }
  default:
    return 1;
  }
  stamp = TimeStamp(referenceYear, m[1].matched ? -total : total);
  return 0;
}

} // namespace kelCore
