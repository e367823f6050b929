#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/// Keeps the data at or over a minimum interval, by picking points or by resampling the track.
class ByTimeDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param seconds least time between kept points
  void setMinimumDataInterval(double seconds) { minimumDataInterval_ = seconds; }
  double minimumDataInterval() const { return minimumDataInterval_; }
  void setKeepLastPoint(bool keep) { keepLastPoint_ = keep; }
  bool keepLastPoint() const { return keepLastPoint_; }
  /// @param interpolate true to resample the track every interval instead of picking points
  void setInterpolate(bool interpolate) { interpolate_ = interpolate; }
  bool interpolate() const { return interpolate_; }

protected:
  std::string algoSuffix_() const override;

private:
  int executeWithoutInterpolate_(const std::vector<PIData::PIPlatformPoint>& in,
                                 std::vector<PIData::PIPlatformPoint>& out) const;
  int executeInterpolate_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) const;

  double minimumDataInterval_ = 10.0;
  bool keepLastPoint_ = true;
  bool interpolate_ = false;
};

} // namespace QtSep
