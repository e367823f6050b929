#include "processing/PUCalculation.h"

#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "kelCore/CoordinateConverter.h"
#include "kelCore/Geodesy.h"

#include <algorithm>
#include <cmath>

namespace PUCalculation
{

namespace
{

const char* const NOTHING_REQUESTED = "Neither orientation nor velocity calculations were requested";
const char* const RETRIEVE_FAILED = "Error occurred retrieving data points";
const char* const STATIC_PLATFORM = "Cannot perform calculation on a static platform";
const char* const TOO_FEW = "Not enough data points to perform calculation";
const char* const ADD_FAILED = "Error occurred while adding data points";
constexpr double MOVING = 0.001;      // m/s; slower counts as at rest
constexpr double NEGLIGIBLE = 1e-12;
constexpr double KNOTS_PER_MS = 3600.0 / 1852.0;
constexpr double METRES_PER_NM = 1852.0;
constexpr double GRAVITY_NM_PER_H2 = 68416.0;

std::vector<PIData::PIPlatformPoint> clockSpan(std::uint64_t id, PICoordSystem_t system, int& status)
{
  PIData::PICoordReferenceFrame frame;
  frame.coordinateSystem = system;
  std::vector<PIData::PIPlatformPoint> points;
  status = PIData::getDataPoints(id, PIData::clockGetBegin(), PIData::clockGetEnd(), &points, frame);
  return points;
}

/// Checks a fetched track. @return false, with the reason in error, when it cannot be worked on
bool usable(int fetchStatus, const std::vector<PIData::PIPlatformPoint>& points, std::size_t least, std::string& error)
{
  if (fetchStatus != 0)
    error = RETRIEVE_FAILED;
  else if (!points.empty() && points.front().time == -1.0)
    error = STATIC_PLATFORM;
  else if (points.size() < least)
    error = TOO_FEW;
  else
    return true;
  return false;
}

kelCore::Vec3 position(const PIData::PIPlatformPoint& point)
{
  return {point.position.x, point.position.y, point.position.z};
}

template <typename Single>
int forEach(const std::vector<std::uint64_t>& ids, bool orientation, bool velocity, std::string& error, Single single)
{
  if (!orientation && !velocity)
  {
    error = NOTHING_REQUESTED;
    return -1;
  }
  for (std::uint64_t id : ids)
  {
    if (single(id) > 0)
      return 1;
  }
  return 0;
}

/// Derivatives at t of the cubic through four samples: d[0] first, d[1] second.
void cubicDerivatives(const double t[4], const double y[4], double at, double d[2])
{
  d[0] = d[1] = 0.0;
  for (int j = 0; j < 4; ++j)
  {
    double denominator = 1.0;
    double sum1 = 0.0;
    double sum2 = 0.0;
    for (int m = 0; m < 4; ++m)
    {
      if (m == j)
        continue;
      denominator *= t[j] - t[m];
      // Derivatives of the product of the three factors (at - t[m]).
      double product1 = 1.0;
      for (int k = 0; k < 4; ++k)
      {
        if (k != j && k != m)
          product1 *= at - t[k];
      }
      sum1 += product1;
      for (int k = 0; k < 4; ++k)
      {
        if (k == j || k == m)
          continue;
        for (int l = 0; l < 4; ++l)
        {
          if (l != j && l != m && l != k)
            sum2 += at - t[l];
        }
      }
    }
    d[0] += y[j] * sum1 / denominator;
    d[1] += y[j] * sum2 / denominator;
  }
}

void toLocal(const double m[3][3], const double ecef[3], double ned[3])
{
  for (int r = 0; r < 3; ++r)
    ned[r] = m[r][0] * ecef[0] + m[r][1] * ecef[1] + m[r][2] * ecef[2];
}

} // namespace

int deltaOriVel(std::uint64_t id, bool orientation, bool velocity, std::string& error)
{
  if (!orientation && !velocity)
  {
    error = NOTHING_REQUESTED;
    return 1;
  }
  int status = 0;
  std::vector<PIData::PIPlatformPoint> points = clockSpan(id, PI_COORDSYS_LLA, status);
  if (!usable(status, points, 2, error))
    return 1;
  if (velocity)
  {
    // Each point's velocity is how the platform arrived there; the first takes the second's.
    for (std::size_t i = 1; i < points.size(); ++i)
    {
      kelCore::Vec3 v;
      kelCore::calculateVelFromGeodeticPos(position(points[i]), position(points[i - 1]), points[i].time - points[i - 1].time, v);
      points[i].velocity = {v.x, v.y, v.z};
    }
    points[0].velocity = points[1].velocity;
  }
  if (orientation)
  {
    PIPoint held = {0.0, 0.0, 0.0};
    for (PIData::PIPlatformPoint& point : points)
    {
      const kelCore::Vec3 v(point.velocity.x, point.velocity.y, point.velocity.z);
      if (point.velocity.x != PI_INVALID_DOUBLE && v.length() > MOVING)
      {
        kelCore::Vec3 angles;
        kelCore::calculateFlightPathAngles(v, angles);
        held = {angles.x, angles.y, angles.z};
      }
      point.orientation = held; // at rest: the orientation it had
    }
  }
  if (PIData::addDataPoints(id, &points) != 0)
  {
    error = ADD_FAILED;
    return 1;
  }
  return 0;
}

int deltaOriVel(const std::vector<std::uint64_t>& ids, bool orientation, bool velocity, std::string& error)
{
  return forEach(ids, orientation, velocity, error,
                 [&](std::uint64_t id) { return deltaOriVel(id, orientation, velocity, error); });
}

int lagrangianOriVel(std::uint64_t id, bool orientation, bool velocity, unsigned int points, std::string& error)
{
  if (!orientation && !velocity)
  {
    error = NOTHING_REQUESTED;
    return 1;
  }
  int status = 0;
  const std::vector<PIData::PIPlatformPoint> ecef = clockSpan(id, PI_COORDSYS_ECEF, status);
  const std::size_t least = std::max<std::size_t>(MINIMUM_POINTS, points);
  if (!usable(status, ecef, least, error))
    return 1;
  std::deque<double> time, x, y, z;
  for (const PIData::PIPlatformPoint& point : ecef)
  {
    time.push_back(point.time);
    x.push_back(point.position.x);
    y.push_back(point.position.y);
    z.push_back(point.position.z);
  }
  std::deque<DOUBLE3> angles, velocities, accelerations;
  if (DeriveCPR(time, x, y, z, &angles, &velocities, &accelerations, static_cast<int>(points)) != 0)
  {
    error = "Error occurred during Lagrangian calculation";
    return 1;
  }
  if (orientation && angles.size() != ecef.size())
  {
    error = "Input data points and calculated orientation points do not match";
    return 1;
  }
  if (velocity && velocities.size() != ecef.size())
  {
    error = "Input data points and calculated velocity points do not match";
    return 1;
  }
  // The results are in each point's local level frame: written back in the geodetic frame.
  std::vector<PIData::PIPlatformPoint> geodetic = clockSpan(id, PI_COORDSYS_LLA, status);
  if (status != 0 || geodetic.size() != ecef.size())
  {
    error = RETRIEVE_FAILED;
    return 1;
  }
  for (std::size_t i = 0; i < geodetic.size(); ++i)
  {
    if (orientation)
      geodetic[i].orientation = {angles[i].v[0], angles[i].v[1], angles[i].v[2]};
    if (velocity)
      geodetic[i].velocity = {velocities[i].v[0], velocities[i].v[1], velocities[i].v[2]};
  }
  if (PIData::addDataPoints(id, &geodetic) != 0)
  {
    error = ADD_FAILED;
    return 1;
  }
  return 0;
}

int lagrangianOriVel(const std::vector<std::uint64_t>& ids, bool orientation, bool velocity, unsigned int points,
                     std::string& error)
{
  return forEach(ids, orientation, velocity, error,
                 [&](std::uint64_t id) { return lagrangianOriVel(id, orientation, velocity, points, error); });
}

void bmerge(const double* values, int count, double& result)
{
  int smallest = 0;
  int largest = 0;
  for (int i = 1; i < count; ++i)
  {
    if (values[i] < values[smallest])
      smallest = i;
    if (values[i] > values[largest])
      largest = i;
  }
  if (smallest == largest)
  {
    result = values[2];
    return;
  }
  double sum = 0.0;
  for (int i = 0; i < count; ++i)
  {
    if (i != smallest && i != largest)
      sum += values[i];
  }
  result = sum / 3.0;
}

int d2y_by_dt2(const std::deque<double>& time, const std::deque<double>& values, std::deque<double>& firstDerivative,
               std::deque<double>& secondDerivative, int window)
{
  const int n = static_cast<int>(values.size());
  // The widest placement below spans four strides; it must fit in the window, so that a window
  // no longer than the series keeps every placement inside the data.
  const int stride = std::max(1, (window - 1) / 4);
  if (n < 4 * stride + 1 || static_cast<int>(time.size()) != n)
    return 1;
  firstDerivative.assign(n, 0.0);
  secondDerivative.assign(n, 0.0);
  // Five placements of the four nodes around the sample, as offsets in strides.
  const int placements[5][4] = {{-3, -2, -1, 0}, {-2, -1, 0, 1}, {-1, 0, 1, 2}, {0, 1, 2, 3}, {-2, -1, 1, 2}};
  for (int i = 0; i < n; ++i)
  {
    double first[5];
    double second[5];
    for (int p = 0; p < 5; ++p)
    {
      int index[4];
      for (int k = 0; k < 4; ++k)
        index[k] = i + placements[p][k] * stride;
      // Near the ends the nodes shift inward together, to stay inside the data.
      const int shift = std::max(0, -index[0]) - std::max(0, index[3] - (n - 1));
      double t[4];
      double y[4];
      for (int k = 0; k < 4; ++k)
      {
        t[k] = time[index[k] + shift];
        y[k] = values[index[k] + shift];
      }
      double d[2];
      cubicDerivatives(t, y, time[i], d);
      first[p] = d[0];
      second[p] = d[1];
    }
    bmerge(first, 5, firstDerivative[i]);
    bmerge(second, 5, secondDerivative[i]);
  }
  return 0;
}

void attitude(double latitude, double longitude, const double velocity[3], const double acceleration[3], double,
              double* yaw, double* pitch, double* roll)
{
  double toNed[3][3];
  kelCore::CoordinateConverter::setLocalToEarthMatrix(latitude, longitude, toNed);
  double v[3];
  double a[3];
  toLocal(toNed, velocity, v);
  toLocal(toNed, acceleration, a);
  for (int k = 0; k < 3; ++k)
  {
    if (std::fabs(v[k]) < NEGLIGIBLE)
      v[k] = 0.0;
    if (std::fabs(a[k]) < NEGLIGIBLE)
      a[k] = 0.0;
  }
  const double speed = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
  const double horizontal = std::hypot(v[0], v[1]);
  *yaw = 0.0;
  *pitch = 0.0;
  *roll = 0.0;
  if (speed == 0.0)
    return;
  // Heading from north through east, and the climb, from the unit velocity.
  if (horizontal > 0.0)
  {
    const double heading = std::acos(std::min(1.0, std::max(-1.0, v[0] / horizontal)));
    *yaw = v[1] < 0.0 ? 2.0 * M_PI - heading : heading;
  }
  *pitch = (v[2] > 0.0 ? -1.0 : 1.0) * std::acos(std::min(1.0, horizontal / speed));
  // The bank of a coordinated turn of that curvature; turning right banks right.
  const double turn = v[0] * a[1] - v[1] * a[0]; // vertical part of v x a, in north-east-down
  const double cross[3] = {v[1] * a[2] - v[2] * a[1], v[2] * a[0] - v[0] * a[2], turn};
  const double divisor = std::pow(speed * speed, 1.5);
  const double curvature = std::fabs(divisor) < NEGLIGIBLE
                             ? 0.0
                             : std::sqrt(cross[0] * cross[0] + cross[1] * cross[1] + cross[2] * cross[2]) / divisor;
  if (curvature == 0.0)
    return;
  const double knots = speed * KNOTS_PER_MS;
  const double radiusNm = 1.0 / curvature / METRES_PER_NM;
  *roll = std::atan(knots * knots / (radiusNm * GRAVITY_NM_PER_H2)) * (turn < 0.0 ? -1.0 : 1.0);
}

int DeriveCPR(const std::deque<double>& time, const std::deque<double>& x, const std::deque<double>& y,
              const std::deque<double>& z, std::deque<DOUBLE3>* first, std::deque<DOUBLE3>* second,
              std::deque<DOUBLE3>* third, int window)
{
  const std::size_t n = time.size();
  if (x.size() != n || y.size() != n || z.size() != n)
    return 1;
  std::deque<double> vx, vy, vz, ax, ay, az;
  if (d2y_by_dt2(time, x, vx, ax, window) != 0 || d2y_by_dt2(time, y, vy, ay, window) != 0 ||
      d2y_by_dt2(time, z, vz, az, window) != 0)
    return 1;
  for (std::size_t i = 0; i < n; ++i)
  {
    kelCore::Vec3 lla;
    kelCore::CoordinateConverter::convertEcefToGeodeticPos({x[i], y[i], z[i]}, lla);
    const double velocity[3] = {vx[i], vy[i], vz[i]};
    const double acceleration[3] = {ax[i], ay[i], az[i]};
    DOUBLE3 angles;
    attitude(lla.x, lla.y, velocity, acceleration, 1.0, &angles.v[0], &angles.v[1], &angles.v[2]);
    double toNed[3][3];
    kelCore::CoordinateConverter::setLocalToEarthMatrix(lla.x, lla.y, toNed);
    double vNed[3];
    double aNed[3];
    toLocal(toNed, velocity, vNed);
    toLocal(toNed, acceleration, aNed);
    DOUBLE3 v;
    v.v[0] = vNed[1];
    v.v[1] = vNed[0];
    v.v[2] = -vNed[2];
    DOUBLE3 a;
    a.v[0] = aNed[1];
    a.v[1] = aNed[0];
    a.v[2] = -aNed[2];
    if (first)
      first->push_back(angles);
    if (second)
      second->push_back(v);
    if (third)
      third->push_back(a);
  }
  return 0;
}

} // namespace PUCalculation
