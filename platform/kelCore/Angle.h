#pragma once

#include <string>

/// @file Angle folding, comparison and text parsing. All angles are radians.

namespace kelCore
{

/// Ranges an angle can be folded into.
enum class AngleExtents
{
  TWOPI, ///< [0, 2 pi)
  PI,    ///< [-pi, pi)
  PI_2,  ///< [-pi/2, pi/2]: beyond a quarter turn the angle is reflected, as a latitude
  ALL    ///< no folding
};

/// @return angle (radians) folded into extents.
double angFix(double angle, AngleExtents extents);

/// @return true when a and b (radians) differ by at most tolerance once folded, so 0 equals 2 pi.
bool areAnglesEqual(double a, double b, double tolerance = 1e-6);

/**
 * Reads an angle written in degrees: decimal ("-12.5"), degrees and minutes ("12 30.5"),
 * degrees, minutes and seconds ("12 30 15.2", "12:30:15.2", "12°30'15.2\""), with an optional
 * sign or a hemisphere letter before or after (N and E positive, S and W negative).
 * @param text the angle's text @param toRadians true for a result in radians, else degrees
 * @param value receives the angle; untouched on failure
 * @return 0 for success, 1 when the text is not an angle
 */
int getAngleFromDegreeString(const std::string& text, bool toRadians, double& value);

} // namespace kelCore
