#pragma once

#include <string>

namespace kelCore
{

/**
 * @brief A unit of measure: value in base units = (value + toBaseOffset) x toBaseScalar.
 *
 * The base of each family is its first unit: second, radian, metre, metre per second, metre
 * per second squared, degree Celsius, hertz, litre, millibar, volt.
 */
class Units
{
public:
  static const std::string UNITLESS_FAMILY;
  static const std::string ELAPSED_TIME_FAMILY;
  static const std::string ANGLE_FAMILY;
  static const std::string LENGTH_FAMILY;
  static const std::string SPEED_FAMILY;
  static const std::string ACCELERATION_FAMILY;
  static const std::string TEMPERATURE_FAMILY;
  static const std::string FREQUENCY_FAMILY;
  static const std::string VOLUME_FAMILY;
  static const std::string PRESSURE_FAMILY;
  static const std::string POTENTIAL_FAMILY;
  static const std::string INVALID_FAMILY;

  static const Units UNITLESS;

  static const Units SECONDS, MILLISECONDS, MICROSECONDS, NANOSECONDS, MINUTES, HOURS, DAYS;

  static const Units RADIANS, DEGREES, BAM, MIL, MILLIRADIANS;

  static const Units METERS, KILOMETERS, YARDS, MILES, FEET, INCHES, NAUTICAL_MILES, CENTIMETERS, MILLIMETERS,
      KILOYARDS, DATA_MILES, FATHOMS, KILOFEET;

  static const Units METERS_PER_SECOND, KILOMETERS_PER_HOUR, KNOTS, MILES_PER_HOUR, FEET_PER_SECOND,
      KILOMETERS_PER_SECOND, DATA_MILES_PER_HOUR, YARDS_PER_SECOND;

  static const Units METERS_PER_SECOND_SQUARED, KILOMETERS_PER_SECOND_SQUARED, YARDS_PER_SECOND_SQUARED,
      MILES_PER_SECOND_SQUARED, FEET_PER_SECOND_SQUARED, INCHES_PER_SECOND_SQUARED, NAUTICAL_MILES_PER_SECOND_SQUARED;

  static const Units CELSIUS, FAHRENHEIT, KELVIN, RANKINE, REAUMUR;

  static const Units HERTZ, KILOHERTZ, MEGAHERTZ, REVOLUTIONS_PER_MINUTE, RADIANS_PER_SECOND, DEGREES_PER_SECOND;

  static const Units LITER, MILLILITER, FLUID_OUNCE, CUP, PINT, QUART, GALLON, TEASPOON, TABLESPOON;

  static const Units MILLIBAR, BAR, POUNDS_PER_SQUARE_INCH, ATMOSPHERE, TORR, PASCALS, KILOPASCAL, MEGAPASCAL;

  static const Units VOLT, MILLIVOLT, MICROVOLT, KILOVOLT, MEGAVOLT, GIGAVOLT;

  /// The invalid unit: name "Invalid", abbreviation "inv", family INVALID_FAMILY.
  Units();
  /**
   * @param name full name @param abbreviation short name @param toBaseScalar factor to the
   * family's base unit @param family the family's name
   */
  Units(const std::string& name, const std::string& abbreviation, double toBaseScalar, const std::string& family);
  virtual ~Units() = default;

  /// A unit whose value is offset before it is scaled, as temperatures are.
  static Units offsetThenScaleUnit(const std::string& name, const std::string& abbreviation, double offset,
                                   double scalar, const std::string& family);

  const std::string& name() const { return name_; }
  const std::string& abbreviation() const { return abbreviation_; }
  double toBaseScalar() const { return toBaseScalar_; }
  double toBaseOffset() const { return toBaseOffset_; }
  const std::string& family() const { return family_; }

  /// @return false for the invalid unit.
  bool isValid() const { return family_ != INVALID_FAMILY; }
  /// @return true when other is of the same family.
  bool canConvert(const Units& other) const { return family_ == other.family_; }
  /// @return value in this unit expressed in other; value unchanged when the families differ.
  double convertTo(const Units& other, double value) const;

  bool operator==(const Units& o) const;
  bool operator!=(const Units& o) const { return !(*this == o); }

private:
  std::string name_;
  std::string abbreviation_;
  double toBaseScalar_ = 1.0;
  double toBaseOffset_ = 0.0;
  std::string family_;
};

} // namespace kelCore
