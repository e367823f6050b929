#include "actions/DecimateDialog.h"

#include "widgets/FormatTooltip.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace QtSep
{

namespace
{

/// A page of one parameter row, with an optional check box above it.
QWidget* formPage(const QString& label, QWidget* field, QWidget* above = nullptr)
{
  auto* page = new QWidget;
  auto* form = new QFormLayout(page);
  if (above)
    form->addRow(above);
  form->addRow(label, field);
  return page;
}

} // namespace

DecimateDialog::DecimateDialog(QWidget* parent) : QDialog(parent)
{
  setObjectName("Decimate Dialog");
  setWindowTitle("Decimate");
  methods_ = new QButtonGroup(this);
  auto* methodRow = new QHBoxLayout;
  const struct
  {
    const char* name;
    const char* text;
    QString toolTip;
  } methods[] = {
    {"byPointRadioButton", "By Point", kelQt::formatTooltip("By Points", "Removes (n-1) out of every (n) data points.")},
    {"byTimeRadioButton", "By Time",
     kelQt::formatTooltip("By Time", "Removes points to keep data at or over a minimum data rate.")},
    {"byAngleRadioButton", "By Angle",
     kelQt::formatTooltip("By Angle", "Removes points using an angular tolerance > 0 and &lt; 180. Two composite angles "
                                      "are compared between 3 successive points. Angles less than the specified "
                                      "tolerance will cull the middle point.")},
    {"byDistanceRadioButton", "By Distance",
     kelQt::formatTooltip("By Distance", "Removes successive TSPI points until the distance traveled between two TSPI "
                                         "points is at least the specified distance.")},
    {"byAreaRadioButton", "By Area", QString()},
  };
  for (int id = 0; id < 5; ++id)
  {
    auto* button = kelQt::namedWithTooltip(new QRadioButton(methods[id].text), methods[id].name, methods[id].toolTip);
    methods_->addButton(button, id);
    methodRow->addWidget(button);
  }
  methods_->button(0)->setChecked(true);

  everyNPoint_ = kelQt::namedWithTooltip(new QSpinBox, "everyNPointSpinBox");
  everyNPoint_->setMinimum(2);
  everyNPoint_->setValue(10);
  interpolate_ = kelQt::namedWithTooltip(new QCheckBox("Interpolate data points"), "interpolateCheckBox",
                       kelQt::formatTooltip("Interpolate Data Points", "Interpolate data points, instead of picking the "
                                                                       "point at/after the planned time."));
  time_ = kelQt::namedWithTooltip(new QSpinBox, "timeSpinBox",
                kelQt::formatTooltip("Time Interval", "Time, in seconds, between saved data points."));
  time_->setRange(1, 1000);
  time_->setSuffix(" sec");
  time_->setValue(1);
  angle_ = kelQt::namedWithTooltip(new QDoubleSpinBox, "angleSpinBox",
                 kelQt::formatTooltip("By Angle", "Remove points that are within this angle tolerance from previous points."));
  angle_->setRange(0.01, 180.0);
  angle_->setSuffix(" deg");
  distance_ = kelQt::namedWithTooltip(new QSpinBox, "distanceSpinBox",
                    kelQt::formatTooltip("By Distance", "Drop TSPI points until the distance traveled between remaining "
                                                        "points is at least the specified distance in meters."));
  distance_->setRange(1, 10000);
  distance_->setSingleStep(100);
  distance_->setSuffix(" m");
  distance_->setValue(1000);
  percentage_ = kelQt::namedWithTooltip(new QDoubleSpinBox, "percentageSpinBox",
                      kelQt::formatTooltip(QString(), "Reduces points by a percentage, implementing the Visvalingam "
                                                      "line simplification algorithm."));
  percentage_->setRange(0.1, 99.9);
  percentage_->setDecimals(1);
  percentage_->setSuffix(" %");
  percentage_->setValue(75.0);

  pages_ = new QStackedWidget;
  pages_->addWidget(formPage("Keep every 'n' points:", everyNPoint_));
  pages_->addWidget(formPage("Keep points every:", time_, interpolate_));
  pages_->addWidget(formPage("Angle:", angle_));
  pages_->addWidget(formPage("Distance:", distance_));
  pages_->addWidget(formPage("Percentage Drop:", percentage_));
  connect(methods_, &QButtonGroup::idClicked, pages_, &QStackedWidget::setCurrentIndex);

  alwaysKeep_ = kelQt::namedWithTooltip(new QCheckBox("Always keep last data point"), "alwaysKeepCheckBox",
                      kelQt::formatTooltip("Last Data Point", "Always keeps the last data point."));
  auto* configuration = new QGroupBox("Configuration");
  auto* configurationColumn = new QVBoxLayout(configuration);
  configurationColumn->addWidget(alwaysKeep_);
  configurationColumn->addWidget(pages_);
  appendSuffix_ = kelQt::namedWithTooltip(new QCheckBox("Append suffix to source platform"), "appendSuffixCheckBox");

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addLayout(methodRow);
  column->addWidget(configuration);
  column->addWidget(appendSuffix_);
  column->addWidget(buttons);
}

int DecimateDialog::type() const { return pages_->currentIndex(); }

void DecimateDialog::setType(int type)
{
  if (type < 0 || type >= pages_->count())
    return;
  methods_->button(type)->setChecked(true);
  pages_->setCurrentIndex(type);
}

bool DecimateDialog::keepLastPoint() const { return alwaysKeep_->isChecked(); }
void DecimateDialog::setKeepLastPoint(bool keep) { alwaysKeep_->setChecked(keep); }
bool DecimateDialog::appendSuffix() const { return appendSuffix_->isChecked(); }
void DecimateDialog::setAppendSuffix(bool append) { appendSuffix_->setChecked(append); }
int DecimateDialog::everyNPoint() const { return everyNPoint_->value(); }
void DecimateDialog::setEveryNPoint(int every) { everyNPoint_->setValue(every); }
bool DecimateDialog::interpolate() const { return interpolate_->isChecked(); }
void DecimateDialog::setInterpolate(bool interpolate) { interpolate_->setChecked(interpolate); }
int DecimateDialog::timeInterval() const { return time_->value(); }
void DecimateDialog::setTimeInterval(int seconds) { time_->setValue(seconds); }
double DecimateDialog::angle() const { return angle_->value(); }
void DecimateDialog::setAngle(double degrees) { angle_->setValue(degrees); }
double DecimateDialog::distance() const { return distance_->value(); }
void DecimateDialog::setDistance(double metres) { distance_->setValue(static_cast<int>(metres)); }
double DecimateDialog::percentage() const { return percentage_->value() / 100.0; }
void DecimateDialog::setPercentage(double fraction) { percentage_->setValue(fraction * 100.0); }

} // namespace QtSep
