#pragma once

#include "store/Entity.h"

#include <cstdint>
#include <cstring>
#include <tuple>

namespace kelvor
{

/**
 * @file
 * Whether two records of one series hold the same data, as a reader decides whether a record
 * that replaces another at its time changed anything. Doubles compare bit for bit, as the files
 * keep them: 0 and -0 differ, and a NaN equals the same NaN.
 */

namespace SameRecordFields
{

inline auto of(const StoredPlatformPoint& p)
{
  return std::tie(p.time, p.lat, p.lon, p.alt, p.yaw, p.pitch, p.roll, p.velEast, p.velNorth, p.velUp);
}
inline auto of(const PIData::PIBeamPoint& p) { return std::tie(p.time, p.azimuth, p.elevation, p.length); }
inline auto of(const PIData::PIGatePoint& p)
{
  return std::tie(p.time, p.azimuth, p.elevation, p.width, p.height, p.minRange, p.maxRange, p.centroid);
}
inline auto of(const PIData::PILaserPoint& p) { return std::tie(p.time, p.azimuth, p.elevation, p.roll); }
inline auto of(const PIData::PILaserOffset& o) { return std::tie(o.time, o.x, o.y, o.z); }
inline auto of(const PIData::PILobPoint& p) { return std::tie(p.time, p.azimuth, p.elevation, p.length); }
inline auto of(const PIData::PILobDrawStyle& s)
{
  return std::tie(s.time, s.color1, s.color2, s.stipple1, s.stipple2, s.pixelWidth);
}
inline auto of(const PIData::PIProjectorPoint& p) { return std::tie(p.time, p.fieldOfView); }
inline auto of(const PIData::PIGenericDataPoint& g) { return std::tie(g.time, g.tag, g.value, g.expiration); }
inline auto of(const PIData::PICategoryDataPoint& c) { return std::tie(c.time, c.name, c.value); }
template <typename V>
auto of(const TimedValue<V>& v)
{
  return std::tie(v.time, v.value);
}

inline bool same(double a, double b)
{
  std::uint64_t x = 0, y = 0;
  std::memcpy(&x, &a, sizeof x);
  std::memcpy(&y, &b, sizeof y);
  return x == y;
}
template <typename V>
bool same(const V& a, const V& b)
{
  return a == b;
}

} // namespace SameRecordFields

/// @return true when a and b hold the same data, every double to the last bit.
template <typename T>
bool sameRecord(const T& a, const T& b)
{
  return std::apply(
      [&b](const auto&... x) {
        return std::apply([&x...](const auto&... y) { return (SameRecordFields::same(x, y) && ...); },
                          SameRecordFields::of(b));
      },
      SameRecordFields::of(a));
}

} // namespace kelvor
