#pragma once

#include <cmath>

namespace kelCore
{

/// A span of time in seconds, with full arithmetic and ordering.
class Seconds
{
public:
  constexpr Seconds() = default;
  /// @param seconds the span, seconds
  constexpr Seconds(double seconds) : value_(seconds) {}

  /// @return the span in seconds.
  constexpr double Double() const { return value_; }
  explicit constexpr operator double() const { return value_; }

  Seconds operator+(const Seconds& o) const { return value_ + o.value_; }
  Seconds operator-(const Seconds& o) const { return value_ - o.value_; }
  Seconds operator-() const { return -value_; }
  Seconds operator*(double s) const { return value_ * s; }
  Seconds operator/(double s) const { return value_ / s; }
  Seconds& operator+=(const Seconds& o) { value_ += o.value_; return *this; }
  Seconds& operator-=(const Seconds& o) { value_ -= o.value_; return *this; }

  bool operator==(const Seconds& o) const { return value_ == o.value_; }
  bool operator!=(const Seconds& o) const { return value_ != o.value_; }
  bool operator<(const Seconds& o) const { return value_ < o.value_; }
  bool operator<=(const Seconds& o) const { return value_ <= o.value_; }
  bool operator>(const Seconds& o) const { return value_ > o.value_; }
  bool operator>=(const Seconds& o) const { return value_ >= o.value_; }

private:
  double value_ = 0.0;
};

} // namespace kelCore
