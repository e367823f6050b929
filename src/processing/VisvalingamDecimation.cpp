#include "processing/VisvalingamDecimation.h"

#include "utils/StringUtils.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace QtSep
{

namespace
{

/// A triangle's place in the order of removal: its area, then the sequence number of its entry.
struct Entry
{
  double area = 0.0;
  std::uint32_t sequence = 0; ///< entries number fewer than three times the points: 32 bits do
  std::uint32_t point = 0;    ///< the triangle's middle point, which goes when the triangle does
};

/// @return true when a goes before b: the smaller area, and of equal areas the earlier entry.
bool before(const Entry& a, const Entry& b)
{
  return a.area < b.area || (a.area == b.area && a.sequence < b.sequence);
}

/**
 * A four-ary min-heap of triangles that knows where each one stands, so that a triangle whose
 * neighbour went is given its new area and a new sequence number in place, in O(log n). Every
 * key is unique (no two entries share a sequence number), so the top is always the one entry
 * the plain rule would take. Four children of 16 bytes fill one cache line, which halves the
 * depth, and the misses, of a binary heap.
 */
class TriangleHeap
{
public:
  /// @param entries one per interior point, in any order; @param points the track's length
  TriangleHeap(std::vector<Entry> entries, std::size_t points) : heap_(std::move(entries)), place_(points, 0)
  {
    for (std::size_t i = 0; i < heap_.size(); ++i)
      place_[heap_[i].point] = static_cast<std::uint32_t>(i);
    for (std::size_t i = heap_.size() / ARITY + 1; i-- > 0;)
      siftDown_(i);
  }

  const Entry& top() const { return heap_.front(); }

  void pop()
  {
    move_(0, heap_.back());
    heap_.pop_back();
    if (!heap_.empty())
      siftDown_(0);
  }

  /// Re-enters the triangle of point with a new area, as a new entry would be.
  void reenter(std::uint32_t point, double area, std::uint32_t sequence)
  {
    const std::size_t i = place_[point];
    const Entry old = heap_[i];
    heap_[i] = {area, sequence, point};
    if (before(heap_[i], old))
      siftUp_(i);
    else
      siftDown_(i);
  }

private:
  static constexpr std::size_t ARITY = 4;

  void move_(std::size_t to, const Entry& entry)
  {
    heap_[to] = entry;
    place_[entry.point] = static_cast<std::uint32_t>(to);
  }

  void siftUp_(std::size_t i)
  {
    const Entry entry = heap_[i];
    while (i > 0)
    {
      const std::size_t parent = (i - 1) / ARITY;
      if (!before(entry, heap_[parent]))
        break;
      move_(i, heap_[parent]);
      i = parent;
    }
    move_(i, entry);
  }

  void siftDown_(std::size_t i)
  {
    if (i >= heap_.size())
      return;
    const Entry entry = heap_[i];
    const std::size_t n = heap_.size();
    for (;;)
    {
      const std::size_t first = ARITY * i + 1;
      if (first >= n)
        break;
      std::size_t least = first;
      const std::size_t end = std::min(first + ARITY, n);
      for (std::size_t c = first + 1; c < end; ++c)
      {
        if (before(heap_[c], heap_[least]))
          least = c;
      }
      if (!before(heap_[least], entry))
        break;
      move_(i, heap_[least]);
      i = least;
    }
    move_(i, entry);
  }

  std::vector<Entry> heap_;
  std::vector<std::uint32_t> place_; ///< by point: where its triangle stands in heap_
};

/// The area of a triangle; one expression for the public helper and the loop, so both give the same bits.
inline double area(const kelCore::Vec3& previous, const kelCore::Vec3& self, const kelCore::Vec3& next)
{
  return 0.5 * (next - self).cross(previous - self).length();
}

} // namespace

double VisvalingamDecimation::triangleArea(const PIPoint& previous, const PIPoint& self, const PIPoint& next)
{
  return triangleArea(pointToVec_(previous), pointToVec_(self), pointToVec_(next));
}

double VisvalingamDecimation::triangleArea(const kelCore::Vec3& previous, const kelCore::Vec3& self,
                                           const kelCore::Vec3& next)
{
  return area(previous, self, next);
}

std::string VisvalingamDecimation::auditText(const std::string& name) const
{
  return "Area: " + cleanName_(name) + " (" + UTILS::stringConvertToString(static_cast<int>(100 * percentageDrop_)) +
         "%)";
}

std::string VisvalingamDecimation::algoSuffix_() const
{
  return " (Percentage " + UTILS::stringConvertToString(static_cast<int>(100 * percentageDrop_)) + ")";
}

int VisvalingamDecimation::execute_(const std::vector<PIData::PIPlatformPoint>& in,
                                    std::vector<PIData::PIPlatformPoint>& out)
{
  if (&in == &out)
    return 1;
  const std::size_t n = in.size();
  if (n < 4)
  {
    out = in;
    return 0;
  }
  const auto drop = static_cast<std::size_t>(percentageDrop_ * static_cast<double>(n));
  if (drop == 0)
  {
    out = in;
    return 0;
  }
  if (n - 2 <= drop)
  {
    out = {in.front(), in.back()};
    return 0;
  }
  // Points and entries are numbered in 32 bits; no store holds a track of a billion points.
  if (n >= std::numeric_limits<std::uint32_t>::max() / 3)
    return 1;
  // The positions alone, side by side, so that the areas are worked out from memory at hand.
  std::vector<kelCore::Vec3> at(n);
  for (std::size_t i = 0; i < n; ++i)
    at[i] = pointToVec_(in[i].position);

  // The surviving points as a doubly linked list; the triangle of an interior point is the
  // point with its two surviving neighbours, and the end points have none.
  std::vector<std::uint32_t> previous(n);
  std::vector<std::uint32_t> next(n);
  for (std::size_t i = 0; i < n; ++i)
  {
    previous[i] = static_cast<std::uint32_t>(i == 0 ? 0 : i - 1);
    next[i] = static_cast<std::uint32_t>(i + 1);
  }
  // A position that is not a number gives no order by area: its triangle goes last.
  const auto areaOf = [&](std::uint32_t p) {
    const double a = area(at[previous[p]], at[p], at[next[p]]);
    return std::isnan(a) ? std::numeric_limits<double>::infinity() : a;
  };

  std::uint32_t sequence = 0;
  std::vector<Entry> entries(n - 2);
  for (std::size_t i = 0; i < n - 2; ++i)
  {
    const auto p = static_cast<std::uint32_t>(i + 1);
    entries[i] = {areaOf(p), sequence++, p};
  }
  TriangleHeap heap(std::move(entries), n);

  const auto last = static_cast<std::uint32_t>(n - 1);
  for (std::size_t k = 0; k < drop; ++k)
  {
    const std::uint32_t t = heap.top().point;
    heap.pop();
    const std::uint32_t p = previous[t];
    const std::uint32_t q = next[t];
    next[p] = q;
    previous[q] = p;
    // The previous neighbour is re-entered before the next one, as the rule does it.
    if (p != 0)
      heap.reenter(p, areaOf(p), sequence++);
    if (q != last)
      heap.reenter(q, areaOf(q), sequence++);
  }

  out.clear();
  out.reserve(n - drop);
  for (std::uint32_t i = 0;; i = next[i])
  {
    out.push_back(in[i]);
    if (i == last)
      break;
  }
  return 0;
}

} // namespace QtSep
