#include "actions/CalculateOriVelDialog.h"

#include "host/PURegistry.h"
#include "widgets/FormatTooltip.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace QtSep
{

namespace
{

const char* const TYPE_KEY = "OriVel Calculate Type";
const char* const POINTS_KEY = "Lagrangian Points";
const char* const LAGRANGIAN_ORIENTATION_KEY = "Lagrangian Orientation";
const char* const LAGRANGIAN_VELOCITY_KEY = "Lagrangian Velocity";
const char* const DELTA_ORIENTATION_KEY = "Delta Orientation";
const char* const DELTA_VELOCITY_KEY = "Delta Velocity";

QLabel* text(const QString& words)
{
  auto* label = new QLabel(words);
  label->setWordWrap(true);
  return label;
}

} // namespace

CalculateOriVelDialog::CalculateOriVelDialog(QWidget* parent) : QDialog(parent)
{
  setObjectName("CalculateOriVel Dialog");
  setWindowTitle("Calculate Orientation/Velocity");
  lagrangian_ = kelQt::namedWithTooltip(new QRadioButton("Orientation and Velocity via Lagrangian"), "lagrangianRadioButton",
                      kelQt::formatTooltip("Calculate via Lagrangian",
                                           "Calculate the orientation and/or velocity via the Lagrangian method as "
                                           "described above."));
  delta_ = kelQt::namedWithTooltip(new QRadioButton("Orientation via Velocity, Velocity via Delta Distance / Delta Time"),
                 "deltaRadioButton",
                 kelQt::formatTooltip("Calculate via Data",
                                      "Orientation via Velocity, Velocity via Delta Distance / Delta Time."));
  points_ = kelQt::namedWithTooltip(new QSpinBox, "lagrangianSpinBox",
                  kelQt::formatTooltip(QString(), "Number of points to use for the Lagrangian method."));
  points_->setRange(5, 1000);
  points_->setValue(10);
  lagrangianOrientation_ = kelQt::namedWithTooltip(new QCheckBox("Orientation"), "lagrangianOrientationCheckBox",
                                 kelQt::formatTooltip(QString(), "Calculate the orientation by the Lagrangian method."));
  lagrangianVelocity_ = kelQt::namedWithTooltip(new QCheckBox("Velocity"), "lagrangianVelocityCheckBox",
                              kelQt::formatTooltip(QString(), "Calculate the velocity by the Lagrangian method."));
  deltaOrientation_ = kelQt::namedWithTooltip(new QCheckBox("Orientation via Velocity"), "orientationCheckBox",
                            kelQt::formatTooltip(QString(), "Calculate orientation from the velocity."));
  deltaVelocity_ = kelQt::namedWithTooltip(new QCheckBox("Velocity via Delta Distance / Delta Time"), "velocityCheckBox",
                         kelQt::formatTooltip(QString(), "Calculate the velocity from the delta position divided by "
                                                         "the delta time."));

  auto* lagrangianGroup = new QGroupBox;
  auto* lagrangianForm = new QFormLayout(lagrangianGroup);
  lagrangianForm->addRow(text(
    "\"Lagrangian\" derivation uses a third-order Lagrangian polynomial approximation algorithm to calculate the "
    "attitude; it is more effective with a large set of data points.  The higher the data window, the smoother the CPR "
    "will change.  However, a larger window may result in irregular values if the platform changes course drastically "
    "over a short  number of points, such as when flying in a small circle."));
  lagrangianForm->addRow("Data window:", points_);
  lagrangianForm->addRow(lagrangianOrientation_);
  lagrangianForm->addRow(lagrangianVelocity_);
  auto* deltaGroup = new QGroupBox;
  auto* deltaColumn = new QVBoxLayout(deltaGroup);
  deltaColumn->addWidget(text("\"Velocity-Based\" derivation uses the velocity vector at a given time  to calculate "
                              "flight path angle and pitch.  This method requires a single  data point and a valid "
                              "velocity vector, but cannot calculate roll. "));
  deltaColumn->addWidget(deltaOrientation_);
  deltaColumn->addWidget(text("Recalculated velocities use the average velocity of distance/time at  the given time.  "
                              "This method requires two data points, where the two data points used are the given and "
                              "previous point in order to base velocity on how the platform arrived at the given "
                              "point."));
  deltaColumn->addWidget(deltaVelocity_);
  connect(lagrangian_, &QRadioButton::toggled, lagrangianGroup, &QWidget::setEnabled);
  connect(delta_, &QRadioButton::toggled, deltaGroup, &QWidget::setEnabled);
  lagrangian_->setChecked(true);
  deltaGroup->setEnabled(false);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(lagrangian_);
  column->addWidget(lagrangianGroup);
  column->addWidget(delta_);
  column->addWidget(deltaGroup);
  column->addWidget(text("WARNING: This operation will recalculate all data values for all selected platforms.  "
                         "Click \"OK\" only if you wish to continue."));
  column->addWidget(buttons);
}

CalculateOriVelDialog::Type CalculateOriVelDialog::type() const { return delta_->isChecked() ? DELTA : LAGRANGIAN; }
void CalculateOriVelDialog::setType(int type) { (type == DELTA ? delta_ : lagrangian_)->setChecked(true); }
int CalculateOriVelDialog::lagrangianPoints() const { return points_->value(); }
void CalculateOriVelDialog::setLagrangianPoints(int points) { points_->setValue(points); }
bool CalculateOriVelDialog::lagrangianOrientation() const { return lagrangianOrientation_->isChecked(); }
void CalculateOriVelDialog::setLagrangianOrientation(bool on) { lagrangianOrientation_->setChecked(on); }
bool CalculateOriVelDialog::lagrangianVelocity() const { return lagrangianVelocity_->isChecked(); }
void CalculateOriVelDialog::setLagrangianVelocity(bool on) { lagrangianVelocity_->setChecked(on); }
bool CalculateOriVelDialog::deltaOrientation() const { return deltaOrientation_->isChecked(); }
void CalculateOriVelDialog::setDeltaOrientation(bool on) { deltaOrientation_->setChecked(on); }
bool CalculateOriVelDialog::deltaVelocity() const { return deltaVelocity_->isChecked(); }
void CalculateOriVelDialog::setDeltaVelocity(bool on) { deltaVelocity_->setChecked(on); }

void CalculateOriVelDialog::loadSettings()
{
  setType(PURegistry::loadReg(0, TYPE_KEY));
  setLagrangianPoints(PURegistry::loadReg(10, POINTS_KEY));
  setLagrangianOrientation(PURegistry::loadReg(true, LAGRANGIAN_ORIENTATION_KEY));
  setLagrangianVelocity(PURegistry::loadReg(false, LAGRANGIAN_VELOCITY_KEY));
  setDeltaOrientation(PURegistry::loadReg(false, DELTA_ORIENTATION_KEY));
  setDeltaVelocity(PURegistry::loadReg(false, DELTA_VELOCITY_KEY));
}

void CalculateOriVelDialog::saveSettings() const
{
  PURegistry::saveReg(TYPE_KEY, static_cast<int>(type()));
  PURegistry::saveReg(POINTS_KEY, lagrangianPoints());
  PURegistry::saveReg(LAGRANGIAN_ORIENTATION_KEY, lagrangianOrientation());
  PURegistry::saveReg(LAGRANGIAN_VELOCITY_KEY, lagrangianVelocity());
  PURegistry::saveReg(DELTA_ORIENTATION_KEY, deltaOrientation());
  PURegistry::saveReg(DELTA_VELOCITY_KEY, deltaVelocity());
}

} // namespace QtSep
