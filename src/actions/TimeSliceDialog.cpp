#include "actions/TimeSliceDialog.h"

#include "kelCore/TimeStamp.h"
#include "plugin/UnitsWidget.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "widgets/TimeWidget.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace QtSep
{

namespace
{

QSlider* slider(const char* name)
{
  auto* made = new QSlider(Qt::Horizontal);
  made->setObjectName(name);
  made->setRange(0, TimeSliceDialog::SLIDER_STEPS);
  return made;
}

kelQt::TimeWidget* timeWidget(const char* name, int referenceYear)
{
  auto* made = new kelQt::TimeWidget;
  made->setObjectName(name);
  made->setScenarioReferenceYear(referenceYear);
  return made;
}

QLabel* label(const char* name)
{
  auto* made = new QLabel;
  made->setObjectName(name);
  return made;
}

} // namespace

TimeSliceDialog::TimeSliceDialog(int referenceYear, QWidget* parent)
  : QDialog(parent),
    referenceYear_(referenceYear),
    startTimeWidget_(timeWidget("startTimeWidget", referenceYear)),
    endTimeWidget_(timeWidget("endTimeWidget", referenceYear)),
    durationTimeWidget_(timeWidget("durationTimeWidget", referenceYear)),
    startScenarioLabel_(label("startScenarioLabel")),
    endScenarioLabel_(label("endScenarioLabel")),
    durationScenarioLabel_(label("durationScenarioLabel")),
    startSlider_(slider("startSlider")),
    endSlider_(slider("endSlider")),
    durationSlider_(slider("durationSlider"))
{
  setObjectName("Time Slice Dialog");
  setWindowTitle(tr("Time Slice Editor"));
  durationTimeWidget_->setTimeFormat(kelCore::TimeFormat::SECONDS);
  auto* grid = new QGridLayout;
  const std::pair<const char*, std::tuple<kelQt::TimeWidget*, QLabel*, QSlider*>> rows[] = {
    {"Start:", {startTimeWidget_, startScenarioLabel_, startSlider_}},
    {"End:", {endTimeWidget_, endScenarioLabel_, endSlider_}},
    {"Duration:", {durationTimeWidget_, durationScenarioLabel_, durationSlider_}}};
  int row = 0;
  for (const auto& [text, widgets] : rows)
  {
    grid->addWidget(new QLabel(tr(text)), row, 0);
    grid->addWidget(std::get<0>(widgets), row, 1);
    grid->addWidget(std::get<1>(widgets), row, 2);
    grid->addWidget(std::get<2>(widgets), row, 3);
    ++row;
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addLayout(grid);
  column->addWidget(buttons);

  connect(startTimeWidget_, &kelQt::TimeWidget::timeEdited, this, &TimeSliceDialog::updateStartViaWidget_);
  connect(endTimeWidget_, &kelQt::TimeWidget::timeEdited, this, &TimeSliceDialog::updateEndViaWidget_);
  connect(durationTimeWidget_, &kelQt::TimeWidget::timeEdited, this, &TimeSliceDialog::updateDurationViaWidget_);
  connect(startSlider_, &QSlider::sliderMoved, this, &TimeSliceDialog::updateStartViaSlider_);
  connect(endSlider_, &QSlider::sliderMoved, this, &TimeSliceDialog::updateEndViaSlider_);
  connect(durationSlider_, &QSlider::sliderMoved, this, &TimeSliceDialog::updateDurationViaSlider_);
  updateEnables_();
}

double TimeSliceDialog::secondsOf_(const kelCore::TimeStamp& stamp) const
{
  return stamp.secondsSinceRefYear(referenceYear_).Double();
}

void TimeSliceDialog::show_(kelQt::TimeWidget* widget, QSlider* slider, double seconds, double first, double length)
{
  const QSignalBlocker quietWidget(widget);
  const QSignalBlocker quietSlider(slider);
  widget->setTimeStamp(kelCore::TimeStamp(referenceYear_, seconds));
  const double share = length > 0.0 ? (seconds - first) / length : 0.0;
  slider->setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * SLIDER_STEPS)));
}

void TimeSliceDialog::setScenarioTimeRange(double begin, double end)
{
  scenarioBegin_ = begin;
  scenarioEnd_ = std::max(begin, end);
  const kelCore::TimeStamp first(referenceYear_, scenarioBegin_);
  const kelCore::TimeStamp last(referenceYear_, scenarioEnd_);
  for (kelQt::TimeWidget* widget : {startTimeWidget_, endTimeWidget_})
    widget->setTimeRange(referenceYear_, first, last);
  durationTimeWidget_->setTimeRange(referenceYear_, kelCore::TimeStamp(referenceYear_, 0.0),
                                    kelCore::TimeStamp(referenceYear_, scenarioEnd_ - scenarioBegin_));
  // The scenario's own values, in the units chosen for all tabs.
  kelCore::UnitContextAdapter units;
  units.setReferenceYear(referenceYear_);
  units.setTimeFormat(UnitsWidget::timeFormat());
  units.setTimePrecision(UnitsWidget::timePrecision());
  units.setDurationFormat(UnitsWidget::durationFormat());
  units.setDurationPrecision(UnitsWidget::durationPrecision());
  const kelCore::UnitContextFormatter formatter(units);
  startScenarioLabel_->setText(QString::fromStdString(formatter.formatTime(scenarioBegin_)));
  endScenarioLabel_->setText(QString::fromStdString(formatter.formatTime(scenarioEnd_)));
  durationScenarioLabel_->setText(QString::fromStdString(formatter.formatDuration(scenarioEnd_ - scenarioBegin_)));
  setTimeSliceRange(std::clamp(start_, scenarioBegin_, scenarioEnd_), std::clamp(end_, scenarioBegin_, scenarioEnd_));
}

void TimeSliceDialog::setTimeSliceRange(double begin, double end)
{
  start_ = begin;
  end_ = end;
  const double length = scenarioEnd_ - scenarioBegin_;
  show_(startTimeWidget_, startSlider_, start_, scenarioBegin_, length);
  show_(endTimeWidget_, endSlider_, end_, scenarioBegin_, length);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::getTimeSliceRange(double& begin, double& end) const
{
  begin = start_;
  end = end_;
}

void TimeSliceDialog::updateStartViaWidget_(const kelCore::TimeStamp& stamp)
{
  start_ = secondsOf_(stamp);
  show_(startTimeWidget_, startSlider_, start_, scenarioBegin_, scenarioEnd_ - scenarioBegin_);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::updateEndViaWidget_(const kelCore::TimeStamp& stamp)
{
  end_ = secondsOf_(stamp);
  show_(endTimeWidget_, endSlider_, end_, scenarioBegin_, scenarioEnd_ - scenarioBegin_);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::updateDurationViaWidget_(const kelCore::TimeStamp& stamp)
{
  updateStartAndEndByDuration_(std::max(0.0, secondsOf_(stamp)));
}

void TimeSliceDialog::updateStartViaSlider_(int position)
{
  start_ = scenarioBegin_ + (scenarioEnd_ - scenarioBegin_) * position / SLIDER_STEPS;
  show_(startTimeWidget_, startSlider_, start_, scenarioBegin_, scenarioEnd_ - scenarioBegin_);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::updateEndViaSlider_(int position)
{
  end_ = scenarioBegin_ + (scenarioEnd_ - scenarioBegin_) * position / SLIDER_STEPS;
  show_(endTimeWidget_, endSlider_, end_, scenarioBegin_, scenarioEnd_ - scenarioBegin_);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::updateDurationViaSlider_(int position)
{
  updateStartAndEndByDuration_((scenarioEnd_ - scenarioBegin_) * position / SLIDER_STEPS);
}

void TimeSliceDialog::updateDurationControls_()
{
  const double duration = start_ < end_ ? end_ - start_ : 0.0;
  show_(durationTimeWidget_, durationSlider_, duration, 0.0, scenarioEnd_ - scenarioBegin_);
}

void TimeSliceDialog::updateStartAndEndByDuration_(double duration)
{
  const double length = scenarioEnd_ - scenarioBegin_;
  end_ = start_ + duration;
  if (end_ > scenarioEnd_)
  {
    // The end stops at the scenario's; the start moves back by the excess, not past the begin.
    start_ = std::max(scenarioBegin_, start_ - (end_ - scenarioEnd_));
    end_ = scenarioEnd_;
    show_(startTimeWidget_, startSlider_, start_, scenarioBegin_, length);
  }
  show_(endTimeWidget_, endSlider_, end_, scenarioBegin_, length);
  updateDurationControls_();
  updateEnables_();
}

void TimeSliceDialog::updateEnables_() { ok_->setEnabled(start_ < end_); }

} // namespace QtSep
