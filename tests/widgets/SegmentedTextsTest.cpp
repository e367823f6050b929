#include "TimeTestSupport.h"

#include "widgets/HoursTexts.h"
#include "widgets/MinutesTexts.h"
#include "widgets/MonthDayYearTexts.h"
#include "widgets/OrdinalTexts.h"
#include "widgets/SecondsTexts.h"
#include "widgets/SegmentedText.h"

#include "kelCore/TimeFormatterRegistry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <memory>

using kelCore::TimeFormat;
using kelCore::TimeStamp;
using namespace kelQt;
using timetest::date;
using timetest::FORMATS;
using timetest::ordinal;

namespace
{

// Segment indices of the layouts at a precision above 0; separators sit between the fields.
// "DDD YYYY HH:MM:SS.sss"
constexpr int ORD_DAY = 0, ORD_YEAR = 2, ORD_HOUR = 4, ORD_MINUTE = 6, ORD_SECOND = 8, ORD_FRACTION = 10;
// "Mon DD YYYY HH:MM:SS.sss"
constexpr int MDY_MONTH = 0, MDY_DAY = 2, MDY_YEAR = 4, MDY_HOUR = 6, MDY_SECOND = 10;
// "S.sss", "M:SS.sss", "H:MM:SS.sss"
constexpr int LEAD = 0, SEC_FRACTION = 2, MIN_SECOND = 2, HRS_MINUTE = 2, HRS_SECOND = 4;

std::unique_ptr<SegmentedTexts> makeTexts(TimeFormat format)
{
  switch (format)
  {
  case TimeFormat::SECONDS:
    return std::make_unique<SecondsTexts>();
  case TimeFormat::MINUTES:
    return std::make_unique<MinutesTexts>();
  case TimeFormat::HOURS:
    return std::make_unique<HoursTexts>();
  case TimeFormat::MONTHDAY:
    return std::make_unique<MonthDayYearTexts>();
  default:
    return std::make_unique<OrdinalTexts>();
  }
}

// Shows stamp, steps one field and answers the text.
QString stepped(SegmentedTexts& texts, const TimeStamp& stamp, int field, int steps)
{
  texts.setTimeStamp(stamp);
  EXPECT_TRUE(texts.stepBy(field, steps));
  return texts.text();
}

} // namespace

// The texts must be exactly what kelCore writes for the format, and read back to the same
// moment, so that a time copied out of the widget reads anywhere else.
TEST(SegmentedTexts, WriteAndReadEveryFormatAsKelCoreDoes)
{
  const kelCore::TimeFormatterRegistry registry;
  const TimeStamp stamps[] = {
      TimeStamp(2024, 0.0),    date(2024, 2, 29, 23, 59, 59.9996), date(2023, 12, 31, 23, 59, 59.25),
      TimeStamp(2025, 3725.5), TimeStamp(2023, 86399.0),           TimeStamp(2024, -0.5)};
  for (const TimeFormat format : FORMATS)
  {
    for (const int precision : {0, 3, 6})
    {
      auto texts = makeTexts(format);
      texts->setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
      texts->setPrecision(precision);
      for (const TimeStamp& stamp : stamps)
      {
        texts->setTimeStamp(stamp);
        const std::string expected = registry.toString(format, stamp, 2024, precision);
        ASSERT_EQ(expected, texts->text().toStdString()) << "format " << static_cast<int>(format);
        EXPECT_EQ(QValidator::Acceptable, texts->validate(texts->text())) << expected;

        // Typed into a line showing another time, the text reads as kelCore reads it.
        TimeStamp read;
        ASSERT_EQ(0, registry.fromString(expected, read, 2024));
        auto typed = makeTexts(format);
        typed->setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
        typed->setPrecision(precision);
        typed->setTimeStamp(TimeStamp(2030, 1.0));
        ASSERT_TRUE(typed->setText(QString::fromStdString(expected))) << expected;
        EXPECT_NEAR(0.0, (typed->timeStamp() - read).Double(), 1e-9) << expected;
      }
    }
  }
}

TEST(SegmentedTexts, TheStampSetIsKeptExactlyUntilAFieldChanges)
{
  SecondsTexts texts;
  const TimeStamp exact(1970, 12.3456789);
  texts.setTimeStamp(exact);
  EXPECT_EQ("12.346", texts.text());
  EXPECT_EQ(exact, texts.timeStamp()) << "not the rounded 12.346";
  EXPECT_TRUE(texts.setText("12.346")) << "the same text";
  EXPECT_EQ(exact, texts.timeStamp()) << "retyping the text shown is no change";

  texts.setPrecision(6);
  EXPECT_EQ("12.345679", texts.text()) << "more decimals come from the exact stamp";
  EXPECT_EQ(exact, texts.timeStamp());
  texts.setPrecision(0);
  EXPECT_EQ("12", texts.text());
  EXPECT_EQ(1, texts.segmentCount()) << "no point and no fraction field at precision 0";

  texts.setPrecision(3);
  ASSERT_TRUE(texts.setText("12.5"));
  EXPECT_EQ(TimeStamp(1970, 12.5), texts.timeStamp()) << "typed decimals are read as decimals, not as 005";
  texts.setPrecision(1);
  EXPECT_EQ("12.5", texts.text()) << "an edited time survives a change of precision";
}

TEST(SegmentedTexts, StepsCarryIntoTheNextFieldOfTheDayOfYear)
{
  OrdinalTexts texts;
  EXPECT_EQ("032 2024 11:00:59.000", stepped(texts, ordinal(2024, 32, 10, 59, 59.0), ORD_MINUTE, 1));
  EXPECT_EQ("032 2024 11:00:00.000", stepped(texts, ordinal(2024, 32, 10, 59, 59.0), ORD_SECOND, 1));
  EXPECT_EQ("031 2024 23:59:59.999", stepped(texts, ordinal(2024, 32, 0, 0, 0.0), ORD_FRACTION, -1));
  EXPECT_EQ("001 2024 00:00:00.000", stepped(texts, ordinal(2023, 365, 23, 59, 59.999), ORD_FRACTION, 1))
      << "the last thousandth of 2023 carries through every field into the next year";
  EXPECT_EQ("001 2024 05:00:00.000", stepped(texts, ordinal(2023, 365, 5, 0, 0.0), ORD_DAY, 1));
  EXPECT_EQ("366 2024 05:00:00.000", stepped(texts, ordinal(2024, 365, 5, 0, 0.0), ORD_DAY, 1)) << "a leap year";
  EXPECT_EQ("001 2025 05:00:00.000", stepped(texts, ordinal(2024, 366, 5, 0, 0.0), ORD_DAY, 1));
  EXPECT_EQ("366 2024 05:00:00.000", stepped(texts, ordinal(2025, 1, 5, 0, 0.0), ORD_DAY, -1));
  EXPECT_EQ("365 2023 05:00:00.000", stepped(texts, ordinal(2024, 1, 5, 0, 0.0), ORD_DAY, -1));
  EXPECT_EQ("001 2024 00:00:00.000", stepped(texts, ordinal(2023, 365, 23, 0, 0.0), ORD_HOUR, 1));
  EXPECT_EQ("365 2025 05:00:00.000", stepped(texts, ordinal(2024, 366, 5, 0, 0.0), ORD_YEAR, 1))
      << "day 366 does not exist in 2025";
  EXPECT_EQ("002 2024 00:00:00.000", stepped(texts, ordinal(2024, 1, 0, 0, 0.0), ORD_HOUR, 24)) << "several steps";
  EXPECT_EQ(ordinal(2024, 2, 0, 0, 0.0), texts.timeStamp());
}

TEST(SegmentedTexts, StepsCarryThroughMonthsOfEveryLength)
{
  MonthDayYearTexts texts;
  EXPECT_EQ("Feb 29 2024 12:00:00.000", stepped(texts, date(2024, 2, 28, 12, 0, 0.0), MDY_DAY, 1)) << "leap day";
  EXPECT_EQ("Mar 01 2024 12:00:00.000", stepped(texts, date(2024, 2, 29, 12, 0, 0.0), MDY_DAY, 1));
  EXPECT_EQ("Mar 01 2023 12:00:00.000", stepped(texts, date(2023, 2, 28, 12, 0, 0.0), MDY_DAY, 1));
  EXPECT_EQ("Feb 29 2024 12:00:00.000", stepped(texts, date(2024, 3, 1, 12, 0, 0.0), MDY_DAY, -1));
  EXPECT_EQ("Jan 01 2025 00:00:00.000", stepped(texts, date(2024, 12, 31, 23, 59, 59.0), MDY_SECOND, 1));
  EXPECT_EQ("Jan 15 2025 08:00:00.000", stepped(texts, date(2024, 12, 15, 8, 0, 0.0), MDY_MONTH, 1));
  EXPECT_EQ("Dec 15 2023 08:00:00.000", stepped(texts, date(2024, 1, 15, 8, 0, 0.0), MDY_MONTH, -1));
  EXPECT_EQ("Feb 28 2025 08:00:00.000", stepped(texts, date(2024, 2, 29, 8, 0, 0.0), MDY_YEAR, 1));
  EXPECT_EQ("Jan 01 2024 00:00:00.000", stepped(texts, date(2023, 12, 31, 23, 0, 0.0), MDY_HOUR, 1));

  // A month too short for the day shows its last day; the time read is that day.
  EXPECT_EQ("Feb 29 2024 08:00:00.000", stepped(texts, date(2024, 1, 31, 8, 0, 0.0), MDY_MONTH, 1));
  EXPECT_EQ(date(2024, 2, 29, 8, 0, 0.0), texts.timeStamp());
  ASSERT_TRUE(texts.stepBy(MDY_MONTH, 1));
  EXPECT_EQ("Mar 31 2024 08:00:00.000", texts.text()) << "the day comes back in a month long enough";
  ASSERT_TRUE(texts.stepBy(MDY_MONTH, -1));
  ASSERT_TRUE(texts.stepBy(MDY_DAY, 1));
  EXPECT_EQ("Mar 01 2024 08:00:00.000", texts.text()) << "a step of the day starts from the day shown";
}

TEST(SegmentedTexts, TheEndsOfTheCalendarHold)
{
  OrdinalTexts texts;
  texts.setEnforceLimits(false, false);
  texts.setTimeStamp(ordinal(9999, 365, 23, 59, 59.0));
  EXPECT_FALSE(texts.stepBy(ORD_SECOND, 1)) << "no year 10000 to carry into";
  EXPECT_EQ("365 9999 23:59:59.000", texts.text()) << "nothing wrapped on the way";
  texts.setTimeStamp(ordinal(1, 1, 0, 0, 0.0));
  EXPECT_FALSE(texts.stepBy(ORD_DAY, -1));
  EXPECT_EQ("001 0001 00:00:00.000", texts.text());
  EXPECT_FALSE(texts.stepBy(1, 1)) << "a separator does not step";
}

TEST(SegmentedTexts, SpansCarryAndCrossTheStartOfTheReferenceYear)
{
  MinutesTexts minutes;
  minutes.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  EXPECT_EQ("1:00.000", stepped(minutes, TimeStamp(2024, 59.0), MIN_SECOND, 1));
  EXPECT_EQ("61:00.000", stepped(minutes, TimeStamp(2024, 3659.0), MIN_SECOND, 1)) << "minutes do not become hours";
  EXPECT_EQ("-0:00.500", stepped(minutes, TimeStamp(2024, 0.5), MIN_SECOND, -1));
  EXPECT_EQ(TimeStamp(2023, kelCore::secondsInYear(2023) - 0.5), minutes.timeStamp()) << "just before 2024";

  SecondsTexts seconds;
  seconds.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  EXPECT_EQ("0.500", stepped(seconds, TimeStamp(2024, -0.5), LEAD, 1)) << "up is later, also before zero";
  EXPECT_EQ("-1.500", stepped(seconds, TimeStamp(2024, -0.5), LEAD, -1));
  EXPECT_EQ("-0.499", stepped(seconds, TimeStamp(2024, -0.5), SEC_FRACTION, 1));
  EXPECT_EQ("100.000", stepped(seconds, TimeStamp(2024, 99.0), LEAD, 1)) << "the count widens";

  HoursTexts hours;
  hours.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  EXPECT_EQ("1:00:00.500", stepped(hours, TimeStamp(2024, 3599.5), HRS_SECOND, 1));
  EXPECT_EQ("1:59:59.500", stepped(hours, TimeStamp(2024, 3599.5), HRS_MINUTE, 60));
  EXPECT_EQ("8785:00:00.000", stepped(hours, TimeStamp(2025, 0.0), LEAD, 1)) << "2024 had 8784 hours";
}

TEST(SegmentedTexts, LocatesTheFieldUnderTheCursor)
{
  OrdinalTexts texts; // "032 2024 10:59:59.000"
  texts.setTimeStamp(ordinal(2024, 32, 10, 59, 59.0));
  EXPECT_EQ(ORD_DAY, texts.locatePart(0));
  EXPECT_EQ(ORD_DAY, texts.locatePart(3)) << "the end of a field is still that field";
  EXPECT_EQ(ORD_YEAR, texts.locatePart(4));
  EXPECT_EQ(ORD_MINUTE, texts.locatePart(12));
  EXPECT_EQ(ORD_FRACTION, texts.locatePart(21));
  EXPECT_EQ(-1, texts.locatePart(22));
  EXPECT_EQ(12, texts.getFirstCharacterLocation(ORD_MINUTE));
  EXPECT_EQ(18, texts.getFirstCharacterLocation(ORD_FRACTION));
  EXPECT_EQ(0, texts.segment(ORD_DAY).spaceLeft()) << "padded fields are full";
  EXPECT_FALSE(texts.segment(1).canStep());

  SecondsTexts seconds;
  seconds.setTimeStamp(TimeStamp(1970, 62.0));
  EXPECT_GT(seconds.segment(LEAD).spaceLeft(), 0) << "the count of a span takes more digits";
  MonthDayYearTexts months;
  EXPECT_EQ(0, months.segment(MDY_MONTH).spaceLeft());
}

TEST(SegmentedTexts, ValidateTellsBrokenFromUnfinishedText)
{
  struct Case
  {
    TimeFormat format;
    const char* text;
    QValidator::State state;
  };
  const Case cases[] = {
      {TimeFormat::ORDINAL, "032 2024 10:00:00.000", QValidator::Acceptable},
      {TimeFormat::ORDINAL, "032 2024 1:00:00.5", QValidator::Acceptable},      // short fields are read as numbers
      {TimeFormat::ORDINAL, "366 2023 10:00:00.000", QValidator::Intermediate}, // no such day, but the year may change
      {TimeFormat::ORDINAL, "0 2024 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::ORDINAL, " 2024 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::ORDINAL, "000 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "367 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "0320 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "032 2024 24:00:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "032 2024 10:60:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "032 2024 10:00:00", QValidator::Invalid},
      {TimeFormat::ORDINAL, "032 2024 10:00:00.000 ", QValidator::Invalid},
      {TimeFormat::ORDINAL, "032:2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::ORDINAL, "03a 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::MONTHDAY, "feb 29 2024 10:00:00.000", QValidator::Acceptable},
      {TimeFormat::MONTHDAY, "Feb 30 2024 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::MONTHDAY, "Feb 29 2023 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::MONTHDAY, "Fe 29 2024 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::MONTHDAY, " 29 2024 10:00:00.000", QValidator::Intermediate},
      {TimeFormat::MONTHDAY, "Fex 29 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::MONTHDAY, "Febr 29 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::MONTHDAY, "Feb 32 2024 10:00:00.000", QValidator::Invalid},
      {TimeFormat::SECONDS, "-12.500", QValidator::Acceptable},
      {TimeFormat::SECONDS, "12.5", QValidator::Acceptable},
      {TimeFormat::SECONDS, "-.500", QValidator::Intermediate},
      {TimeFormat::SECONDS, ".500", QValidator::Intermediate},
      {TimeFormat::SECONDS, "12.5000", QValidator::Invalid},
      {TimeFormat::SECONDS, "1-2.500", QValidator::Invalid},
      {TimeFormat::MINUTES, "62:05.500", QValidator::Acceptable},
      {TimeFormat::MINUTES, "62:65.500", QValidator::Invalid},
      {TimeFormat::MINUTES, "62.500", QValidator::Invalid},
      {TimeFormat::HOURS, "1:02:05.500", QValidator::Acceptable},
      {TimeFormat::HOURS, "1:2:5.500", QValidator::Acceptable},
      {TimeFormat::HOURS, "1::05.500", QValidator::Intermediate},
  };
  for (const Case& test : cases)
  {
    auto texts = makeTexts(test.format);
    EXPECT_EQ(test.state, texts->validate(test.text)) << test.text;
    const TimeStamp before = texts->timeStamp();
    EXPECT_EQ(test.state == QValidator::Acceptable, texts->setText(test.text)) << test.text;
    if (test.state != QValidator::Acceptable)
    {
      EXPECT_EQ(before, texts->timeStamp()) << "refused text changes nothing: " << test.text;
    }
  }
}

TEST(SegmentedTexts, EnforcedLimitsHoldStepsInTheRange)
{
  OrdinalTexts texts;
  const TimeStamp start = ordinal(2024, 10, 0, 0, 10.0);
  const TimeStamp end = ordinal(2024, 10, 0, 1, 0.0);
  texts.setTimeRange(2024, start, end);
  texts.setTimeStamp(ordinal(2024, 10, 0, 0, 30.0));
  ASSERT_TRUE(texts.stepBy(ORD_SECOND, -25));
  EXPECT_EQ(start, texts.timeStamp()) << "stopped at the start, not at 00:00:05";
  ASSERT_TRUE(texts.stepBy(ORD_HOUR, 1));
  EXPECT_EQ(end, texts.timeStamp());
  EXPECT_EQ("010 2024 00:01:00.000", texts.text());

  // A range end between two thousandths is kept exactly, though the text rounds it.
  const TimeStamp oddEnd = ordinal(2024, 10, 0, 1, 0.0004);
  texts.setTimeRange(2024, start, oddEnd);
  ASSERT_TRUE(texts.stepBy(ORD_MINUTE, 1));
  EXPECT_EQ(oddEnd, texts.timeStamp());
  EXPECT_TRUE(texts.inRange(texts.timeStamp()));

  texts.setEnforceLimits(true, false);
  bool low = false, high = true;
  texts.getEnforceLimits(low, high);
  EXPECT_TRUE(low);
  EXPECT_FALSE(high);
  ASSERT_TRUE(texts.stepBy(ORD_HOUR, 1));
  EXPECT_EQ(ordinal(2024, 10, 1, 1, 0.0), texts.timeStamp()) << "past the end, which is not enforced";
  EXPECT_FALSE(texts.inRange(texts.timeStamp()));
  EXPECT_EQ(texts.timeStamp(), texts.limited(texts.timeStamp()));
  EXPECT_EQ(start, texts.limited(ordinal(2024, 1, 0, 0, 0.0)));
}

TEST(SegmentedTexts, TheReferenceYearMovesSpansButNotTheMoment)
{
  SecondsTexts texts;
  texts.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  texts.setTimeStamp(TimeStamp(2024, 60.0));
  EXPECT_EQ("60.000", texts.text());
  texts.setTimeRange(2023, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  EXPECT_EQ("31536060.000", texts.text()) << "365 days of 2023 before it";
  EXPECT_EQ(TimeStamp(2024, 60.0), texts.timeStamp());
}

class LocalZone : public ::testing::Test
{
protected:
  // Eastern time of North America, written out so that no zone database is needed.
  void SetUp() override { setZone("EST5EDT,M3.2.0,M11.1.0"); }
  void TearDown() override
  {
    if (saved_.isNull())
      qunsetenv("TZ");
    else
      qputenv("TZ", saved_);
    tzset();
  }
  void setZone(const char* zone)
  {
    saved_ = qgetenv("TZ");
    qputenv("TZ", zone);
    tzset();
  }

private:
  QByteArray saved_;
};

TEST_F(LocalZone, CalendarFormatsShowAndReadTheLocalTime)
{
  MonthDayYearTexts texts;
  texts.setTimeZone(TimeZone::LOCAL);
  texts.setTimeStamp(date(2024, 7, 4, 16, 0, 0.0));
  EXPECT_EQ("Jul 04 2024 12:00:00.000", texts.text()) << "daylight saving time, four hours behind";
  texts.setTimeStamp(date(2024, 1, 15, 3, 0, 0.0));
  EXPECT_EQ("Jan 14 2024 22:00:00.000", texts.text()) << "standard time, five hours behind, the day before";
  ASSERT_TRUE(texts.setText("Nov 03 2024 12:00:00.000"));
  EXPECT_EQ(date(2024, 11, 3, 17, 0, 0.0), texts.timeStamp()) << "after the change back to standard time";
  ASSERT_TRUE(texts.setText("Nov 02 2024 12:00:00.000"));
  EXPECT_EQ(date(2024, 11, 2, 16, 0, 0.0), texts.timeStamp());

  texts.setTimeZone(TimeZone::UTC);
  EXPECT_EQ("Nov 02 2024 16:00:00.000", texts.text()) << "the moment stays, the text follows the zone";

  SecondsTexts seconds;
  seconds.setTimeZone(TimeZone::LOCAL);
  seconds.setTimeStamp(TimeStamp(1970, 60.0));
  EXPECT_EQ("60.000", seconds.text()) << "a span has no zone";
}
