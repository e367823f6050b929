#pragma once

#include "host/PIClockMode.h"

namespace kelvor
{

/// The scenario's clock: a span, a current time, a mode and a play state.
class ScenarioClock
{
public:
  double begin() const { return begin_; }   ///< seconds since the reference year
  double end() const { return end_; }       ///< seconds since the reference year
  double time() const { return time_; }     ///< seconds since the reference year
  int mode() const { return mode_; }        ///< a PIClockMode_t
  bool isPlaying() const { return playing_; }
  double rate() const { return rate_; }     ///< playback speed, scenario seconds per second
  int timeFormat() const { return timeFormat_; }
  bool userControlsDisabled() const { return userControlsDisabled_; }

  /// Sets the span; a begin after end is swapped. The time is kept inside.
  void setSpan(double begin, double end);
  /// Sets the time, kept inside the span. @param rate playback speed; 0 keeps the one set
  void setTime(double time, double rate = 0.0);
  void setMode(int mode) { mode_ = mode; }
  void play() { playing_ = true; }
  void stop() { playing_ = false; }
  void setTimeFormat(int format) { timeFormat_ = format; }
  void setUserControlsDisabled(bool disabled) { userControlsDisabled_ = disabled; }
  /// Back to the clock of a new scenario.
  void reset() { *this = ScenarioClock(); }

private:
  double begin_ = 0.0;
  double end_ = 0.0;
  double time_ = 0.0;
  double rate_ = 1.0;
  int mode_ = PI_CLOCK_FILE_PLAYBACK;
  bool playing_ = false;
  int timeFormat_ = 4;
  bool userControlsDisabled_ = false;
};

} // namespace kelvor
