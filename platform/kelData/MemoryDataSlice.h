#pragma once

#include <algorithm>
#include <vector>

namespace kelData
{

/**
 * @brief Time-ordered updates held in memory. An update at a time already held replaces it.
 *
 * T needs time() in seconds. Updates that arrive in time order append at the end.
 */
template <typename T>
class MemoryDataSlice
{
public:
  using const_iterator = typename std::vector<T>::const_iterator;

  /// Adds update in time order, replacing one of the same time.
  void insert(const T& update)
  {
    if (updates_.empty() || updates_.back().time() < update.time())
    {
      updates_.push_back(update);
      return;
    }
    auto it = lowerBound_(update.time());
    if (it != updates_.end() && it->time() == update.time())
      *it = update;
    else
      updates_.insert(it, update);
  }

  bool empty() const { return updates_.empty(); }
  std::size_t size() const { return updates_.size(); }
  const T& at(std::size_t i) const { return updates_.at(i); }
  const_iterator begin() const { return updates_.begin(); }
  const_iterator end() const { return updates_.end(); }
  /// @return the time of the first update; call only when not empty.
  double firstTime() const { return updates_.front().time(); }
  /// @return the time of the last update; call only when not empty.
  double lastTime() const { return updates_.back().time(); }

  /// @return the first update with a time greater than time, or end().
  const_iterator upperBound(double time) const
  {
    return std::upper_bound(updates_.begin(), updates_.end(), time,
                            [](double t, const T& u) { return t < u.time(); });
  }

  void clear() { updates_.clear(); }

private:
  typename std::vector<T>::iterator lowerBound_(double time)
  {
    return std::lower_bound(updates_.begin(), updates_.end(), time,
                            [](const T& u, double t) { return u.time() < t; });
  }

  std::vector<T> updates_;
};

} // namespace kelData
