#pragma once

#include "units/Units.h"

#include <map>
#include <string>
#include <vector>

namespace kelCore
{

/// The units known by family, name and abbreviation.
class UnitsRegistry
{
public:
  /// Adds a unit. @return 0 for success; 1 when its name or abbreviation is taken, adding nothing
  int registerUnits(const Units& units);
  /// Adds every unit of the Units statics.
  void registerDefaultUnits();

  /// @return the units of family in the order they were added; empty for an unknown family.
  const std::vector<Units>& units(const std::string& family) const;
  /// @return the names of the families, in alphabetical order.
  std::vector<std::string> families() const;

  /// @return the unit of that name, or the invalid unit.
  const Units& unitsByName(const std::string& name) const;
  /// Finds a unit by name. @return 0 and sets units when found; 1 and leaves it alone otherwise
  int unitsByName(const std::string& name, Units& units) const;
  /// @return the unit of that abbreviation, or the invalid unit.
  const Units& unitsByAbbreviation(const std::string& abbreviation) const;
  /// Finds a unit by abbreviation. @return 0 and sets units when found; 1 and leaves it alone otherwise
  int unitsByAbbreviation(const std::string& abbreviation, Units& units) const;

private:
  std::map<std::string, std::vector<Units>> byFamily_;
  std::map<std::string, Units> byName_;
  std::map<std::string, Units> byAbbreviation_;
};

} // namespace kelCore
