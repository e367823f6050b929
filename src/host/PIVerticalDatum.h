#pragma once

/// Vertical datum of a reference frame; carried through unchanged.
enum PIVerticalDatum_t : int
{
  PI_VERTDATUM_NONE = 0,  ///< no datum given
  PI_VERTDATUM_WGS84 = 1, ///< the WGS-84 ellipsoid (the default)
  PI_VERTDATUM_MSL = 2,   ///< mean sea level
  PI_VERTDATUM_USER = 3   ///< a user offset, in the frame's vertical offset value
};
