#pragma once

#include "kelCore/Seconds.h"

namespace kelCore
{

/**
 * @brief A moment as a year and the seconds since that year began.
 *
 * Kept normalised: 0 <= seconds < the length of the year, so 1970 with -1 second is the last
 * second of 1969, and two stamps compare by their moment whatever year they were made with.
 */
class TimeStamp
{
public:
  /// January 1 1970, 00:00:00.
  TimeStamp() = default;
  /// @param referenceYear the year the seconds count from @param seconds seconds since that year began
  TimeStamp(int referenceYear, const Seconds& seconds);

  /// @return the year of the moment.
  int referenceYear() const { return year_; }
  /// @return seconds since the start of referenceYear().
  Seconds secondsSinceRefYear() const { return seconds_; }
  /// @return seconds since the start of year, negative for a moment before it.
  Seconds secondsSinceRefYear(int year) const;

  /// @return the moment moved by seconds.
  TimeStamp operator+(const Seconds& seconds) const { return TimeStamp(year_, seconds_ + seconds); }
  TimeStamp operator-(const Seconds& seconds) const { return TimeStamp(year_, seconds_ - seconds); }
  /// @return the seconds from other to this moment.
  Seconds operator-(const TimeStamp& other) const { return secondsSinceRefYear(other.year_) - other.seconds_; }

  bool operator==(const TimeStamp& o) const { return year_ == o.year_ && seconds_ == o.seconds_; }
  bool operator!=(const TimeStamp& o) const { return !(*this == o); }
  bool operator<(const TimeStamp& o) const { return year_ < o.year_ || (year_ == o.year_ && seconds_ < o.seconds_); }
  bool operator>(const TimeStamp& o) const { return o < *this; }
  bool operator<=(const TimeStamp& o) const { return !(o < *this); }
  bool operator>=(const TimeStamp& o) const { return !(*this < o); }

private:
  int year_ = 1970;
  Seconds seconds_;
};

} // namespace kelCore
