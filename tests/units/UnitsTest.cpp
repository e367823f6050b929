#include "units/UnitContextAdapter.h"
#include "units/UnitsRegistry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

using namespace kelCore;

namespace
{

TEST(Units, ConvertByPublishedDefinitions)
{
  EXPECT_DOUBLE_EQ(1852.0, Units::NAUTICAL_MILES.convertTo(Units::METERS, 1.0));
  EXPECT_DOUBLE_EQ(1.0 / 0.3048, Units::METERS.convertTo(Units::FEET, 1.0));
  EXPECT_DOUBLE_EQ(1.852, Units::KNOTS.convertTo(Units::KILOMETERS_PER_HOUR, 1.0));
  EXPECT_DOUBLE_EQ(180.0, Units::RADIANS.convertTo(Units::DEGREES, M_PI));
  EXPECT_DOUBLE_EQ(3200.0, Units::DEGREES.convertTo(Units::MIL, 180.0));
  EXPECT_DOUBLE_EQ(1.0, Units::DEGREES.convertTo(Units::BAM, 180.0));
  EXPECT_DOUBLE_EQ(6000.0, Units::DATA_MILES.convertTo(Units::FEET, 1.0));
  EXPECT_DOUBLE_EQ(1.0, Units::HOURS.convertTo(Units::DAYS, 24.0));
  EXPECT_NEAR(14.6959, Units::ATMOSPHERE.convertTo(Units::POUNDS_PER_SQUARE_INCH, 1.0), 1e-4);
  EXPECT_NEAR(760.0, Units::ATMOSPHERE.convertTo(Units::TORR, 1.0), 1e-9);
  EXPECT_DOUBLE_EQ(16.0, Units::GALLON.convertTo(Units::CUP, 1.0));
  EXPECT_DOUBLE_EQ(3.0, Units::TABLESPOON.convertTo(Units::TEASPOON, 1.0));
  EXPECT_NEAR(60.0, Units::HERTZ.convertTo(Units::REVOLUTIONS_PER_MINUTE, 1.0), 1e-12);
}

TEST(Units, TemperaturesOffsetBeforeTheyScale)
{
  EXPECT_NEAR(100.0, Units::FAHRENHEIT.convertTo(Units::CELSIUS, 212.0), 1e-12);
  EXPECT_NEAR(373.15, Units::FAHRENHEIT.convertTo(Units::KELVIN, 212.0), 1e-12);
  EXPECT_NEAR(-40.0, Units::CELSIUS.convertTo(Units::FAHRENHEIT, -40.0), 1e-12);
  EXPECT_NEAR(491.67, Units::CELSIUS.convertTo(Units::RANKINE, 0.0), 1e-12);
  EXPECT_NEAR(80.0, Units::CELSIUS.convertTo(Units::REAUMUR, 100.0), 1e-12);
  EXPECT_NEAR(0.0, Units::KELVIN.convertTo(Units::RANKINE, 0.0), 1e-9) << "absolute zero in both";
}

TEST(Units, OtherFamiliesAndTheInvalidUnitLeaveValuesAlone)
{
  EXPECT_EQ(5.0, Units::METERS.convertTo(Units::SECONDS, 5.0));
  EXPECT_FALSE(Units::METERS.canConvert(Units::KNOTS));
  const Units invalid;
  EXPECT_FALSE(invalid.isValid());
  EXPECT_EQ("Invalid", invalid.name());
  EXPECT_EQ("inv", invalid.abbreviation());
  EXPECT_EQ(7.0, invalid.convertTo(Units::METERS, 7.0));
  EXPECT_NE(Units::METERS, Units::KILOMETERS);
  EXPECT_EQ("length", Units::LENGTH_FAMILY);
  EXPECT_EQ("km/hr", Units::KILOMETERS_PER_HOUR.abbreviation());
  EXPECT_EQ("knots per second", Units::NAUTICAL_MILES_PER_SECOND_SQUARED.name());
}

TEST(UnitsRegistry, HoldsEveryDefaultUnitOnceAndFindsByNameAndAbbreviation)
{
  UnitsRegistry registry;
  registry.registerDefaultUnits();
  EXPECT_EQ(11u, registry.families().size());
  EXPECT_EQ(13u, registry.units(Units::LENGTH_FAMILY).size());
  EXPECT_EQ(Units::METERS, registry.units(Units::LENGTH_FAMILY).front()) << "the base comes first";
  EXPECT_TRUE(registry.units("no such family").empty());
  EXPECT_EQ(Units::KNOTS, registry.unitsByAbbreviation("kts"));
  EXPECT_EQ(Units::MEGAVOLT, registry.unitsByAbbreviation("MV"));
  EXPECT_EQ(Units::MILLIVOLT, registry.unitsByAbbreviation("mV"));
  EXPECT_FALSE(registry.unitsByName("furlongs").isValid());

  Units found = Units::HERTZ;
  EXPECT_EQ(1, registry.unitsByName("furlongs", found));
  EXPECT_EQ(Units::HERTZ, found);
  EXPECT_EQ(0, registry.unitsByName("kilofeet", found));
  EXPECT_EQ(Units::KILOFEET, found);

  EXPECT_EQ(1, registry.registerUnits(Units("meters", "mtr", 1.0, Units::LENGTH_FAMILY))) << "name taken";
  EXPECT_EQ(1, registry.registerUnits(Units("metres", "m", 1.0, Units::LENGTH_FAMILY))) << "abbreviation taken";
  EXPECT_EQ(13u, registry.units(Units::LENGTH_FAMILY).size());
  EXPECT_EQ(0, registry.registerUnits(Units("furlongs", "fur", 201.168, Units::LENGTH_FAMILY)));
}

TEST(UnitContextAdapter, DefaultsAndUnitsOfTheWrongFamily)
{
  UnitContextAdapter context;
  EXPECT_EQ(TimeFormat::ORDINAL, context.timeFormat());
  EXPECT_EQ(3, context.timePrecision());
  EXPECT_EQ(GeodeticFormat::DEGREES_MINUTES, context.geodeticFormat());
  EXPECT_EQ(6, context.geodeticPrecision());
  EXPECT_EQ(Units::METERS, context.distanceUnits());
  EXPECT_EQ(Units::DEGREES, context.angleUnits());
  EXPECT_EQ(Units::METERS_PER_SECOND, context.speedUnits());
  EXPECT_EQ(1970, context.referenceYear());
  ASSERT_NE(nullptr, context.datumConvert());

  context.setDistanceUnits(Units::SECONDS);
  context.setAltitudeUnits(Units::KNOTS);
  context.setAngleUnits(Units::METERS);
  context.setSpeedUnits(Units::DEGREES);
  EXPECT_EQ(Units::METERS, context.distanceUnits());
  EXPECT_EQ(Units::METERS, context.altitudeUnits());
  EXPECT_EQ(Units::DEGREES, context.angleUnits());
  EXPECT_EQ(Units::METERS_PER_SECOND, context.speedUnits());
  context.setAltitudeUnits(Units::FEET);
  EXPECT_EQ(Units::FEET, context.altitudeUnits());

  auto shared = std::make_shared<MagneticDatumConvert>();
  context.setDatumConvert(shared);
  EXPECT_EQ(shared, context.datumConvert());
  context.setDatumConvert(nullptr);
  EXPECT_NE(nullptr, context.datumConvert());
  EXPECT_NE(shared, context.datumConvert());
}

} // namespace
