#pragma once

#include "host/UniqueID.h"
#include "merge/DropOut.h"

#include <cstdint>
#include <vector>

namespace QtSep
{

/**
 * @brief Priority merge of several platforms into one new platform, without touching them.
 * The first platform of the list is the primary; each later one fills only the dropouts that
 * all earlier ones leave open. The "Manual Merge" tab and the command line share it.
 */
class ManualMerge
{
public:
  /**
   * Finds the stretches that would fill the primary's dropouts, through a temporary platform
   * that is removed again.
   * @param ids the platforms in priority order, the primary first; not empty
   * @param start,end the time slice, seconds since the reference year
   * @param gap seconds without points that make a dropout
   * @param colors colour k for list position k, the last for the rest; not empty
   * @param dropouts receives every filled piece and every gap left open, in order
   * @return false when the primary has no points in the slice (dropouts then stays empty)
   */
  static bool detect(const std::vector<UniqueID_t>& ids, double start, double end, double gap,
                     const std::vector<std::uint32_t>& colors, std::vector<DropOut>& dropouts);

  /**
   * Makes the merged platform, named after the primary with the merge suffix: the primary's
   * whole slice first, then each used stretch from its source, with "Merge_Source" entries
   * telling where the data came from and when the primary took over again.
   * @param ids as for detect @param start,end the time slice, seconds since the reference year
   * @param dropouts the stretches detect found @param used one flag per stretch, true to copy it
   * @return the new platform, 0 when it could not be made
   */
  static UniqueID_t merge(const std::vector<UniqueID_t>& ids, double start, double end,
                          const std::vector<DropOut>& dropouts, const std::vector<bool>& used);
};

} // namespace QtSep
