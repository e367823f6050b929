// Reading of time text in the layouts of TimeFormatMatch_t.
#include "utils/TimeString.h"

#include "kelCore/Calendar.h"
#include "kelCore/Exception.h"
#include "kelCore/StringUtils.h"
#include "utils/RegexObject.h"

#include <cctype>
#include <cstdlib>
#include <functional>
#include <memory>

namespace UTILS
{

namespace
{

using Groups = std::vector<std::string>;

/// Seconds since the start of a year, and that year.
struct YearTime
{
  double seconds;
  int year;
};

const char* const MONTH = "(jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec)";
const char* const WEEKDAY = "(sun|mon|tue|wed|thr|fri|sat)";
const char* const CLOCK = "(\\d{1,2}):(\\d{2}):(\\d{2}(?:\\.\\d*)?)";
const char* const DECIMAL = "(\\d+(?:\\.\\d*)?|\\.\\d+)";

int number(const std::string& digits)
{
  return std::atoi(digits.c_str());
}

double decimal(const std::string& digits)
{
  return std::strtod(digits.c_str(), nullptr);
}

void require(bool valid, const char* reason)
{
  if (!valid)
    throw kelCore::TimeException(reason);
}

// Seconds into the day of hour, minute, second; a 12-hour clock takes "AM" or "PM" in half.
double clockSeconds(const std::string& hour, const std::string& minute, const std::string& second,
  const std::string& half = std::string())
{
  int h = number(hour);
  const int m = number(minute);
  const double s = decimal(second);
  if (!half.empty())
  {
    require(h >= 1 && h <= 12, "The hour of a 12-hour time is not valid.");
    h = (h % 12) + (kelCore::caseCompare(half, "pm") == 0 ? 12 : 0);
  }
  require(h < 24 && m < 60 && s < 60.0, "The time of day is not valid.");
  return h * 3600.0 + m * 60.0 + s;
}

double dayStartSeconds(int year, int dayOfYear)
{
  require(dayOfYear >= 1 && dayOfYear <= kelCore::daysInYear(year), "The day of the year is not valid.");
  return (dayOfYear - 1) * 86400.0;
}

double dateSeconds(int year, int month, int dayOfMonth)
{
  require(dayOfMonth >= 1 && dayOfMonth <= kelCore::daysInMonth(year, month), "The day of the month is not valid.");
  int dayOfYear = dayOfMonth;
  for (int earlier = 0; earlier < month; ++earlier)
    dayOfYear += kelCore::daysInMonth(year, earlier);
  return dayStartSeconds(year, dayOfYear);
}

int monthOf(const std::string& text)
{
  if (!text.empty() && std::isdigit(static_cast<unsigned char>(text[0])))
  {
    const int month = number(text) - 1;
    require(month >= 0 && month < 12, "The given month is not valid.");
    return month;
  }
  return getMonthFromString(text);
}

int fourDigitYear(const std::string& twoDigits)
{
  const int yy = number(twoDigits);
  return yy < 70 ? 2000 + yy : 1900 + yy;
}

double elapsedSeconds(const std::string& minutesOrHours, const std::string& minutes, const std::string& second)
{
  const double s = decimal(second);
  require(s < 60.0, "The seconds of the time are not valid.");
  if (minutes.empty())
    return decimal(minutesOrHours) * 60.0 + s;
  require(number(minutes) < 60, "The minutes of the time are not valid.");
  return decimal(minutesOrHours) * 3600.0 + number(minutes) * 60.0 + s;
}

/// A layout: its name, its expression and the arithmetic of its fields.
struct Layout
{
  TimeFormatMatch_t match;
  const char* name;
  std::string pattern;
  std::function<YearTime(const Groups&, int)> read;
};

std::string cat(std::initializer_list<std::string> parts)
{
  std::string joined;
  for (const std::string& part : parts)
    joined += part;
  return joined;
}

std::vector<Layout> makeLayouts()
{
  const std::string sp = "\\s+";
  const std::string year = "(\\d{4})";
  const std::string md = "(\\d{1,2})";
  const std::string jjj = "(\\d{1,3})";
  return {
    {MATCH_JDAY_12HOUR_YEAR, "JJJ HH:MM:SS [AM|PM] yyyy", cat({jjj, sp, CLOCK, "\\s*(am|pm)", sp, year}),
      [](const Groups& g, int) {
        const int y = number(g[5]);
        return YearTime{dayStartSeconds(y, number(g[0])) + clockSeconds(g[1], g[2], g[3], g[4]), y};
      }},
    {MATCH_ISO_DATE_TIME, "YYYY-MON-DAY HH:MM:SS.sss", cat({year, "-(\\d{1,2}|", MONTH, ")-", md, "(?:\\s+|t)", CLOCK, "z?"}),
      [](const Groups& g, int) {
        const int y = number(g[0]);
        return YearTime{dateSeconds(y, monthOf(g[1]), number(g[3])) + clockSeconds(g[4], g[5], g[6]), y};
      }},
    {MATCH_SECONDS, "SS.sss", DECIMAL, [](const Groups& g, int y) { return YearTime{decimal(g[0]), y}; }},
    {MATCH_MINUTES_SECONDS, "MM:SS.sss", "(\\d+):(\\d{1,2}(?:\\.\\d*)?)",
      [](const Groups& g, int y) { return YearTime{elapsedSeconds(g[0], "", g[1]), y}; }},
    {MATCH_HOURS_MINUTES_SECONDS, "HH:MM:SS.sss", "(\\d+):(\\d{1,2}):(\\d{1,2}(?:\\.\\d*)?)",
      [](const Groups& g, int y) { return YearTime{elapsedSeconds(g[0], g[1], g[2]), y}; }},
    {MATCH_JDAY_YEAR_TIME, "JJJ yyyy HH:MM:SS.sss", cat({jjj, sp, year, sp, CLOCK}),
      [](const Groups& g, int) {
        const int y = number(g[1]);
        return YearTime{dayStartSeconds(y, number(g[0])) + clockSeconds(g[2], g[3], g[4]), y};
      }},
    {MATCH_MONTH_DAY_YEAR_TIME, "MNT MD yyyy HH:MM:SS.sss", cat({MONTH, sp, md, ",?", sp, year, sp, CLOCK}),
      [](const Groups& g, int) {
        const int y = number(g[2]);
        return YearTime{dateSeconds(y, monthOf(g[0]), number(g[1])) + clockSeconds(g[3], g[4], g[5]), y};
      }},
    {MATCH_DAY_MONTH_YEAR_TIME, "MD MNT yyyy HH:MM:SS.sss", cat({md, sp, MONTH, sp, year, sp, CLOCK}),
      [](const Groups& g, int) {
        const int y = number(g[2]);
        return YearTime{dateSeconds(y, monthOf(g[1]), number(g[0])) + clockSeconds(g[3], g[4], g[5]), y};
      }},
    {MATCH_JDAY_TIME_YEAR, "JJJ HH:MM:SS.sss yyyy", cat({jjj, sp, CLOCK, sp, year}),
      [](const Groups& g, int) {
        const int y = number(g[4]);
        return YearTime{dayStartSeconds(y, number(g[0])) + clockSeconds(g[1], g[2], g[3]), y};
      }},
    {MATCH_MONTH_DAY_TIME_YEAR, "MNT MD HH:MM:SS.sss yyyy", cat({MONTH, sp, md, sp, CLOCK, sp, year}),
      [](const Groups& g, int) {
        const int y = number(g[5]);
        return YearTime{dateSeconds(y, monthOf(g[0]), number(g[1])) + clockSeconds(g[2], g[3], g[4]), y};
      }},
    {MATCH_JDAY_TIME, "JJJ HH:MM:SS.sss", cat({jjj, sp, CLOCK}),
      [](const Groups& g, int y) {
        return YearTime{dayStartSeconds(y, number(g[0])) + clockSeconds(g[1], g[2], g[3]), y};
      }},
    {MATCH_WEEKDAY_MONTH_DAY_TIME_YEAR, "WKD MNT MD HH:MM:SS.sss yyyy", cat({WEEKDAY, sp, MONTH, sp, md, sp, CLOCK, sp, year}),
      [](const Groups& g, int) {
        const int y = number(g[6]);
        return YearTime{dateSeconds(y, monthOf(g[1]), number(g[2])) + clockSeconds(g[3], g[4], g[5]), y};
      }},
    {MATCH_WEEKDAY_MONTH_DAY_TIME, "WKD MNT MD HH:MM:SS.sss", cat({WEEKDAY, sp, MONTH, sp, md, sp, CLOCK}),
      [](const Groups& g, int y) {
        return YearTime{dateSeconds(y, monthOf(g[1]), number(g[2])) + clockSeconds(g[3], g[4], g[5]), y};
      }},
    {MATCH_NEGATIVE_SECONDS, "-SS.sss", cat({"-", DECIMAL}), [](const Groups& g, int y) { return YearTime{-decimal(g[0]), y}; }},
    {MATCH_DATE_TIME_GROUP, "MDHHMM:SS.sss Z MNTYY", cat({"(\\d{2})(\\d{2})(\\d{2}):(\\d{2}(?:\\.\\d*)?)\\s*z", sp, MONTH, "(\\d{2})"}),
      [](const Groups& g, int) {
        const int y = fourDigitYear(g[5]);
        return YearTime{dateSeconds(y, monthOf(g[4]), number(g[0])) + clockSeconds(g[1], g[2], g[3]), y};
      }},
    {MATCH_ZULU_WITH_COLON, "HH:MMz MDMNTYYYY", cat({"(\\d{1,2}):(\\d{2})z", sp, md, MONTH, year}),
      [](const Groups& g, int) {
        const int y = number(g[4]);
        return YearTime{dateSeconds(y, monthOf(g[3]), number(g[2])) + clockSeconds(g[0], g[1], "0"), y};
      }},
    {MATCH_ZULU, "HHMMz MDMNTYYYY", cat({"(\\d{2})(\\d{2})z", sp, md, MONTH, year}),
      [](const Groups& g, int) {
        const int y = number(g[4]);
        return YearTime{dateSeconds(y, monthOf(g[3]), number(g[2])) + clockSeconds(g[0], g[1], "0"), y};
      }},
    {MATCH_DAY_MONTH, "MD-MNT", cat({md, "-", MONTH}),
      [](const Groups& g, int y) { return YearTime{dateSeconds(y, monthOf(g[1]), number(g[0])), y}; }},
  };
}

/// The layouts with their expressions compiled once.
struct CompiledLayout
{
  const Layout* layout;
  std::unique_ptr<RegexObject> regex;
};

const std::vector<CompiledLayout>& compiledLayouts()
{
  static const std::vector<Layout> layouts = makeLayouts();
  static const std::vector<CompiledLayout> compiled = [] {
    std::vector<CompiledLayout> all;
    for (const Layout& layout : layouts)
      all.push_back({&layout, std::make_unique<RegexObject>(layout.pattern, true)});
    return all;
  }();
  return compiled;
}

// The layout of text and its groups, or null.
const Layout* findLayout(const std::string& text, Groups& groups)
{
  const std::string trimmed = kelCore::trim(text);
  for (const CompiledLayout& candidate : compiledLayouts())
  {
    if (candidate.regex->match(trimmed, groups))
      return candidate.layout;
  }
  return nullptr;
}

YearTime readAs(const std::string& text, int defaultYear, TimeFormatMatch_t wanted)
{
  Groups groups;
  const Layout* layout = findLayout(text, groups);
  require(layout != nullptr, "The time text does not have a known layout.");
  require(wanted == MATCH_NONE || layout->match == wanted, "The time text does not have the expected layout.");
  return layout->read(groups, defaultYear);
}

} // namespace

std::string getTimeMatchString(TimeFormatMatch_t match)
{
  for (const CompiledLayout& candidate : compiledLayouts())
  {
    if (candidate.layout->match == match)
      return candidate.layout->name;
  }
  return "NO MATCH";
}

TimeFormatMatch_t getTimeMatch(const std::string& text)
{
  Groups groups;
  const Layout* layout = findLayout(text, groups);
  return layout ? layout->match : MATCH_NONE;
}

double parseTimeString(const std::string& text, int& year)
{
  const YearTime found = readAs(text, year, MATCH_NONE);
  year = found.year;
  return found.seconds;
}

double getHHMMSSFromString(const std::string& text)
{
  return readAs(text, 1970, MATCH_HOURS_MINUTES_SECONDS).seconds;
}

int getYearFromTimeString(const std::string& text, int defaultYear)
{
  return readAs(text, defaultYear, MATCH_NONE).year;
}

double getSecondsFromJdayString(const std::string& text)
{
  // Day 366 is valid only in a leap year; a year-less ordinal counts in one.
  return readAs(text, 2000, MATCH_JDAY_TIME).seconds;
}

} // namespace UTILS
