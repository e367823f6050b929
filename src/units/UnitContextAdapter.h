#pragma once

#include "units/UnitContext.h"

namespace kelCore
{

/**
 * @brief A unit context whose choices are set one by one.
 *
 * Units of the wrong family are ignored by their setters, so a context never shows a length
 * in seconds.
 */
class UnitContextAdapter : public UnitContext
{
public:
  UnitContextAdapter();

  CoordinateSystem coordinateSystem() const override { return coordinateSystem_; }
  TimeFormat timeFormat() const override { return timeFormat_; }
  int timePrecision() const override { return timePrecision_; }
  TimeFormat durationFormat() const override { return durationFormat_; }
  int durationPrecision() const override { return durationPrecision_; }
  GeodeticFormat geodeticFormat() const override { return geodeticFormat_; }
  int geodeticPrecision() const override { return geodeticPrecision_; }
  const Units& distanceUnits() const override { return distanceUnits_; }
  int distancePrecision() const override { return distancePrecision_; }
  const Units& altitudeUnits() const override { return altitudeUnits_; }
  int altitudePrecision() const override { return altitudePrecision_; }
  const Units& angleUnits() const override { return angleUnits_; }
  int anglePrecision() const override { return anglePrecision_; }
  const Units& speedUnits() const override { return speedUnits_; }
  int speedPrecision() const override { return speedPrecision_; }
  int genericPrecision() const override { return genericPrecision_; }
  int referenceYear() const override { return referenceYear_; }
  VerticalDatum verticalDatum() const override { return verticalDatum_; }
  double verticalDatumUserOffset() const override { return verticalDatumUserOffset_; }
  MagneticVariance magneticVariance() const override { return magneticVariance_; }
  double magneticVarianceUserValue() const override { return magneticVarianceUserValue_; }
  std::shared_ptr<MagneticDatumConvert> datumConvert() const override { return datumConvert_; }

  void setCoordinateSystem(CoordinateSystem system) { coordinateSystem_ = system; }
  void setTimeFormat(TimeFormat format) { timeFormat_ = format; }
  void setTimePrecision(int precision) { timePrecision_ = precision; }
  void setDurationFormat(TimeFormat format) { durationFormat_ = format; }
  void setDurationPrecision(int precision) { durationPrecision_ = precision; }
  void setGeodeticFormat(GeodeticFormat format) { geodeticFormat_ = format; }
  void setGeodeticPrecision(int precision) { geodeticPrecision_ = precision; }
  /// Ignored unless units is of LENGTH_FAMILY.
  void setDistanceUnits(const Units& units);
  void setDistancePrecision(int precision) { distancePrecision_ = precision; }
  /// Ignored unless units is of LENGTH_FAMILY.
  void setAltitudeUnits(const Units& units);
  void setAltitudePrecision(int precision) { altitudePrecision_ = precision; }
  /// Ignored unless units is of ANGLE_FAMILY.
  void setAngleUnits(const Units& units);
  void setAnglePrecision(int precision) { anglePrecision_ = precision; }
  /// Ignored unless units is of SPEED_FAMILY.
  void setSpeedUnits(const Units& units);
  void setSpeedPrecision(int precision) { speedPrecision_ = precision; }
  void setGenericPrecision(int precision) { genericPrecision_ = precision; }
  void setReferenceYear(int year) { referenceYear_ = year; }
  void setVerticalDatum(VerticalDatum datum) { verticalDatum_ = datum; }
  void setVerticalDatumUserOffset(double metres) { verticalDatumUserOffset_ = metres; }
  void setMagneticVariance(MagneticVariance variance) { magneticVariance_ = variance; }
  void setMagneticVarianceUserValue(double radians) { magneticVarianceUserValue_ = radians; }
  /// Replaces the shared converter; null restores a new default one.
  void setDatumConvert(std::shared_ptr<MagneticDatumConvert> convert);

private:
  CoordinateSystem coordinateSystem_ = CoordinateSystem::LLA;
  TimeFormat timeFormat_ = TimeFormat::ORDINAL;
  int timePrecision_ = 3;
  TimeFormat durationFormat_ = TimeFormat::SECONDS;
  int durationPrecision_ = 3;
  GeodeticFormat geodeticFormat_ = GeodeticFormat::DEGREES_MINUTES;
  int geodeticPrecision_ = 6;
  Units distanceUnits_;
  int distancePrecision_ = 3;
  Units altitudeUnits_;
  int altitudePrecision_ = 3;
  Units angleUnits_;
  int anglePrecision_ = 3;
  Units speedUnits_;
  int speedPrecision_ = 3;
  int genericPrecision_ = 3;
  int referenceYear_ = 1970;
  VerticalDatum verticalDatum_ = VerticalDatum::WGS84;
  double verticalDatumUserOffset_ = 0.0;
  MagneticVariance magneticVariance_ = MagneticVariance::TRUE_NORTH;
  double magneticVarianceUserValue_ = 0.0;
  std::shared_ptr<MagneticDatumConvert> datumConvert_;
};

} // namespace kelCore
