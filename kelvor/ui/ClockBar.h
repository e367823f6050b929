#pragma once

#include "ui/TimeDisplay.h"

#include <QToolBar>

class QLabel;
class QSlider;
class QAction;
class QTimer;

namespace kelvor
{

class Registry;
class ScenarioStore;

/**
 * @brief The clock's tool bar: begin and end, the time on a slider and as text, play and
 * stop, and the Live toggle (clock mode 2, in which plug-ins offer no editing). Times show in
 * the user's time format (see TimeDisplay).
 */
class ClockBar : public QToolBar
{
  Q_OBJECT
public:
  /// @param registry holds the user's time format
  ClockBar(ScenarioStore& store, const Registry& registry, QWidget* parent = nullptr);

  /// Shows the clock as the store has it.
  void refresh();
  QAction* liveAction() const { return live_; }

signals:
  /// The user moved the time.
  void timeChanged();
  /// The user switched Live on or off.
  void modeChanged();

private:
  void setTime_(double time);
  void tick_();

  ScenarioStore& store_;
  TimeDisplay times_;
  QLabel* begin_;
  QLabel* end_;
  QLabel* time_;
  QSlider* slider_;
  QAction* play_;
  QAction* stop_;
  QAction* live_;
  QTimer* timer_;
  bool updating_ = false;
};

} // namespace kelvor
