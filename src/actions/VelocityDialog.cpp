#include "actions/VelocityDialog.h"

#include "host/PURegistry.h"
#include "units/UnitsRegistry.h"
#include "widgets/FormatTooltip.h"
#include "widgets/UnitsSelectorComboBox.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace QtSep
{

const char* const VelocityDialog::UNITS_MIN_KEY = "UnitsMin";
const char* const VelocityDialog::UNITS_KEY = "Units";
const char* const VelocityDialog::VELOCITY_MIN_KEY = "VelocityMin";
const char* const VelocityDialog::VELOCITY_KEY = "Velocity";
const char* const VelocityDialog::USE_POSITION_KEY = "Use Platform Position";

namespace
{

const int MAX_SPEED = 10000;
const int SPEED_STEP = 10;
const double DEFAULT_MIN_MS = 0.0;
const double DEFAULT_MAX_MS = 500.0;

const kelCore::UnitsRegistry& speedUnits()
{
  static const kelCore::UnitsRegistry registry = [] {
    kelCore::UnitsRegistry all;
    all.registerDefaultUnits();
    return all;
  }();
  return registry;
}

} // namespace

VelocityDialog::VelocityDialog(QWidget* parent) : QDialog(parent)
{
  setObjectName("Velocity Dialog");
  setWindowTitle("Velocity Filter");
  auto* head = new QLabel("This filter will remove data points from the selected platform(s) that exceed a given "
                          "velocity limit.  Any data point with a speed outside the speed bounds specified will be "
                          "removed.");
  head->setWordWrap(true);
  makeField_(min_, "minSpeedSpinBox", "minSpeedUnitsCombo", 0, 0);
  makeField_(max_, "maxSpeedSpinBox", "maxSpeedUnitsCombo", 1, 500);
  min_.spin->setToolTip(kelQt::formatTooltip("Minimum Speed", "Minimum velocity to permit for a data point."));
  max_.spin->setToolTip(kelQt::formatTooltip("Maximum Speed", "Maximum velocity to permit for a data point."));
  platformPosition_ = new QCheckBox("Use velocity calculated from the platform's position");
  platformPosition_->setObjectName("platformPositionCheckBox");
  platformPosition_->setToolTip(kelQt::formatTooltip(
    "Use Platform Position", "Calculate platform velocity based on the current point and the previous point."));

  auto* form = new QFormLayout;
  for (const auto& [label, field] : {std::make_pair("Minimum Speed:", &min_), std::make_pair("Maximum Speed:", &max_)})
  {
    auto* row = new QHBoxLayout;
    row->addWidget(field->spin, 1);
    row->addWidget(field->units);
    form->addRow(label, row);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(head);
  column->addLayout(form);
  column->addWidget(platformPosition_);
  column->addWidget(buttons);
}

void VelocityDialog::makeField_(SpeedField& field, const char* spinName, const char* unitsName, int minimum,
                                int initial)
{
  field.spin = new QSpinBox;
  field.spin->setObjectName(spinName);
  field.spin->setRange(minimum, MAX_SPEED);
  field.spin->setSingleStep(SPEED_STEP);
  field.spin->setValue(initial);
  field.units = new kelQt::UnitsSelectorComboBox;
  field.units->setObjectName(unitsName);
  field.units->setUnitsFamily(kelCore::Units::SPEED_FAMILY);
  field.units->setUnits(kelCore::Units::METERS_PER_SECOND);
  field.shown = field.units->units();
  // The value keeps its speed when its units change.
  connect(field.units, &kelQt::UnitsSelectorComboBox::unitsChanged, this, [&field](const kelCore::Units& units) {
    const double metersPerSecond = toMs_(field);
    field.shown = units;
    setFromMs_(field, metersPerSecond);
  });
}

double VelocityDialog::toMs_(const SpeedField& field)
{
  const double value = field.spin->value();
  if (!field.shown.isValid())
    return value;
  return field.shown.convertTo(kelCore::Units::METERS_PER_SECOND, value);
}

void VelocityDialog::setFromMs_(SpeedField& field, double metersPerSecond)
{
  const double value = field.shown.isValid()
                         ? kelCore::Units::METERS_PER_SECOND.convertTo(field.shown, metersPerSecond)
                         : metersPerSecond;
  field.spin->setValue(static_cast<int>(value));
}

void VelocityDialog::setUnits_(SpeedField& field, const std::string& abbreviation)
{
  kelCore::Units units;
  if (speedUnits().unitsByAbbreviation(abbreviation, units) == 0 && units.family() == kelCore::Units::SPEED_FAMILY)
    field.units->setUnits(units);
}

double VelocityDialog::minVelocityMs() const { return toMs_(min_); }
double VelocityDialog::maxVelocityMs() const { return toMs_(max_); }
void VelocityDialog::setMinVelocityMs(double metersPerSecond) { setFromMs_(min_, metersPerSecond); }
void VelocityDialog::setMaxVelocityMs(double metersPerSecond) { setFromMs_(max_, metersPerSecond); }
std::string VelocityDialog::minUnits() const { return min_.units->units().abbreviation(); }
std::string VelocityDialog::maxUnits() const { return max_.units->units().abbreviation(); }
void VelocityDialog::setMinUnits(const std::string& abbreviation) { setUnits_(min_, abbreviation); }
void VelocityDialog::setMaxUnits(const std::string& abbreviation) { setUnits_(max_, abbreviation); }
bool VelocityDialog::usePlatformPosition() const { return platformPosition_->isChecked(); }
void VelocityDialog::setUsePlatformPosition(bool use) { platformPosition_->setChecked(use); }

void VelocityDialog::loadSettings()
{
  const std::string metersPerSecond = kelCore::Units::METERS_PER_SECOND.abbreviation();
  setMinUnits(PURegistry::loadReg(metersPerSecond, UNITS_MIN_KEY));
  setMaxUnits(PURegistry::loadReg(metersPerSecond, UNITS_KEY));
  setMinVelocityMs(PURegistry::loadReg(DEFAULT_MIN_MS, VELOCITY_MIN_KEY));
  setMaxVelocityMs(PURegistry::loadReg(DEFAULT_MAX_MS, VELOCITY_KEY));
  setUsePlatformPosition(PURegistry::loadReg(false, USE_POSITION_KEY));
}

void VelocityDialog::saveSettings() const
{
  PURegistry::saveReg(UNITS_MIN_KEY, minUnits());
  PURegistry::saveReg(UNITS_KEY, maxUnits());
  PURegistry::saveReg(VELOCITY_MIN_KEY, minVelocityMs());
  PURegistry::saveReg(VELOCITY_KEY, maxVelocityMs());
  PURegistry::saveReg(USE_POSITION_KEY, usePlatformPosition());
}

} // namespace QtSep
