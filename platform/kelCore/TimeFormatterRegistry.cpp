#include "kelCore/TimeFormatterRegistry.h"

#include "kelCore/DtgTimeFormatter.h"
#include "kelCore/ElapsedTimeFormatter.h"
#include "kelCore/Iso8601TimeFormatter.h"
#include "kelCore/MonthDayTimeFormatter.h"
#include "kelCore/OrdinalTimeFormatter.h"
#include "kelCore/StringUtils.h"

namespace kelCore
{

namespace
{

std::string unquoted(const std::string& text)
{
  std::string t = trim(text);
  while (t.size() >= 2 && (t.front() == '"' || t.front() == '\'') && t.back() == t.front())
    t = trim(t.substr(1, t.size() - 2));
  if (!t.empty() && t.front() == '+')
    t = trim(t.substr(1));
  return t;
}

} // namespace

TimeFormatterRegistry::TimeFormatterRegistry()
{
  // The calendar forms go first: their texts are never read by the elapsed forms, and the
  // elapsed forms try the most fields first so that "1:02:03" is hours, not minutes.
  formatters_.push_back(std::make_unique<Iso8601TimeFormatter>());
  formatters_.push_back(std::make_unique<MonthDayTimeFormatter>());
  formatters_.push_back(std::make_unique<OrdinalTimeFormatter>());
  formatters_.push_back(std::make_unique<DtgTimeFormatter>());
  formatters_.push_back(std::make_unique<ElapsedTimeFormatter>(TimeFormat::HOURS));
  formatters_.push_back(std::make_unique<ElapsedTimeFormatter>(TimeFormat::MINUTES));
  formatters_.push_back(std::make_unique<ElapsedTimeFormatter>(TimeFormat::SECONDS));
}

const TimeFormatter& TimeFormatterRegistry::formatter(TimeFormat format) const
{
  for (const auto& f : formatters_)
    if (f->format() == format)
      return *f;
  return *formatters_.back();
}

std::string TimeFormatterRegistry::toString(TimeFormat format, const TimeStamp& stamp, int referenceYear,
                                            unsigned short precision) const
{
  return formatter(format).toString(stamp, referenceYear, precision);
}

int TimeFormatterRegistry::fromString(const std::string& text, TimeStamp& stamp, int referenceYear,
                                      TimeFormat* matched) const
{
  const std::string t = unquoted(text);
  for (const auto& f : formatters_)
  {
    if (f->fromString(t, stamp, referenceYear) == 0)
    {
      if (matched)
        *matched = f->format();
      return 0;
    }
  }
  return 1;
}

} // namespace kelCore
