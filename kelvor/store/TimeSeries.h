#pragma once

#include <algorithm>
#include <vector>

namespace kelvor
{

/**
 * @brief Items kept in ascending time; T has a double member `time`, seconds.
 *
 * An item at a time already held replaces the one held. Range queries use binary search;
 * a bulk add merges in one pass, so appending a recording in time order costs linear time.
 */
template <typename T>
class TimeSeries
{
public:
  using const_iterator = typename std::vector<T>::const_iterator;

  /// Where insert put an item.
  struct Placement
  {
    std::size_t index = 0; ///< the item's position in time order
    bool replaced = false; ///< true when it took the place of an item of its time
  };

  /**
   * Adds item, replacing one of the same time.
   * @param replaced receives the item replaced, if not null
   */
  Placement insert(const T& item, T* replaced = nullptr)
  {
    if (items_.empty() || items_.back().time < item.time)
    {
      items_.push_back(item);
      return {items_.size() - 1, false};
    }
    auto it = lowerBound_(item.time);
    const auto index = static_cast<std::size_t>(it - items_.begin());
    if (it == items_.end() || it->time != item.time)
    {
      items_.insert(it, item);
      return {index, false};
    }
    if (replaced)
      *replaced = std::move(*it);
    *it = item;
    return {index, true};
  }

  /// Adds many items; of equal times the later in added wins, as if inserted one by one.
  void insertMany(std::vector<T> added)
  {
    // A recording arrives in strict time order: then there is nothing to sort or merge away.
    const bool strictlyOrdered =
        std::adjacent_find(added.begin(), added.end(), [](const T& a, const T& b) { return !(a.time < b.time); }) ==
        added.end();
    std::vector<T> unique;
    if (strictlyOrdered)
      unique.swap(added);
    else
      unique = sortedUnique_(std::move(added));
    if (items_.empty())
    {
      items_.swap(unique);
      return;
    }
    if (items_.empty() || (!unique.empty() && items_.back().time < unique.front().time))
    {
      items_.insert(items_.end(), std::make_move_iterator(unique.begin()), std::make_move_iterator(unique.end()));
      return;
    }
    std::vector<T> merged;
    merged.reserve(items_.size() + unique.size());
    auto a = items_.begin();
    auto b = unique.begin();
    while (a != items_.end() || b != unique.end())
    {
      if (b == unique.end() || (a != items_.end() && a->time < b->time))
        merged.push_back(std::move(*a++));
      else
      {
        if (a != items_.end() && a->time == b->time)
          ++a; // the added item replaces the held one
        merged.push_back(std::move(*b++));
      }
    }
    items_.swap(merged);
  }

  /// Calls f with each item with begin <= time <= end, in time order, without copying.
  template <typename F>
  void forRange(double begin, double end, F f) const
  {
    if (end < begin)
      return;
    for (auto it = lowerBound_(begin), last = upperBound_(end); it != last; ++it)
      f(*it);
  }

  /// @return the number of items with begin <= time <= end.
  std::size_t countRange(double begin, double end) const
  {
    return end < begin ? 0 : static_cast<std::size_t>(upperBound_(end) - lowerBound_(begin));
  }

  /// @return the items with begin <= time <= end, in time order.
  std::vector<T> range(double begin, double end) const
  {
    if (end < begin)
      return {};
    return std::vector<T>(lowerBound_(begin), upperBound_(end));
  }

  /// @return the first item at or after time, or null.
  const T* atOrAfter(double time) const
  {
    auto it = lowerBound_(time);
    return it == items_.end() ? nullptr : &*it;
  }

  /// @return the last item at or before time, or null.
  const T* atOrBefore(double time) const
  {
    auto it = upperBound_(time);
    return it == items_.begin() ? nullptr : &*std::prev(it);
  }

  /// Removes the item at exactly time. @return true when there was one
  bool erase(double time)
  {
    auto it = lowerBound_(time);
    if (it == items_.end() || it->time != time)
      return false;
    items_.erase(it);
    return true;
  }

  bool empty() const { return items_.empty(); }
  std::size_t size() const { return items_.size(); }
  const T& front() const { return items_.front(); }
  const T& back() const { return items_.back(); }
  const_iterator begin() const { return items_.begin(); }
  const_iterator end() const { return items_.end(); }
  void clear() { items_.clear(); items_.shrink_to_fit(); }
  void reserve(std::size_t n) { items_.reserve(n); }

private:
  // Sorts by time; of equal times the last added is kept.
  static std::vector<T> sortedUnique_(std::vector<T> added)
  {
    std::stable_sort(added.begin(), added.end(), [](const T& a, const T& b) { return a.time < b.time; });
    std::vector<T> unique;
    unique.reserve(added.size());
    for (T& item : added)
    {
      if (!unique.empty() && unique.back().time == item.time)
        unique.back() = std::move(item);
      else
        unique.push_back(std::move(item));
    }
    return unique;
  }

  const_iterator lowerBound_(double time) const
  {
    return std::lower_bound(items_.begin(), items_.end(), time, [](const T& item, double t) { return item.time < t; });
  }
  typename std::vector<T>::iterator lowerBound_(double time)
  {
    return std::lower_bound(items_.begin(), items_.end(), time, [](const T& item, double t) { return item.time < t; });
  }
  const_iterator upperBound_(double time) const
  {
    return std::upper_bound(items_.begin(), items_.end(), time, [](double t, const T& item) { return t < item.time; });
  }

  std::vector<T> items_;
};

/// A value at a time: a state, colour, target, width, range or on/off command.
template <typename V>
struct TimedValue
{
  double time = 0.0; ///< seconds since the reference year; -1 for static
  V value{};         ///< the value from that time on
};

} // namespace kelvor
