#pragma once

#include "kelCore/Calendar.h"
#include "kelCore/TimeFormat.h"
#include "kelCore/TimeStamp.h"

#include <QString>

#include <ostream>

/// Lets GoogleTest print text that failed a comparison.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace kelCore
{

/// Lets GoogleTest print a stamp that failed a comparison.
inline void PrintTo(const TimeStamp& stamp, std::ostream* out)
{
  *out << "TimeStamp(" << stamp.referenceYear() << ", " << stamp.secondsSinceRefYear().Double() << " s)";
}

} // namespace kelCore

namespace timetest
{

/// The formats a TimeWidget offers, in the order of its menu.
const kelCore::TimeFormat FORMATS[] = {kelCore::TimeFormat::SECONDS, kelCore::TimeFormat::MINUTES,
    kelCore::TimeFormat::HOURS, kelCore::TimeFormat::ORDINAL, kelCore::TimeFormat::MONTHDAY};

/// @return the moment of a day of the year (from 1) and a time of day, in UTC.
inline kelCore::TimeStamp ordinal(int year, int day, int hour, int minute, double second)
{
  return kelCore::TimeStamp(year, (day - 1) * 86400.0 + hour * 3600.0 + minute * 60.0 + second);
}

/// @return the moment of a calendar date (month from 1, as written) and a time of day, in UTC.
inline kelCore::TimeStamp date(int year, int month, int day, int hour, int minute, double second)
{
  int dayOfYear = day;
  for (int m = 0; m < month - 1; ++m)
    dayOfYear += kelCore::daysInMonth(year, m);
  return ordinal(year, dayOfYear, hour, minute, second);
}

} // namespace timetest
