#include "plugin/UnitsWidget.h"

#include "host/PURegistry.h"
#include "kelCore/CoordinateSystem.h"
#include "kelCore/GeodeticFormat.h"
#include "kelCore/TimeFormat.h"
#include "units/Units.h"
#include "widgets/UnitsComboBox.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QSpinBox>

namespace QtSep
{

const char* const UnitsWidget::COORDINATE_SYSTEM_KEY = "Coordinate System";
const char* const UnitsWidget::TIME_FORMAT_KEY = "Time Format";
const char* const UnitsWidget::TIME_PRECISION_KEY = "Time Precision";
const char* const UnitsWidget::DURATION_FORMAT_KEY = "Duration Format";
const char* const UnitsWidget::DURATION_PRECISION_KEY = "Duration Precision";
const char* const UnitsWidget::GEODETIC_FORMAT_KEY = "Geodetic Format";
const char* const UnitsWidget::GEODETIC_PRECISION_KEY = "Geodetic Precision";
const char* const UnitsWidget::ALTITUDE_UNITS_KEY = "Altitude Units";
const char* const UnitsWidget::ALTITUDE_PRECISION_KEY = "Altitude Precision";
const char* const UnitsWidget::DISTANCE_UNITS_KEY = "Distance Units";
const char* const UnitsWidget::DISTANCE_PRECISION_KEY = "Distance Precision";
const char* const UnitsWidget::SPEED_UNITS_KEY = "Speed Units";
const char* const UnitsWidget::SPEED_PRECISION_KEY = "Speed Precision";
const char* const UnitsWidget::ANGLE_UNITS_KEY = "Angle Units";
const char* const UnitsWidget::ANGLE_PRECISION_KEY = "Angle Precision";
const char* const UnitsWidget::GENERIC_PRECISION_KEY = "Generic Precision";

namespace
{

const int DEFAULT_PRECISION = 3;
const int MAX_PRECISION = 9;

QSpinBox* makePrecisionBox(const char* name)
{
  auto* spin = new QSpinBox;
  spin->setObjectName(name);
  spin->setRange(0, MAX_PRECISION);
  spin->setToolTip("Decimal places shown");
  return spin;
}

int loadPrecision(const char* key, int fallback)
{
  return PURegistry::loadReg(fallback, key, 0, MAX_PRECISION);
}

} // namespace

kelCore::TimeFormat UnitsWidget::timeFormat()
{
  return static_cast<kelCore::TimeFormat>(PURegistry::loadReg(static_cast<int>(TIME_FORMAT_DEFAULT), TIME_FORMAT_KEY));
}

int UnitsWidget::timePrecision()
{
  return loadPrecision(TIME_PRECISION_KEY, TIME_PRECISION_DEFAULT);
}

kelCore::TimeFormat UnitsWidget::durationFormat()
{
  return static_cast<kelCore::TimeFormat>(
    PURegistry::loadReg(static_cast<int>(DURATION_FORMAT_DEFAULT), DURATION_FORMAT_KEY));
}

int UnitsWidget::durationPrecision()
{
  return loadPrecision(DURATION_PRECISION_KEY, DURATION_PRECISION_DEFAULT);
}

UnitsWidget::UnitsWidget(QWidget* parent) : QWidget(parent)
{
  setLayout(new QFormLayout);
  coordCombo_ = addComboRow_("Coordinate System:", "coordCombo", nullptr, nullptr);
  coordCombo_->addCoordinateSystems();
  timeCombo_ = addComboRow_("Time Format:", "timeCombo", "timePrecision", &timePrecision_);
  timeCombo_->addTimeFormats();
  durationCombo_ = addComboRow_("Duration Format:", "durationCombo", "durationPrecision", &durationPrecision_);
  durationCombo_->addDurationFormats();
  geodeticCombo_ = addComboRow_("Geodetic Format:", "geodeticCombo", "geodeticPrecision", &geodeticPrecision_);
  geodeticCombo_->addGeodeticFormats();
  altitudeCombo_ = addComboRow_("Altitude Units:", "altitudeCombo", "altitudePrecision", &altitudePrecision_);
  altitudeCombo_->addAltitudeUnits();
  distanceCombo_ = addComboRow_("Distance Units:", "distanceCombo", "distancePrecision", &distancePrecision_);
  distanceCombo_->addDistanceUnits();
  speedCombo_ = addComboRow_("Speed Units:", "speedCombo", "speedPrecision", &speedPrecision_);
  speedCombo_->addSpeedUnits();
  angleCombo_ = addComboRow_("Angle Units:", "angleCombo", "anglePrecision", &anglePrecision_);
  angleCombo_->addAngleUnits();
  genericPrecision_ = makePrecisionBox("genericPrecision");
  static_cast<QFormLayout*>(layout())->addRow("Generic Units:", genericPrecision_);
  loadSettings();
}

kelQt::UnitsComboBox* UnitsWidget::addComboRow_(const QString& label, const char* comboName, const char* precisionName,
  QSpinBox** precision)
{
  auto* combo = new kelQt::UnitsComboBox;
  combo->setObjectName(comboName);
  auto* row = new QHBoxLayout;
  row->addWidget(combo, 1);
  if (precision)
  {
    *precision = makePrecisionBox(precisionName);
    row->addWidget(*precision);
  }
  static_cast<QFormLayout*>(layout())->addRow(label, row);
  return combo;
}

void UnitsWidget::loadSettings()
{
  loadEnumComboBox_(coordCombo_, COORDINATE_SYSTEM_KEY, int(kelCore::CoordinateSystem::LLA));
  loadEnumComboBox_(timeCombo_, TIME_FORMAT_KEY, int(TIME_FORMAT_DEFAULT));
  timePrecision_->setValue(timePrecision());
  loadEnumComboBox_(durationCombo_, DURATION_FORMAT_KEY, int(DURATION_FORMAT_DEFAULT));
  durationPrecision_->setValue(durationPrecision());
  loadEnumComboBox_(geodeticCombo_, GEODETIC_FORMAT_KEY, int(kelCore::GeodeticFormat::DEGREES_MINUTES));
  geodeticPrecision_->setValue(loadPrecision(GEODETIC_PRECISION_KEY, 6));
  loadUnitComboBox_(altitudeCombo_, ALTITUDE_UNITS_KEY, kelCore::Units::METERS.name());
  altitudePrecision_->setValue(loadPrecision(ALTITUDE_PRECISION_KEY, DEFAULT_PRECISION));
  loadUnitComboBox_(distanceCombo_, DISTANCE_UNITS_KEY, kelCore::Units::METERS.name());
  distancePrecision_->setValue(loadPrecision(DISTANCE_PRECISION_KEY, DEFAULT_PRECISION));
  loadUnitComboBox_(speedCombo_, SPEED_UNITS_KEY, kelCore::Units::METERS_PER_SECOND.name());
  speedPrecision_->setValue(loadPrecision(SPEED_PRECISION_KEY, DEFAULT_PRECISION));
  loadUnitComboBox_(angleCombo_, ANGLE_UNITS_KEY, kelCore::Units::DEGREES.name());
  anglePrecision_->setValue(loadPrecision(ANGLE_PRECISION_KEY, DEFAULT_PRECISION));
  genericPrecision_->setValue(loadPrecision(GENERIC_PRECISION_KEY, DEFAULT_PRECISION));
}

void UnitsWidget::saveSettings()
{
  saveEnumComboBox_(coordCombo_, COORDINATE_SYSTEM_KEY);
  saveEnumComboBox_(timeCombo_, TIME_FORMAT_KEY);
  saveSpinBox_(timePrecision_, TIME_PRECISION_KEY);
  saveEnumComboBox_(durationCombo_, DURATION_FORMAT_KEY);
  saveSpinBox_(durationPrecision_, DURATION_PRECISION_KEY);
  saveEnumComboBox_(geodeticCombo_, GEODETIC_FORMAT_KEY);
  saveSpinBox_(geodeticPrecision_, GEODETIC_PRECISION_KEY);
  saveUnitComboBox_(altitudeCombo_, ALTITUDE_UNITS_KEY);
  saveSpinBox_(altitudePrecision_, ALTITUDE_PRECISION_KEY);
  saveUnitComboBox_(distanceCombo_, DISTANCE_UNITS_KEY);
  saveSpinBox_(distancePrecision_, DISTANCE_PRECISION_KEY);
  saveUnitComboBox_(speedCombo_, SPEED_UNITS_KEY);
  saveSpinBox_(speedPrecision_, SPEED_PRECISION_KEY);
  saveUnitComboBox_(angleCombo_, ANGLE_UNITS_KEY);
  saveSpinBox_(anglePrecision_, ANGLE_PRECISION_KEY);
  saveSpinBox_(genericPrecision_, GENERIC_PRECISION_KEY);
}

// A stored value no item carries (an old or hand-edited registry) falls back to the default.
void UnitsWidget::loadEnumComboBox_(kelQt::UnitsComboBox* combo, const char* key, int fallback)
{
  if (!combo->setCurrentData(PURegistry::loadReg(fallback, key)))
    combo->setCurrentData(fallback);
}

void UnitsWidget::loadUnitComboBox_(kelQt::UnitsComboBox* combo, const char* key, const std::string& fallback)
{
  if (!combo->setCurrentData(QString::fromStdString(PURegistry::loadReg(fallback, key))))
    combo->setCurrentData(QString::fromStdString(fallback));
}

void UnitsWidget::saveEnumComboBox_(const QComboBox* combo, const char* key)
{
  PURegistry::saveReg(key, combo->currentData().toInt());
}

void UnitsWidget::saveUnitComboBox_(const QComboBox* combo, const char* key)
{
  PURegistry::saveReg(key, combo->currentData().toString().toStdString());
}

void UnitsWidget::saveSpinBox_(const QSpinBox* spin, const char* key)
{
  PURegistry::saveReg(key, spin->value());
}

} // namespace QtSep
