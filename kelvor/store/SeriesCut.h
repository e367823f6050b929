#pragma once

#include "store/Entity.h"
#include "store/TimeSeries.h"

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

namespace kelvor
{

/**
 * @brief Where a series before a change and the series after it differ: both begin with the
 * same `prefix` items and end with the same `suffix` items. A pre-image cut so keeps only the
 * items between, which are what the change replaced. {0, 0} keeps the series whole.
 */
struct SeriesCut
{
  std::size_t prefix = 0;
  std::size_t suffix = 0;

  bool whole() const { return prefix == 0 && suffix == 0; }

  /**
   * Cuts a pre-image series down to the items that differ from the present series, when that
   * saves at least half of it; bitwise equal items are the same. @return the cut made
   */
  template <typename T>
  static SeriesCut trim(TimeSeries<T>& image, const TimeSeries<T>& present)
  {
    // Items with strings inside are kept whole: they do not compare bitwise.
    if constexpr (!std::is_trivially_copyable_v<T>)
      return {};
    else
    {
      const std::size_t shorter = std::min(image.size(), present.size());
      SeriesCut cut;
      auto a = image.begin();
      auto b = present.begin();
      for (; cut.prefix < shorter && same(*a, *b); ++a, ++b)
        ++cut.prefix;
      auto c = image.end();
      auto d = present.end();
      while (cut.prefix + cut.suffix < shorter && same(*--c, *--d))
        ++cut.suffix;
      if (2 * (cut.prefix + cut.suffix) < image.size())
        return {};
      image = between(image, cut.prefix, image.size() - cut.suffix);
      return cut;
    }
  }

  /**
   * Exchanges a cut pre-image with the present series it was cut against: `middle` holds the
   * pre-image's items between the cut, `whole` the present series. Afterwards `middle` is the
   * pre-image's series whole again and `whole` holds the present's items between the cut.
   */
  template <typename T>
  void exchange(TimeSeries<T>& middle, TimeSeries<T>& whole) const
  {
    if (middle.empty() && prefix + suffix == whole.size())
    {
      // The series did not change: the present one is the pre-image's.
      std::swap(middle, whole);
      return;
    }
    std::vector<T> restored;
    restored.reserve(prefix + middle.size() + suffix);
    std::vector<T> replaced;
    replaced.reserve(whole.size() - prefix - suffix);
    std::size_t index = 0;
    for (auto it = whole.begin(); it != whole.end(); ++it, ++index)
    {
      if (index == prefix)
        restored.insert(restored.end(), middle.begin(), middle.end());
      (index < prefix || index >= whole.size() - suffix ? restored : replaced).push_back(*it);
    }
    if (index == prefix)
      restored.insert(restored.end(), middle.begin(), middle.end());
    middle = fromItems(std::move(restored));
    whole = fromItems(std::move(replaced));
  }

private:
  template <typename T>
  static bool same(const T& a, const T& b)
  {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
  }

  template <typename T>
  static TimeSeries<T> fromItems(std::vector<T> items)
  {
    TimeSeries<T> series;
    series.insertMany(std::move(items));
    return series;
  }

  /// @return the items of series from index first up to, not including, last
  template <typename T>
  static TimeSeries<T> between(const TimeSeries<T>& series, std::size_t first, std::size_t last)
  {
    std::vector<T> items;
    items.reserve(last - first);
    std::size_t index = 0;
    for (auto it = series.begin(); it != series.end() && index < last; ++it, ++index)
    {
      if (index >= first)
        items.push_back(*it);
    }
    return fromItems(std::move(items));
  }
};

/// Calls f(a's series, b's series, index) for each time series of an entity, in one fixed order.
template <typename F>
void forEachSeries(Entity& a, Entity& b, F f)
{
  std::size_t index = 0;
  const auto each = [&](auto& x, auto& y) { f(x, y, index++); };
  each(a.platformPoints, b.platformPoints);
  each(a.beamPoints, b.beamPoints);
  each(a.gatePoints, b.gatePoints);
  each(a.laserPoints, b.laserPoints);
  each(a.laserOffsets, b.laserOffsets);
  each(a.laserMaxRange, b.laserMaxRange);
  each(a.laserWidths, b.laserWidths);
  each(a.lobPoints, b.lobPoints);
  each(a.lobDrawStyles, b.lobDrawStyles);
  each(a.projectorFov, b.projectorFov);
  each(a.projectorOnOff, b.projectorOnOff);
  each(a.colors, b.colors);
  each(a.states, b.states);
  each(a.targets, b.targets);
}

} // namespace kelvor
