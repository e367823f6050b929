#pragma once

#include "kelCore/TimeFormatter.h"

namespace kelCore
{

/**
 * Times as a date-time group, "DDHHMM:SS.sss Z MONYY": day of the month, hour and minute,
 * seconds, the zone, the month and a two-digit year (70 to 99 are 1970 to 1999, 00 to 69
 * are 2000 to 2069).
 */
class DtgTimeFormatter : public TimeFormatter
{
public:
  TimeFormat format() const override { return TimeFormat::DTG; }
  std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const override;
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const override;
};

} // namespace kelCore
