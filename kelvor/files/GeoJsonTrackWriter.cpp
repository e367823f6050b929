#include "files/GeoJsonTrackWriter.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

namespace kelvor
{

namespace
{

constexpr double DEG = 180.0 / M_PI;

/// @return the days from 1970-01-01 to the first of January of year (proleptic Gregorian).
long long daysToYear(long long year)
{
  const long long y = year - 1;
  return 365 * (year - 1970) + (y / 4 - 1969 / 4) - (y / 100 - 1969 / 100) + (y / 400 - 1969 / 400);
}

/// Appends numbers and times to one buffer, which goes to the stream in large pieces.
class Text
{
public:
  explicit Text(std::ostream& out, int referenceYear) : out_(out), yearDays_(daysToYear(referenceYear))
  {
    buffer_.reserve(CHUNK + 4096);
  }
  ~Text() { flush(); }

  Text& operator<<(const char* text)
  {
    buffer_ += text;
    return *this;
  }
  Text& operator<<(const std::string& text)
  {
    buffer_ += text;
    return *this;
  }
  Text& operator<<(char c)
  {
    buffer_ += c;
    return *this;
  }

  /// The shortest text that reads back to the same double; null for one that is not finite.
  void number(double value)
  {
    if (!std::isfinite(value))
    {
      buffer_ += "null";
      return;
    }
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    buffer_.append(digits, end);
  }

  /// A JSON string, with quotes, backslashes and control characters escaped.
  void string(const std::string& text)
  {
    buffer_ += '"';
    for (const char c : text)
    {
      if (c == '"' || c == '\\')
        buffer_ += '\\', buffer_ += c;
      else if (static_cast<unsigned char>(c) < 0x20)
      {
        char escaped[8];
        std::snprintf(escaped, sizeof(escaped), "\\u%04x", c);
        buffer_ += escaped;
      }
      else
        buffer_ += c;
    }
    buffer_ += '"';
  }

  /// "YYYY-MM-DDTHH:MM:SS.sssZ", with quotes. @param seconds since the reference year, not negative
  void time(double seconds)
  {
    const long long millis = std::llround(seconds * 1000.0);
    const long long day = millis / 86400000;
    if (day != day_)
    {
      day_ = day;
      civil_(yearDays_ + day);
    }
    const long long inDay = millis - day * 86400000;
    char text[40];
    const int n = std::snprintf(text, sizeof(text), "\"%s%02lld:%02lld:%02lld.%03lldZ\"", date_, inDay / 3600000,
                                inDay / 60000 % 60, inDay / 1000 % 60, inDay % 1000);
    buffer_.append(text, static_cast<std::size_t>(n));
  }

  /// The Unix second of a time. @param seconds since the reference year
  void unixSecond(double seconds) { number(static_cast<double>(yearDays_) * 86400.0 + seconds); }

  void flushIfFull()
  {
    if (buffer_.size() >= CHUNK)
      flush();
  }
  void flush()
  {
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
  }

private:
  static constexpr std::size_t CHUNK = 1 << 20;

  /// Sets date_ to "YYYY-MM-DDT" of the day that many days after 1970-01-01 (Hinnant's civil_from_days).
  void civil_(long long days)
  {
    const long long z = days + 719468;
    const long long era = (z >= 0 ? z : z - 146096) / 146097;
    const long long doe = z - era * 146097;
    const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long long mp = (5 * doy + 2) / 153;
    const long long d = doy - (153 * mp + 2) / 5 + 1;
    const long long m = mp < 10 ? mp + 3 : mp - 9;
    const long long y = yoe + era * 400 + (m <= 2);
    std::snprintf(date_, sizeof(date_), "%04lld-%02lld-%02lldT", y, m, d);
  }

  std::ostream& out_;
  std::string buffer_;
  long long yearDays_;
  long long day_ = -1;
  char date_[64] = {};
};

/// Writes a point's position as GeoJSON orders it: longitude, latitude (degrees), altitude (metres).
void position(Text& text, const StoredPlatformPoint& p)
{
  text.number(p.lon * DEG);
  text << ',';
  text.number(p.lat * DEG);
  text << ',';
  text.number(p.alt);
}

} // namespace

void GeoJsonTrackWriter::write(std::ostream& out, const std::vector<UniqueID_t>& platforms) const
{
  Text text(out, store_.properties().referenceYear);
  text << "{\"type\":\"FeatureCollection\",\"name\":\"tracks\",\"features\":[\n";
  bool first = true;
  const auto next = [&]() {
    text << (first ? "" : ",\n");
    first = false;
    text.flushIfFull();
  };
  long long number = 0;
  for (UniqueID_t id : platforms)
  {
    const Entity* platform = store_.entity(id);
    if (!platform || platform->kind != PI_PLATFORM_TYPE)
      continue;
    const std::string trackId = std::to_string(number++);
    const std::string name = nameOfHeader(platform->header);
    // The line: its timed points, when there are two or more.
    std::size_t timed = 0;
    double begin = -1.0, end = -1.0;
    for (const StoredPlatformPoint& p : platform->platformPoints)
      if (p.time >= 0.0)
        end = p.time, begin = timed++ ? begin : p.time;
    if (timed >= 2)
    {
      next();
      text << "{\"type\":\"Feature\",\"properties\":{\"track_id\":" << trackId << ",\"name\":";
      text.string(name);
      text << ",\"begin\":";
      text.time(begin);
      text << ",\"end\":";
      text.time(end);
      text << ",\"times\":[";
      bool firstTime = true;
      for (const StoredPlatformPoint& p : platform->platformPoints)
      {
        if (p.time < 0.0)
          continue;
        text << (firstTime ? "" : ",");
        firstTime = false;
        text.unixSecond(p.time);
        text.flushIfFull();
      }
      text << "]},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[";
      firstTime = true;
      for (const StoredPlatformPoint& p : platform->platformPoints)
      {
        if (p.time < 0.0)
          continue;
        text << (firstTime ? "[" : ",[");
        firstTime = false;
        position(text, p);
        text << ']';
        text.flushIfFull();
      }
      text << "]}}";
    }
    for (const StoredPlatformPoint& p : platform->platformPoints)
    {
      next();
      text << "{\"type\":\"Feature\",\"properties\":{\"track_id\":" << trackId << ",\"track\":";
      text.string(name);
      text << ",\"time\":";
      if (p.time >= 0.0)
        text.time(p.time);
      else
        text << "null";
      text << ",\"alt\":";
      text.number(p.alt);
      if (p.hasOrientation())
      {
        text << ",\"yaw\":";
        text.number(p.yaw * DEG);
        text << ",\"pitch\":";
        text.number(p.pitch * DEG);
        text << ",\"roll\":";
        text.number(p.roll * DEG);
      }
      if (p.hasVelocity())
      {
        text << ",\"ve\":";
        text.number(p.velEast);
        text << ",\"vn\":";
        text.number(p.velNorth);
        text << ",\"vu\":";
        text.number(p.velUp);
      }
      text << "},\"geometry\":{\"type\":\"Point\",\"coordinates\":[";
      position(text, p);
      text << "]}}";
    }
  }
  text << "\n]}\n";
}

} // namespace kelvor
