#include "widgets/TimeWidget.h"

#include "widgets/HoursContainer.h"
#include "widgets/MinutesContainer.h"
#include "widgets/MonthContainer.h"
#include "widgets/OrdinalContainer.h"
#include "widgets/SecondsContainer.h"
#include "widgets/SegmentedSpinBox.h"
#include "widgets/SegmentedTexts.h"

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>

namespace kelQt
{

TimeWidget::TimeWidget(QWidget* parent)
  : QWidget(parent),
    label_(new QLabel(this)),
    stack_(new QStackedWidget(this)),
    formatGroup_(new QActionGroup(this)),
    colorCodeAction_(new QAction(tr("&Color Code Text"), this))
{
  qRegisterMetaType<kelCore::TimeStamp>();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label_);
  layout->addWidget(stack_, 1);
  label_->setObjectName("timeLabel");
  label_->hide();

  addContainer_(new SecondsContainer(stack_), tr("Seconds"), &TimeWidget::setSeconds_);
  addContainer_(new MinutesContainer(stack_), tr("Minutes"), &TimeWidget::setMinutes_);
  addContainer_(new HoursContainer(stack_), tr("Hours"), &TimeWidget::setHours_);
  addContainer_(new OrdinalContainer(stack_), tr("Ordinal"), &TimeWidget::setOrdinal_);
  addContainer_(new MonthContainer(stack_), tr("Month Day Year"), &TimeWidget::setMonth_);

  colorCodeAction_->setCheckable(true);
  colorCodeAction_->setChecked(colorCodeText());
  connect(colorCodeAction_, &QAction::triggered, this, &TimeWidget::setColorCode_);
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QWidget::customContextMenuRequested, this, &TimeWidget::showRightMouseClickMenu_);
  setTimeFormat(kelCore::TimeFormat::ORDINAL);
}

TimeWidget::~TimeWidget()
{
  // Closing a shown widget hides its boxes after this destructor, and a hidden box applies an
  // edit still waiting for its pause; its news must not reach the members already gone.
  for (const Format& entry : formats_)
    disconnect(entry.container, nullptr, this, nullptr);
}

void TimeWidget::addContainer_(TimeFormatContainer* container, const QString& name, void (TimeWidget::*slot)())
{
  stack_->addWidget(container);
  // The box offers no menu of its own, so a right-click in it reaches this widget's menu.
  container->widget()->setContextMenuPolicy(Qt::NoContextMenu);
  auto* action = new QAction(name, formatGroup_);
  action->setCheckable(true);
  connect(action, &QAction::triggered, this, slot);
  connect(container, &TimeFormatContainer::timeEdited, this,
          [this, container](const kelCore::TimeStamp& stamp) { containerEdited_(container, stamp); });
  formats_.push_back({container, action});
}

TimeFormatContainer* TimeWidget::current_() const { return static_cast<TimeFormatContainer*>(stack_->currentWidget()); }

TimeFormatContainer* TimeWidget::container(kelCore::TimeFormat format) const
{
  for (const Format& entry : formats_)
    if (entry.container->timeFormat() == format)
      return entry.container;
  return nullptr;
}

kelCore::TimeStamp TimeWidget::timeStamp() const { return current_()->timeStamp(); }

kelCore::TimeFormat TimeWidget::timeFormat() const { return current_()->timeFormat(); }

int TimeWidget::precision() const { return current_()->precision(); }

TimeZone TimeWidget::timeZone() const { return current_()->timeZone(); }

int TimeWidget::scenarioReferenceYear() const { return current_()->widget()->texts().referenceYear(); }

kelCore::TimeStamp TimeWidget::timeRangeStart() const { return current_()->widget()->texts().timeRangeStart(); }

kelCore::TimeStamp TimeWidget::timeRangeEnd() const { return current_()->widget()->texts().timeRangeEnd(); }

bool TimeWidget::colorCodeText() const { return current_()->colorCode(); }

void TimeWidget::getEnforceLimits(bool& low, bool& high) const { current_()->getEnforceLimits(low, high); }

QString TimeWidget::label() const { return label_->text(); }

void TimeWidget::setLabel(const QString& text)
{
  label_->setText(text);
  label_->setVisible(!text.isEmpty());
}

QString TimeWidget::labelToolTip() const { return label_->toolTip(); }

void TimeWidget::setLabelToolTip(const QString& toolTip) { label_->setToolTip(toolTip); }

void TimeWidget::setTimeStamp(const kelCore::TimeStamp& stamp)
{
  const bool changed = stamp != timeStamp();
  for (const Format& entry : formats_)
    entry.container->setTimeStamp(stamp);
  if (changed)
    emit timeChanged(stamp);
}

void TimeWidget::setTimeFormat(kelCore::TimeFormat format)
{
  TimeFormatContainer* next = container(format);
  if (next == nullptr)
    return;
  TimeFormatContainer* previous = current_();
  if (next != previous)
  {
    next->setTimeStamp(previous->timeStamp());
    const bool focused = previous->hasFocus();
    stack_->setCurrentWidget(next);
    if (focused)
      next->setFocus();
  }
  setFocusProxy(next);
  for (const Format& entry : formats_)
    if (entry.container == next)
      entry.action->setChecked(true);
}

void TimeWidget::setPrecision(int digits)
{
  for (const Format& entry : formats_)
    entry.container->setPrecision(digits);
}

void TimeWidget::setTimeZone(TimeZone zone)
{
  for (const Format& entry : formats_)
    entry.container->setTimeZone(zone);
}

void TimeWidget::setScenarioReferenceYear(int year) { setTimeRange(year, timeRangeStart(), timeRangeEnd()); }

void TimeWidget::setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end)
{
  const bool changed = referenceYear != scenarioReferenceYear() || start != timeRangeStart() || end != timeRangeEnd();
  for (const Format& entry : formats_)
    entry.container->setTimeRange(referenceYear, start, end);
  if (changed)
    emit timeRangeChanged();
}

void TimeWidget::setEnforceLimits(bool low, bool high)
{
  for (const Format& entry : formats_)
    entry.container->setEnforceLimits(low, high);
}

void TimeWidget::setTimeEnabled(bool enabled)
{
  timeEnabled_ = enabled;
  stack_->setEnabled(enabled);
}

void TimeWidget::setColorCodeText(bool on)
{
  for (const Format& entry : formats_)
    entry.container->setColorCode(on);
  colorCodeAction_->setChecked(on);
}

void TimeWidget::disableControlToolTips()
{
  for (const Format& entry : formats_)
    entry.container->disableToolTip();
}

void TimeWidget::containerEdited_(const TimeFormatContainer* source, const kelCore::TimeStamp& stamp)
{
  for (const Format& entry : formats_)
    if (entry.container != source)
      entry.container->setTimeStamp(stamp);
  emit timeEdited(stamp);
  emit timeChanged(stamp);
}

void TimeWidget::showRightMouseClickMenu_(const QPoint& position)
{
  QMenu menu(this);
  for (const Format& entry : formats_)
    menu.addAction(entry.action);
  menu.addSeparator();
  menu.addAction(colorCodeAction_);
  menu.exec(mapToGlobal(position));
}

void TimeWidget::setSeconds_() { setTimeFormat(kelCore::TimeFormat::SECONDS); }

void TimeWidget::setMinutes_() { setTimeFormat(kelCore::TimeFormat::MINUTES); }

void TimeWidget::setHours_() { setTimeFormat(kelCore::TimeFormat::HOURS); }

void TimeWidget::setOrdinal_() { setTimeFormat(kelCore::TimeFormat::ORDINAL); }

void TimeWidget::setMonth_() { setTimeFormat(kelCore::TimeFormat::MONTHDAY); }

void TimeWidget::setColorCode_() { setColorCodeText(colorCodeAction_->isChecked()); }

} // namespace kelQt
