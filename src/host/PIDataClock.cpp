#include "host/PIDataClock.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

double getDouble(int selector)
{
  auto r = PIRequest::catchAll(selector);
  r.doubles = {0.0};
  handle(PISF_CLOCK, &r);
  return r.doubleAt(0);
}

int getInt(int selector)
{
  auto r = PIRequest::catchAll(selector);
  handle(PISF_CLOCK, &r);
  return static_cast<int>(r.integerAt(1));
}

int command(int selector, double a = 0.0, double b = 0.0, std::int64_t argument = 0)
{
  auto r = PIRequest::catchAll(selector, {argument});
  r.doubles = {a, b};
  return PIRequest::send(PISF_CLOCK, r);
}

} // namespace

double clockGetBegin() { return getDouble(PISelector::CLOCK_GET_BEGIN); }
double clockGetEnd() { return getDouble(PISelector::CLOCK_GET_END); }
double clockGetTime() { return getDouble(PISelector::CLOCK_GET_TIME); }
double clockGetVisualTime() { return getDouble(PISelector::CLOCK_GET_VISUAL_TIME); }
int clockSetTime(double time, double rate) { return command(PISelector::CLOCK_SET_TIME, time, rate); }
int clockSetMode(PIClockMode_t mode, double time) { return command(PISelector::CLOCK_SET_MODE, time, 0.0, mode); }
int clockGetMode() { return getInt(PISelector::CLOCK_GET_MODE); }
int clockStop() { return command(PISelector::CLOCK_STOP); }
int clockPlay() { return command(PISelector::CLOCK_PLAY); }
bool clockIsPlaying() { return getInt(PISelector::CLOCK_IS_PLAYING) != 0; }
int clockAutoConfigureBeginEnd() { return command(PISelector::CLOCK_AUTO_CONFIGURE); }
bool clockIsVisualTimeActive() { return getInt(PISelector::CLOCK_IS_VISUAL_TIME_ACTIVE) != 0; }
bool clockGetUserControlsDisabled() { return getInt(PISelector::CLOCK_GET_USER_CONTROLS_DISABLED) != 0; }
int clockSetBegin(double time) { return command(PISelector::CLOCK_SET_BEGIN, time); }
int clockSetEnd(double time) { return command(PISelector::CLOCK_SET_END, time); }
int clockGetTimeFormat() { return getInt(PISelector::CLOCK_GET_TIME_FORMAT); }
int clockSetTimeFormat(int format) { return command(PISelector::CLOCK_SET_TIME_FORMAT, 0.0, 0.0, format); }

} // namespace PIData
