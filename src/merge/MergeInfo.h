#pragma once

#include "host/UniqueID.h"

#include <string>
#include <vector>

namespace QtSep
{

/// One group of platforms found to be one object: the earliest first, it survives the merge.
struct MergeInfo
{
  /// @param platforms the group, earliest first; the first names the group
  explicit MergeInfo(const std::vector<UniqueID_t>& platforms);

  std::vector<UniqueID_t> ids; ///< the group, earliest platform first
  bool checked = true;
  std::string name;            ///< header name of the first platform; empty for an empty group
  UniqueID_t originalId = 0;   ///< original ID in that header
};

/// Orders groups by name, byte-wise; false when either is null.
inline bool compareByName(const MergeInfo* a, const MergeInfo* b)
{
  return a && b && a->name < b->name;
}

} // namespace QtSep
