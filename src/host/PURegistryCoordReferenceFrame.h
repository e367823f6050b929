#pragma once

#include "host/PICoordReferenceFrame.h"

#include <string>

namespace PURegistry
{

/// One coordinate frame kept in the registry under the twelve COORD_REFERENCE_FRAME_ keys.
class PURegistryCoordReferenceFrame
{
public:
  /// @param prefix put before every key, empty for none
  explicit PURegistryCoordReferenceFrame(const std::string& prefix = std::string()) : prefix_(prefix) {}

  /// Reads all twelve values; each absent one keeps the frame's present value.
  void loadValues();
  /// Writes all twelve values. @param prefix put before every key from now on
  void saveValues(const std::string& prefix);
  /// Writes all twelve values under the present prefix.
  void saveValues() { saveValues(prefix_); }

  const PIData::PICoordReferenceFrame& getCoordReferenceFrame() const { return frame_; }
  void setCoordReferenceFrame(const PIData::PICoordReferenceFrame& frame) { frame_ = frame; }

  bool operator==(const PURegistryCoordReferenceFrame& o) const { return frame_ == o.frame_; }
  bool operator!=(const PURegistryCoordReferenceFrame& o) const { return !(*this == o); }

private:
  std::string key_(const char* name) const { return prefix_ + name; }

  std::string prefix_;
  PIData::PICoordReferenceFrame frame_;
};

} // namespace PURegistry
