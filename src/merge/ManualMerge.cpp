#include "merge/ManualMerge.h"

#include "host/PIDataEntities.h"
#include "merge/CommonMerge.h"
#include "merge/PlatformMerge.h"

namespace QtSep
{

bool ManualMerge::detect(const std::vector<UniqueID_t>& ids, double start, double end, double gap,
                         const std::vector<std::uint32_t>& colors, std::vector<DropOut>& dropouts)
{
  if (ids.empty() || colors.empty())
    return false;
  UniqueID_t temporary = 0;
  if (!CommonMerge::FillTrack(temporary, ids.front(), start, end, colors.front(), false))
    return false;
  CommonMerge::CalculateBackFillTrack(temporary, ids, start, end, gap, dropouts, false, colors);
  PIData::removeEntity(temporary, false);
  return true;
}

UniqueID_t ManualMerge::merge(const std::vector<UniqueID_t>& ids, double start, double end,
                              const std::vector<DropOut>& dropouts, const std::vector<bool>& used)
{
  if (ids.empty())
    return 0;
  const UniqueID_t primary = ids.front();
  const UniqueID_t target =
    CommonMerge::CreateEmptyPlatform(primary, CommonMerge::GetPlatformCallSign(primary) + CommonMerge::MergeSuffix);
  if (target == 0)
    return 0;
  PlatformMerge platformMerge;
  platformMerge.mergePlatform(target, primary, start, end);
  // A slice that opens inside a dropout starts with its filler's entry instead.
  if (dropouts.empty() || dropouts.front().startTime > start)
    CommonMerge::MergePlatformSourceCategoryData(target, primary, start);
  for (std::size_t k = 0; k < dropouts.size(); ++k)
  {
    if (k >= used.size() || !used[k])
      continue;
    const DropOut& stretch = dropouts[k];
    platformMerge.mergePlatform(target, stretch.sourceId, stretch.startTime, stretch.endTime);
    CommonMerge::MergePlatformSourceCategoryData(target, stretch.sourceId, stretch.startTime);
    // The primary takes over again once the hole ends inside the slice.
    const double holeEnd = stretch.gapStart + stretch.gapDuration;
    if (holeEnd < end)
      CommonMerge::MergePlatformSourceCategoryData(target, primary, holeEnd);
  }
  return target;
}

} // namespace QtSep
