#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/// Keeps one point in every n, from the first; optionally the last point too.
class ByPointDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param every n, the step between kept points; 0 counts as 1
  void setKeepEveryNumPoints(std::uint64_t every) { keepEveryNumPoints_ = every == 0 ? 1 : every; }
  std::uint64_t keepEveryNumPoints() const { return keepEveryNumPoints_; }
  void setKeepLastPoint(bool keep) { keepLastPoint_ = keep; }
  bool keepLastPoint() const { return keepLastPoint_; }

protected:
  std::string algoSuffix_() const override;

private:
  std::uint64_t keepEveryNumPoints_ = 10;
  bool keepLastPoint_ = true;
};

} // namespace QtSep
