#pragma once

#include "host/PIPlatformHeader.h"
#include "host/UniqueID.h"
#include "merge/MergeInfo.h"

#include <map>
#include <memory>
#include <vector>

namespace QtSep
{

/**
 * Finds platforms that are one object recorded as several (same name, and optionally the same
 * original ID) and merges them into the earliest. The platforms' headers are read once, at the
 * first search, and kept for the object's life.
 */
class AutoMerge
{
public:
  AutoMerge();
  virtual ~AutoMerge();

  /**
   * Lists the platforms of the same name as id (id among them), earliest first.
   * @param compareOriginalId true to require the same original ID as well
   * @param ids receives the group @return true when it holds two platforms or more
   */
  bool possibleMergeCandidates(UniqueID_t id, bool compareOriginalId, std::vector<UniqueID_t>& ids);

  /**
   * Merges every platform after the first into the first, from the first's start to the end
   * of the scenario; children join their namesakes. The others are not removed.
   * @return false for fewer than two platforms
   */
  bool merge(const std::vector<UniqueID_t>& ids);

  /**
   * Detect of the Auto Merge tab: every group of two or more platforms of one name (and, with
   * compareOriginalId, one original ID), each group earliest first, the groups in name order.
   * Each platform belongs to the group of the first platform of the scenario's list that finds it.
   */
  std::vector<std::unique_ptr<MergeInfo>> detectGroups(bool compareOriginalId);

  /**
   * What Merge and the tab's Accept do with a group: merges every platform after the first
   * into the first, tells the trees the first changed, and removes the others.
   * @return false, changing nothing, for fewer than two platforms
   */
  bool mergeAndRemove(const std::vector<UniqueID_t>& ids);

private:
  std::map<UniqueID_t, std::unique_ptr<PIData::PIPlatformHeader>> headers_;
};

} // namespace QtSep
