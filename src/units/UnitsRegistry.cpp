#include "units/UnitsRegistry.h"

namespace kelCore
{

namespace
{

const Units& invalidUnits()
{
  static const Units invalid;
  return invalid;
}

} // namespace

int UnitsRegistry::registerUnits(const Units& units)
{
  if (byName_.count(units.name()) || byAbbreviation_.count(units.abbreviation()))
    return 1;
  byFamily_[units.family()].push_back(units);
  byName_.emplace(units.name(), units);
  byAbbreviation_.emplace(units.abbreviation(), units);
  return 0;
}

void UnitsRegistry::registerDefaultUnits()
{
  for (const Units* u : {
           &Units::UNITLESS,
           &Units::SECONDS, &Units::MILLISECONDS, &Units::MICROSECONDS, &Units::NANOSECONDS, &Units::MINUTES,
           &Units::HOURS, &Units::DAYS,
           &Units::RADIANS, &Units::DEGREES, &Units::BAM, &Units::MIL, &Units::MILLIRADIANS,
           &Units::METERS, &Units::KILOMETERS, &Units::YARDS, &Units::MILES, &Units::FEET, &Units::INCHES,
           &Units::NAUTICAL_MILES, &Units::CENTIMETERS, &Units::MILLIMETERS, &Units::KILOYARDS, &Units::DATA_MILES,
           &Units::FATHOMS, &Units::KILOFEET,
           &Units::METERS_PER_SECOND, &Units::KILOMETERS_PER_HOUR, &Units::KNOTS, &Units::MILES_PER_HOUR,
           &Units::FEET_PER_SECOND, &Units::KILOMETERS_PER_SECOND, &Units::DATA_MILES_PER_HOUR,
           &Units::YARDS_PER_SECOND,
           &Units::METERS_PER_SECOND_SQUARED, &Units::KILOMETERS_PER_SECOND_SQUARED, &Units::YARDS_PER_SECOND_SQUARED,
           &Units::MILES_PER_SECOND_SQUARED, &Units::FEET_PER_SECOND_SQUARED, &Units::INCHES_PER_SECOND_SQUARED,
           &Units::NAUTICAL_MILES_PER_SECOND_SQUARED,
           &Units::CELSIUS, &Units::FAHRENHEIT, &Units::KELVIN, &Units::RANKINE, &Units::REAUMUR,
           &Units::HERTZ, &Units::KILOHERTZ, &Units::MEGAHERTZ, &Units::REVOLUTIONS_PER_MINUTE,
           &Units::RADIANS_PER_SECOND, &Units::DEGREES_PER_SECOND,
           &Units::LITER, &Units::MILLILITER, &Units::FLUID_OUNCE, &Units::CUP, &Units::PINT, &Units::QUART,
           &Units::GALLON, &Units::TEASPOON, &Units::TABLESPOON,
           &Units::MILLIBAR, &Units::BAR, &Units::POUNDS_PER_SQUARE_INCH, &Units::ATMOSPHERE, &Units::TORR,
           &Units::PASCALS, &Units::KILOPASCAL, &Units::MEGAPASCAL,
           &Units::VOLT, &Units::MILLIVOLT, &Units::MICROVOLT, &Units::KILOVOLT, &Units::MEGAVOLT, &Units::GIGAVOLT})
    registerUnits(*u);
}

const std::vector<Units>& UnitsRegistry::units(const std::string& family) const
{
  static const std::vector<Units> none;
  auto it = byFamily_.find(family);
  return it == byFamily_.end() ? none : it->second;
}

std::vector<std::string> UnitsRegistry::families() const
{
  std::vector<std::string> names;
  for (const auto& entry : byFamily_)
    names.push_back(entry.first);
  return names;
}

const Units& UnitsRegistry::unitsByName(const std::string& name) const
{
  auto it = byName_.find(name);
  return it == byName_.end() ? invalidUnits() : it->second;
}

int UnitsRegistry::unitsByName(const std::string& name, Units& units) const
{
  auto it = byName_.find(name);
  if (it == byName_.end())
    return 1;
  units = it->second;
  return 0;
}

const Units& UnitsRegistry::unitsByAbbreviation(const std::string& abbreviation) const
{
  auto it = byAbbreviation_.find(abbreviation);
  return it == byAbbreviation_.end() ? invalidUnits() : it->second;
}

int UnitsRegistry::unitsByAbbreviation(const std::string& abbreviation, Units& units) const
{
  auto it = byAbbreviation_.find(abbreviation);
  if (it == byAbbreviation_.end())
    return 1;
  units = it->second;
  return 0;
}

} // namespace kelCore
