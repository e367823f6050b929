#pragma once

/// An entity's on/off state, as a state in a time series.
enum PIVisibilityStatus_t : int
{
  PI_VISIBILITY_OFF = 0, ///< off
  PI_VISIBILITY_ON = 1   ///< on
};
