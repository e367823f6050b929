#pragma once

/// Magnetic variance of a reference frame; carried through unchanged.
enum PIMagneticVariance_t : int
{
  PI_MAGVAR_NONE = 0, ///< no variance given
  PI_MAGVAR_TRUE = 1, ///< true north (the default)
  PI_MAGVAR_WMM = 2,  ///< the world magnetic model
  PI_MAGVAR_USER = 3  ///< a user value, in the frame's magnetic variance value
};
