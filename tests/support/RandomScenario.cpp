#include "support/RandomScenario.h"

#include "host/GenericDataTags.h"
#include "host/PIData.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace
{

constexpr double EARTH_RADIUS = 6378137.0; // metres
constexpr double TWO_PI = 2.0 * M_PI;
// Tracks stay this side of the poles, where a step east is still a finite change of longitude.
constexpr double MOST_LATITUDE = M_PI / 2.0 - 1e-7;

const std::vector<std::string> PLATFORM_NAMES = {"Eagle", "Hawk", "Viper", "Heron", "Kite \"K2\"", "Osprey #4",
                                                 "Faucon p\xC3\xA8lerin", "Back\\slash"};
const std::vector<std::string> BEAM_NAMES = {"Radar", "Tracker", "Search"};
const std::vector<std::string> CHILD_NAMES = {"Gate", "Designator", "Bearing", "Lamp", "Ring"};
const std::vector<std::string> CATEGORY_NAMES = {"Side", "Mode", "Source"};
const std::vector<std::string> CATEGORY_VALUES = {"Red", "Blue", "Cruise", "Attack \"hot\"", "#1", ""};
const std::vector<std::string> GENERIC_TAGS = {"Note", "Beacon", KELVOR_GD_CALLSIGN, KELVOR_GD_TRACKCOLOR};
const std::vector<std::string> RENDERERS = {"Custom Ellipse", "Custom Line", "Various Shapes"};
const std::vector<std::string> TABLE_NAMES = {"Telemetry", "Fuel", "Empty", "__Internal_Cache"};
const std::vector<int> BEAM_TYPES = {PIData::PI_BEAM_UNKNOWN, PIData::PI_BEAM_TARGET, PIData::PI_BEAM_ABSOLUTE,
                                     PIData::PI_BEAM_BODY};
const std::vector<UTILS::VariableType_t> CELL_TYPES = {
  UTILS::VT_UINT8, UTILS::VT_INT8,  UTILS::VT_UINT16, UTILS::VT_INT16, UTILS::VT_UINT32, UTILS::VT_INT32,
  UTILS::VT_UINT64, UTILS::VT_INT64, UTILS::VT_FLOAT,  UTILS::VT_DOUBLE, UTILS::VT_STRING, UTILS::VT_BLOB};

/// The times a host has data: from first to last; both -1 for a static host or one without points.
struct Span
{
  double first = -1.0;
  double last = -1.0;
  bool timed() const { return first >= 0.0; }
};

/// Where a platform of a name left off, so that the next of that name can take up its track.
struct TrackEnd
{
  double time;
  double lat;
  double lon;
  double alt;
  UniqueID_t originalId;
};

class Maker
{
public:
  Maker(SeededRandom& random, const RandomScenario& options) : random_(random), options_(options) {}

  void make()
  {
    if (PIData::isScenarioInitialized())
      PIData::deleteScenario();
    PIData::initializeScenario();
    PIData::setReferenceYear(static_cast<int>(random_.integer(1990, 2030)));
    lat0_ = random_.uniform(-1.2, 1.2);
    lon0_ = random_.uniform(-M_PI, M_PI);
    PIData::setOriginLLA(lat0_, lon0_, random_.uniform(0.0, 2000.0));
    PIData::setDescription("Soak \"run\" # " + std::to_string(random_.integer(0, 999)));

    const auto count = random_.integer(options_.leastPlatforms, options_.mostPlatforms);
    for (long long i = 0; i < count; ++i)
      platform_();
    // Stand-alone custom renderings belong to the scenario.
    if (random_.chance(0.5))
      customRendering_(0, Span());
    PIData::clockAutoConfigureBeginEnd();
  }

private:
  void platform_()
  {
    PIData::PIPlatformHeader header;
    header.name = random_.pick(PLATFORM_NAMES);
    header.iconFile = random_.chance(0.5) ? "fighter.png" : "ship \"big\".png";
    const auto before = ends_.find(header.name);
    const bool continues = before != ends_.end() && random_.chance(0.6);
    header.originalId = continues && random_.chance(0.7) ? before->second.originalId
                        : random_.chance(0.05)           ? 0
                                                         : static_cast<UniqueID_t>(random_.integer(1, 60));
    Span span;
    UniqueID_t id = 0;
    const double kind = random_.unit();
    if (kind < 0.08)
    {
      PIData::PIPlatformPoint fixed = place_(-1.0, lat0_, lon0_, random_.uniform(0.0, 100.0));
      id = PIData::createPlatform(&header, &fixed);
    }
    else if (kind < 0.14)
    {
      const double time = random_.uniform(0.0, 900.0);
      PIData::PIPlatformPoint lone = place_(time, lat0_ + random_.uniform(-0.01, 0.01), lon0_, 500.0);
      id = PIData::createPlatform(&header, &lone);
      span = Span{time, time};
    }
    else if (kind < 0.17)
      id = PIData::createPlatform(&header, nullptr);
    else
    {
      id = PIData::createPlatform(&header, nullptr);
      TrackEnd start{random_.uniform(0.0, 600.0), lat0_ + random_.uniform(-0.02, 0.02),
                     lon0_ + random_.uniform(-0.02, 0.02), random_.uniform(0.0, 9000.0), header.originalId};
      // Now and then a track by a pole or across the antimeridian.
      const double where = random_.unit();
      if (where < 0.05)
        start.lat = (random_.chance(0.5) ? 1.0 : -1.0) * (M_PI / 2.0 - random_.uniform(1e-6, 1e-3));
      else if (where < 0.1)
        start.lon = M_PI - random_.uniform(0.0, 1e-3);
      if (continues)
        start = before->second;
      span = track_(id, start);
      start.originalId = header.originalId;
      ends_[header.name] = start;
    }
    platforms_.push_back(id);
    children_(id, span);
  }

  static PIData::PIPlatformPoint place_(double time, double lat, double lon, double alt)
  {
    PIData::PIPlatformPoint point;
    point.time = time;
    point.position = {lat, lon, alt};
    point.frame.coordinateSystem = PI_COORDSYS_LLA;
    return point;
  }

  /// A moving track from where, which is left where the track ends. @return its span
  Span track_(UniqueID_t id, TrackEnd& where)
  {
    const auto count = random_.integer(options_.leastPoints, options_.mostPoints);
    const bool withOrientation = random_.chance(0.6);
    const bool withVelocity = random_.chance(0.5);
    double heading = random_.uniform(0.0, TWO_PI);
    double speed = random_.uniform(5.0, 300.0);
    double time = where.time + random_.uniform(0.5, 30.0);
    int repeats = 0;
    int still = 0;
    std::vector<PIData::PIPlatformPoint> points;
    for (long long i = 0; i < count; ++i)
    {
      if (repeats == 0 && still == 0)
      {
        if (random_.chance(0.04))
          repeats = static_cast<int>(random_.integer(2, 6));
        else if (random_.chance(0.03))
          still = static_cast<int>(random_.integer(2, 12));
      }
      PIData::PIPlatformPoint point;
      if (repeats > 0 && !points.empty())
      {
        // Equal to the last point in all but its time.
        --repeats;
        point = points.back();
        point.time = time;
      }
      else
      {
        const double step = points.empty() ? 0.0 : time - points.back().time;
        if (still > 0)
          --still;
        else
        {
          heading = std::fmod(heading + random_.uniform(-0.3, 0.3) + TWO_PI, TWO_PI);
          speed = std::min(400.0, std::max(0.0, speed + random_.uniform(-15.0, 15.0)));
          const double travelled = speed * step;
          where.lat =
            std::clamp(where.lat + travelled * std::cos(heading) / EARTH_RADIUS, -MOST_LATITUDE, MOST_LATITUDE);
          where.lon = std::remainder(where.lon + travelled * std::sin(heading) / (EARTH_RADIUS * std::cos(where.lat)),
                                     TWO_PI);
          where.alt = std::max(0.0, where.alt + random_.uniform(-30.0, 30.0));
        }
        point = place_(time, where.lat, where.lon, where.alt);
        // A wild jump, for the speed filters; the track goes on from where it was.
        if (random_.chance(0.015))
          point.position.x = std::clamp(point.position.x + random_.uniform(-0.01, 0.01), -MOST_LATITUDE, MOST_LATITUDE);
        const double moving = still > 0 ? 0.0 : speed;
        if (withOrientation)
          point.orientation = {heading, random_.uniform(-0.1, 0.1), random_.uniform(-0.4, 0.4)};
        if (withVelocity)
          point.velocity = {moving * std::sin(heading), moving * std::cos(heading), random_.uniform(-5.0, 5.0)};
      }
      points.push_back(point);
      // Mostly seconds apart; now and then a near-coincidence or a dropout.
      const double gap = random_.unit();
      time += gap < 0.02 ? random_.uniform(1e-4, 1e-2) : gap < 0.04 ? random_.uniform(60.0, 600.0)
                                                                    : random_.uniform(0.2, 8.0);
    }
    PIData::addDataPoints(id, &points);
    where.time = points.back().time;
    return Span{points.front().time, points.back().time};
  }

  /// Ascending distinct times of child data: inside the host's span mostly, at times beyond
  /// either end, and now and then a static value. @param most the largest count
  std::vector<double> times_(const Span& span, int most)
  {
    std::vector<double> times;
    const auto count = random_.integer(0, most);
    if (random_.chance(span.timed() ? 0.05 : 0.4))
      times.push_back(-1.0);
    double low = span.timed() ? span.first : 0.0;
    double high = span.timed() ? span.last : 900.0;
    if (random_.chance(0.15))
      low = std::max(0.0, low - random_.uniform(1.0, 60.0));
    if (random_.chance(0.15))
      high += random_.uniform(1.0, 60.0);
    for (long long i = 0; i < count; ++i)
      times.push_back(random_.uniform(low, high));
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
  }

  /// A child's header with a name of names and an original id, which other children may share.
  template <typename Header>
  Header childHeader_(const std::vector<std::string>& names)
  {
    Header header;
    header.name = random_.pick(names);
    header.originalId = static_cast<UniqueID_t>(random_.integer(0, 60));
    return header;
  }

  unsigned int colour_() { return static_cast<unsigned int>(random_.integer(0, 0xFFFFFFFFLL)); }

  /// Colours, states and, for kinds that aim, targets.
  void commands_(UniqueID_t id, const Span& span, bool aims)
  {
    for (double time : times_(span, 3))
      PIData::setColor(id, colour_(), time);
    for (double time : times_(span, 4))
      PIData::setStatus(id, random_.chance(0.7) ? PI_VISIBILITY_ON : PI_VISIBILITY_OFF, time);
    if (aims && !platforms_.empty())
    {
      for (double time : times_(span, 3))
        PIData::setTarget(id, random_.pick(platforms_), time);
    }
  }

  void children_(UniqueID_t platform, const Span& span)
  {
    for (auto beams = random_.integer(0, 2); beams > 0; --beams)
      beam_(platform, span);
    if (random_.chance(0.5))
      laser_(platform, span);
    if (random_.chance(0.5))
      lob_(platform, span);
    if (random_.chance(0.4))
      projector_(platform, span);
    if (random_.chance(0.4))
      customRendering_(platform, span);
    attachedData_(platform, span, 1.0);
    commands_(platform, span, false);
  }

  /// Category data, generic data and tables, each with the chance given.
  void attachedData_(UniqueID_t id, const Span& span, double chance)
  {
    if (random_.chance(chance))
    {
      for (double time : times_(span, 6))
      {
        PIData::PICategoryDataPoint item{time, random_.pick(CATEGORY_NAMES), random_.pick(CATEGORY_VALUES)};
        PIData::addCategoryData(id, &item);
      }
    }
    if (random_.chance(chance))
    {
      for (double time : times_(span, 5))
      {
        PIData::PIGenericDataPoint item;
        item.time = time;
        item.tag = random_.pick(GENERIC_TAGS);
        item.value = item.tag == KELVOR_GD_TRACKCOLOR ? "0xFF4040FF" : random_.pick(CATEGORY_VALUES);
        item.expiration = random_.chance(0.6) ? -1.0 : random_.uniform(1.0, 120.0);
        PIData::createGenericData(id, &item);
      }
    }
    if (random_.chance(chance * 0.6))
    {
      for (auto tables = random_.integer(1, 2); tables > 0; --tables)
        table_(id, random_.pick(TABLE_NAMES), span);
    }
  }

  void beam_(UniqueID_t platform, const Span& span)
  {
    auto header = childHeader_<PIData::PIBeamHeader>(BEAM_NAMES);
    header.beamType = random_.pick(BEAM_TYPES);
    header.horizontalBeamWidth = random_.uniform(0.01, 0.5);
    header.verticalBeamWidth = random_.uniform(0.01, 0.5);
    header.azimuthOffset = random_.uniform(-0.2, 0.2);
    header.elevationOffset = random_.uniform(-0.2, 0.2);
    const UniqueID_t beam = PIData::createBeam(platform, &header, nullptr, true);
    for (double time : times_(span, 25))
    {
      PIData::PIBeamPoint point{random_.uniform(-M_PI, M_PI), random_.uniform(-0.5, 1.0),
                                random_.uniform(100.0, 90000.0), time};
      PIData::addDataPoint(beam, &point);
    }
    commands_(beam, span, true);
    for (auto gates = random_.integer(0, 2); gates > 0; --gates)
      gate_(beam, span, header.beamType == PIData::PI_BEAM_TARGET);
    if (random_.chance(0.2))
      projector_(beam, span);
    if (random_.chance(0.1))
      customRendering_(beam, span);
    attachedData_(beam, span, 0.2);
  }

  void gate_(UniqueID_t beam, const Span& span, bool targetBeam)
  {
    auto header = childHeader_<PIData::PIGateHeader>(CHILD_NAMES);
    header.gateType = targetBeam && random_.chance(0.5) ? PIData::PI_GATE_TARGET
                      : random_.chance(0.5)             ? PIData::PI_GATE_ABSOLUTE
                                                        : PIData::PI_GATE_BODY;
    const UniqueID_t gate = PIData::createGate(beam, &header, nullptr, true);
    for (double time : times_(span, 20))
    {
      const double minRange = random_.uniform(0.0, 5000.0);
      PIData::PIGatePoint point{random_.uniform(-M_PI, M_PI), random_.uniform(-0.5, 1.0),
                                random_.uniform(0.01, 0.3),  random_.uniform(0.01, 0.3),
                                minRange,                    minRange + random_.uniform(0.0, 5000.0),
                                minRange + 100.0,            time};
      PIData::addDataPoint(gate, &point);
    }
    commands_(gate, span, true);
    attachedData_(gate, span, 0.2);
  }

  void laser_(UniqueID_t platform, const Span& span)
  {
    auto header = childHeader_<PIData::PILaserHeader>(CHILD_NAMES);
    header.relative = random_.chance(0.5);
    const UniqueID_t laser = PIData::createLaser(platform, &header, 0);
    for (double time : times_(span, 20))
    {
      PIData::PILaserPoint point{random_.uniform(-M_PI, M_PI), random_.uniform(-0.5, 1.0),
                                 random_.uniform(-0.1, 0.1), time};
      PIData::addLaserOriDataPoint(laser, &point);
    }
    for (double time : times_(span, 3))
      PIData::addLaserMaxRangeDataPoint(laser, time, random_.uniform(100.0, 20000.0));
    for (double time : times_(span, 3))
      PIData::addLaserWidthDataPoint(laser, time, static_cast<int>(random_.integer(1, 8)));
    for (double time : times_(span, 3))
    {
      PIData::PILaserOffset offset{random_.uniform(-5.0, 5.0), random_.uniform(-5.0, 5.0),
                                   random_.uniform(-5.0, 5.0), time};
      PIData::addLaserOffsetDataPoint(laser, &offset);
    }
    commands_(laser, span, false);
    attachedData_(laser, span, 0.2);
  }

  void lob_(UniqueID_t platform, const Span& span)
  {
    auto header = childHeader_<PIData::PILobHeader>(CHILD_NAMES);
    header.lobType = random_.chance(0.5) ? PIData::PI_LOB_ABSOLUTE : PIData::PI_LOB_RELATIVE;
    const UniqueID_t lob = PIData::createLob(platform, &header);
    for (double time : times_(span, 20))
    {
      PIData::PILobPoint point{random_.uniform(-M_PI, M_PI), random_.uniform(-0.5, 1.0),
                               random_.uniform(100.0, 50000.0), time};
      PIData::addDataPoint(lob, &point);
    }
    for (double time : times_(span, 3))
    {
      PIData::PILobDrawStyle style;
      style.time = time;
      style.color1 = colour_();
      style.color2 = colour_();
      style.stipple1 = static_cast<std::uint16_t>(random_.integer(0, 0xFFFF));
      style.stipple2 = static_cast<std::uint16_t>(random_.integer(0, 0xFFFF));
      style.pixelWidth = static_cast<std::int32_t>(random_.integer(1, 6));
      PIData::addLobDrawStyle(lob, &style);
    }
    commands_(lob, span, false);
    attachedData_(lob, span, 0.2);
  }

  void projector_(UniqueID_t host, const Span& span)
  {
    auto header = childHeader_<PIData::PIProjectorHeader>(CHILD_NAMES);
    const UniqueID_t projector = PIData::createProjector(host, &header);
    for (double time : times_(span, 10))
      PIData::addProjectorFOV(projector, time, random_.uniform(0.01, 1.5));
    for (double time : times_(span, 4))
      PIData::addProjectorOnOff(projector, time, random_.chance(0.6));
    commands_(projector, span, false);
  }

  void customRendering_(UniqueID_t host, const Span& span)
  {
    auto header = childHeader_<PIData::PICustomRenderingHeader>(CHILD_NAMES);
    header.renderer = random_.pick(RENDERERS);
    const UniqueID_t rendering = PIData::createCustomRendering(host, &header);
    commands_(rendering, span, false);
    table_(rendering, "Custom Rendering", span);
  }

  /// A table of random columns, with rows at times of the host's data; a NULL cell now and then.
  void table_(UniqueID_t owner, const std::string& name, const Span& span)
  {
    PIData::PIDataTableCreateHelper helper;
    std::vector<UTILS::VariableType_t> types;
    for (auto columns = random_.integer(1, 5); columns > 0; --columns)
    {
      types.push_back(random_.pick(CELL_TYPES));
      helper.addColumn("Column " + std::to_string(types.size()) + (random_.chance(0.2) ? " \"q\"" : ""),
                       types.back(), random_.chance(0.3) ? UTILS::UNITS_DISTANCE : UTILS::UNITS_NONE);
    }
    long table = 0;
    if (helper.create(owner, name, &table) != 1)
      return;
    std::vector<long> columns;
    PIData::getDataTableColumns(table, &columns);
    for (double time : times_(span, name == "Empty" ? 0 : 12))
    {
      PIData::DataTableRowT row(time);
      for (std::size_t c = 0; c < columns.size() && c < types.size(); ++c)
      {
        if (random_.chance(0.15))
          continue;
        setCell_(row, static_cast<unsigned long>(columns[c]), types[c]);
      }
      PIData::addDataTableRow(table, row);
    }
  }

  void setCell_(PIData::DataTableRowT& row, unsigned long column, UTILS::VariableType_t type)
  {
    switch (type)
    {
    case UTILS::VT_UINT8: row.setCellValue(column, static_cast<std::uint8_t>(random_.integer(0, 255))); break;
    case UTILS::VT_INT8: row.setCellValue(column, static_cast<std::int8_t>(random_.integer(-128, 127))); break;
    case UTILS::VT_UINT16: row.setCellValue(column, static_cast<std::uint16_t>(random_.integer(0, 65535))); break;
    case UTILS::VT_INT16: row.setCellValue(column, static_cast<std::int16_t>(random_.integer(-32768, 32767))); break;
    case UTILS::VT_UINT32:
      row.setCellValue(column, static_cast<std::uint32_t>(random_.integer(0, 0xFFFFFFFFLL)));
      break;
    case UTILS::VT_INT32:
      row.setCellValue(column, static_cast<std::int32_t>(random_.integer(-2147483648LL, 2147483647LL)));
      break;
    case UTILS::VT_UINT64:
      row.setCellValue(column, static_cast<std::uint64_t>(random_.integer(0, 0x7FFFFFFFFFFFFFFFLL)) * 2u + 1u);
      break;
    case UTILS::VT_INT64:
      row.setCellValue(column, static_cast<std::int64_t>(random_.integer(-(1LL << 62), 1LL << 62)));
      break;
    case UTILS::VT_FLOAT: row.setCellValue(column, static_cast<float>(random_.uniform(-1e6, 1e6))); break;
    case UTILS::VT_DOUBLE: row.setCellValue(column, random_.uniform(-1e9, 1e9)); break;
    case UTILS::VT_STRING: row.setCellValue(column, random_.pick(CATEGORY_VALUES)); break;
    case UTILS::VT_BLOB: {
      UTILS::Blob bytes;
      for (auto size = random_.integer(0, 6); size > 0; --size)
        bytes.push_back(static_cast<std::uint8_t>(random_.integer(0, 255)));
      row.setCellValue(column, bytes);
      break;
    }
    default: break;
    }
  }

  SeededRandom& random_;
  const RandomScenario& options_;
  double lat0_ = 0.0;
  double lon0_ = 0.0;
  std::vector<UniqueID_t> platforms_;
  std::map<std::string, TrackEnd> ends_;
};

} // namespace

void RandomScenario::make(SeededRandom& random) const
{
  Maker(random, *this).make();
}
