#include "processing/DecimateAlgorithm.h"

#include "host/PIDataPoints.h"
#include "merge/CommonMerge.h"
#include "merge/PlatformMerge.h"

#include <limits>

namespace QtSep
{

const std::string DecimateAlgorithm::ORIGINAL_EXTENSION = "_orig";

namespace
{

bool endsWithOriginal(const std::string& name)
{
  const std::string& ending = DecimateAlgorithm::ORIGINAL_EXTENSION;
  return name.size() > ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

PIData::PICoordReferenceFrame earthCentred()
{
  PIData::PICoordReferenceFrame frame;
  frame.coordinateSystem = PI_COORDSYS_ECEF;
  return frame;
}

} // namespace

std::string DecimateAlgorithm::cleanName_(const std::string& name) const
{
  if (appendToSource_ && endsWithOriginal(name))
    return name.substr(0, name.size() - ORIGINAL_EXTENSION.size());
  return name;
}

int DecimateAlgorithm::execute(std::uint64_t sourceId, std::uint64_t* newId, bool mergeCategoryData)
{
  if (newId)
    *newId = 0;
  const PIData::PICoordReferenceFrame frame = earthCentred();
  const double whole = std::numeric_limits<double>::max();
  PIData::PIPlatformPoint first;
  PIData::PIPlatformPoint last;
  if (PIData::getDataPoint(sourceId, 0.0, &first, PI_RETRIEVE_AT_OR_AFTER, frame) != 0 ||
      PIData::getDataPoint(sourceId, whole, &last, PI_RETRIEVE_AT_OR_BEFORE, frame) != 0)
    return 1;

  const std::string callSign = CommonMerge::GetPlatformCallSign(sourceId);
  std::string newName = callSign + algoSuffix_();
  if (appendToSource_)
  {
    if (endsWithOriginal(callSign))
      newName = callSign.substr(0, callSign.size() - ORIGINAL_EXTENSION.size());
    else
    {
      newName = callSign;
      CommonMerge::SetPlatformCallSign(sourceId, callSign + ORIGINAL_EXTENSION);
    }
  }
  const UniqueID_t created = CommonMerge::CreateEmptyPlatform(sourceId, newName);
  if (created == 0)
    return 1;
  PlatformMerge().mergePlatform(created, sourceId, first.time, last.time);
  if (mergeCategoryData)
    CommonMerge::MergePlatformSourceCategoryData(created, sourceId, first.time);

  std::vector<PIData::PIPlatformPoint> points;
  if (PIData::getDataPoints(created, -whole, whole, &points, frame) != 0 || points.empty())
    return 1;
  std::vector<PIData::PIPlatformPoint> result;
  const int status = execute_(points, result);
  if (status != 0)
    return status;
  PIData::flushEntityData(created, PIData::FLUSH_POINTS);
  const int written = PIData::addDataPoints(created, &result);
  if (written == 0 && newId)
    *newId = created;
  return written;
}

int DecimateAlgorithm::executeInPlace(std::uint64_t id)
{
  const double whole = std::numeric_limits<double>::max();
  std::vector<PIData::PIPlatformPoint> points;
  if (PIData::getDataPoints(id, -whole, whole, &points, earthCentred()) != 0 || points.empty())
    return 1;
  std::vector<PIData::PIPlatformPoint> result;
  const int status = execute_(points, result);
  if (status != 0)
    return status;
  return CommonMerge::ReplaceDataPoints(id, result, false);
}

} // namespace QtSep
