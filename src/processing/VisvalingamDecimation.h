#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/**
 * Visvalingam line simplification over the 3-D positions: repeatedly drops the point whose
 * triangle with its neighbours has the least area, until the given share of points is gone.
 * The first and the last point always stay.
 */
class VisvalingamDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param fraction share of points to drop, in (0, 1)
  void setPercentageDrop(double fraction) { percentageDrop_ = fraction; }
  double percentageDrop() const { return percentageDrop_; }

protected:
  std::string algoSuffix_() const override;

private:
  double percentageDrop_ = 0.75;
};

} // namespace QtSep
