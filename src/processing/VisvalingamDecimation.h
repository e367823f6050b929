#pragma once

#include "processing/DecimateAlgorithm.h"

namespace QtSep
{

/**
 * Visvalingam line simplification over the 3-D positions: repeatedly drops the point whose
 * triangle with its neighbours has the least area, until the given share of points is gone.
 * The first and the last point always stay.
 *
 * Which point goes is decided exactly as by the plain rule that keeps the triangles in a
 * multimap by area and finds a neighbour's entry by a linear search: the smallest area goes
 * first, and among equal areas the triangle entered (or re-entered after its neighbour went)
 * first. Here each triangle holds its place in a heap ordered by area and then by the sequence
 * number of its entry, so that a neighbour is re-entered without a search: O(n log n) in time,
 * about 50 bytes a point beside the input.
 */
class VisvalingamDecimation : public DecimateAlgorithm
{
public:
  std::string auditText(const std::string& name) const override;
  int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) override;

  /// @param fraction share of points to drop, in (0, 1)
  void setPercentageDrop(double fraction) { percentageDrop_ = fraction; }
  double percentageDrop() const { return percentageDrop_; }

  /**
   * @return the area of the triangle of three positions (square metres for earth-centred
   * metres): half the length of the cross product of (next - self) and (previous - self)
   */
  static double triangleArea(const PIPoint& previous, const PIPoint& self, const PIPoint& next);
  /// As above, of three positions as vectors; the two give the same bits.
  static double triangleArea(const kelCore::Vec3& previous, const kelCore::Vec3& self, const kelCore::Vec3& next);

protected:
  std::string algoSuffix_() const override;

private:
  double percentageDrop_ = 0.75;
};

} // namespace QtSep
