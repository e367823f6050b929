#include "actions/ScenarioTimesDialog.h"

#include "host/PIDataClock.h"
#include "host/PIDataScenario.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "widgets/TimeWidget.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace QtSep
{

namespace
{

constexpr int FIRST_YEAR = 1970;
constexpr int LAST_YEAR = 2100;

} // namespace

ScenarioTimesDialog::ScenarioTimesDialog(QWidget* parent)
  : QDialog(parent),
    units_(std::make_unique<kelCore::UnitContextAdapter>()),
    formatter_(std::make_unique<kelCore::UnitContextFormatter>(*units_)),
    begin_(PIData::getReferenceYear(), PIData::clockGetBegin()),
    duration_(PIData::clockGetEnd() - PIData::clockGetBegin()),
    year_(new QSpinBox),
    startTime_(new kelQt::TimeWidget),
    endTime_(new QLabel),
    currentStart_(new QLabel),
    currentEnd_(new QLabel),
    currentDuration_(new QLabel)
{
  setObjectName("Scenario Times Dialog");
  setWindowTitle(tr("Scenario Times"));
  units_->setReferenceYear(begin_.referenceYear());
  year_->setObjectName("referenceYear");
  year_->setRange(FIRST_YEAR, LAST_YEAR);
  year_->setValue(begin_.referenceYear());
  startTime_->setObjectName("startTime");
  startTime_->setScenarioReferenceYear(begin_.referenceYear());
  startTime_->setTimeStamp(begin_);
  endTime_->setObjectName("endTimeLabel");

  auto* edited = new QGroupBox(tr("Edited Values"));
  auto* editedForm = new QFormLayout(edited);
  editedForm->addRow(tr("Reference Year:"), year_);
  editedForm->addRow(tr("Start Time:"), startTime_);
  editedForm->addRow(tr("End Time:"), endTime_);
  auto* current = new QGroupBox(tr("Current Values"));
  auto* currentForm = new QFormLayout(current);
  currentForm->addRow(tr("Start Time:"), currentStart_);
  currentForm->addRow(tr("End Time:"), currentEnd_);
  currentForm->addRow(tr("Duration:"), currentDuration_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(edited);
  column->addWidget(current);
  column->addWidget(buttons);

  connect(year_, QOverload<int>::of(&QSpinBox::valueChanged), this, &ScenarioTimesDialog::setReferenceYear_);
  connect(startTime_, &kelQt::TimeWidget::timeEdited, this, &ScenarioTimesDialog::setStartTime_);
  updateCurrentValues_();
  updateEndTime_();
}

ScenarioTimesDialog::~ScenarioTimesDialog() = default;

void ScenarioTimesDialog::setTimeFormat(kelCore::TimeFormat format, int precision)
{
  units_->setTimeFormat(format);
  units_->setTimePrecision(precision);
  startTime_->setTimeFormat(format);
  startTime_->setPrecision(precision);
  updateCurrentValues_();
  updateEndTime_();
}

void ScenarioTimesDialog::setDurationFormat(kelCore::TimeFormat format, int precision)
{
  units_->setDurationFormat(format);
  units_->setDurationPrecision(precision);
  updateCurrentValues_();
}

int ScenarioTimesDialog::referenceYear() const { return year_->value(); }

double ScenarioTimesDialog::startSeconds() const
{
  return startTime_->timeStamp().secondsSinceRefYear(referenceYear()).Double();
}

void ScenarioTimesDialog::setReferenceYear_(int year)
{
  // The start keeps its seconds in the new year: changing the year alone relabels the scenario.
  const double seconds = startTime_->timeStamp().secondsSinceRefYear().Double();
  startTime_->setScenarioReferenceYear(year);
  startTime_->setTimeStamp(kelCore::TimeStamp(year, seconds));
  updateEndTime_();
}

void ScenarioTimesDialog::setStartTime_(const kelCore::TimeStamp&) { updateEndTime_(); }

void ScenarioTimesDialog::updateEndTime_()
{
  // The duration stays: the end moves with the start.
  endTime_->setText(QString::fromStdString(formatter_->formatTime(startTime_->timeStamp() + duration_)));
}

void ScenarioTimesDialog::updateCurrentValues_()
{
  currentStart_->setText(QString::fromStdString(formatter_->formatTime(begin_)));
  currentEnd_->setText(QString::fromStdString(formatter_->formatTime(begin_ + duration_)));
  currentDuration_->setText(QString::fromStdString(formatter_->formatDuration(duration_)));
}

} // namespace QtSep
