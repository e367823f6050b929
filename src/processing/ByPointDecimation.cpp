#include "processing/ByPointDecimation.h"

#include "utils/StringUtils.h"

namespace QtSep
{

std::string ByPointDecimation::auditText(const std::string& name) const
{
  return "Pnts: " + cleanName_(name) + " (" + UTILS::stringConvertToString(keepEveryNumPoints_) + "p)";
}

std::string ByPointDecimation::algoSuffix_() const
{
  return " (Pnt " + UTILS::stringConvertToString(keepEveryNumPoints_) + ")";
}

int ByPointDecimation::execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out)
{
  if (&in == &out || in.empty())
    return 1;
  std::size_t index = 0;
  for (; index < in.size(); index += keepEveryNumPoints_)
    out.push_back(in[index]);
  const bool lastKept = (in.size() - 1) % keepEveryNumPoints_ == 0;
  if (!lastKept && keepLastPoint_)
    out.push_back(in.back());
  return 0;
}

} // namespace QtSep
