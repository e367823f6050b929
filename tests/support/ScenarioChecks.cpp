#include "support/ScenarioChecks.h"

#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <map>
#include <charconv>
#include <cmath>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

namespace ScenarioChecks
{

namespace
{

using kelvor::DataTable;
using kelvor::Entity;
using kelvor::ScenarioStore;
using kelvor::TimedValue;

/// A reference to an entity, which compares by the entity's place in id order.
struct Ref
{
  UniqueID_t id;
};

/// The children of an entity, which compare by their places.
struct Refs
{
  const std::vector<UniqueID_t>& ids;
};

// The fields of each record, as (name, value) to a visitor.

template <typename V>
void fields(const kelvor::StoredPlatformPoint& p, V& v)
{
  v("time", p.time);
  v("lat", p.lat);
  v("lon", p.lon);
  v("alt", p.alt);
  v("yaw", p.yaw);
  v("pitch", p.pitch);
  v("roll", p.roll);
  v("velEast", p.velEast);
  v("velNorth", p.velNorth);
  v("velUp", p.velUp);
}

/// Beam and LOB points: a pointing and a length.
template <typename Point, typename V>
std::enable_if_t<std::is_same_v<Point, PIData::PIBeamPoint> || std::is_same_v<Point, PIData::PILobPoint>>
fields(const Point& p, V& v)
{
  v("time", p.time);
  v("azimuth", p.azimuth);
  v("elevation", p.elevation);
  v("length", p.length);
}

template <typename V>
void fields(const PIData::PIGatePoint& p, V& v)
{
  v("time", p.time);
  v("azimuth", p.azimuth);
  v("elevation", p.elevation);
  v("width", p.width);
  v("height", p.height);
  v("minRange", p.minRange);
  v("maxRange", p.maxRange);
  v("centroid", p.centroid);
}

template <typename V>
void fields(const PIData::PILaserPoint& p, V& v)
{
  v("time", p.time);
  v("azimuth", p.azimuth);
  v("elevation", p.elevation);
  v("roll", p.roll);
}

template <typename V>
void fields(const PIData::PILaserOffset& p, V& v)
{
  v("time", p.time);
  v("x", p.x);
  v("y", p.y);
  v("z", p.z);
}

template <typename V>
void fields(const PIData::PILobDrawStyle& p, V& v)
{
  v("time", p.time);
  v("color1", p.color1);
  v("color2", p.color2);
  v("stipple1", p.stipple1);
  v("stipple2", p.stipple2);
  v("pixelWidth", p.pixelWidth);
}

template <typename V>
void fields(const PIData::PIProjectorPoint& p, V& v)
{
  v("time", p.time);
  v("fieldOfView", p.fieldOfView);
}

template <typename T, typename V>
void fields(const TimedValue<T>& p, V& v)
{
  v("time", p.time);
  v("value", p.value);
}

template <typename V>
void fields(const TimedValue<UniqueID_t>& p, V& v)
{
  v("time", p.time);
  v("target", Ref{p.value});
}

template <typename V>
void fields(const PIData::PICategoryDataPoint& p, V& v)
{
  v("time", p.time);
  v("name", p.name);
  v("value", p.value);
}

template <typename V>
void fields(const PIData::PIGenericDataPoint& p, V& v)
{
  v("time", p.time);
  v("expiration", p.expiration);
  v("tag", p.tag);
  v("value", p.value);
}

template <typename V>
void fields(const PIData::PICoordReferenceFrame& f, V& v)
{
  v("coordinateSystem", f.coordinateSystem);
  v("latOrigin", f.latOrigin);
  v("lonOrigin", f.lonOrigin);
  v("altOrigin", f.altOrigin);
  v("verticalDatum", f.verticalDatum);
  v("verticalOffsetValue", f.verticalOffsetValue);
  v("magneticVariance", f.magneticVariance);
  v("magneticVarianceValue", f.magneticVarianceValue);
  v("tangentPlaneXOffset", f.tangentPlaneXOffset);
  v("tangentPlaneYOffset", f.tangentPlaneYOffset);
  v("tangentPlaneAngle", f.tangentPlaneAngle);
  v("eciReferenceTime", f.eciReferenceTime);
}

template <typename V>
void fields(const PIData::PIPlatformHeader& h, V& v)
{
  v("name", h.name);
  v("iconFile", h.iconFile);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const PIData::PIBeamHeader& h, V& v)
{
  v("name", h.name);
  v("azimuthOffset", h.azimuthOffset);
  v("elevationOffset", h.elevationOffset);
  v("horizontalBeamWidth", h.horizontalBeamWidth);
  v("verticalBeamWidth", h.verticalBeamWidth);
  v("targetId", Ref{h.targetId});
  v("beamType", h.beamType);
  v("flag", h.flag);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const PIData::PIGateHeader& h, V& v)
{
  v("name", h.name);
  v("gateType", h.gateType);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const PIData::PILaserHeader& h, V& v)
{
  v("name", h.name);
  fields(h.frame, v);
  v("relative", h.relative);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const PIData::PILobHeader& h, V& v)
{
  v("name", h.name);
  v("originalId", h.originalId);
  v("lobType", h.lobType);
}

template <typename V>
void fields(const PIData::PIProjectorHeader& h, V& v)
{
  v("name", h.name);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const PIData::PICustomRenderingHeader& h, V& v)
{
  v("name", h.name);
  v("renderer", h.renderer);
  v("originalId", h.originalId);
}

template <typename V>
void fields(const kelvor::EntityHeader& header, V& v)
{
  std::visit([&v](const auto& h) { fields(h, v); }, header);
}

/// What an entity is apart from its data.
template <typename V>
void fields(const Entity& e, V& v)
{
  v("kind", e.kind);
  v("host", Ref{e.host});
  v("alias", e.alias);
  v("useAlias", e.useAlias);
  v("children", e.children.size());
  v("child", Refs{e.children});
  v("tables", e.tables.size());
}

template <typename V>
void fields(const kelvor::ScenarioProperties& p, V& v)
{
  v("initialized", p.initialized);
  v("referenceYear", p.referenceYear);
  v("latOrigin", p.latOrigin);
  v("lonOrigin", p.lonOrigin);
  v("altOrigin", p.altOrigin);
  v("tangentPlaneX", p.tangentPlaneX);
  v("tangentPlaneY", p.tangentPlaneY);
  v("tangentPlaneAngle", p.tangentPlaneAngle);
  v("description", p.description);
  v("classification", p.classification);
  v("classificationColor", p.classificationColor);
  v("windSpeed", p.windSpeed);
  v("windDirection", p.windDirection);
  fields(p.frame, v);
}

/// Calls f(name, series of a, the same series of b) for each time-ordered series of two entities.
template <typename F>
void forEachSeries(const Entity& a, const Entity& b, F f)
{
  f("point", a.platformPoints, b.platformPoints);
  f("beam-point", a.beamPoints, b.beamPoints);
  f("gate-point", a.gatePoints, b.gatePoints);
  f("laser-point", a.laserPoints, b.laserPoints);
  f("laser-offset", a.laserOffsets, b.laserOffsets);
  f("laser-range", a.laserMaxRange, b.laserMaxRange);
  f("laser-width", a.laserWidths, b.laserWidths);
  f("lob-point", a.lobPoints, b.lobPoints);
  f("lob-style", a.lobDrawStyles, b.lobDrawStyles);
  f("projector-fov", a.projectorFov, b.projectorFov);
  f("projector-state", a.projectorOnOff, b.projectorOnOff);
  f("color", a.colors, b.colors);
  f("state", a.states, b.states);
  f("target", a.targets, b.targets);
  f("category", a.categories, b.categories);
  f("generic", a.generic, b.generic);
}

// The order a series keeps: by time; categories by time and name, generic data by time and tag.
template <typename T>
auto orderKey(const T& item)
{
  return std::make_tuple(item.time);
}
auto orderKey(const PIData::PICategoryDataPoint& item)
{
  return std::make_tuple(item.time, std::cref(item.name));
}
auto orderKey(const PIData::PIGenericDataPoint& item)
{
  return std::make_tuple(item.time, std::cref(item.tag));
}

/// The places of a store's entities in id order, from 1.
class Places
{
public:
  explicit Places(const ScenarioStore& store) : ids_(store.list(PI_ALL_TYPES)) {}
  /**
   * Places in a given order, of entities of one store; an id outside the order takes its place
   * in fallback, if any. Children then compare as a set, since the order is not the store's.
   */
  Places(const std::vector<UniqueID_t>& order, const Places* fallback) : ids_(order), fallback_(fallback)
  {
    for (std::size_t i = 0; i < ids_.size(); ++i)
      explicit_[ids_[i]] = static_cast<long long>(i) + 1;
  }
  const std::vector<UniqueID_t>& ids() const { return ids_; }
  bool unordered() const { return !explicit_.empty(); }
  /// @return the place, 0 for no entity, -1 for an id the store does not hold
  long long of(UniqueID_t id) const
  {
    if (id == 0)
      return 0;
    if (unordered())
    {
      const auto found = explicit_.find(id);
      return found != explicit_.end() ? found->second : fallback_ ? fallback_->of(id) : -1;
    }
    const auto it = std::lower_bound(ids_.begin(), ids_.end(), id);
    return it != ids_.end() && *it == id ? (it - ids_.begin()) + 1 : -1;
  }
  /// @return the places of ids, sorted when the order is not the store's
  std::vector<long long> of(const std::vector<UniqueID_t>& ids) const
  {
    std::vector<long long> places;
    for (UniqueID_t id : ids)
      places.push_back(of(id));
    if (unordered())
      std::sort(places.begin(), places.end());
    return places;
  }
  std::string text(UniqueID_t id) const
  {
    const long long place = of(id);
    return place == 0 ? "none" : place < 0 ? "missing id " + std::to_string(id) : "#" + std::to_string(place);
  }

private:
  std::vector<UniqueID_t> ids_;
  std::map<UniqueID_t, long long> explicit_;
  const Places* fallback_ = nullptr;
};

template <typename T>
std::string numberText(T value)
{
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

std::string quoted(const std::string& text)
{
  return '"' + text + '"';
}

/// Each field as text that tells every two values apart: numbers in their shortest exact form.
class FieldTexts
{
public:
  explicit FieldTexts(const Places& places) : places_(places) {}

  template <typename T>
  void operator()(const char* name, const T& value)
  {
    if constexpr (std::is_same_v<T, Ref>)
      add_(name, places_.text(value.id));
    else if constexpr (std::is_same_v<T, Refs>)
    {
      std::string text;
      for (long long place : places_.of(value.ids))
        text += "#" + std::to_string(place) + " ";
      add_(name, text);
    }
    else if constexpr (std::is_same_v<T, std::string>)
      add_(name, quoted(value));
    else if constexpr (std::is_same_v<T, bool>)
      add_(name, value ? "true" : "false");
    else if constexpr (std::is_enum_v<T>)
      add_(name, std::to_string(static_cast<long long>(value)));
    else
      add_(name, numberText(value));
  }

  std::vector<std::pair<const char*, std::string>> texts;

private:
  void add_(const char* name, std::string text) { texts.emplace_back(name, std::move(text)); }
  const Places& places_;
};

/// Each field's bytes, for a quick test of equality before any text is made.
class FieldBytes
{
public:
  FieldBytes(const Places& places, std::string& bytes) : places_(places), bytes_(bytes) {}

  template <typename T>
  void operator()(const char*, const T& value)
  {
    if constexpr (std::is_same_v<T, Ref>)
      raw_(places_.of(value.id));
    else if constexpr (std::is_same_v<T, Refs>)
    {
      for (long long place : places_.of(value.ids))
        raw_(place);
    }
    else if constexpr (std::is_same_v<T, std::string>)
    {
      raw_(value.size());
      bytes_ += value;
    }
    else
      raw_(value);
  }

private:
  template <typename T>
  void raw_(const T& value)
  {
    char copy[sizeof(T)];
    std::memcpy(copy, &value, sizeof(T));
    bytes_.append(copy, sizeof(T));
  }
  const Places& places_;
  std::string& bytes_;
};

/// Names the first field of a record that is not a finite number, if any.
class FiniteFields
{
public:
  template <typename T>
  void operator()(const char* name, const T& value)
  {
    if constexpr (std::is_floating_point_v<T>)
    {
      if (bad.empty() && !std::isfinite(value))
        bad = std::string(name) + " is " + numberText(value);
    }
  }
  std::string bad;
};

/// Collects findings up to a limit.
class Findings
{
public:
  explicit Findings(std::size_t most) : most_(most) {}
  void add(std::string line)
  {
    if (lines_.size() < most_)
      lines_.push_back(std::move(line));
  }
  bool full() const { return lines_.size() >= most_; }
  std::vector<std::string> take() { return std::move(lines_); }

private:
  std::size_t most_;
  std::vector<std::string> lines_;
};

std::string kindName(PIScenarioObjectType_t kind)
{
  switch (kind)
  {
  case PI_PLATFORM_TYPE: return "platform";
  case PI_BEAM_TYPE: return "beam";
  case PI_GATE_TYPE: return "gate";
  case PI_LASER_TYPE: return "laser";
  case PI_LOB_GROUP_TYPE: return "lob";
  case PI_PROJECTOR_TYPE: return "projector";
  case PI_CUSTOM_RENDERING_TYPE: return "custom";
  default: return "kind " + std::to_string(static_cast<int>(kind));
  }
}

std::string entityText(long long place, const Entity& e)
{
  return "entity #" + std::to_string(place) + " (" + kindName(e.kind) + " " + quoted(kelvor::nameOfHeader(e.header)) +
         ", id " + std::to_string(e.id) + ")";
}

/// @return "field: a != b" for each field in which two records differ
template <typename Record>
std::string fieldDifferences(const Record& a, const Places& placesA, const Record& b, const Places& placesB)
{
  FieldTexts textsA(placesA);
  FieldTexts textsB(placesB);
  fields(a, textsA);
  fields(b, textsB);
  std::string out;
  for (std::size_t i = 0; i < textsA.texts.size() && i < textsB.texts.size(); ++i)
  {
    if (textsA.texts[i].second != textsB.texts[i].second)
      out += std::string(out.empty() ? "" : "; ") + textsA.texts[i].first + " " + textsA.texts[i].second +
             " != " + textsB.texts[i].second;
  }
  return out;
}

/// Compares two records, writing what differs after where.
template <typename Record>
void compareRecords(const std::string& where, const Record& a, const Places& placesA, const Record& b,
                    const Places& placesB, Findings& findings)
{
  const std::string differing = fieldDifferences(a, placesA, b, placesB);
  if (!differing.empty())
    findings.add(where + ": " + differing);
}

/// Compares two series item by item; reports their lengths and the first item that differs.
template <typename Series>
void compareSeries(const std::string& where, const Series& a, const Places& placesA, const Series& b,
                   const Places& placesB, Findings& findings)
{
  if (a.size() != b.size())
    findings.add(where + ": " + std::to_string(a.size()) + " items != " + std::to_string(b.size()));
  std::string bytesA;
  std::string bytesB;
  std::size_t index = 0;
  for (auto itA = a.begin(), itB = b.begin(); itA != a.end() && itB != b.end(); ++itA, ++itB, ++index)
  {
    bytesA.clear();
    bytesB.clear();
    FieldBytes flatA(placesA, bytesA);
    FieldBytes flatB(placesB, bytesB);
    fields(*itA, flatA);
    fields(*itB, flatB);
    if (bytesA != bytesB)
    {
      findings.add(where + " item " + std::to_string(index) + ": " + fieldDifferences(*itA, placesA, *itB, placesB));
      return;
    }
  }
}

std::string cellText(const PIData::DataTableCell* cell)
{
  if (!cell)
    return "NULL";
  const std::string type = std::to_string(static_cast<int>(cell->type())) + ":";
  switch (cell->type())
  {
  case UTILS::VT_FLOAT: {
    float value = 0;
    cell->getValue(value);
    return type + numberText(value);
  }
  case UTILS::VT_DOUBLE: {
    double value = 0;
    cell->getValue(value);
    return type + numberText(value);
  }
  case UTILS::VT_UINT64: {
    std::uint64_t value = 0;
    cell->getValue(value);
    return type + std::to_string(value);
  }
  case UTILS::VT_STRING: {
    std::string value;
    cell->getValue(value);
    return type + quoted(value);
  }
  case UTILS::VT_BLOB: {
    UTILS::Blob value;
    cell->getValue(value);
    std::string hex;
    for (std::uint8_t byte : value)
      hex += numberText(static_cast<int>(byte)) + ".";
    return type + hex;
  }
  default: {
    std::int64_t value = 0;
    cell->getValue(value);
    return type + std::to_string(value);
  }
  }
}

void compareTable(const std::string& where, const DataTable& a, const DataTable& b, Findings& findings)
{
  if (a.name() != b.name())
    findings.add(where + ": name " + quoted(a.name()) + " != " + quoted(b.name()));
  if (a.columns().size() != b.columns().size())
  {
    findings.add(where + ": " + std::to_string(a.columns().size()) + " columns != " +
                 std::to_string(b.columns().size()));
    return;
  }
  for (std::size_t c = 0; c < a.columns().size(); ++c)
  {
    const DataTable::Column& ca = a.columns()[c];
    const DataTable::Column& cb = b.columns()[c];
    if (ca.name != cb.name || ca.type != cb.type || ca.units != cb.units)
      findings.add(where + " column " + std::to_string(c) + ": " + quoted(ca.name) + " type " +
                   std::to_string(ca.type) + " units " + std::to_string(ca.units) + " != " + quoted(cb.name) +
                   " type " + std::to_string(cb.type) + " units " + std::to_string(cb.units));
  }
  if (a.rows().size() != b.rows().size())
    findings.add(where + ": " + std::to_string(a.rows().size()) + " rows != " + std::to_string(b.rows().size()));
  std::size_t index = 0;
  for (auto ra = a.rows().begin(), rb = b.rows().begin(); ra != a.rows().end() && rb != b.rows().end();
       ++ra, ++rb, ++index)
  {
    std::string differing;
    if (ra->first != rb->first)
      differing = "time " + numberText(ra->first) + " != " + numberText(rb->first);
    for (std::size_t c = 0; c < a.columns().size(); ++c)
    {
      const std::string textA = cellText(ra->second.findCell(static_cast<unsigned long>(a.columns()[c].id)));
      const std::string textB = cellText(rb->second.findCell(static_cast<unsigned long>(b.columns()[c].id)));
      if (textA != textB)
        differing += (differing.empty() ? "" : "; ") + std::string("column ") + std::to_string(c) + " " + textA +
                     " != " + textB;
    }
    if (!differing.empty())
    {
      findings.add(where + " row " + std::to_string(index) + ": " + differing);
      return;
    }
  }
}

void compareEntity(long long place, const ScenarioStore& storeA, const Entity& a, const Places& placesA,
                   const ScenarioStore& storeB, const Entity& b, const Places& placesB, Findings& findings)
{
  const std::string where = entityText(place, a);
  if (a.kind != b.kind)
  {
    findings.add(where + ": kind " + kindName(a.kind) + " != " + kindName(b.kind));
    return;
  }
  compareRecords(where, a, placesA, b, placesB, findings);
  compareRecords(where + " header", a.header, placesA, b.header, placesB, findings);
  forEachSeries(a, b, [&](const char* name, const auto& seriesA, const auto& seriesB) {
    compareSeries(where + " " + name, seriesA, placesA, seriesB, placesB, findings);
  });
  for (std::size_t t = 0; t < a.tables.size() && t < b.tables.size(); ++t)
  {
    const DataTable* tableA = storeA.table(a.tables[t]);
    const DataTable* tableB = storeB.table(b.tables[t]);
    if (tableA && tableB)
      compareTable(where + " table " + std::to_string(t), *tableA, *tableB, findings);
  }
}

/// @return every field of a record as "name value"
template <typename Record>
std::string describe(const Record& record, const Places& places)
{
  FieldTexts texts(places);
  fields(record, texts);
  std::string out;
  for (const auto& [name, text] : texts.texts)
    out += std::string(out.empty() ? "" : ", ") + name + " " + text;
  return out;
}

template <typename Series>
void checkSeries(const std::string& where, const Series& series, const Places& places, Findings& findings)
{
  std::size_t index = 0;
  bool ordered = true;
  const std::decay_t<decltype(*series.begin())>* previous = nullptr;
  for (const auto& item : series)
  {
    if (ordered && previous && !(orderKey(*previous) < orderKey(item)))
    {
      findings.add(where + " item " + std::to_string(index) + " (" + describe(item, places) + ") is not after (" +
                   describe(*previous, places) + ")");
      ordered = false;
    }
    FiniteFields finite;
    fields(item, finite);
    if (!finite.bad.empty())
    {
      findings.add(where + " item " + std::to_string(index) + ": " + finite.bad);
      return;
    }
    previous = &item;
    ++index;
  }
}

bool canHost(PIScenarioObjectType_t host, PIScenarioObjectType_t child)
{
  switch (child)
  {
  case PI_BEAM_TYPE:
  case PI_LASER_TYPE:
  case PI_LOB_GROUP_TYPE: return host == PI_PLATFORM_TYPE;
  case PI_GATE_TYPE: return host == PI_BEAM_TYPE;
  case PI_PROJECTOR_TYPE:
  case PI_CUSTOM_RENDERING_TYPE: return host == PI_PLATFORM_TYPE || host == PI_BEAM_TYPE;
  default: return false;
  }
}

void checkHost(const ScenarioStore& store, const std::string& where, const Entity& e, Findings& findings)
{
  // Platforms, and custom renderings that stand alone, belong to the scenario.
  if (e.host == 0)
  {
    if (e.kind != PI_PLATFORM_TYPE && e.kind != PI_CUSTOM_RENDERING_TYPE)
      findings.add(where + " has no host");
    return;
  }
  const Entity* host = store.entity(e.host);
  if (!host)
    findings.add(where + ": its host " + std::to_string(e.host) + " is gone");
  else if (!canHost(host->kind, e.kind))
    findings.add(where + ": a " + kindName(host->kind) + " cannot host it");
  else if (std::find(host->children.begin(), host->children.end(), e.id) == host->children.end())
    findings.add(where + ": its host " + std::to_string(e.host) + " does not list it");
}

void checkChildrenAndTables(const ScenarioStore& store, const std::string& where, const Entity& e,
                            Findings& findings)
{
  for (UniqueID_t id : e.children)
  {
    const Entity* child = store.entity(id);
    if (!child)
      findings.add(where + ": its child " + std::to_string(id) + " is gone");
    else if (child->host != e.id)
      findings.add(where + ": its child " + std::to_string(id) + " names host " + std::to_string(child->host));
  }
  for (long id : e.tables)
  {
    const DataTable* table = store.table(id);
    if (!table)
    {
      findings.add(where + ": its table " + std::to_string(id) + " is gone");
      continue;
    }
    if (table->owner() != e.id)
      findings.add(where + ": its table " + std::to_string(id) + " names owner " + std::to_string(table->owner()));
    for (const auto& [time, row] : table->rows())
    {
      if (!(row.time() == time) || !std::isfinite(time))
        findings.add(where + " table " + quoted(table->name()) + ": a row at " + numberText(row.time()) +
                     " is kept at " + numberText(time));
      for (const auto& [column, cell] : row.cells())
      {
        double value = 0.0;
        const bool floating = cell->type() == UTILS::VT_FLOAT || cell->type() == UTILS::VT_DOUBLE;
        if (floating && cell->getValue(value) == 0 && !std::isfinite(value))
          findings.add(where + " table " + quoted(table->name()) + " row at " + numberText(time) + " column " +
                       std::to_string(column) + " is " + numberText(value));
      }
    }
  }
}

} // namespace

std::vector<std::string> inconsistencies(const ScenarioStore& store)
{
  Findings findings(50);
  FiniteFields finite;
  fields(store.properties(), finite);
  if (!finite.bad.empty())
    findings.add("scenario properties: " + finite.bad);
  const Places places(store);
  for (UniqueID_t id : places.ids())
  {
    const Entity& e = *store.entity(id);
    const std::string where = entityText(places.of(id), e);
    if (e.id != id || kelvor::kindOfHeader(e.header) != e.kind)
      findings.add(where + ": kept under id " + std::to_string(id) + " as a " +
                   kindName(kelvor::kindOfHeader(e.header)));
    FiniteFields header;
    fields(e.header, header);
    if (!header.bad.empty())
      findings.add(where + " header: " + header.bad);
    forEachSeries(e, e, [&](const char* name, const auto& series, const auto&) {
      checkSeries(where + " " + name, series, places, findings);
    });
    checkHost(store, where, e, findings);
    checkChildrenAndTables(store, where, e, findings);
  }
  return findings.take();
}

std::vector<std::string> differences(const ScenarioStore& expected, const ScenarioStore& actual, std::size_t most)
{
  Findings findings(most);
  const Places placesA(expected);
  const Places placesB(actual);
  compareRecords("scenario properties", expected.properties(), placesA, actual.properties(), placesB, findings);
  const auto& idsA = placesA.ids();
  const auto& idsB = placesB.ids();
  if (idsA.size() != idsB.size())
    findings.add(std::to_string(idsA.size()) + " entities != " + std::to_string(idsB.size()));
  for (std::size_t i = 0; i < idsA.size() && i < idsB.size() && !findings.full(); ++i)
    compareEntity(static_cast<long long>(i + 1), expected, *expected.entity(idsA[i]), placesA, actual,
                  *actual.entity(idsB[i]), placesB, findings);

  std::vector<std::string> rulesA;
  std::vector<std::string> rulesB;
  for (const auto& rule : expected.preferenceRules())
    rulesA.push_back(rule.text);
  for (const auto& rule : actual.preferenceRules())
    rulesB.push_back(rule.text);
  if (rulesA != rulesB)
    findings.add("the preference rules differ");
  const auto flagsAndOverlays = [](const ScenarioStore& store, const Places& places) {
    std::vector<std::pair<long long, std::vector<std::string>>> out;
    for (UniqueID_t id : places.ids())
      out.emplace_back(places.of(id), store.drawFlags(id));
    out.emplace_back(0, store.drawFlags(0));
    for (const auto& [id, files] : store.allGogFiles())
      out.emplace_back(-places.of(id) - 1, files);
    return out;
  };
  if (flagsAndOverlays(expected, placesA) != flagsAndOverlays(actual, placesB))
    findings.add("the draw flags or overlay files differ");
  return findings.take();
}

std::vector<std::string> differences(const ScenarioStore& store, const std::vector<UniqueID_t>& expected,
                                     const std::vector<UniqueID_t>& actual, std::size_t most)
{
  Findings findings(most);
  const Places placesA(expected, nullptr);
  const Places placesB(actual, &placesA);
  if (expected.size() != actual.size())
    findings.add(std::to_string(expected.size()) + " entities != " + std::to_string(actual.size()));
  for (std::size_t i = 0; i < expected.size() && i < actual.size() && !findings.full(); ++i)
  {
    const Entity* a = store.entity(expected[i]);
    const Entity* b = store.entity(actual[i]);
    if (!a || !b)
      findings.add("entity #" + std::to_string(i + 1) + " is missing");
    else
      compareEntity(static_cast<long long>(i + 1), store, *a, placesA, store, *b, placesB, findings);
  }
  return findings.take();
}

std::string scenarioText(const ScenarioStore& store)
{
  std::ostringstream text;
  kelvor::ScenarioWriter(store).write(text);
  return text.str();
}

std::string fileContents(const std::string& path)
{
  std::ifstream in(path, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

std::vector<std::string> saveAndReadBack(const ScenarioStore& store, const std::string& path)
{
  std::string error;
  if (!kelvor::ScenarioWriter(store).writeFile(path, error))
    return {"saving: " + error};
  ScenarioStore reread;
  const kelvor::ReadReport report = kelvor::ScenarioReader(reread).readFile(path);
  std::vector<std::string> findings = report.errors;
  if (!report.loaded)
    findings.push_back(path + " was not loaded");
  else
  {
    std::vector<std::string> differing = differences(store, reread);
    findings.insert(findings.end(), differing.begin(), differing.end());
  }
  return findings;
}

} // namespace ScenarioChecks
