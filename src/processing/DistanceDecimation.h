#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/// Keeps a point each time the path travelled since the last kept one reaches a distance.
class DistanceDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param metres path length between kept points
  void setDistance(double metres) { distance_ = metres; }
  double distance() const { return distance_; }
  void setKeepLastPoint(bool keep) { keepLastPoint_ = keep; }
  bool keepLastPoint() const { return keepLastPoint_; }

protected:
  std::string algoSuffix_() const override;

private:
  double distance_ = 1000.0;
  bool keepLastPoint_ = true;
};

} // namespace QtSep
