#pragma once

#include "kelCore/TimeFormatter.h"

namespace kelCore
{

/// Times as "Mon DD YYYY HH:MM:SS.sss".
class MonthDayTimeFormatter : public TimeFormatter
{
public:
  TimeFormat format() const override { return TimeFormat::MONTHDAY; }
  std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const override;
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const override;
};

} // namespace kelCore
