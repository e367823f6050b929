#pragma once

/// Mode of the host's clock. In the live modes (2, 3) the editor offers no editing.
enum PIClockMode_t : int
{
  PI_CLOCK_FILE_PLAYBACK = 0,  ///< data at rest, played from a file; the mode of a new scenario
  PI_CLOCK_STEPPED = 1,        ///< data at rest, simulation stepped by the user
  PI_CLOCK_LIVE = 2,           ///< live data
  PI_CLOCK_LIVE_SIMULATION = 3 ///< live data from a running simulation
};

/// @return true for the modes of live data, in which editing is unavailable.
constexpr bool isLiveClockMode(int mode) { return mode == PI_CLOCK_LIVE || mode == PI_CLOCK_LIVE_SIMULATION; }
