#include "widgets/UnitsComboBox.h"

#include "units/UnitsRegistry.h"
#include "kelCore/CoordinateSystem.h"
#include "kelCore/GeodeticFormat.h"
#include "kelCore/TimeFormat.h"

namespace kelQt
{

namespace
{

const kelCore::UnitsRegistry& defaultUnits()
{
  static const kelCore::UnitsRegistry registry = [] {
    kelCore::UnitsRegistry units;
    units.registerDefaultUnits();
    return units;
  }();
  return registry;
}

} // namespace

UnitsComboBox::UnitsComboBox(QWidget* parent) : QComboBox(parent) {}

void UnitsComboBox::addCoordinateSystems()
{
  using kelCore::CoordinateSystem;
  addItem("LLA", int(CoordinateSystem::LLA));
  addItem("ECEF", int(CoordinateSystem::ECEF));
  addItem("ECI", int(CoordinateSystem::ECI));
  addItem("X-East Tangent Plane", int(CoordinateSystem::XEAST));
  addItem("Generic Tangent Plane", int(CoordinateSystem::GTP));
  addItem("ENU", int(CoordinateSystem::ENU));
  addItem("NED", int(CoordinateSystem::NED));
  addItem("NWU", int(CoordinateSystem::NWU));
}

void UnitsComboBox::addTimeFormats()
{
  using kelCore::TimeFormat;
  addDurationFormats();
  addItem("Ordinal", int(TimeFormat::ORDINAL));
  addItem("Month Day", int(TimeFormat::MONTHDAY));
  addItem("DTG", int(TimeFormat::DTG));
  addItem("ISO 8601", int(TimeFormat::ISO8601));
}

void UnitsComboBox::addDurationFormats()
{
  using kelCore::TimeFormat;
  addItem("Seconds", int(TimeFormat::SECONDS));
  addItem("Minutes", int(TimeFormat::MINUTES));
  addItem("Hours", int(TimeFormat::HOURS));
}

void UnitsComboBox::addGeodeticFormats()
{
  using kelCore::GeodeticFormat;
  addItem("Degrees", int(GeodeticFormat::DEGREES));
  addItem("Degrees Minutes", int(GeodeticFormat::DEGREES_MINUTES));
  addItem("Degrees Minutes Seconds", int(GeodeticFormat::DEGREES_MINUTES_SECONDS));
  addItem("Radians", int(GeodeticFormat::RADIANS));
  addItem("BAM", int(GeodeticFormat::BAM));
  addItem("Mil", int(GeodeticFormat::MIL));
  addItem("Milliradians", int(GeodeticFormat::MILLIRADIANS));
}

void UnitsComboBox::addAltitudeUnits()
{
  addUnitsOfFamily(kelCore::Units::LENGTH_FAMILY);
}

void UnitsComboBox::addDistanceUnits()
{
  addUnitsOfFamily(kelCore::Units::LENGTH_FAMILY);
}

void UnitsComboBox::addSpeedUnits()
{
  addUnitsOfFamily(kelCore::Units::SPEED_FAMILY);
}

void UnitsComboBox::addAngleUnits()
{
  addUnitsOfFamily(kelCore::Units::ANGLE_FAMILY);
}

void UnitsComboBox::addUnitsOfFamily(const std::string& family)
{
  for (const kelCore::Units& units : defaultUnits().units(family))
    addItem(QString::fromStdString(units.name()), QString::fromStdString(units.name()));
}

bool UnitsComboBox::setCurrentData(const QVariant& value)
{
  const int found = findData(value);
  if (found < 0)
    return false;
  setCurrentIndex(found);
  return true;
}

} // namespace kelQt
