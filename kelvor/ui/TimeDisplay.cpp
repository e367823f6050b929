#include "ui/TimeDisplay.h"

#include "server/Registry.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace kelvor
{

namespace
{

constexpr kelCore::TimeFormat DEFAULT_FORMAT = kelCore::TimeFormat::ORDINAL;
constexpr int DEFAULT_PRECISION = 3;
constexpr int MAX_PRECISION = 9;

/// @return the stored integer, or fallback when it is absent or no integer.
int storedInteger(const Registry& registry, const char* key, int fallback)
{
  std::string text;
  int value = 0;
  if (!registry.value(key, text))
    return fallback;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() ? value : fallback;
}

} // namespace

QString TimeDisplay::text(double seconds, int referenceYear) const
{
  const kelCore::TimeStamp stamp(referenceYear, kelCore::Seconds(seconds));
  return QString::fromStdString(formatters_.toString(format_(), stamp, referenceYear, precision_()));
}

kelCore::TimeFormat TimeDisplay::format_() const
{
  const int stored = storedInteger(registry_, "Time Format", static_cast<int>(DEFAULT_FORMAT));
  const bool known = stored >= static_cast<int>(kelCore::TimeFormat::SECONDS) &&
                     stored <= static_cast<int>(kelCore::TimeFormat::ISO8601);
  return known ? static_cast<kelCore::TimeFormat>(stored) : DEFAULT_FORMAT;
}

unsigned short TimeDisplay::precision_() const
{
  const int stored = storedInteger(registry_, "Time Precision", DEFAULT_PRECISION);
  return static_cast<unsigned short>(std::clamp(stored, 0, MAX_PRECISION));
}

} // namespace kelvor
