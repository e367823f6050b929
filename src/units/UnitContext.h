#pragma once

#include "kelCore/CoordinateSystem.h"
#include "kelCore/GeodeticFormat.h"
#include "kelCore/TimeFormat.h"
#include "units/MagneticDatumConvert.h"
#include "units/Units.h"

#include <memory>

namespace kelCore
{

/// The user's display choices: units, decimals, time and geodetic formats, datums.
class UnitContext
{
public:
  virtual ~UnitContext() = default;

  virtual CoordinateSystem coordinateSystem() const = 0; ///< system positions are shown in
  virtual TimeFormat timeFormat() const = 0;             ///< form of a moment
  virtual int timePrecision() const = 0;                 ///< decimals of a moment's seconds
  virtual TimeFormat durationFormat() const = 0;         ///< form of a span: SECONDS, MINUTES or HOURS
  virtual int durationPrecision() const = 0;             ///< decimals of a span's seconds
  virtual GeodeticFormat geodeticFormat() const = 0;     ///< form of latitudes and longitudes
  virtual int geodeticPrecision() const = 0;             ///< decimals of latitudes and longitudes in degrees
  virtual const Units& distanceUnits() const = 0;        ///< a LENGTH_FAMILY unit
  virtual int distancePrecision() const = 0;
  virtual const Units& altitudeUnits() const = 0;        ///< a LENGTH_FAMILY unit
  virtual int altitudePrecision() const = 0;
  virtual const Units& angleUnits() const = 0;           ///< an ANGLE_FAMILY unit
  virtual int anglePrecision() const = 0;
  virtual const Units& speedUnits() const = 0;           ///< a SPEED_FAMILY unit
  virtual int speedPrecision() const = 0;
  virtual int genericPrecision() const = 0;              ///< decimals of values without a unit
  virtual int referenceYear() const = 0;                 ///< year that times count from
  virtual VerticalDatum verticalDatum() const = 0;       ///< surface altitudes are shown above
  virtual double verticalDatumUserOffset() const = 0;    ///< metres of the user datum above the ellipsoid
  virtual MagneticVariance magneticVariance() const = 0; ///< north bearings are shown from
  virtual double magneticVarianceUserValue() const = 0;  ///< radians of the user north east of true north
  virtual std::shared_ptr<MagneticDatumConvert> datumConvert() const = 0; ///< never null
};

} // namespace kelCore
