#include "processing/VisvalingamDecimation.h"

#include "utils/StringUtils.h"

#include <map>
#include <memory>
#include <set>

namespace QtSep
{

namespace
{

/// One interior point with its two neighbours, linked to the triangles of those neighbours.
struct Triangle
{
  std::uint64_t previous = 0;
  std::uint64_t self = 0;
  std::uint64_t next = 0;
  Triangle* previousTriangle = nullptr;
  Triangle* nextTriangle = nullptr;
};

/// Triangles by area; equal areas keep the order they were entered in.
using ByArea = std::multimap<double, Triangle*>;

double calculateArea(const std::vector<PIData::PIPlatformPoint>& points, const Triangle& t)
{
  const auto at = [&points](std::uint64_t i) {
    const PIPoint& p = points[i].position;
    return kelCore::Vec3(p.x, p.y, p.z);
  };
  const kelCore::Vec3 self = at(t.self);
  return 0.5 * (at(t.next) - self).cross(at(t.previous) - self).length();
}

/// Takes a triangle's entry out of the map; a linear search, since areas need not be unique.
void eraseEntry(ByArea& byArea, const Triangle* triangle)
{
  for (auto it = byArea.begin(); it != byArea.end(); ++it)
  {
    if (it->second == triangle)
    {
      byArea.erase(it);
      return;
    }
  }
}

} // namespace

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

  std::vector<std::unique_ptr<Triangle>> triangles(n - 2);
  ByArea byArea;
  for (std::size_t i = 0; i < n - 2; ++i)
  {
    triangles[i] = std::make_unique<Triangle>();
    triangles[i]->previous = i;
    triangles[i]->self = i + 1;
    triangles[i]->next = i + 2;
    if (i > 0)
    {
      triangles[i]->previousTriangle = triangles[i - 1].get();
      triangles[i - 1]->nextTriangle = triangles[i].get();
    }
  }
  for (const auto& triangle : triangles)
    byArea.emplace(calculateArea(in, *triangle), triangle.get());

  for (std::size_t k = 0; k < drop; ++k)
  {
    Triangle* t = byArea.begin()->second;
    byArea.erase(byArea.begin());
    if (Triangle* p = t->previousTriangle)
    {
      eraseEntry(byArea, p);
      p->next = t->next;
      p->nextTriangle = t->nextTriangle;
      byArea.emplace(calculateArea(in, *p), p);
    }
    if (Triangle* q = t->nextTriangle)
    {
      eraseEntry(byArea, q);
      q->previous = t->previous;
      q->previousTriangle = t->previousTriangle;
      byArea.emplace(calculateArea(in, *q), q);
    }
  }

  std::set<std::uint64_t> kept;
  for (const auto& entry : byArea)
    kept.insert({entry.second->previous, entry.second->self, entry.second->next});
  for (std::uint64_t index : kept)
    out.push_back(in[index]);
  return 0;
}

} // namespace QtSep
