#include "kelCore/Calendar.h"
#include "kelCore/Exception.h"
#include "kelCore/TimeFormatterRegistry.h"

#include <gtest/gtest.h>

using namespace kelCore;

namespace
{

constexpr double DAY = 86400.0;

class TimeText : public ::testing::Test
{
protected:
  std::string text(TimeFormat format, const TimeStamp& stamp, int precision, int referenceYear = 2020)
  {
    return registry.toString(format, stamp, referenceYear, static_cast<unsigned short>(precision));
  }
  TimeFormatterRegistry registry;
};

TEST_F(TimeText, EveryFormatWritesItsLayout)
{
  // 2020-03-01 01:02:03.456: day 61 of a leap year.
  const TimeStamp stamp(2020, 60 * DAY + 3723.456);
  EXPECT_EQ("5187723.456", text(TimeFormat::SECONDS, stamp, 3));
  EXPECT_EQ("86462:03.456", text(TimeFormat::MINUTES, stamp, 3));
  EXPECT_EQ("1441:02:03.456", text(TimeFormat::HOURS, stamp, 3));
  EXPECT_EQ("061 2020 01:02:03.456", text(TimeFormat::ORDINAL, stamp, 3));
  EXPECT_EQ("Mar 01 2020 01:02:03.456", text(TimeFormat::MONTHDAY, stamp, 3));
  EXPECT_EQ("010102:03.456 Z MAR20", text(TimeFormat::DTG, stamp, 3));
  EXPECT_EQ("2020-03-01T01:02:03.456Z", text(TimeFormat::ISO8601, stamp, 3));
}

TEST_F(TimeText, PrecisionRoundsAndCarriesIntoTheNextMinuteDayAndYear)
{
  const TimeStamp stamp(2020, 3723.456789);
  EXPECT_EQ("001 2020 01:02:03", text(TimeFormat::ORDINAL, stamp, 0));
  EXPECT_EQ("001 2020 01:02:03.5", text(TimeFormat::ORDINAL, stamp, 1));
  EXPECT_EQ("001 2020 01:02:03.456789", text(TimeFormat::ORDINAL, stamp, 6));
  EXPECT_EQ("001 2020 01:03:00.000", text(TimeFormat::ORDINAL, TimeStamp(2020, 3779.9996), 3));
  EXPECT_EQ("001 2022 00:00:00.000", text(TimeFormat::ORDINAL, TimeStamp(2021, 365 * DAY - 0.0001), 3));
  EXPECT_EQ("Jan 01 2022 00:00:00.000", text(TimeFormat::MONTHDAY, TimeStamp(2021, 365 * DAY - 0.0001), 3));
}

TEST_F(TimeText, LeapDaysAndDay366)
{
  EXPECT_EQ("Feb 29 2020 00:00:00.000", text(TimeFormat::MONTHDAY, TimeStamp(2020, 59 * DAY), 3));
  EXPECT_EQ("366 2020 23:59:59.000", text(TimeFormat::ORDINAL, TimeStamp(2020, 366 * DAY - 1), 3));
  EXPECT_EQ("Mar 01 2021 00:00:00.000", text(TimeFormat::MONTHDAY, TimeStamp(2021, 59 * DAY), 3));
  EXPECT_EQ("Feb 29 2000 00:00:00.000", text(TimeFormat::MONTHDAY, TimeStamp(2000, 59 * DAY), 3)) << "2000 leaps";
  EXPECT_EQ("Mar 01 1900 00:00:00.000", text(TimeFormat::MONTHDAY, TimeStamp(1900, 59 * DAY), 3)) << "1900 does not";

  TimeStamp read;
  EXPECT_EQ(0, registry.fromString("366 2020 12:00:00", read, 2020));
  EXPECT_EQ(1, registry.fromString("366 2021 12:00:00", read, 2021));
  EXPECT_EQ(0, registry.fromString("Feb 29 2024 00:00:00.0", read, 2024));
  EXPECT_EQ(1, registry.fromString("Feb 29 2023 00:00:00.0", read, 2023));
}

TEST_F(TimeText, NegativeSecondsAndStampsBeforeTheReferenceYear)
{
  const TimeStamp before(2020, -12.5);
  EXPECT_EQ(2019, before.referenceYear());
  EXPECT_EQ(-12.5, before.secondsSinceRefYear(2020).Double());
  EXPECT_EQ("-12.500", text(TimeFormat::SECONDS, before, 3));
  EXPECT_EQ("-0:12.500", text(TimeFormat::MINUTES, before, 3));
  EXPECT_EQ("365 2019 23:59:47.500", text(TimeFormat::ORDINAL, before, 3));
  EXPECT_EQ("0.000", text(TimeFormat::SECONDS, TimeStamp(2020, -0.0001), 3)) << "no negative zero";
}

TEST_F(TimeText, StampsOrderAndMeasureAcrossYears)
{
  const TimeStamp a(2019, 364 * DAY);
  const TimeStamp b(2020, 10.0);
  EXPECT_LT(a, b);
  EXPECT_EQ(TimeStamp(2020, 10.0), TimeStamp(2019, 365 * DAY + 10.0));
  EXPECT_EQ(DAY + 10.0, (b - a).Double());
  EXPECT_EQ(b, a + Seconds(DAY + 10.0));
  EXPECT_EQ(2420, TimeStamp(2020, secondsBetweenYears(2020, 2420) + 5).referenceYear()) << "far moments";
  EXPECT_EQ(-secondsBetweenYears(1970, 2020), secondsBetweenYears(2020, 1970));
}

TEST_F(TimeText, EveryFormatReadsBackWhatItWrote)
{
  const TimeStamp stamps[] = {TimeStamp(2020, 60 * DAY + 3723.25), TimeStamp(1999, 364 * DAY + 86399.5),
                              TimeStamp(2021, 0.0), TimeStamp(2020, -30.75)};
  for (int f = 1; f <= 7; ++f)
  {
    const TimeFormat format = static_cast<TimeFormat>(f);
    for (const TimeStamp& stamp : stamps)
    {
      const std::string written = text(format, stamp, 3);
      TimeStamp read;
      TimeFormat matched = TimeFormat::SECONDS;
      ASSERT_EQ(0, registry.fromString(written, read, 2020, &matched)) << written;
      EXPECT_EQ(format, matched) << written;
      EXPECT_NEAR(stamp.secondsSinceRefYear(2020).Double(), read.secondsSinceRefYear(2020).Double(), 1e-6)
          << written;
    }
  }
}

TEST_F(TimeText, ReadingTakesQuotesPlusAndStatic)
{
  TimeStamp read;
  ASSERT_EQ(0, registry.fromString("\"+12.5\"", read, 2020));
  EXPECT_EQ(12.5, read.secondsSinceRefYear(2020).Double());
  ASSERT_EQ(0, registry.fromString("'2020-01-02 00:00:01'", read, 1970));
  EXPECT_EQ(DAY + 1, read.secondsSinceRefYear(2020).Double());
  ASSERT_EQ(0, registry.fromString("-1", read, 2020));
  EXPECT_EQ(-1.0, read.secondsSinceRefYear(2020).Double());
  ASSERT_EQ(0, registry.fromString("011230:15 z jan70", read, 2020));
  EXPECT_EQ(1970, read.referenceYear());
  ASSERT_EQ(0, registry.fromString("011230:15 Z JAN69", read, 2020));
  EXPECT_EQ(2069, read.referenceYear()) << "two-digit years below 70 are this century";
}

TEST_F(TimeText, IsoDateTimesWithAnOffsetAreTheMomentInUtc)
{
  // What GPS loggers and GIS exports write: 2024-07-01 12:00:00.25 at two hours east of UTC is
  // 10:00:00.25 UTC; at five and a half hours west it is 17:30:00.25 UTC.
  const double july = 182 * DAY; // 182 days of a leap year lie before July 1
  TimeStamp read;
  for (const char* east : {"2024-07-01T12:00:00.25+02:00", "2024-07-01T12:00:00.25+0200", "2024-07-01T12:00:00.25+02"})
  {
    ASSERT_EQ(0, registry.fromString(east, read, 2024)) << east;
    EXPECT_EQ(july + 10 * 3600 + 0.25, read.secondsSinceRefYear(2024).Double()) << east;
  }
  ASSERT_EQ(0, registry.fromString("2024-07-01T12:00:00.25-05:30", read, 2024));
  EXPECT_EQ(july + 17.5 * 3600 + 0.25, read.secondsSinceRefYear(2024).Double());
  ASSERT_EQ(0, registry.fromString("2024-01-01T00:30:00+01:00", read, 2024));
  EXPECT_EQ(2023, read.referenceYear()) << "an offset can move the moment into the year before";
  EXPECT_EQ(0, registry.fromString("2024-07-01T12:00:00.123456Z", read, 2024));
  EXPECT_NEAR(july + 12 * 3600 + 0.123456, read.secondsSinceRefYear(2024).Double(), 1e-6) << "microseconds";
  for (const char* refused : {"2024-07-01T12:00:00+2", "2024-07-01T12:00:00+02:", "2024-07-01T12:00:00+24:00",
                              "2024-07-01T12:00:00+02:60", "2024-07-01T12:00:00Z+02:00"})
    EXPECT_EQ(1, registry.fromString(refused, read, 2024)) << refused;
}

TEST_F(TimeText, TextThatIsNoTimeIsRefused)
{
  const TimeStamp untouched(2001, 5.0);
  for (const char* refused :
       {"", "abc", "12:60", "1:60:00", "12:30:61", "Feb 30 2021 00:00:00", "Foo 01 2021 00:00:00", "000 2021 00:00:00",
        "2021-13-01T00:00:00Z", "2021-01-01T24:00:00Z", "320000:00 Z JAN21", "1.2.3", "++5", "12 30", "-"})
  {
    TimeStamp read = untouched;
    EXPECT_EQ(1, registry.fromString(refused, read, 2021)) << refused;
    EXPECT_EQ(untouched, read) << refused;
  }
}

TEST(Calendar, MonthsByNumberAndName)
{
  EXPECT_EQ("Jan", monthName(0));
  EXPECT_EQ("Dec", monthName(11));
  EXPECT_THROW(monthName(12), TimeException);
  EXPECT_EQ(1, monthFromName("FEB"));
  EXPECT_EQ(-1, monthFromName("Febr"));
  EXPECT_EQ(29, daysInMonth(2020, 1));
  EXPECT_EQ(28, daysInMonth(2100, 1));
}

} // namespace
