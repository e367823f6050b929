#include "utils/TimeString.h"

#include "kelCore/Exception.h"

#include <gtest/gtest.h>

using kelCore::TimeFormat;

namespace
{

const double DAY = 86400.0;

struct LayoutCase
{
  const char* text;
  UTILS::TimeFormatMatch_t match;
  double seconds;
  int year; // the year found, or the default 2026 for layouts that name none
};

} // namespace

TEST(TimeStringReader, EveryLayoutIsRecognisedAndReadToSecondsOfItsYear)
{
  const double noonish = 12 * 3600.0 + 30 * 60.0 + 15.25; // 12:30:15.25
  const LayoutCase cases[] = {
    {"032 12:30:15.25 PM 2024", UTILS::MATCH_JDAY_12HOUR_YEAR, 31 * DAY + noonish, 2024},
    {"2024-02-01 12:30:15.25", UTILS::MATCH_ISO_DATE_TIME, 31 * DAY + noonish, 2024},
    {"2024-Feb-01 12:30:15.25", UTILS::MATCH_ISO_DATE_TIME, 31 * DAY + noonish, 2024},
    {"15.25", UTILS::MATCH_SECONDS, 15.25, 2026},
    {"90:15.25", UTILS::MATCH_MINUTES_SECONDS, 90 * 60.0 + 15.25, 2026},
    {"30:00:01.5", UTILS::MATCH_HOURS_MINUTES_SECONDS, 30 * 3600.0 + 1.5, 2026},
    {"032 2024 12:30:15.25", UTILS::MATCH_JDAY_YEAR_TIME, 31 * DAY + noonish, 2024},
    {"Feb 01 2024 12:30:15.25", UTILS::MATCH_MONTH_DAY_YEAR_TIME, 31 * DAY + noonish, 2024},
    {"1 feb 2024 12:30:15.25", UTILS::MATCH_DAY_MONTH_YEAR_TIME, 31 * DAY + noonish, 2024},
    {"032 12:30:15.25 2024", UTILS::MATCH_JDAY_TIME_YEAR, 31 * DAY + noonish, 2024},
    {"Feb 1 12:30:15.25 2024", UTILS::MATCH_MONTH_DAY_TIME_YEAR, 31 * DAY + noonish, 2024},
    {"032 12:30:15.25", UTILS::MATCH_JDAY_TIME, 31 * DAY + noonish, 2026},
    {"Thr Feb 1 12:30:15.25 2024", UTILS::MATCH_WEEKDAY_MONTH_DAY_TIME_YEAR, 31 * DAY + noonish, 2024},
    {"Sun Feb 1 12:30:15.25", UTILS::MATCH_WEEKDAY_MONTH_DAY_TIME, 31 * DAY + noonish, 2026},
    {"-15.25", UTILS::MATCH_NEGATIVE_SECONDS, -15.25, 2026},
    {"011230:15.25 Z Feb24", UTILS::MATCH_DATE_TIME_GROUP, 31 * DAY + noonish, 2024},
    {"12:30z 01Feb2024", UTILS::MATCH_ZULU_WITH_COLON, 31 * DAY + 12 * 3600.0 + 30 * 60.0, 2024},
    {"1230Z 1Feb2024", UTILS::MATCH_ZULU, 31 * DAY + 12 * 3600.0 + 30 * 60.0, 2024},
    {"01-Mar", UTILS::MATCH_DAY_MONTH, 59 * DAY, 2026},
  };
  for (const LayoutCase& c : cases)
  {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.match, UTILS::getTimeMatch(c.text)) << UTILS::getTimeMatchString(UTILS::getTimeMatch(c.text));
    int year = 2026;
    EXPECT_DOUBLE_EQ(c.seconds, UTILS::parseTimeString(c.text, year));
    EXPECT_EQ(c.year, year);
  }
}

TEST(TimeStringReader, PatternNamesAndTextsOfNoLayout)
{
  EXPECT_EQ("JJJ yyyy HH:MM:SS.sss", UTILS::getTimeMatchString(UTILS::MATCH_JDAY_YEAR_TIME));
  EXPECT_EQ("MDHHMM:SS.sss Z MNTYY", UTILS::getTimeMatchString(UTILS::MATCH_DATE_TIME_GROUP));
  EXPECT_EQ("NO MATCH", UTILS::getTimeMatchString(UTILS::MATCH_NONE));

  for (const char* text : {"", "noon tomorrow", "Thu Feb 1 12:30:15.25", "Fby 01 2024 12:00:00", "1:2:3:4"})
  {
    SCOPED_TRACE(text);
    EXPECT_EQ(UTILS::MATCH_NONE, UTILS::getTimeMatch(text));
    int year = 2026;
    EXPECT_THROW(UTILS::parseTimeString(text, year), kelCore::TimeException);
    EXPECT_EQ(2026, year);
  }
}

TEST(TimeStringReader, FieldsOutOfRangeAreRefusedAndClockEdgesRead)
{
  int year = 2026;
  EXPECT_THROW(UTILS::parseTimeString("Feb 29 2023 00:00:00", year), kelCore::TimeException);
  EXPECT_THROW(UTILS::parseTimeString("366 2023 00:00:00", year), kelCore::TimeException);
  EXPECT_THROW(UTILS::parseTimeString("001 2023 24:00:00", year), kelCore::TimeException);
  EXPECT_THROW(UTILS::parseTimeString("001 00:60:00", year), kelCore::TimeException);
  EXPECT_THROW(UTILS::parseTimeString("001 13:00:00 PM 2023", year), kelCore::TimeException);
  EXPECT_THROW(UTILS::parseTimeString("2023-13-01 00:00:00", year), kelCore::TimeException);
  EXPECT_EQ(2026, year);

  EXPECT_DOUBLE_EQ(59 * DAY, UTILS::parseTimeString("Feb 29 2024 00:00:00", year));
  EXPECT_EQ(2024, year);
  EXPECT_DOUBLE_EQ(0.0, UTILS::parseTimeString("001 12:00:00 AM 2023", year));
  EXPECT_DOUBLE_EQ(12 * 3600.0, UTILS::parseTimeString("001 12:00:00 PM 2023", year));
  EXPECT_DOUBLE_EQ(13 * 3600.0, UTILS::parseTimeString("001 01:00:00 pm 2023", year));
  EXPECT_EQ(1970, UTILS::getYearFromTimeString("010000:00 Z Jan70", 2026));
  EXPECT_EQ(2069, UTILS::getYearFromTimeString("010000:00 Z Jan69", 2026));
  EXPECT_EQ(2026, UTILS::getYearFromTimeString("  12.5 ", 2026));
}

TEST(TimeStringReader, WrittenTimesReadBackToTheSameMoment)
{
  const double seconds = 59 * DAY + 3725.5; // Feb 29 of a leap year, 01:02:05.5
  for (TimeFormat format : {TimeFormat::SECONDS, TimeFormat::MINUTES, TimeFormat::HOURS, TimeFormat::ORDINAL,
         TimeFormat::MONTHDAY, TimeFormat::DTG, TimeFormat::ISO8601})
  {
    const std::string text = UTILS::printTimeString(seconds, 2024, format, 3);
    SCOPED_TRACE(text);
    int year = 2024;
    EXPECT_DOUBLE_EQ(seconds, UTILS::parseTimeString(text, year));
    EXPECT_EQ(2024, year);
  }
  EXPECT_DOUBLE_EQ(seconds, UTILS::getSecondsFromJdayString(UTILS::getJdayStringFromSeconds(seconds)));
  EXPECT_DOUBLE_EQ(30 * 3600.0 + 1.5, UTILS::getHHMMSSFromString("30:00:01.5"));
  EXPECT_THROW(UTILS::getHHMMSSFromString("001 00:00:01"), kelCore::TimeException);
}
