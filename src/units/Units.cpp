#include "units/Units.h"

#include <cmath>

namespace kelCore
{

const std::string Units::UNITLESS_FAMILY = "unitless";
const std::string Units::ELAPSED_TIME_FAMILY = "elapsed time";
const std::string Units::ANGLE_FAMILY = "angle";
const std::string Units::LENGTH_FAMILY = "length";
const std::string Units::SPEED_FAMILY = "speed";
const std::string Units::ACCELERATION_FAMILY = "acceleration";
const std::string Units::TEMPERATURE_FAMILY = "temperature";
const std::string Units::FREQUENCY_FAMILY = "frequency";
const std::string Units::VOLUME_FAMILY = "volume";
const std::string Units::PRESSURE_FAMILY = "pressure";
const std::string Units::POTENTIAL_FAMILY = "potential";
const std::string Units::INVALID_FAMILY = "invalid";

namespace
{

constexpr double FOOT = 0.3048;
constexpr double YARD = 0.9144;
constexpr double MILE = 1609.344;
constexpr double NAUTICAL_MILE = 1852.0;
constexpr double DATA_MILE = 1828.8; // 6000 feet
constexpr double US_FLUID_OUNCE = 0.0295735295625; // litres
constexpr double ATMOSPHERE_MBAR = 1013.25;

} // namespace

const Units Units::UNITLESS("unitless", "", 1.0, UNITLESS_FAMILY);

const Units Units::SECONDS("seconds", "sec", 1.0, ELAPSED_TIME_FAMILY);
const Units Units::MILLISECONDS("milliseconds", "ms", 1e-3, ELAPSED_TIME_FAMILY);
const Units Units::MICROSECONDS("microseconds", "us", 1e-6, ELAPSED_TIME_FAMILY);
const Units Units::NANOSECONDS("nanoseconds", "ns", 1e-9, ELAPSED_TIME_FAMILY);
const Units Units::MINUTES("minutes", "min", 60.0, ELAPSED_TIME_FAMILY);
const Units Units::HOURS("hours", "hr", 3600.0, ELAPSED_TIME_FAMILY);
const Units Units::DAYS("days", "dy", 86400.0, ELAPSED_TIME_FAMILY);

const Units Units::RADIANS("radians", "rad", 1.0, ANGLE_FAMILY);
const Units Units::DEGREES("degrees", "deg", M_PI / 180.0, ANGLE_FAMILY);
// One binary angle unit is half a turn, so the range -1 to 1 covers the circle.
const Units Units::BAM("binary angle measurement", "bam", M_PI, ANGLE_FAMILY);
const Units Units::MIL("angular mil", "mils", 2.0 * M_PI / 6400.0, ANGLE_FAMILY);
const Units Units::MILLIRADIANS("milliradians", "mrad", 1e-3, ANGLE_FAMILY);

const Units Units::METERS("meters", "m", 1.0, LENGTH_FAMILY);
const Units Units::KILOMETERS("kilometers", "km", 1000.0, LENGTH_FAMILY);
const Units Units::YARDS("yards", "yd", YARD, LENGTH_FAMILY);
const Units Units::MILES("miles", "mi", MILE, LENGTH_FAMILY);
const Units Units::FEET("feet", "ft", FOOT, LENGTH_FAMILY);
const Units Units::INCHES("inches", "in", 0.0254, LENGTH_FAMILY);
const Units Units::NAUTICAL_MILES("nautical miles", "nm", NAUTICAL_MILE, LENGTH_FAMILY);
const Units Units::CENTIMETERS("centimeters", "cm", 0.01, LENGTH_FAMILY);
const Units Units::MILLIMETERS("millimeters", "mm", 0.001, LENGTH_FAMILY);
const Units Units::KILOYARDS("kiloyards", "kyd", 1000.0 * YARD, LENGTH_FAMILY);
const Units Units::DATA_MILES("data miles", "dm", DATA_MILE, LENGTH_FAMILY);
const Units Units::FATHOMS("fathoms", "fm", 6.0 * FOOT, LENGTH_FAMILY);
const Units Units::KILOFEET("kilofeet", "kf", 1000.0 * FOOT, LENGTH_FAMILY);

const Units Units::METERS_PER_SECOND("meters per second", "m/s", 1.0, SPEED_FAMILY);
const Units Units::KILOMETERS_PER_HOUR("kilometers per hour", "km/hr", 1000.0 / 3600.0, SPEED_FAMILY);
const Units Units::KNOTS("knots", "kts", NAUTICAL_MILE / 3600.0, SPEED_FAMILY);
const Units Units::MILES_PER_HOUR("miles per hour", "mph", MILE / 3600.0, SPEED_FAMILY);
const Units Units::FEET_PER_SECOND("feet per second", "ft/sec", FOOT, SPEED_FAMILY);
const Units Units::KILOMETERS_PER_SECOND("kilometers per second", "km/sec", 1000.0, SPEED_FAMILY);
const Units Units::DATA_MILES_PER_HOUR("data miles per hour", "dm/hr", DATA_MILE / 3600.0, SPEED_FAMILY);
const Units Units::YARDS_PER_SECOND("yards per second", "yd/sec", YARD, SPEED_FAMILY);

const Units Units::METERS_PER_SECOND_SQUARED("meters per second squared", "m/(s^2)", 1.0, ACCELERATION_FAMILY);
const Units Units::KILOMETERS_PER_SECOND_SQUARED("kilometers per second squared", "km/(s^2)", 1000.0,
                                                 ACCELERATION_FAMILY);
const Units Units::YARDS_PER_SECOND_SQUARED("yards per second squared", "yd/(s^2)", YARD, ACCELERATION_FAMILY);
const Units Units::MILES_PER_SECOND_SQUARED("miles per second squared", "sm/(s^2)", MILE, ACCELERATION_FAMILY);
const Units Units::FEET_PER_SECOND_SQUARED("feet per second squared", "ft/(s^2)", FOOT, ACCELERATION_FAMILY);
const Units Units::INCHES_PER_SECOND_SQUARED("inches per second squared", "in/(s^2)", 0.0254, ACCELERATION_FAMILY);
const Units Units::NAUTICAL_MILES_PER_SECOND_SQUARED("knots per second", "nm/(s^2)", NAUTICAL_MILE,
                                                     ACCELERATION_FAMILY);

const Units Units::CELSIUS("celsius", "C", 1.0, TEMPERATURE_FAMILY);
const Units Units::FAHRENHEIT = Units::offsetThenScaleUnit("fahrenheit", "F", -32.0, 5.0 / 9.0, TEMPERATURE_FAMILY);
const Units Units::KELVIN = Units::offsetThenScaleUnit("kelvin", "K", -273.15, 1.0, TEMPERATURE_FAMILY);
const Units Units::RANKINE = Units::offsetThenScaleUnit("rankine", "ra", -491.67, 5.0 / 9.0, TEMPERATURE_FAMILY);
const Units Units::REAUMUR("reaumur", "re", 1.25, TEMPERATURE_FAMILY);

const Units Units::HERTZ("hertz", "Hz", 1.0, FREQUENCY_FAMILY);
const Units Units::KILOHERTZ("1000 cycles per second", "kHz", 1e3, FREQUENCY_FAMILY);
const Units Units::MEGAHERTZ("1000000 cycles per second", "MHz", 1e6, FREQUENCY_FAMILY);
const Units Units::REVOLUTIONS_PER_MINUTE("revolutions per minute", "rpm", 1.0 / 60.0, FREQUENCY_FAMILY);
const Units Units::RADIANS_PER_SECOND("radians per second", "rad/sec", 1.0 / (2.0 * M_PI), FREQUENCY_FAMILY);
const Units Units::DEGREES_PER_SECOND("degrees per second", "deg/sec", 1.0 / 360.0, FREQUENCY_FAMILY);

const Units Units::LITER("liters", "l", 1.0, VOLUME_FAMILY);
const Units Units::MILLILITER("milliliters", "ml", 1e-3, VOLUME_FAMILY);
const Units Units::FLUID_OUNCE("fluid ounces", "fl oz", US_FLUID_OUNCE, VOLUME_FAMILY);
const Units Units::CUP("cups", "cup", 8.0 * US_FLUID_OUNCE, VOLUME_FAMILY);
const Units Units::PINT("pints", "pt", 16.0 * US_FLUID_OUNCE, VOLUME_FAMILY);
const Units Units::QUART("quarts", "qt", 32.0 * US_FLUID_OUNCE, VOLUME_FAMILY);
const Units Units::GALLON("gallons", "gal", 128.0 * US_FLUID_OUNCE, VOLUME_FAMILY);
const Units Units::TEASPOON("teaspoons", "tsp", US_FLUID_OUNCE / 6.0, VOLUME_FAMILY);
const Units Units::TABLESPOON("tablespoons", "tbsp", US_FLUID_OUNCE / 2.0, VOLUME_FAMILY);

const Units Units::MILLIBAR("millibar", "mbar", 1.0, PRESSURE_FAMILY);
const Units Units::BAR("bars", "bar", 1000.0, PRESSURE_FAMILY);
const Units Units::POUNDS_PER_SQUARE_INCH("pounds per square inch", "psia", 68.94757293168361, PRESSURE_FAMILY);
const Units Units::ATMOSPHERE("atmospheres", "atm", ATMOSPHERE_MBAR, PRESSURE_FAMILY);
const Units Units::TORR("torr", "torr", ATMOSPHERE_MBAR / 760.0, PRESSURE_FAMILY);
const Units Units::PASCALS("pascals", "Pa", 0.01, PRESSURE_FAMILY);
const Units Units::KILOPASCAL("kilopascals", "kPa", 10.0, PRESSURE_FAMILY);
const Units Units::MEGAPASCAL("megapascals", "MPa", 10000.0, PRESSURE_FAMILY);

const Units Units::VOLT("volts", "V", 1.0, POTENTIAL_FAMILY);
const Units Units::MILLIVOLT("millivolts", "mV", 1e-3, POTENTIAL_FAMILY);
const Units Units::MICROVOLT("microvolts", "uV", 1e-6, POTENTIAL_FAMILY);
const Units Units::KILOVOLT("kilovolts", "kV", 1e3, POTENTIAL_FAMILY);
const Units Units::MEGAVOLT("megavolts", "MV", 1e6, POTENTIAL_FAMILY);
const Units Units::GIGAVOLT("gigavolts", "GV", 1e9, POTENTIAL_FAMILY);

Units::Units() : name_("Invalid"), abbreviation_("inv"), family_(INVALID_FAMILY) {}

Units::Units(const std::string& name, const std::string& abbreviation, double toBaseScalar, const std::string& family)
  : name_(name), abbreviation_(abbreviation), toBaseScalar_(toBaseScalar), family_(family)
{
}

Units Units::offsetThenScaleUnit(const std::string& name, const std::string& abbreviation, double offset,
                                 double scalar, const std::string& family)
{
  Units unit(name, abbreviation, scalar, family);
  unit.toBaseOffset_ = offset;
  return unit;
}

double Units::convertTo(const Units& other, double value) const
{
  if (!canConvert(other))
    return value;
  if (*this == other)
    return value;
  return (value + toBaseOffset_) * toBaseScalar_ / other.toBaseScalar_ - other.toBaseOffset_;
}

bool Units::operator==(const Units& o) const
{
  return name_ == o.name_ && abbreviation_ == o.abbreviation_ && toBaseScalar_ == o.toBaseScalar_ &&
         toBaseOffset_ == o.toBaseOffset_ && family_ == o.family_;
}

} // namespace kelCore
