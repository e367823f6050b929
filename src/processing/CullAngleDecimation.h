#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/// Removes points where the track turns by no more than a tolerance.
class CullAngleDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param radians the turn tolerance
  void setCullAngle(double radians) { cullAngle_ = radians; }
  double cullAngle() const { return cullAngle_; }
  void setKeepLastPoint(bool keep) { keepLastPoint_ = keep; }
  bool keepLastPoint() const { return keepLastPoint_; }

protected:
  std::string algoSuffix_() const override;

private:
  double degrees_() const { return cullAngle_ * 57.29577951308232; }

  double cullAngle_ = 0.0;
  bool keepLastPoint_ = true;
};

} // namespace QtSep
