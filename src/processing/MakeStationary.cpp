#include "processing/MakeStationary.h"

#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "kelCore/Geodesy.h"

#include <cmath>
#include <vector>

namespace QtSep
{

namespace
{

constexpr double RADIANS_PER_DEGREE = 0.017453292519943295;
constexpr double DEFAULT_ANGLE = 0.17453292519943295; // ten degrees
constexpr double TWO_PI = 2.0 * M_PI;
constexpr double NEGLIGIBLE = 1e-10;
constexpr double STATIC_TIME = -1.0;

/// Folds an angle into [0, 2 pi).
double fold(double angle)
{
  if (angle < 0.0 || angle >= TWO_PI)
  {
    angle = std::fmod(angle, TWO_PI);
    if (std::fabs(angle) < NEGLIGIBLE)
      angle = 0.0;
    if (angle < 0.0)
      angle += TWO_PI;
  }
  return angle;
}

} // namespace

MakeStationary::MakeStationary()
  : yaw_(DEFAULT_ANGLE),
    pitch_(DEFAULT_ANGLE),
    roll_(DEFAULT_ANGLE),
    beginTime_(PIData::clockGetBegin()),
    endTime_(PIData::clockGetEnd())
{
}

void MakeStationary::setDistance(bool enabled, int metres)
{
  useDistance_ = enabled;
  distance_ = metres;
}

void MakeStationary::setYaw(bool enabled, int degrees)
{
  useYaw_ = enabled;
  yaw_ = degrees * RADIANS_PER_DEGREE;
}

void MakeStationary::setPitch(bool enabled, int degrees)
{
  usePitch_ = enabled;
  pitch_ = degrees * RADIANS_PER_DEGREE;
}

void MakeStationary::setRoll(bool enabled, int degrees)
{
  useRoll_ = enabled;
  roll_ = degrees * RADIANS_PER_DEGREE;
}

bool MakeStationary::isStationary(std::uint64_t id) const
{
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(id, beginTime_, endTime_, &points, PIData::PICoordReferenceFrame());
  if (points.empty())
    return false;
  // One point at -1 is a platform static already: it is not offered again.
  if (points.size() == 1)
    return points.front().time != STATIC_TIME;
  if (!useDistance_ && !useYaw_ && !usePitch_ && !useRoll_)
    return true;
  const PIPoint& reference = points.front().position;
  double referenceYaw = UNSET;
  double referencePitch = UNSET;
  double referenceRoll = UNSET;
  for (const PIData::PIPlatformPoint& point : points)
  {
    if (useDistance_ && !isStationary_(reference, point.position))
      return false;
    if (!isStationary_(useYaw_, yaw_, referenceYaw, point.orientation.x) ||
        !isStationary_(usePitch_, pitch_, referencePitch, point.orientation.y) ||
        !isStationary_(useRoll_, roll_, referenceRoll, point.orientation.z))
      return false;
  }
  return true;
}

bool MakeStationary::isStationary_(const PIPoint& reference, const PIPoint& point) const
{
  const double ground = kelCore::sodanoInverse(reference.x, reference.y, reference.z, point.x, point.y);
  return distance_ > ground;
}

bool MakeStationary::isStationary_(bool enabled, double limit, double& reference, double angle)
{
  if (!enabled || angle == UNSET)
    return true;
  if (reference == UNSET)
  {
    reference = fold(angle);
    return true;
  }
  double difference = reference - fold(angle);
  if (std::fabs(difference) > M_PI)
  {
    difference = fold(difference);
    if (difference > M_PI)
      difference -= TWO_PI;
    if (std::fabs(difference) < NEGLIGIBLE)
      difference = 0.0;
  }
  return limit > std::fabs(difference);
}

int MakeStationary::execute(std::uint64_t id, bool maintainLifeSpan)
{
  PIData::PIPlatformPoint first;
  if (PIData::getDataPoint(id, 0.0, &first, PI_RETRIEVE_AT_OR_AFTER, PIData::PICoordReferenceFrame()) != 0)
    return 1;
  const double last = PIData::getLatestTime(id);
  PIData::flushEntityData(id, PIData::FLUSH_POINTS);
  if (maintainLifeSpan && first.time != last)
  {
    PIData::addDataPoint(id, &first);
    first.time = last;
    PIData::addDataPoint(id, &first);
    return 0;
  }
  first.time = STATIC_TIME;
  PIData::addDataPoint(id, &first);
  return 0;
}

} // namespace QtSep
