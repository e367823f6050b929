// The names of the time units of data table columns; apart from the time text reader so that
// the reader stands alone (its fuzz target has no host to notify).
#include "host/Notify.h"
#include "utils/TimeString.h"

#include <array>
#include <utility>

namespace UTILS
{

namespace
{

/// Each time unit with its name, as the units dialog names the time formats.
const std::array<std::pair<UnitType_t, const char*>, 7> TIME_UNITS{{{UNITS_SECONDS, "Seconds"},
                                                                   {UNITS_MINUTES, "Minutes"},
                                                                   {UNITS_HOURS, "Hours"},
                                                                   {UNITS_ORDINAL, "Ordinal"},
                                                                   {UNITS_MONTHDAY, "Month Day"},
                                                                   {UNITS_DTG, "DTG"},
                                                                   {UNITS_ISO8601, "ISO 8601"}}};

} // namespace

std::string getTimeFormatString(UnitType_t units)
{
  for (const auto& [unit, name] : TIME_UNITS)
  {
    if (unit == units)
      return name;
  }
  return "unknown";
}

UnitType_t getTimeFormatValue(const std::string& text)
{
  for (const auto& [unit, name] : TIME_UNITS)
  {
    if (text == name)
      return unit;
  }
  PICommon::Notify(PICommon::NOTIFY_WARN) << "WARNING:  Unrecognized Time Format " << text << "\n";
  return UNITS_NONE;
}

} // namespace UTILS
