#pragma once

#include "host/PIGenericDataPoint.h"
#include "host/UniqueID.h"

#include <map>
#include <string>
#include <vector>

namespace QtSep
{

/**
 * Copies all that one platform holds in a time slice into another: points, beams with their
 * gates, lasers, LOB groups with all their series, category and generic data, data tables,
 * states and attached overlay files. Children find their counterparts by name (with the merge
 * suffix); the target keeps what it already says at the slice's start.
 *
 * A merge is a sequence of calls, one per source and slice; the caller chooses the order.
 */
class PlatformMerge
{
public:
  PlatformMerge();
  virtual ~PlatformMerge();

  /**
   * Copies what source holds in [start, end] into target, without touching source.
   * @param start first time of the slice, seconds since the reference year
   * @param end last time of the slice, seconds since the reference year
   */
  void mergePlatform(UniqueID_t target, UniqueID_t source, double start, double end);

  const std::string& mergeSuffix() const { return mergeSuffix_; }
  /// @param suffix appended to child names in the target; empty to merge children into namesakes
  void setMergeSuffix(const std::string& suffix) { mergeSuffix_ = suffix; }

private:
  using NameMap = std::map<std::string, UniqueID_t>;

  std::string createMergeName_(const std::string& name) const { return name + mergeSuffix_; }

  void mergeBeamsToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeBeam_(UniqueID_t target, UniqueID_t source, double start, double end, bool skipPoints);
  void mergeGate_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLasersToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLaser_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLobGroupsToPlatform_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLobGroup_(UniqueID_t target, UniqueID_t source, double start, double end);
  /// A child's category data, generic data and tables, in that order.
  void mergeChildData_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeCategoryData_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeGenericData_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeDataTables_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeDataTable_(UniqueID_t target, long sourceTable, double start, double end);
  void mergeColors_(UniqueID_t target, UniqueID_t source, double start, double end, bool isStatic);
  void mergeStates_(UniqueID_t target, UniqueID_t source, double start, double end, bool isStatic);
  void mergeTargets_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLaserMaxRange_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLaserWidth_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLaserOffset_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergeLobGroupDrawStyles_(UniqueID_t target, UniqueID_t source, double start, double end);
  void mergePlatformGogs_(UniqueID_t target, UniqueID_t source);

  UniqueID_t createEmptyBeam_(UniqueID_t target, UniqueID_t sourceBeam);
  UniqueID_t createEmptyGate_(UniqueID_t targetBeam, UniqueID_t sourceGate);
  UniqueID_t createEmptyLaser_(UniqueID_t target, UniqueID_t sourceLaser);
  UniqueID_t createEmptyLobGroup_(UniqueID_t target, UniqueID_t sourceLob);

  NameMap getPlatformBeamNames_(UniqueID_t platform) const;
  NameMap getBeamGateNames_(UniqueID_t beam) const;
  NameMap getPlatformLaserNames_(UniqueID_t platform) const;
  NameMap getPlatformLobGroupNames_(UniqueID_t platform) const;
  /// @return every generic item of the entity but its callsign (the tag in any case), in time order
  static std::vector<PIData::PIGenericDataPoint> getGenericDataNoCallsign_(UniqueID_t id);

  std::string mergeSuffix_;
};

} // namespace QtSep
