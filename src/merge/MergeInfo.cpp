#include "merge/MergeInfo.h"

#include "host/PIDataEntities.h"

namespace QtSep
{

MergeInfo::MergeInfo(const std::vector<UniqueID_t>& platforms) : ids(platforms)
{
  PIData::PIPlatformHeader header;
  if (!ids.empty() && PIData::getHeader(ids.front(), &header) == 0)
  {
    name = header.name;
    originalId = header.originalId;
  }
}

} // namespace QtSep
