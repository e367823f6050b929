#pragma once

#include "kelCore/TimeFormatter.h"

namespace kelCore
{

/**
 * Times as spans since the reference year began: SECONDS ("3725.5"), MINUTES ("62:05.5") or
 * HOURS ("1:02:05.5"). Negative spans are written and read with a leading "-".
 */
class ElapsedTimeFormatter : public TimeFormatter
{
public:
  /// @param format SECONDS, MINUTES or HOURS
  explicit ElapsedTimeFormatter(TimeFormat format) : format_(format) {}

  TimeFormat format() const override { return format_; }
  std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const override;
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const override;

private:
  TimeFormat format_;
};

} // namespace kelCore
