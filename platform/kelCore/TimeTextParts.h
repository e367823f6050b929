#pragma once

#include "kelCore/TimeStamp.h"

#include <string>

/// @file Pieces shared by the time formatters.

namespace kelCore
{

/// "H:MM:SS.sss"-style text of a span in seconds, with as many leading fields as asked (1 to 3).
std::string elapsedText(double seconds, int fields, int precision);

/**
 * Builds the moment of a calendar date and time, refusing dates that do not exist.
 * @param month 0 for January @param day from 1 @return false for an impossible date or time
 */
bool makeCalendarStamp(int year, int month, int day, int hour, int minute, double seconds, TimeStamp& stamp);

/// As makeCalendarStamp, with a day of the year from 1.
bool makeOrdinalStamp(int year, int dayOfYear, int hour, int minute, double seconds, TimeStamp& stamp);

} // namespace kelCore
