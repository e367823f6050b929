#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kelCore;

namespace
{

constexpr double DEG = M_PI / 180.0;

class UnitContextFormatting : public ::testing::Test
{
protected:
  UnitContextAdapter context;
  UnitContextFormatter formatter{context};
};

TEST_F(UnitContextFormatting, NegativeTimesAreStaticAndOthersFollowTheContext)
{
  EXPECT_EQ("Static", formatter.formatTime(-1.0));
  EXPECT_EQ("Static", formatter.formatTime(-0.001));
  context.setReferenceYear(2020);
  EXPECT_EQ("001 2020 00:00:00.000", formatter.formatTime(0.0));
  context.setTimeFormat(TimeFormat::MONTHDAY);
  context.setTimePrecision(1);
  EXPECT_EQ("Feb 29 2020 12:00:00.0", formatter.formatTime(59.5 * 86400.0));
  EXPECT_EQ("Jan 01 2020 00:00:00.0", formatter.formatTime(TimeStamp(2020, 0.0)));
  context.setDurationFormat(TimeFormat::HOURS);
  context.setDurationPrecision(0);
  EXPECT_EQ("1:01:01", formatter.formatDuration(3661.0));
}

TEST_F(UnitContextFormatting, ValuesConvertFromStorageUnitsAndNeverShowANegativeZero)
{
  EXPECT_EQ("0.000", formatter.formatDouble(-0.0001));
  EXPECT_EQ("0.000", formatter.formatDouble(-0.0));
  EXPECT_EQ("-0.001", formatter.formatDouble(-0.0006));
  EXPECT_EQ("-10.000", formatter.formatDouble(-10.0)) << "only zeros lose their sign";
  context.setDistanceUnits(Units::KILOMETERS);
  context.setDistancePrecision(2);
  EXPECT_EQ("1.85", formatter.formatDistance(1852.0));
  context.setAltitudeUnits(Units::FEET);
  context.setAltitudePrecision(0);
  EXPECT_EQ("1000", formatter.formatAltitude(304.8));
  context.setSpeedUnits(Units::KNOTS);
  context.setSpeedPrecision(1);
  EXPECT_EQ("1.0", formatter.formatSpeed(1852.0 / 3600.0));
  context.setGenericPrecision(0);
  EXPECT_EQ("3", formatter.formatDouble(2.5000001));
}

TEST_F(UnitContextFormatting, LatitudesAndLongitudesInEveryDegreeFormat)
{
  context.setGeodeticFormat(GeodeticFormat::DEGREES);
  context.setGeodeticPrecision(4);
  EXPECT_EQ("35.5000 N", formatter.formatLatitude(35.5 * DEG));
  EXPECT_EQ("117.2500\u00b0 W", formatter.formatLongitude(-117.25 * DEG, DegreeSymbolFormat::UNICODE));
  EXPECT_EQ("0.0000 N", formatter.formatLatitude(-1e-12)) << "a zero is never south";

  context.setGeodeticFormat(GeodeticFormat::DEGREES_MINUTES);
  context.setGeodeticPrecision(6);
  EXPECT_EQ("35 30.0000 N", formatter.formatLatitude(35.5 * DEG));
  EXPECT_EQ("36 00.0000 N", formatter.formatLatitude((35.0 + 59.999999 / 60.0) * DEG)) << "minutes carry";

  context.setGeodeticFormat(GeodeticFormat::DEGREES_MINUTES_SECONDS);
  EXPECT_EQ("35\u00b0 30' 36.00\" S", formatter.formatLatitude(-35.51 * DEG, DegreeSymbolFormat::UNICODE));
  EXPECT_EQ("179 59' 59.99\" E", formatter.formatLongitude(179.99999722 * DEG, DegreeSymbolFormat::ASCII));
  EXPECT_EQ("180 00 00.00 W", formatter.formatLongitude(180.0 * DEG)) << "folded to the range [-180, 180)";

  context.setGeodeticPrecision(1);
  EXPECT_EQ("35 30 36 N", formatter.formatLatitude(35.51 * DEG)) << "a precision below the format's digits gives none";

  context.setGeodeticFormat(GeodeticFormat::RADIANS);
  context.setGeodeticPrecision(3);
  EXPECT_EQ("-0.500", formatter.formatLatitude(-0.5));
}

TEST_F(UnitContextFormatting, AnglesFoldFirstThenShowInTheirUnits)
{
  context.setGeodeticFormat(GeodeticFormat::DEGREES);
  context.setAnglePrecision(2);
  EXPECT_EQ("350.00", formatter.formatAngle(-10.0 * DEG, AngleExtents::TWOPI));
  EXPECT_EQ("-10.00", formatter.formatAngle(350.0 * DEG, AngleExtents::PI));
  context.setAngleUnits(Units::MIL);
  context.setAnglePrecision(0);
  EXPECT_EQ("1600", formatter.formatAngle(90.0 * DEG, AngleExtents::TWOPI));
  context.setAngleUnits(Units::RADIANS);
  context.setAnglePrecision(3);
  EXPECT_EQ("0.000", formatter.formatAngle(-1e-9, AngleExtents::ALL));
}

TEST_F(UnitContextFormatting, DatumsMoveAltitudesAndBearingsBeforeFormatting)
{
  const Vec3 here{0.6, -2.0, 100.0};
  const TimeStamp now(2020, 0.0);
  context.setVerticalDatum(VerticalDatum::USER);
  context.setVerticalDatumUserOffset(30.0);
  EXPECT_DOUBLE_EQ(70.0, formatter.rawAltitude(here, now, 100.0));
  EXPECT_EQ("70.000", formatter.formatAltitude(here, now, 100.0));
  context.setVerticalDatum(VerticalDatum::WGS84);
  EXPECT_DOUBLE_EQ(100.0, formatter.rawAltitude(here, now, 100.0));

  context.setMagneticVariance(MagneticVariance::USER);
  context.setMagneticVarianceUserValue(5.0 * DEG);
  context.setGeodeticFormat(GeodeticFormat::DEGREES);
  context.setAnglePrecision(1);
  EXPECT_EQ("355.0", formatter.formatAzimuth(here, now, 0.0, AngleExtents::TWOPI));
}

TEST_F(UnitContextFormatting, ColoursAreFourComponents)
{
  EXPECT_EQ("255, 0, 128, 255", formatter.formatRGBA(255, 0, 128, 255));
}

} // namespace
