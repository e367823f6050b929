#pragma once

#include "kelCore/TimeFormatter.h"

namespace kelCore
{

/// Times as "DDD YYYY HH:MM:SS.sss", the day of the year counted from 001.
class OrdinalTimeFormatter : public TimeFormatter
{
public:
  TimeFormat format() const override { return TimeFormat::ORDINAL; }
  std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const override;
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const override;
};

} // namespace kelCore
