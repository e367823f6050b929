#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace kelvor
{

/**
 * @brief Items kept in ascending time; T has a double member `time`, seconds.
 *
 * An item at a time already held replaces the one held. The items lie in chunks, each chunk
 * in time order and every chunk before the next, so that:
 * - range queries find their ends by binary search, over the chunks and then inside one;
 * - appending in time order costs constant time, and a bulk add merges in one pass and keeps
 *   what it merged as one chunk, without copying it again, so loading a recording or copying
 *   a track costs linear time;
 * - inserting one item into the middle moves at most CHUNK items and the list of chunks,
 *   never the whole series (merges fill holes one point at a time): a chunk longer than CHUNK
 *   is cut into chunks of CHUNK the first time an item goes into it;
 * - memory is the items themselves and, for a long series, at most one chunk's slack per split.
 */
template <typename T>
class TimeSeries
{
public:
  /// Most items of a chunk that takes insertions: one moves at most this many, and a series of
  /// n items cut into chunks has about n / CHUNK * 2 of them at worst.
  static constexpr std::size_t CHUNK = 512;

  /// Walks the items in time order, or back.
  class const_iterator
  {
  public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = const T*;
    using reference = const T&;

    const_iterator() = default;
    reference operator*() const { return (*chunks_)[chunk_][offset_]; }
    pointer operator->() const { return &**this; }
    const_iterator& operator++()
    {
      if (++offset_ == (*chunks_)[chunk_].size())
        ++chunk_, offset_ = 0;
      return *this;
    }
    const_iterator operator++(int)
    {
      const_iterator before = *this;
      ++*this;
      return before;
    }
    const_iterator& operator--()
    {
      // Chunks are never empty.
      if (offset_ == 0)
        offset_ = (*chunks_)[--chunk_].size();
      --offset_;
      return *this;
    }
    bool operator==(const const_iterator& o) const { return chunk_ == o.chunk_ && offset_ == o.offset_; }
    bool operator!=(const const_iterator& o) const { return !(*this == o); }

  private:
    friend class TimeSeries;
    const_iterator(const std::vector<std::vector<T>>* chunks, std::size_t chunk, std::size_t offset)
      : chunks_(chunks), chunk_(chunk), offset_(offset)
    {
    }
    const std::vector<std::vector<T>>* chunks_ = nullptr;
    std::size_t chunk_ = 0;
    std::size_t offset_ = 0;
  };

  /// Where insert put an item.
  struct Placement
  {
    std::size_t index = 0; ///< the item's position in time order
    bool replaced = false; ///< true when it took the place of an item of its time
  };

  TimeSeries() = default;

  /**
   * Adds item, replacing one of the same time. Appending costs constant time; an item inside
   * the series costs at most a chunk's moves and a walk over the chunks.
   * @param replaced receives the item replaced, if not null
   */
  Placement insert(const T& item, T* replaced = nullptr)
  {
    if (chunks_.empty() || chunks_.back().back().time < item.time)
    {
      append_(item);
      return {size_ - 1, false};
    }
    Position at = lowerBound_(item.time); // within the series, since the last item is not earlier
    if (chunks_[at.chunk].size() > CHUNK)
    {
      cut_(at.chunk);
      at = lowerBound_(item.time);
    }
    std::vector<T>& chunk = chunks_[at.chunk];
    const std::size_t index = itemsBefore_(at.chunk) + at.offset;
    if (chunk[at.offset].time == item.time)
    {
      if (replaced)
        *replaced = std::move(chunk[at.offset]);
      chunk[at.offset] = item;
      return {index, true};
    }
    chunk.insert(chunk.begin() + static_cast<std::ptrdiff_t>(at.offset), item);
    ++size_;
    if (chunk.size() > CHUNK)
      split_(at.chunk);
    return {index, false};
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
    if (unique.empty())
      return;
    if (chunks_.empty())
    {
      adopt_(std::move(unique));
      return;
    }
    if (chunks_.back().back().time < unique.front().time)
    {
      for (T& item : unique)
        append_(std::move(item));
      return;
    }
    mergeSpan_(std::move(unique));
  }

  /// Calls f with each item with begin <= time <= end, in time order, without copying.
  template <typename F>
  void forRange(double begin, double end, F f) const
  {
    if (end < begin)
      return;
    for (auto it = iterator_(lowerBound_(begin)), last = iterator_(upperBound_(end)); it != last; ++it)
      f(*it);
  }

  /// @return the number of items with begin <= time <= end.
  std::size_t countRange(double begin, double end) const
  {
    if (end < begin)
      return 0;
    const Position first = lowerBound_(begin);
    const Position last = upperBound_(end);
    return itemsBetween_(first, last);
  }

  /// @return the items with begin <= time <= end, in time order.
  std::vector<T> range(double begin, double end) const
  {
    std::vector<T> items;
    if (end < begin)
      return items;
    const Position first = lowerBound_(begin);
    const Position last = upperBound_(end);
    items.reserve(itemsBetween_(first, last));
    for (std::size_t c = first.chunk; c < chunks_.size() && c <= last.chunk; ++c)
    {
      const std::vector<T>& chunk = chunks_[c];
      const std::size_t from = c == first.chunk ? first.offset : 0;
      const std::size_t to = c == last.chunk ? last.offset : chunk.size();
      items.insert(items.end(), chunk.begin() + static_cast<std::ptrdiff_t>(from),
                   chunk.begin() + static_cast<std::ptrdiff_t>(to));
    }
    return items;
  }

  /// @return the first item at or after time, or null.
  const T* atOrAfter(double time) const { return at_(lowerBound_(time)); }

  /// @return the last item at or before time, or null.
  const T* atOrBefore(double time) const
  {
    const Position after = upperBound_(time);
    if (after.chunk == 0 && after.offset == 0)
      return nullptr;
    if (after.offset > 0)
      return &chunks_[after.chunk][after.offset - 1];
    return &chunks_[after.chunk - 1].back();
  }

  /// Removes the item at exactly time. @return true when there was one
  bool erase(double time)
  {
    const Position at = lowerBound_(time);
    if (at.chunk == chunks_.size() || chunks_[at.chunk][at.offset].time != time)
      return false;
    if (chunks_[at.chunk].size() > CHUNK)
    {
      cut_(at.chunk);
      return erase(time);
    }
    std::vector<T>& chunk = chunks_[at.chunk];
    chunk.erase(chunk.begin() + static_cast<std::ptrdiff_t>(at.offset));
    --size_;
    if (chunk.empty())
      chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(at.chunk));
    return true;
  }

  bool empty() const { return size_ == 0; }
  std::size_t size() const { return size_; }
  const T& front() const { return chunks_.front().front(); }
  const T& back() const { return chunks_.back().back(); }
  const_iterator begin() const { return {&chunks_, 0, 0}; }
  const_iterator end() const { return {&chunks_, chunks_.size(), 0}; }
  void clear()
  {
    chunks_.clear();
    chunks_.shrink_to_fit();
    size_ = 0;
  }
  /// Prepares for n items in all.
  void reserve(std::size_t n) { chunks_.reserve(n / CHUNK + 1); }

private:
  /// An item's place: its chunk and its offset in it; the end is {chunks, 0}.
  struct Position
  {
    std::size_t chunk = 0;
    std::size_t offset = 0;
  };

  void append_(T item)
  {
    if (chunks_.empty() || chunks_.back().size() >= CHUNK)
    {
      chunks_.emplace_back();
      // A series that fills a chunk is a long one: its later chunks are made full size at once.
      if (chunks_.size() > 1)
        chunks_.back().reserve(CHUNK);
    }
    chunks_.back().push_back(std::move(item));
    ++size_;
  }

  // Takes a whole series, in time order, as the one chunk of an empty series.
  void adopt_(std::vector<T> items)
  {
    size_ = items.size();
    chunks_.push_back(std::move(items));
  }

  /**
   * Merges items in strict time order into the series. Only the held items within their span
   * interleave with them: those become one chunk with the added, and the chunks holding the
   * span's ends are cut to CHUNK first, so that what lies on either side stays where it is and
   * a short add into a long series costs the span, not the series.
   */
  void mergeSpan_(std::vector<T> unique)
  {
    const double firstTime = unique.front().time;
    const double lastTime = unique.back().time;
    Position lo = lowerBound_(firstTime);
    if (lo.chunk < chunks_.size() && chunks_[lo.chunk].size() > CHUNK)
      cut_(lo.chunk);
    Position hi = upperBound_(lastTime);
    if (hi.chunk < chunks_.size() && chunks_[hi.chunk].size() > CHUNK)
      cut_(hi.chunk);
    lo = lowerBound_(firstTime);
    hi = upperBound_(lastTime);

    const bool endInside = hi.chunk < chunks_.size() && hi.offset > 0;
    const std::size_t endChunk = endInside ? hi.chunk + 1 : hi.chunk; // chunks [lo.chunk, endChunk) are rebuilt
    std::vector<T> prefix = movedOut_(lo.chunk, 0, lo.offset);
    std::vector<T> suffix = endInside ? movedOut_(hi.chunk, hi.offset, chunks_[hi.chunk].size()) : std::vector<T>();
    std::vector<T> merged;
    merged.reserve(itemsBetween_(lo, hi) + unique.size());
    auto b = unique.begin();
    std::size_t replaced = 0;
    for (std::size_t c = lo.chunk; c < endChunk; ++c)
    {
      std::vector<T>& chunk = chunks_[c];
      const std::size_t from = c == lo.chunk ? lo.offset : 0;
      const std::size_t to = c == hi.chunk ? hi.offset : chunk.size();
      for (std::size_t k = from; k < to; ++k)
      {
        while (b != unique.end() && b->time < chunk[k].time)
          merged.push_back(std::move(*b++));
        if (b != unique.end() && b->time == chunk[k].time)
        {
          merged.push_back(std::move(*b++)); // the added item replaces the held one
          ++replaced;
        }
        else
          merged.push_back(std::move(chunk[k]));
      }
    }
    while (b != unique.end())
      merged.push_back(std::move(*b++));
    size_ += unique.size() - replaced;

    std::vector<std::vector<T>> rebuilt;
    if (!prefix.empty())
      rebuilt.push_back(std::move(prefix));
    rebuilt.push_back(std::move(merged));
    if (!suffix.empty())
      rebuilt.push_back(std::move(suffix));
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(lo.chunk),
                  chunks_.begin() + static_cast<std::ptrdiff_t>(endChunk));
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(lo.chunk), std::make_move_iterator(rebuilt.begin()),
                   std::make_move_iterator(rebuilt.end()));
  }

  /// @return the items [from, to) of a chunk, moved out; the chunk keeps their husks
  std::vector<T> movedOut_(std::size_t c, std::size_t from, std::size_t to)
  {
    std::vector<T> items;
    items.reserve(to - from);
    for (std::size_t k = from; k < to; ++k)
      items.push_back(std::move(chunks_[c][k]));
    return items;
  }

  // Cuts a long chunk into chunks of CHUNK items.
  void cut_(std::size_t c)
  {
    std::vector<T> whole = std::move(chunks_[c]);
    std::vector<std::vector<T>> pieces;
    for (std::size_t from = 0; from < whole.size(); from += CHUNK)
    {
      const auto first = whole.begin() + static_cast<std::ptrdiff_t>(from);
      const auto last = whole.begin() + static_cast<std::ptrdiff_t>(std::min(from + CHUNK, whole.size()));
      pieces.emplace_back(std::make_move_iterator(first), std::make_move_iterator(last));
    }
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(c));
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(c), std::make_move_iterator(pieces.begin()),
                   std::make_move_iterator(pieces.end()));
  }

  // Moves the second half of a full chunk into a new chunk after it.
  void split_(std::size_t c)
  {
    std::vector<T> second;
    second.reserve(CHUNK);
    std::vector<T>& first = chunks_[c];
    const auto half = first.begin() + static_cast<std::ptrdiff_t>(first.size() / 2);
    second.insert(second.end(), std::make_move_iterator(half), std::make_move_iterator(first.end()));
    first.erase(half, first.end());
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(c + 1), std::move(second));
  }

  std::size_t itemsBefore_(std::size_t chunk) const
  {
    std::size_t count = 0;
    for (std::size_t c = 0; c < chunk; ++c)
      count += chunks_[c].size();
    return count;
  }

  std::size_t itemsBetween_(const Position& first, const Position& last) const
  {
    if (last.chunk == first.chunk)
      return last.offset - first.offset;
    std::size_t count = chunks_[first.chunk].size() - first.offset + last.offset;
    for (std::size_t c = first.chunk + 1; c < last.chunk; ++c)
      count += chunks_[c].size();
    return count;
  }

  const T* at_(const Position& p) const { return p.chunk == chunks_.size() ? nullptr : &chunks_[p.chunk][p.offset]; }
  const_iterator iterator_(const Position& p) const { return {&chunks_, p.chunk, p.offset}; }

  // The first item at or after time.
  Position lowerBound_(double time) const
  {
    const auto chunk = std::partition_point(chunks_.begin(), chunks_.end(),
                                            [time](const std::vector<T>& c) { return c.back().time < time; });
    if (chunk == chunks_.end())
      return {chunks_.size(), 0};
    const auto item =
        std::lower_bound(chunk->begin(), chunk->end(), time, [](const T& i, double t) { return i.time < t; });
    return {static_cast<std::size_t>(chunk - chunks_.begin()), static_cast<std::size_t>(item - chunk->begin())};
  }

  // The first item after time.
  Position upperBound_(double time) const
  {
    const auto chunk = std::partition_point(chunks_.begin(), chunks_.end(),
                                            [time](const std::vector<T>& c) { return !(time < c.back().time); });
    if (chunk == chunks_.end())
      return {chunks_.size(), 0};
    const auto item =
        std::upper_bound(chunk->begin(), chunk->end(), time, [](double t, const T& i) { return t < i.time; });
    return {static_cast<std::size_t>(chunk - chunks_.begin()), static_cast<std::size_t>(item - chunk->begin())};
  }

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

  std::vector<std::vector<T>> chunks_; ///< none empty
  std::size_t size_ = 0;
};

/// A value at a time: a state, colour, target, width, range or on/off command.
template <typename V>
struct TimedValue
{
  double time = 0.0; ///< seconds since the reference year; -1 for static
  V value{};         ///< the value from that time on
};

} // namespace kelvor
