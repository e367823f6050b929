#pragma once

#include "host/PIPlatformHeader.h"
#include "host/UniqueID.h"

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

private:
  std::map<UniqueID_t, std::unique_ptr<PIData::PIPlatformHeader>> headers_;
};

} // namespace QtSep
