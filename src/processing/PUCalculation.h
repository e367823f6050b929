#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

/**
 * @file Recalculation of the orientation (yaw, pitch, roll, radians) and velocity (m/s) of
 * platform points from their positions: a delta method (velocity from successive positions,
 * orientation from velocity) and a smoothing Lagrangian method (third-order polynomial over a
 * window of points, which also gives a roll from the turn rate). Points are read over the
 * clock's span and written back in place. Every failure is an error text; nothing is written
 * before the last step.
 */
namespace PUCalculation
{

/// A plain triple of doubles.
struct DOUBLE3
{
  double v[3] = {0.0, 0.0, 0.0};
};

/// @return 0, or non-zero with the reason in error
int deltaOriVel(std::uint64_t id, bool orientation, bool velocity, std::string& error);
/// Runs deltaOriVel on each platform, stopping at the first failure. @return 0, 1 at a failure, -1 for nothing requested
int deltaOriVel(const std::vector<std::uint64_t>& ids, bool orientation, bool velocity, std::string& error);
/// @param points the size of the smoothing window, in points @return 0, or non-zero with the reason in error
int lagrangianOriVel(std::uint64_t id, bool orientation, bool velocity, unsigned int points, std::string& error);
/// Runs lagrangianOriVel on each platform, stopping at the first failure.
int lagrangianOriVel(const std::vector<std::uint64_t>& ids, bool orientation, bool velocity, unsigned int points,
                     std::string& error);

/**
 * Derives orientation and velocity from an earth-centred track.
 * @param time seconds @param x,y,z earth-centred positions, metres, one per time
 * @param first receives yaw, pitch, roll in the local level frame of each point, radians
 * @param second receives the velocity east, north, up at each point, m/s
 * @param third receives the acceleration east, north, up at each point, m/s^2
 * @param window points spanned by the fitting windows
 * @return 0; 1 when the series differ in length or are too short for the window
 */
int DeriveCPR(const std::deque<double>& time, const std::deque<double>& x, const std::deque<double>& y,
              const std::deque<double>& z, std::deque<DOUBLE3>* first, std::deque<DOUBLE3>* second,
              std::deque<DOUBLE3>* third, int window);

/**
 * First and second time derivative of one series at every sample, each merged from five
 * third-order Lagrangian fits placed differently around the sample. The fits' nodes lie up to
 * (window - 1) / 4 samples apart, so that every fit spans at most the window; near the ends the
 * fits shift inward and stay inside the data whenever the window is no longer than the series.
 * @param time seconds, strictly ascending @param values one per time
 * @param firstDerivative,secondDerivative receive one value per sample, per second and per second squared
 * @param window samples spanned by the fits, at least 5
 * @return 0; 1 when the series differ in length or are shorter than the widest fit
 */
int d2y_by_dt2(const std::deque<double>& time, const std::deque<double>& values, std::deque<double>& firstDerivative,
               std::deque<double>& secondDerivative, int window);

/**
 * Body angles of a platform from its motion at a place.
 * @param latitude,longitude radians @param velocity,acceleration earth-centred, m/s and m/s^2
 * @param scale not used by this system; kept for callers that pass one
 * @param yaw,pitch receive the direction of motion, radians @param roll receives the bank of a coordinated turn, radians
 */
void attitude(double latitude, double longitude, const double velocity[3], const double acceleration[3], double scale,
              double* yaw, double* pitch, double* roll);

/**
 * A robust mean of five estimates: the smallest and the largest are left out and the other
 * three averaged. When the smallest and largest are one element, the third value is taken.
 */
void bmerge(const double* values, int count, double& result);

/// Size the Lagrangian window is asked for below which a track is too short.
constexpr int MINIMUM_POINTS = 5;

} // namespace PUCalculation
