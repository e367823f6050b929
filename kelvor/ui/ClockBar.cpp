#include "ui/ClockBar.h"

#include "store/ScenarioStore.h"

#include <QAction>
#include <QLabel>
#include <QSlider>
#include <QTimer>

namespace kelvor
{

namespace
{

constexpr int SLIDER_STEPS = 1000;
constexpr int TICK_MS = 100;

} // namespace

ClockBar::ClockBar(ScenarioStore& store, const Registry& registry, QWidget* parent)
  : QToolBar(tr("Clock"), parent),
    store_(store),
    times_(registry),
    begin_(new QLabel(this)),
    end_(new QLabel(this)),
    time_(new QLabel(this)),
    slider_(new QSlider(Qt::Horizontal, this)),
    timer_(new QTimer(this))
{
  setObjectName("ClockBar");
  begin_->setObjectName("ClockBegin");
  end_->setObjectName("ClockEnd");
  time_->setObjectName("ClockTime");
  slider_->setRange(0, SLIDER_STEPS);
  slider_->setMinimumWidth(240);
  play_ = addAction(tr("Play"));
  stop_ = addAction(tr("Stop"));
  addWidget(begin_);
  addWidget(slider_);
  addWidget(end_);
  addSeparator();
  addWidget(time_);
  addSeparator();
  live_ = addAction(tr("Live"));
  live_->setCheckable(true);
  live_->setToolTip(tr("Live data: editing is not offered while the clock is live"));
  timer_->setInterval(TICK_MS);
  connect(timer_, &QTimer::timeout, this, &ClockBar::tick_);
  connect(play_, &QAction::triggered, this, [this]() {
    store_.clock().play();
    timer_->start();
    refresh();
  });
  connect(stop_, &QAction::triggered, this, [this]() {
    store_.clock().stop();
    timer_->stop();
    refresh();
  });
  connect(slider_, &QSlider::valueChanged, this, [this](int step) {
    if (updating_)
      return;
    const ScenarioClock& c = store_.clock();
    setTime_(c.begin() + (c.end() - c.begin()) * step / SLIDER_STEPS);
  });
  connect(live_, &QAction::toggled, this, [this](bool on) {
    if (updating_)
      return;
    store_.clock().setMode(on ? PI_CLOCK_LIVE : PI_CLOCK_FILE_PLAYBACK);
    store_.clockModeChanged();
    emit modeChanged();
  });
  refresh();
}

void ClockBar::refresh()
{
  updating_ = true;
  const ScenarioClock& c = store_.clock();
  const int year = store_.properties().referenceYear;
  begin_->setText(times_.text(c.begin(), year));
  end_->setText(times_.text(c.end(), year));
  time_->setText(tr("Time: %1").arg(times_.text(c.time(), year)));
  const double span = c.end() - c.begin();
  slider_->setValue(span > 0 ? static_cast<int>((c.time() - c.begin()) / span * SLIDER_STEPS) : 0);
  live_->setChecked(isLiveClockMode(c.mode()));
  play_->setEnabled(!c.isPlaying());
  stop_->setEnabled(c.isPlaying());
  updating_ = false;
}

void ClockBar::setTime_(double time)
{
  store_.clock().setTime(time);
  store_.timeChanged();
  refresh();
  emit timeChanged();
}

void ClockBar::tick_()
{
  ScenarioClock& c = store_.clock();
  if (!c.isPlaying())
    return timer_->stop();
  const double next = c.time() + c.rate() * TICK_MS / 1000.0;
  if (next >= c.end())
  {
    c.stop();
    timer_->stop();
  }
  setTime_(std::min(next, c.end()));
}

} // namespace kelvor
