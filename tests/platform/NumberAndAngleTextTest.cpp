#include "kelCore/Angle.h"
#include "kelCore/StringUtils.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kelCore;

namespace
{

TEST(AngleFolding, EachExtentHasItsRange)
{
  EXPECT_NEAR(0.5, angFix(0.5 + 4 * M_PI, AngleExtents::TWOPI), 1e-12);
  EXPECT_NEAR(2 * M_PI - 0.5, angFix(-0.5, AngleExtents::TWOPI), 1e-12);
  EXPECT_EQ(0.0, angFix(-1e-18, AngleExtents::TWOPI)) << "never 2 pi itself";
  EXPECT_NEAR(-M_PI + 0.1, angFix(M_PI + 0.1, AngleExtents::PI), 1e-12);
  EXPECT_NEAR(-M_PI, angFix(M_PI, AngleExtents::PI), 1e-12);
  EXPECT_NEAR(M_PI_2 - 0.1, angFix(M_PI_2 + 0.1, AngleExtents::PI_2), 1e-12) << "reflected like a latitude";
  EXPECT_EQ(7.0, angFix(7.0, AngleExtents::ALL));
  EXPECT_TRUE(areAnglesEqual(0.0, 2 * M_PI));
  EXPECT_TRUE(areAnglesEqual(-M_PI, M_PI));
  EXPECT_FALSE(areAnglesEqual(0.0, 1e-5));
  EXPECT_TRUE(areAnglesEqual(0.0, 1e-5, 1e-4));
}

TEST(AngleText, DegreesMinutesSecondsAndHemispheres)
{
  const struct
  {
    const char* text;
    double degrees;
  } accepted[] = {
    {"12.5", 12.5},       {"-12.5", -12.5},      {"12 30", 12.5},        {"12 30 36", 12.51},
    {"12:30:36", 12.51},  {"12\u00b030'36\"", 12.51}, {"N 12 30", 12.5}, {"12 30 S", -12.5},
    {"W120", -120.0},     {"12E", 12.0},     {"e 45", 45.0},        {"-0 30", -0.5},        {" 7 ", 7.0},
  };
  for (const auto& a : accepted)
  {
    double value = 0;
    ASSERT_EQ(0, getAngleFromDegreeString(a.text, false, value)) << a.text;
    EXPECT_NEAR(a.degrees, value, 1e-12) << a.text;
  }
  double radians = 0;
  getAngleFromDegreeString("90", true, radians);
  EXPECT_NEAR(M_PI_2, radians, 1e-15);

  for (const char* refused : {"", "abc", "12 60", "12 30 60", "12 -30", "-N 12", "1 2 3 4", "12..5", "12x", "N"})
  {
    double value = 99;
    EXPECT_EQ(1, getAngleFromDegreeString(refused, false, value)) << refused;
    EXPECT_EQ(99, value) << refused;
  }
}

TEST(NumberText, StrictAndPermissiveReading)
{
  double d = 0;
  EXPECT_TRUE(isValidNumber("1.5e3", d) && d == 1500.0);
  EXPECT_TRUE(isValidNumber(" +2 ", d, true) && d == 2.0);
  EXPECT_FALSE(isValidNumber(" 2", d, false));
  EXPECT_FALSE(isValidNumber("+2", d, false));
  for (const char* refused : {"", "abc", "1.2.3", "0x10", "inf", "nan", "1e400", "2 3", "--1", "+-1"})
  {
    d = 42;
    EXPECT_FALSE(isValidNumber(refused, d)) << refused;
    EXPECT_EQ(42, d) << refused;
  }
}

TEST(NumberText, IntegersMustFitTheirWidth)
{
  std::int8_t i8 = 0;
  EXPECT_TRUE(isValidNumber("-128", i8) && i8 == -128);
  EXPECT_FALSE(isValidNumber("128", i8));
  std::uint8_t u8 = 0;
  EXPECT_FALSE(isValidNumber("256", u8));
  EXPECT_FALSE(isValidNumber("-1", u8));
  std::uint16_t u16 = 0;
  EXPECT_TRUE(isValidNumber("65535", u16) && u16 == 65535);
  std::int32_t i32 = 0;
  EXPECT_FALSE(isValidNumber("2147483648", i32));
  EXPECT_FALSE(isValidNumber("1.5", i32));
  std::uint64_t u64 = 0;
  EXPECT_TRUE(isValidNumber("18446744073709551615", u64) && u64 == UINT64_MAX);
  EXPECT_FALSE(isValidNumber("18446744073709551616", u64));
  std::int64_t i64 = 0;
  EXPECT_TRUE(isValidNumber("-9223372036854775808", i64) && i64 == INT64_MIN);
}

TEST(WordText, TruthCaseAndFixedNotation)
{
  for (const char* yes : {"1", "true", "TRUE", "Yes", "on", " t ", "2", "-1"})
    EXPECT_TRUE(stringIsTrue(yes)) << yes;
  for (const char* no : {"0", "false", "no", "", "off", "maybe", "0.0"})
    EXPECT_FALSE(stringIsTrue(no)) << no;
  EXPECT_EQ(0, caseCompare("NaN", "nan"));
  EXPECT_NE(0, caseCompare("Inf", "-Inf"));
  EXPECT_EQ("x=3.142 m", buildString("x=", M_PI, 0, 3, " m"));
  EXPECT_EQ("  2.50", buildString("", 2.5, 6, 2));
  EXPECT_EQ("-002.5", buildString("", -2.5, 6, 1, "", true));
  EXPECT_EQ("-0.000", buildString("", -0.0001, 0, 3)) << "the negative zero is the formatter's to drop";
}

} // namespace
