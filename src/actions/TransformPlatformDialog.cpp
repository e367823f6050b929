#include "actions/TransformPlatformDialog.h"

#include "widgets/FormatTooltip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace QtSep
{

namespace
{

using kelCore::CoordinateSystem;

/// The object names' stems of the rows, in Component order.
const std::array<const char*, TransformPlatformDialog::COMPONENTS> NAMES{
  "time", "lat", "lon", "alt", "yaw", "pitch", "roll", "xVel", "yVel", "zVel"};

/// What an addition counts in, by the row and the system.
QString suffixOf(int row, CoordinateSystem system)
{
  if (row == TransformPlatformDialog::TIME)
    return " sec";
  if (row >= TransformPlatformDialog::YAW && row <= TransformPlatformDialog::ROLL)
    return " deg";
  if (row >= TransformPlatformDialog::X_VELOCITY)
    return " m/sec";
  if (system == CoordinateSystem::LLA && row != TransformPlatformDialog::Z)
    return " deg";
  return " m";
}

QDoubleSpinBox* coefficientBox(const QString& name, double value, const QString& title, const QString& body)
{
  auto* box = new QDoubleSpinBox;
  box->setObjectName(name);
  box->setRange(-1e12, 1e12);
  box->setDecimals(6);
  box->setValue(value);
  box->setEnabled(false);
  box->setToolTip(kelQt::formatTooltip(title, body));
  return box;
}

} // namespace

TransformPlatformDialog::TransformPlatformDialog(QWidget* parent)
  : QDialog(parent), coordinateSystemComboBox_(new QComboBox), buttonBox_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
  setWindowTitle(tr("Transform Platform"));
  addLabels_(CoordinateSystem::NED, {"North", "East", "Down", "Yaw", "Pitch", "Roll", "V(N)", "V(E)", "V(D)"});
  addLabels_(CoordinateSystem::NWU, {"North", "West", "Up", "Yaw", "Pitch", "Roll", "V(N)", "V(W)", "V(U)"});
  addLabels_(CoordinateSystem::ENU, {"East", "North", "Up", "Yaw", "Pitch", "Roll", "V(E)", "V(N)", "V(U)"});
  addLabels_(CoordinateSystem::LLA, {"Lat", "Lon", "Alt", "Yaw", "Pitch", "Roll", "V(E)", "V(N)", "V(U)"});
  addLabels_(CoordinateSystem::ECEF, {"X ECEF", "Y ECEF", "Z ECEF", "Psi", "Theta", "Phi", "V(X)", "V(Y)", "V(Z)"});
  addLabels_(CoordinateSystem::ECI, {"X ECI", "Y ECI", "Z ECI", "Psi", "Theta", "Phi", "V(X)", "V(Y)", "V(Z)"});
  addLabels_(CoordinateSystem::XEAST, {"X East TP", "Y North TP", "Z Up TP", "Yaw", "Pitch", "Roll", "V(E)", "V(N)", "V(U)"});
  addLabels_(CoordinateSystem::GTP, {"X GTP", "Y GTP", "Z GTP", "Yaw", "Pitch", "Roll", "V(X)", "V(Y)", "V(Z)"});

  auto* head = new QLabel(tr("This dialog will perform very basic 'transform' operations on a platform's position.  "
                             "Data points are converted to the selected coordinate system.  For every selected TSPI "
                             "component, the value is multiplied by the Multiplication Value, and then the Addition "
                             "Value is added."));
  head->setWordWrap(true);
  auto* use = new QLabel(tr("This can be useful for clearing certain values (multiply by zero), adding offsets, or "
                            "scaling units to meters."));
  use->setWordWrap(true);
  coordinateSystemComboBox_->setObjectName("coordinateSystemComboBox");
  coordinateSystemComboBox_->setToolTip(
    kelQt::formatTooltip(tr("Coordinate System"), tr("The coordinate system for applying the transformation.")));
  for (CoordinateSystem system : {CoordinateSystem::LLA, CoordinateSystem::ECEF, CoordinateSystem::ECI,
                                  CoordinateSystem::NED, CoordinateSystem::NWU, CoordinateSystem::ENU,
                                  CoordinateSystem::XEAST, CoordinateSystem::GTP})
  {
    static const std::map<CoordinateSystem, const char*> NAMES_OF{
      {CoordinateSystem::LLA, "LLA"},     {CoordinateSystem::ECEF, "ECEF"}, {CoordinateSystem::ECI, "ECI"},
      {CoordinateSystem::NED, "NED"},     {CoordinateSystem::NWU, "NWU"},   {CoordinateSystem::ENU, "ENU"},
      {CoordinateSystem::XEAST, "X-East"}, {CoordinateSystem::GTP, "GTP"}};
    coordinateSystemComboBox_->addItem(NAMES_OF.at(system), static_cast<int>(system));
  }
  auto* systemRow = new QHBoxLayout;
  systemRow->addWidget(new QLabel(tr("Coordinate System for Translation:")));
  systemRow->addWidget(coordinateSystemComboBox_);
  systemRow->addStretch(1);

  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(tr("Multiplication Value")), 0, 2);
  grid->addWidget(new QLabel(tr("Addition Value")), 0, 3);
  for (int r = 0; r < COMPONENTS; ++r)
  {
    const QString stem = NAMES[r];
    Row& row = rows_[r];
    row.label = new QLabel(r == TIME ? tr("Time") : QString());
    row.check = new QCheckBox;
    row.check->setObjectName(stem + "CheckBox");
    row.check->setToolTip(kelQt::formatTooltip(tr("The TSPI component to modify.")));
    row.multiplication = coefficientBox(stem + "Multiplication", 1.0, tr("Multiplication Value"),
                                        tr("The multiplication coefficient for the linear transformation."));
    row.addition = coefficientBox(stem + "Addition", 0.0, tr("Addition Value"),
                                  tr("The addition coefficient for the linear transformation."));
    grid->addWidget(row.check, r + 1, 0);
    grid->addWidget(row.label, r + 1, 1);
    grid->addWidget(row.multiplication, r + 1, 2);
    grid->addWidget(row.addition, r + 1, 3);
    connect(row.check, &QCheckBox::toggled, row.multiplication, &QWidget::setEnabled);
    connect(row.check, &QCheckBox::toggled, row.addition, &QWidget::setEnabled);
    connect(row.check, &QCheckBox::toggled, this, &TransformPlatformDialog::updateEnable_);
    connect(row.multiplication, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &TransformPlatformDialog::updateEnable_);
    connect(row.addition, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &TransformPlatformDialog::updateEnable_);
  }

  connect(buttonBox_, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttonBox_, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(head);
  column->addWidget(use);
  column->addLayout(systemRow);
  column->addLayout(grid);
  column->addWidget(buttonBox_);
  connect(coordinateSystemComboBox_, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
          &TransformPlatformDialog::updateLabels_);
  updateLabels_();
  updateEnable_();
}

void TransformPlatformDialog::addLabels_(kelCore::CoordinateSystem system, const std::array<const char*, 9>& labels)
{
  labels_[system] = labels;
}

kelCore::CoordinateSystem TransformPlatformDialog::coordinateSystem() const
{
  return coordinateSystemComboBox_->currentIndex() < 0
           ? CoordinateSystem::LLA
           : static_cast<CoordinateSystem>(coordinateSystemComboBox_->currentData().toInt());
}

void TransformPlatformDialog::updateLabels_()
{
  const CoordinateSystem system = coordinateSystem();
  const std::array<const char*, 9>& labels = labels_.at(system);
  for (int r = X; r < COMPONENTS; ++r)
    rows_[r].label->setText(tr(labels[r - X]));
  for (int r = 0; r < COMPONENTS; ++r)
    rows_[r].addition->setSuffix(suffixOf(r, system));
}

void TransformPlatformDialog::updateEnable_()
{
  bool any = false;
  for (const Row& row : rows_)
    any = any || (row.check->isChecked() && (row.multiplication->value() != 1.0 || row.addition->value() != 0.0));
  buttonBox_->button(QDialogButtonBox::Ok)->setEnabled(any);
}

std::array<TransformPlatformDialog::Coefficients, TransformPlatformDialog::COMPONENTS>
TransformPlatformDialog::getCoefficients() const
{
  std::array<Coefficients, COMPONENTS> coefficients;
  for (int r = 0; r < COMPONENTS; ++r)
    coefficients[r] = {rows_[r].check->isChecked(), rows_[r].multiplication->value(), rows_[r].addition->value()};
  return coefficients;
}

} // namespace QtSep
