#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

/**
 * A random source that gives the same sequence for a seed on every machine and compiler: the
 * 64-bit Mersenne Twister is fully specified, and every value is derived from its raw output
 * here rather than through the standard distributions, whose algorithms each library chooses.
 */
class SeededRandom
{
public:
  explicit SeededRandom(std::uint64_t seed) : engine_(seed) {}

  /// @return a value in [0, 1), with 53 random bits
  double unit() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }
  /// @return a value in [low, high)
  double uniform(double low, double high) { return low + (high - low) * unit(); }
  /// @return a whole number in [low, high]; low when high < low
  long long integer(long long low, long long high)
  {
    if (high <= low)
      return low;
    // In unsigned arithmetic, where a span wider than the signed range does not overflow.
    const std::uint64_t span = static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low) + 1;
    const std::uint64_t offset = span == 0 ? engine_() : engine_() % span;
    return static_cast<long long>(static_cast<std::uint64_t>(low) + offset);
  }
  /// @return an index in [0, count); 0 when count is 0
  std::size_t index(std::size_t count) { return count == 0 ? 0 : static_cast<std::size_t>(engine_() % count); }
  /// @return true with the probability given
  bool chance(double probability) { return unit() < probability; }

  /// @return one of items, which must not be empty
  template <typename T>
  const T& pick(const std::vector<T>& items)
  {
    return items[index(items.size())];
  }

  /// @return between least and most distinct items (as many as there are, at most), in random order
  template <typename T>
  std::vector<T> some(std::vector<T> items, std::size_t least, std::size_t most)
  {
    const std::size_t count = std::min(items.size(), static_cast<std::size_t>(integer(
                                                       static_cast<long long>(least), static_cast<long long>(most))));
    // A partial Fisher-Yates shuffle: the first count places end up a random choice.
    for (std::size_t i = 0; i < count; ++i)
      std::swap(items[i], items[i + index(items.size() - i)]);
    items.resize(count);
    return items;
  }

private:
  std::mt19937_64 engine_;
};
