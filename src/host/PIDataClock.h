#pragma once

#include "host/PIClockMode.h"

/// @file Scenario access: the clock. Times are seconds since the reference year.

namespace PIData
{

double clockGetBegin();
double clockGetEnd();
double clockGetTime();
/// @return the time the views show; the clock's time when no visual time is active.
double clockGetVisualTime();
/// Sets the time, kept inside the span. @param rate playback speed; 0 keeps the one set @return 0 for success
int clockSetTime(double time, double rate);
/// Sets the mode and, when time >= 0, the time. @return 0 for success
int clockSetMode(PIClockMode_t mode, double time);
/// @return the PIClockMode_t in force.
int clockGetMode();
int clockStop();
int clockPlay();
bool clockIsPlaying();
/// Sets the span to the scenario's data. @return 0 for success
int clockAutoConfigureBeginEnd();
bool clockIsVisualTimeActive();
bool clockGetUserControlsDisabled();
int clockSetBegin(double time);
int clockSetEnd(double time);
/// @return the clock's display format, a PITimeFormat_t value.
int clockGetTimeFormat();
int clockSetTimeFormat(int format);

} // namespace PIData
