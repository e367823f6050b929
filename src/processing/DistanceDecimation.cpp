#include "processing/DistanceDecimation.h"

#include "utils/StringUtils.h"

namespace QtSep
{

std::string DistanceDecimation::auditText(const std::string& name) const
{
  return " Dist: " + cleanName_(name) + " (" + UTILS::stringConvertToString(distance_) + "m)";
}

std::string DistanceDecimation::algoSuffix_() const
{
  return " (Dist " + UTILS::stringConvertToString(distance_) + "m)";
}

int DistanceDecimation::execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out)
{
  if (&in == &out)
    return 1;
  if (in.size() < 3)
  {
    out = in;
    return 0;
  }
  out.push_back(in[0]);
  double travelled = 0.0;
  for (std::size_t i = 1; i < in.size(); ++i)
  {
    // A path length along the track, from each point to the next.
    travelled += (pointToVec_(in[i].position) - pointToVec_(in[i - 1].position)).length();
    if (travelled >= distance_)
    {
      out.push_back(in[i]);
      travelled = 0.0;
    }
  }
  if (in.back().time != out.back().time && keepLastPoint_)
    out.push_back(in.back());
  return 0;
}

} // namespace QtSep
