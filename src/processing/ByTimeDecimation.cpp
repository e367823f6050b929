#include "processing/ByTimeDecimation.h"

#include "kelData/LinearInterpolator.h"
#include "kelData/MemoryDataSlice.h"
#include "kelData/PlatformUpdate.h"
#include "utils/StringUtils.h"

#include <cmath>
#include <limits>

namespace QtSep
{

namespace
{

constexpr double SAME_TIME = 1e-6;

bool isSet(const PIPoint& p)
{
  return p.x != PI_INVALID_DOUBLE && p.y != PI_INVALID_DOUBLE && p.z != PI_INVALID_DOUBLE && std::isfinite(p.x) &&
         std::isfinite(p.y) && std::isfinite(p.z);
}

/// @return the point as an update; false for a point without a usable position
bool convert_(const PIData::PIPlatformPoint& point, kelData::PlatformUpdate& update)
{
  if (!isSet(point.position))
    return false;
  update.setTime(point.time);
  update.setPosition(point.position.x, point.position.y, point.position.z);
  if (isSet(point.orientation))
    update.setOrientation(static_cast<float>(point.orientation.x), static_cast<float>(point.orientation.y),
                          static_cast<float>(point.orientation.z));
  if (isSet(point.velocity))
    update.setVelocity(static_cast<float>(point.velocity.x), static_cast<float>(point.velocity.y),
                       static_cast<float>(point.velocity.z));
  return true;
}

PIData::PIPlatformPoint convert_(const kelData::PlatformUpdate& update)
{
  PIData::PIPlatformPoint point;
  point.time = update.time();
  point.frame.coordinateSystem = PI_COORDSYS_ECEF;
  point.position = {update.x(), update.y(), update.z()};
  if (update.hasOrientation())
    point.orientation = {update.yaw(), update.pitch(), update.roll()};
  if (update.hasVelocity())
    point.velocity = {update.vx(), update.vy(), update.vz()};
  return point;
}

} // namespace

std::string ByTimeDecimation::auditText(const std::string& name) const
{
  const char* kind = interpolate_ ? " Time Interpolate: " : " Time: ";
  return kind + cleanName_(name) + " (" + UTILS::stringConvertToString(minimumDataInterval_) + "s)";
}

std::string ByTimeDecimation::algoSuffix_() const
{
  const char* kind = interpolate_ ? " (TimeInterp " : " (Time ";
  return kind + UTILS::stringConvertToString(minimumDataInterval_) + ")";
}

int ByTimeDecimation::execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out)
{
  if (in.empty())
    return 1;
  return interpolate_ ? executeInterpolate_(in, out) : executeWithoutInterpolate_(in, out);
}

int ByTimeDecimation::executeWithoutInterpolate_(const std::vector<PIData::PIPlatformPoint>& in,
                                                 std::vector<PIData::PIPlatformPoint>& out) const
{
  double next = -std::numeric_limits<double>::max();
  bool lastKept = false;
  for (const PIData::PIPlatformPoint& point : in)
  {
    lastKept = point.time >= next;
    if (!lastKept)
      continue;
    out.push_back(point);
    next = point.time + minimumDataInterval_;
  }
  if (!lastKept && keepLastPoint_)
    out.push_back(in.back());
  return 0;
}

int ByTimeDecimation::executeInterpolate_(const std::vector<PIData::PIPlatformPoint>& in,
                                          std::vector<PIData::PIPlatformPoint>& out) const
{
  if (minimumDataInterval_ <= 0.0)
    return 1;
  kelData::MemoryDataSlice<kelData::PlatformUpdate> slice;
  for (const PIData::PIPlatformPoint& point : in)
  {
    kelData::PlatformUpdate update;
    if (convert_(point, update))
      slice.insert(update); // a second update of one time replaces the first
  }
  double last = -std::numeric_limits<double>::max();
  if (!slice.empty())
  {
    last = slice.lastTime();
    const kelData::LinearInterpolator interpolator;
    for (double t = slice.firstTime(); last >= t; t += minimumDataInterval_)
    {
      const auto after = slice.upperBound(t);
      kelData::PlatformUpdate current;
      if (after == slice.end())
        current = *(slice.end() - 1);
      else if (after == slice.begin())
        break;
      else
      {
        const kelData::PlatformUpdate& before = *(after - 1);
        if (std::fabs(t - before.time()) < SAME_TIME)
          current = before;
        else
          interpolator.interpolate(t, before, *after, &current);
      }
      out.push_back(convert_(current));
    }
  }
  if (out.empty())
    return 1;
  if (out.back().time != last && keepLastPoint_)
    out.push_back(in.back());
  return 0;
}

} // namespace QtSep
