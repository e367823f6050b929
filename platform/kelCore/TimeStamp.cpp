#include "kelCore/TimeStamp.h"

#include "kelCore/Calendar.h"

#include <cmath>

namespace kelCore
{

TimeStamp::TimeStamp(int referenceYear, const Seconds& seconds) : year_(referenceYear), seconds_(seconds)
{
  double s = seconds.Double();
  if (!std::isfinite(s))
    return;
  // Jump whole 400-year cycles first so that far moments need no long loop.
  constexpr double CYCLE_SECONDS = 146097.0 * 86400.0;
  const double cycles = std::trunc(s / CYCLE_SECONDS);
  if (cycles != 0.0)
  {
    s -= cycles * CYCLE_SECONDS;
    year_ += static_cast<int>(cycles) * 400;
  }
  while (s < 0.0)
  {
    --year_;
    s += secondsInYear(year_);
  }
  while (s >= secondsInYear(year_))
  {
    s -= secondsInYear(year_);
    ++year_;
  }
  seconds_ = s;
}

Seconds TimeStamp::secondsSinceRefYear(int year) const { return seconds_ + Seconds(secondsBetweenYears(year, year_)); }

} // namespace kelCore
