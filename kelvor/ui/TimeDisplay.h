#pragma once

#include "kelCore/TimeFormatterRegistry.h"

#include <QString>

namespace kelvor
{

class Registry;

/**
 * @brief Writes scenario times as the user chose to see them. The Scenario Editor keeps the
 * user's time format and precision in the registry (keys "Time Format", a kelCore
 * TimeFormat number, and "Time Precision", decimals of the seconds); KELVOR Lite shows its
 * times the same way, so that a time reads alike in the clock and in the editor's tables. Where
 * no choice is stored, or one no format has, times show as date and time of day, to the
 * millisecond: "032 2024 13:05:09.250".
 */
class TimeDisplay
{
public:
  /// @param registry where the choice is stored; read at every text, so a change shows at once
  explicit TimeDisplay(const Registry& registry) : registry_(registry) {}

  /**
   * @param seconds seconds since the start of referenceYear
   * @param referenceYear the year the scenario's times count from
   * @return the text of the time in the user's format
   */
  QString text(double seconds, int referenceYear) const;

private:
  kelCore::TimeFormat format_() const;
  unsigned short precision_() const;

  const Registry& registry_;
  kelCore::TimeFormatterRegistry formatters_;
};

} // namespace kelvor
