#include "processing/CullAngleDecimation.h"

#include "processing/PUCullAngleDecimation.h"
#include "utils/StringUtils.h"

namespace QtSep
{

std::string CullAngleDecimation::auditText(const std::string& name) const
{
  return " Angle: " + cleanName_(name) + " (" + UTILS::stringConvertToString(degrees_()) + "d)";
}

std::string CullAngleDecimation::algoSuffix_() const
{
  return " (Ang " + UTILS::stringConvertToString(degrees_()) + ")";
}

int CullAngleDecimation::execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out)
{
  if (&in == &out)
    return 1;
  return PUCullAngleDecimation(PUCullAngleDecimation::foldAngle(cullAngle_), keepLastPoint_).execute(in, out);
}

} // namespace QtSep
