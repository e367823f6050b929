#include "processing/RemoveDuplicatePoints.h"

#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"

#include <algorithm>

namespace QtSep
{

namespace
{

bool samePoint(const PIPoint& a, const PIPoint& b)
{
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool equalExceptTime(const PIData::PIPlatformPoint& a, const PIData::PIPlatformPoint& b)
{
  return samePoint(a.position, b.position) && samePoint(a.orientation, b.orientation) &&
         samePoint(a.velocity, b.velocity) && samePoint(a.acceleration, b.acceleration) && a.frame == b.frame;
}

bool equalExceptTime(const PIData::PIBeamPoint& a, const PIData::PIBeamPoint& b)
{
  return a.azimuth == b.azimuth && a.elevation == b.elevation && a.length == b.length;
}

bool equalExceptTime(const PIData::PIGatePoint& a, const PIData::PIGatePoint& b)
{
  return a.azimuth == b.azimuth && a.elevation == b.elevation && a.width == b.width && a.height == b.height &&
         a.minRange == b.minRange && a.maxRange == b.maxRange && a.centroid == b.centroid;
}

bool equalExceptTime(const PIData::PILaserPoint& a, const PIData::PILaserPoint& b)
{
  return a.azimuth == b.azimuth && a.elevation == b.elevation && a.roll == b.roll;
}

bool equalExceptTime(const PIData::PILobPoint& a, const PIData::PILobPoint& b)
{
  return a.azimuth == b.azimuth && a.elevation == b.elevation && a.length == b.length;
}

bool equalExceptTime(const PIData::PIProjectorPoint& a, const PIData::PIProjectorPoint& b)
{
  return a.fieldOfView == b.fieldOfView;
}

void writeBack(UniqueID_t id, const std::vector<PIData::PIPlatformPoint>& points)
{
  PIData::addDataPoints(id, &points);
}

void writeBack(UniqueID_t id, const std::vector<PIData::PILaserPoint>& points)
{
  for (const auto& point : points)
    PIData::addLaserOriDataPoint(id, &point);
}

void writeBack(UniqueID_t id, const std::vector<PIData::PIProjectorPoint>& points)
{
  for (const auto& point : points)
    PIData::addProjectorFOV(id, point.time, point.fieldOfView);
}

template <typename Point>
void writeBack(UniqueID_t id, const std::vector<Point>& points)
{
  for (const auto& point : points)
    PIData::addDataPoint(id, &point);
}

/// Reads the entity's points over the scenario's span, drops those inside runs and writes the
/// rest back. @return true when points were removed
template <typename Point>
bool reducePoints(UniqueID_t id)
{
  std::vector<Point> points;
  PIData::getDataPoints(id, PIData::getEarliestTime(0), PIData::getLatestTime(0), &points);
  const std::vector<bool> keep = RemoveDuplicatePoints::survivors(
    points.size(), [&points](std::size_t i) { return equalExceptTime(points[i], points[i + 1]); });
  if (std::find(keep.begin(), keep.end(), false) == keep.end())
    return false;
  // One pass closes the gaps in place: a track of millions of points is not copied again.
  std::size_t kept = 0;
  for (std::size_t i = 0; i < points.size(); ++i)
  {
    if (keep[i])
      points[kept++] = points[i];
  }
  points.resize(kept);
  PIData::flushEntityData(id, PIData::FLUSH_POINTS);
  writeBack(id, points);
  return true;
}

using ChildList = void (*)(UniqueID_t, std::vector<UniqueID_t>*);

std::vector<UniqueID_t> childrenOf(UniqueID_t parent, ChildList list)
{
  std::vector<UniqueID_t> children;
  list(parent, &children);
  return children;
}

} // namespace

std::vector<UniqueID_t> RemoveDuplicatePoints::remove(const std::vector<UniqueID_t>& ids)
{
  Ids result;
  Ids visited;
  for (UniqueID_t id : ids)
    reduceEntity_(id, result, visited);
  return result;
}

bool RemoveDuplicatePoints::visit_(UniqueID_t id, Ids& visited)
{
  if (std::find(visited.begin(), visited.end(), id) != visited.end())
    return true;
  visited.push_back(id);
  return false;
}

void RemoveDuplicatePoints::reduceEntity_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (std::find(visited.begin(), visited.end(), id) != visited.end())
    return;
  switch (PIData::getObjectType(id))
  {
  case PI_PLATFORM_TYPE: reducePlatform_(id, result, visited); break;
  case PI_BEAM_TYPE: reduceBeam_(id, result, visited); break;
  case PI_GATE_TYPE: reduceGate_(id, result, visited); break;
  case PI_LASER_TYPE: reduceLaser_(id, result, visited); break;
  case PI_LOB_GROUP_TYPE: reduceLob_(id, result, visited); break;
  case PI_PROJECTOR_TYPE: reduceProjector_(id, result, visited); break;
  default: break;
  }
}

void RemoveDuplicatePoints::reducePlatform_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (visit_(id, visited))
    return;
  if (reducePoints<PIData::PIPlatformPoint>(id))
    result.push_back(id);
  reduceBeams_(id, result, visited);
  reduceLasers_(id, result, visited);
  reduceLobs_(id, result, visited);
  reduceProjectors_(id, result, visited);
}

void RemoveDuplicatePoints::reduceBeam_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (visit_(id, visited))
    return;
  if (reducePoints<PIData::PIBeamPoint>(id))
    result.push_back(id);
  reduceGates_(id, result, visited);
  reduceProjectors_(id, result, visited);
}

void RemoveDuplicatePoints::reduceGate_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (!visit_(id, visited) && reducePoints<PIData::PIGatePoint>(id))
    result.push_back(id);
}

void RemoveDuplicatePoints::reduceLaser_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (!visit_(id, visited) && reducePoints<PIData::PILaserPoint>(id))
    result.push_back(id);
}

void RemoveDuplicatePoints::reduceLob_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (!visit_(id, visited) && reducePoints<PIData::PILobPoint>(id))
    result.push_back(id);
}

void RemoveDuplicatePoints::reduceProjector_(UniqueID_t id, Ids& result, Ids& visited)
{
  if (!visit_(id, visited) && reducePoints<PIData::PIProjectorPoint>(id))
    result.push_back(id);
}

void RemoveDuplicatePoints::reduceBeams_(UniqueID_t parent, Ids& result, Ids& visited)
{
  for (UniqueID_t id : childrenOf(parent, PIData::getBeamList))
    reduceBeam_(id, result, visited);
}

void RemoveDuplicatePoints::reduceGates_(UniqueID_t parent, Ids& result, Ids& visited)
{
  for (UniqueID_t id : childrenOf(parent, PIData::getGateList))
    reduceGate_(id, result, visited);
}

void RemoveDuplicatePoints::reduceLasers_(UniqueID_t parent, Ids& result, Ids& visited)
{
  for (UniqueID_t id : childrenOf(parent, PIData::getLaserList))
    reduceLaser_(id, result, visited);
}

void RemoveDuplicatePoints::reduceLobs_(UniqueID_t parent, Ids& result, Ids& visited)
{
  for (UniqueID_t id : childrenOf(parent, PIData::getLobList))
    reduceLob_(id, result, visited);
}

void RemoveDuplicatePoints::reduceProjectors_(UniqueID_t parent, Ids& result, Ids& visited)
{
  for (UniqueID_t id : childrenOf(parent, PIData::getProjectorList))
    reduceProjector_(id, result, visited);
}

} // namespace QtSep
