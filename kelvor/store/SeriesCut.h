#pragma once

#include "host/PICategoryDataPoint.h"
#include "host/PIGenericDataPoint.h"
#include "store/Entity.h"
#include "store/TimeSeries.h"

#include <algorithm>
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
 *
 * A series is a TimeSeries or a plain vector (categories, generic data).
 */
struct SeriesCut
{
  std::size_t prefix = 0; ///< items the two series share at their start
  std::size_t suffix = 0; ///< items the two series share at their end, after the prefix

  /// @return true for a series kept whole
  bool whole() const { return prefix == 0 && suffix == 0; }

  /**
   * Cuts a pre-image series down to the items that differ from the present series, when that
   * saves at least half of it. @return the cut made
   */
  template <typename Series>
  static SeriesCut trim(Series& image, const Series& present)
  {
    const std::size_t shorter = std::min(image.size(), present.size());
    SeriesCut cut;
    auto a = image.begin();
    auto b = present.begin();
    for (; cut.prefix < shorter && same_(*a, *b); ++a, ++b)
      ++cut.prefix;
    auto c = image.end();
    auto d = present.end();
    while (cut.prefix + cut.suffix < shorter && same_(*--c, *--d))
      ++cut.suffix;
    if (2 * (cut.prefix + cut.suffix) < image.size())
      return {};
    image = between_(image, cut.prefix, image.size() - cut.suffix);
    return cut;
  }

  /**
   * Exchanges a cut pre-image with the present series it was cut against: `middle` holds the
   * pre-image's items between the cut, `whole` the present series. Afterwards `middle` is the
   * pre-image's series whole again and `whole` holds the present's items between the cut.
   * A series kept whole was exchanged with its entity already: nothing is left to do.
   */
  template <typename Series>
  void exchange(Series& middle, Series& whole) const
  {
    if (this->whole())
      return;
    if (middle.empty() && prefix + suffix == whole.size())
    {
      // The series did not change: the present one is the pre-image's.
      std::swap(middle, whole);
      return;
    }
    using Item = std::decay_t<decltype(*whole.begin())>;
    std::vector<Item> restored;
    restored.reserve(prefix + middle.size() + suffix);
    std::vector<Item> replaced;
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
    assign_(middle, std::move(restored));
    assign_(whole, std::move(replaced));
  }

private:
  /// Items of plain data are the same when bitwise equal; equal items that differ in their bits
  /// (padding, -0.0) only make the kept middle longer.
  template <typename T>
  static bool same_(const T& a, const T& b)
  {
    static_assert(std::is_trivially_copyable_v<T>, "items with texts compare by their fields");
    return std::memcmp(&a, &b, sizeof(T)) == 0;
  }
  static bool same_(const PIData::PICategoryDataPoint& a, const PIData::PICategoryDataPoint& b)
  {
    return std::memcmp(&a.time, &b.time, sizeof(double)) == 0 && a.name == b.name && a.value == b.value;
  }
  static bool same_(const PIData::PIGenericDataPoint& a, const PIData::PIGenericDataPoint& b)
  {
    return std::memcmp(&a.time, &b.time, sizeof(double)) == 0 &&
           std::memcmp(&a.expiration, &b.expiration, sizeof(double)) == 0 && a.tag == b.tag && a.value == b.value;
  }

  template <typename T>
  static void assign_(TimeSeries<T>& series, std::vector<T> items)
  {
    series = TimeSeries<T>();
    series.insertMany(std::move(items));
  }
  template <typename T>
  static void assign_(std::vector<T>& series, std::vector<T> items)
  {
    series = std::move(items);
  }

  /// @return the items of series from index first up to, not including, last
  template <typename Series>
  static Series between_(const Series& series, std::size_t first, std::size_t last)
  {
    using Item = std::decay_t<decltype(*series.begin())>;
    std::vector<Item> items;
    items.reserve(last - first);
    std::size_t index = 0;
    for (auto it = series.begin(); it != series.end() && index < last; ++it, ++index)
    {
      if (index >= first)
        items.push_back(*it);
    }
    Series cut;
    assign_(cut, std::move(items));
    return cut;
  }
};

/// Calls f(a's series, b's series, index) for each series of an entity, in one fixed order.
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
  each(a.categories, b.categories);
  each(a.generic, b.generic);
}

} // namespace kelvor
