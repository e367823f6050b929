#pragma once

#include "kelCore/TimeFormatter.h"

namespace kelCore
{

/// Times as "YYYY-MM-DDTHH:MM:SS.sssZ"; reading also takes a blank for the "T", no "Z", and an
/// offset from UTC instead of it ("+02:00", "-0530", "+01"), giving the moment in UTC.
class Iso8601TimeFormatter : public TimeFormatter
{
public:
  TimeFormat format() const override { return TimeFormat::ISO8601; }
  std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const override;
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const override;
};

} // namespace kelCore
