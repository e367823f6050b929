#pragma once

#include "processing/SpeedFilter.h"

namespace QtSep
{

/// Judges each point by the velocity stored with it; a point without one is kept.
class ByGivenSpeed : public SpeedFilter
{
public:
  std::string description() const override { return "by given velocity "; }
  void filterPlatform_(const std::vector<PIData::PIPlatformPoint>& in,
                       std::vector<PIData::PIPlatformPoint>& out) const override;
};

} // namespace QtSep
