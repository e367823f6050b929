#include "units/UnitContextAdapter.h"

namespace kelCore
{

UnitContextAdapter::UnitContextAdapter()
  : distanceUnits_(Units::METERS),
    altitudeUnits_(Units::METERS),
    angleUnits_(Units::DEGREES),
    speedUnits_(Units::METERS_PER_SECOND),
    datumConvert_(std::make_shared<MagneticDatumConvert>())
{
}

void UnitContextAdapter::setDistanceUnits(const Units& units)
{
  if (units.family() == Units::LENGTH_FAMILY)
    distanceUnits_ = units;
}

void UnitContextAdapter::setAltitudeUnits(const Units& units)
{
  if (units.family() == Units::LENGTH_FAMILY)
    altitudeUnits_ = units;
}

void UnitContextAdapter::setAngleUnits(const Units& units)
{
  if (units.family() == Units::ANGLE_FAMILY)
    angleUnits_ = units;
}

void UnitContextAdapter::setSpeedUnits(const Units& units)
{
  if (units.family() == Units::SPEED_FAMILY)
    speedUnits_ = units;
}

void UnitContextAdapter::setDatumConvert(std::shared_ptr<MagneticDatumConvert> convert)
{
  datumConvert_ = convert ? std::move(convert) : std::make_shared<MagneticDatumConvert>();
}

} // namespace kelCore
