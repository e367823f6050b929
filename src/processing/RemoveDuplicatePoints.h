#pragma once

#include "host/UniqueID.h"

#include <vector>

namespace QtSep
{

/**
 * Removes the points that add nothing: of a run of three or more successive points that differ
 * only in their time, the first and the last stay, so the run still starts and ends at the same
 * instants. Values compare exactly (a NaN equals nothing). An entity's children are reduced with
 * it; every entity is reduced at most once per call. Entities that lose nothing are not written.
 */
class RemoveDuplicatePoints
{
public:
  /// @param ids the entities to reduce, in order @return the entities that lost points, in the order reduced
  std::vector<UniqueID_t> remove(const std::vector<UniqueID_t>& ids);

  /**
   * Marks the points to keep of a series: all but those inside a run of equal neighbours.
   * @param size number of points @param equal tells whether points i and i + 1 match but for their time
   * @return one flag per point, true to keep
   */
  template <typename EqualNext>
  static std::vector<bool> survivors(std::size_t size, EqualNext equal);

private:
  using Ids = std::vector<UniqueID_t>;

  void reduceEntity_(UniqueID_t id, Ids& result, Ids& visited);
  void reducePlatform_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceBeam_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceGate_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceLaser_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceLob_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceProjector_(UniqueID_t id, Ids& result, Ids& visited);
  void reduceBeams_(UniqueID_t parent, Ids& result, Ids& visited);
  void reduceGates_(UniqueID_t parent, Ids& result, Ids& visited);
  void reduceLasers_(UniqueID_t parent, Ids& result, Ids& visited);
  void reduceLobs_(UniqueID_t parent, Ids& result, Ids& visited);
  void reduceProjectors_(UniqueID_t parent, Ids& result, Ids& visited);

  /// @return true when id was reduced before in this call; otherwise marks it reduced
  static bool visit_(UniqueID_t id, Ids& visited);
};

template <typename EqualNext>
std::vector<bool> RemoveDuplicatePoints::survivors(std::size_t size, EqualNext equal)
{
  std::vector<bool> keep(size, true);
  if (size < 3)
    return keep;
  // Exact equality is transitive, so a point whose both neighbours match it lies inside a run,
  // which is what collapsing each run from its inside removes.
  bool matchesPrevious = equal(0);
  for (std::size_t i = 1; i + 1 < size; ++i)
  {
    const bool matchesNext = equal(i);
    keep[i] = !(matchesPrevious && matchesNext);
    matchesPrevious = matchesNext;
  }
  return keep;
}

} // namespace QtSep
