#include "merge/AutoMerge.h"

#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "merge/PlatformMerge.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>
#include <set>

namespace QtSep
{

AutoMerge::AutoMerge() = default;

AutoMerge::~AutoMerge() = default;

bool AutoMerge::possibleMergeCandidates(UniqueID_t id, bool compareOriginalId, std::vector<UniqueID_t>& ids)
{
  if (headers_.empty())
  {
    std::vector<UniqueID_t> platforms;
    PIData::getPlatformList(&platforms);
    for (UniqueID_t platform : platforms)
    {
      auto header = std::make_unique<PIData::PIPlatformHeader>();
      if (PIData::getHeader(platform, header.get()) == 0)
        headers_[platform] = std::move(header);
    }
  }
  const auto found = headers_.find(id);
  if (found == headers_.end())
    return false;
  const PIData::PIPlatformHeader& wanted = *found->second;
  for (const auto& [platform, header] : headers_)
  {
    if (header->name == wanted.name && (!compareOriginalId || header->originalId == wanted.originalId))
      ids.push_back(platform);
  }
  std::vector<std::pair<double, UniqueID_t>> byStart;
  for (UniqueID_t platform : ids)
    byStart.emplace_back(PIData::getEarliestTime(platform), platform);
  std::stable_sort(byStart.begin(), byStart.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t i = 0; i < ids.size(); ++i)
    ids[i] = byStart[i].second;
  return ids.size() >= 2;
}

bool AutoMerge::merge(const std::vector<UniqueID_t>& ids)
{
  if (ids.size() < 2)
    return false;
  // Data of the others before the first platform's start stay behind: the first is the survivor.
  const double start = PIData::getEarliestTime(ids.front());
  const double end = PIData::getLatestTime(0);
  PlatformMerge platformMerge;
  platformMerge.setMergeSuffix("");
  for (std::size_t i = 1; i < ids.size(); ++i)
    platformMerge.mergePlatform(ids.front(), ids[i], start, end);
  return true;
}

std::vector<std::unique_ptr<MergeInfo>> AutoMerge::detectGroups(bool compareOriginalId)
{
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  std::vector<std::unique_ptr<MergeInfo>> groups;
  std::set<UniqueID_t> seen;
  for (UniqueID_t platform : platforms)
  {
    if (seen.count(platform))
      continue;
    std::vector<UniqueID_t> candidates;
    if (possibleMergeCandidates(platform, compareOriginalId, candidates))
    {
      seen.insert(candidates.begin(), candidates.end());
      groups.push_back(std::make_unique<MergeInfo>(candidates));
    }
    else
      seen.insert(platform);
  }
  std::stable_sort(groups.begin(), groups.end(),
                   [](const auto& a, const auto& b) { return compareByName(a.get(), b.get()); });
  return groups;
}

bool AutoMerge::mergeAndRemove(const std::vector<UniqueID_t>& ids)
{
  if (!merge(ids))
    return false;
  fireChangeCallback(ids.front());
  for (std::size_t i = 1; i < ids.size(); ++i)
    PIData::removeEntity(ids[i], false);
  return true;
}

} // namespace QtSep
