#include "utils/TimeString.h"

#include "kelCore/Exception.h"

#include <gtest/gtest.h>

#include <cmath>

#include <iostream>
#include <sstream>

using kelCore::TimeFormat;

namespace
{

// The message a call throws, or "" when it throws nothing.
template <typename Call>
std::string thrownText(Call call)
{
  try
  {
    call();
  }
  catch (const kelCore::TimeException& e)
  {
    return e.what();
  }
  return std::string();
}

} // namespace

TEST(TimeString, DayAndMonthNamesRoundTripAndRejectOutOfRange)
{
  EXPECT_EQ("Thr", UTILS::getStringFromDay(4));
  EXPECT_EQ(4, UTILS::getDayFromString("Thr"));
  EXPECT_EQ(4, UTILS::getDayFromString("thr"));
  for (int day = 0; day < 7; ++day)
    EXPECT_EQ(day, UTILS::getDayFromString(UTILS::getStringFromDay(day)));
  for (int month = 0; month < 12; ++month)
    EXPECT_EQ(month, UTILS::getMonthFromString(UTILS::getStringFromMonth(month)));

  EXPECT_EQ("The given weekday number is not valid.", thrownText([] { UTILS::getStringFromDay(7); }));
  EXPECT_EQ("The given weekday number is not valid.", thrownText([] { UTILS::getStringFromDay(-1); }));
  EXPECT_EQ("The given month is not valid.", thrownText([] { UTILS::getStringFromMonth(12); }));
  EXPECT_FALSE(thrownText([] { UTILS::getDayFromString("Thu"); }).empty());
  EXPECT_FALSE(thrownText([] { UTILS::getMonthFromString("Sept"); }).empty());
}

TEST(TimeString, UnknownFormatThrowsAndTheGuardedCallReportsIt)
{
  const auto unknown = static_cast<TimeFormat>(99);
  EXPECT_EQ("Unknown format flag for time string.", thrownText([&] { UTILS::printTimeString(1.0, 2026, unknown, 3); }));

  std::ostringstream captured;
  std::streambuf* original = std::cerr.rdbuf(captured.rdbuf());
  const std::string text = UTILS::getTimeString(2026, 1.0, unknown, 3);
  std::cerr.rdbuf(original);
  EXPECT_EQ("", text);
  EXPECT_EQ("Caught TimeException, could not get a time string: Unknown format flag for time string.\n", captured.str());
}

TEST(TimeString, ElapsedFormsPadAndSignOnRequestOnly)
{
  EXPECT_EQ("1:02:05.50", UTILS::printTimeString(3725.5, 2026, TimeFormat::HOURS, 2));
  EXPECT_EQ("01:02:05.50", UTILS::printTimeString(3725.5, 2026, TimeFormat::HOURS, 2, true));
  EXPECT_EQ("+01:02:05.50", UTILS::printTimeString(3725.5, 2026, TimeFormat::HOURS, 2, true, true));
  EXPECT_EQ("-05.5", UTILS::printTimeString(-5.5, 2026, TimeFormat::SECONDS, 1, true, true));
  EXPECT_EQ("62:05", UTILS::printTimeString(3725.0, 2026, TimeFormat::MINUTES, 0, true));

  // Calendar forms keep their own layout whatever the flags say; the date-time group names its zone.
  const std::string dtg = UTILS::printTimeString(3725.5, 2026, TimeFormat::DTG, 1, true, true);
  EXPECT_NE(std::string::npos, dtg.find(" Z ")) << dtg;
  EXPECT_EQ(UTILS::printTimeString(3725.5, 2026, TimeFormat::ORDINAL, 3),
    UTILS::printTimeString(3725.5, 2026, TimeFormat::ORDINAL, 3, true, true));
}

TEST(TimeString, NonDecimalBaseAndNonFiniteTimesAreRefused)
{
  EXPECT_FALSE(thrownText([] { UTILS::printTimeString(1.0, 2026, TimeFormat::SECONDS, 3, false, false, UTILS::BASE_HEXADECIMAL); }).empty());
  EXPECT_FALSE(thrownText([] { UTILS::printTimeString(std::nan(""), 2026, TimeFormat::ORDINAL, 3); }).empty());
}

TEST(TimeString, OrdinalDayTextCountsFromOneAndCarriesRounding)
{
  EXPECT_EQ("001 00:00:00.000", UTILS::getJdayStringFromSeconds(0.0));
  EXPECT_EQ("002 01:01:01.250", UTILS::getJdayStringFromSeconds(86400.0 + 3661.25));
  EXPECT_EQ("002 00:00:00.000", UTILS::getJdayStringFromSeconds(86399.9996));
  EXPECT_FALSE(thrownText([] { UTILS::getJdayStringFromSeconds(-1.0); }).empty());
}

TEST(TimeString, TimeStructListsEveryFieldOnItsOwnLine)
{
  tm time{};
  time.tm_sec = 5;
  time.tm_yday = 200;
  time.tm_isdst = -1;
  EXPECT_EQ("tm_sec = 5\ntm_min = 0\ntm_hour = 0\ntm_mday = 0\ntm_mon = 0\ntm_year = 0\n"
            "tm_wday = 0\ntm_yday = 200\ntm_isdst = -1\n",
    UTILS::printTimeStruct(time));
}

TEST(TimeString, RemainingTimeEstimatesScaleFromSecondsToDays)
{
  EXPECT_EQ("Calculating", UTILS::getTimeRemainingText(0.5, 10.0));
  EXPECT_EQ("Calculating", UTILS::getTimeRemainingText(std::nan(""), 10.0));
  EXPECT_EQ("Moments", UTILS::getTimeRemainingText(99.9, 100.0));
  EXPECT_EQ("Moments", UTILS::getTimeRemainingText(100.0, 100.0));
  EXPECT_EQ("10 Seconds", UTILS::getTimeRemainingText(50.0, 10.0));
  EXPECT_EQ("1:40:00", UTILS::getTimeRemainingText(50.0, 6000.0));
  EXPECT_EQ("0:02:00", UTILS::getTimeRemainingText(50.0, 61.0)); // minutes round up
  EXPECT_EQ("3.0 Days", UTILS::getTimeRemainingText(25.0, 86400.0));
}

TEST(TimeString, FileNameTimesAndClockTexts)
{
  EXPECT_EQ("20240229_010205", UTILS::getFilenameFromTime(59 * 86400.0 + 3725.0, 2024));
  EXPECT_EQ("20231231_235959", UTILS::getFilenameFromTime(-1.0, 2024)); // before the year began
  EXPECT_EQ(19u, UTILS::getSystemTimeString().size());
  const std::string stamped = UTILS::appendTimeToString("export");
  EXPECT_EQ(0u, stamped.find("export_"));
  EXPECT_EQ(std::string("export_").size() + 15, stamped.size());
}
