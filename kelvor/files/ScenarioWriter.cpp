#include "files/ScenarioWriter.h"

#include "files/AtomicFile.h"
#include "files/LineTokenizer.h"
#include "files/NumberText.h"
#include "files/ScenarioVocabulary.h"
#include "kelCore/CoordinateConverter.h"

#include <cstdio>
#include <map>
#include <set>

namespace kelvor
{

namespace
{

std::string num(double v) { return NumberText::format(v); }
std::string q(const std::string& text) { return LineTokenizer::quote(text); }

// File keys: each entity's original id where that is a key the reader takes (positive, in
// range) and no entity before it holds the same; the rest take keys no entity holds. A key only
// ties an entity's lines together: the original id is written apart wherever it differs.
std::map<UniqueID_t, std::uint64_t> fileKeys(const ScenarioStore& store)
{
  const std::vector<UniqueID_t> ids = store.list(PI_ALL_TYPES);
  std::map<UniqueID_t, std::uint64_t> result;
  std::set<std::uint64_t> taken;
  std::uint64_t highest = 0;
  for (UniqueID_t id : ids)
  {
    const UniqueID_t original = originalIdOfHeader(store.entity(id)->header);
    if (original > 0 && original <= static_cast<std::uint64_t>(INT64_MAX) && taken.insert(original).second)
    {
      result[id] = original;
      highest = std::max<std::uint64_t>(highest, original);
    }
  }
  // New keys count on from the highest; past the largest key they fill the gaps from 1.
  std::uint64_t next = highest;
  for (UniqueID_t id : ids)
  {
    if (result.count(id))
      continue;
    do
      next = next >= static_cast<std::uint64_t>(INT64_MAX) ? 1 : next + 1;
    while (taken.count(next));
    taken.insert(next);
    result[id] = next;
  }
  return result;
}

class EntityWriter
{
public:
  EntityWriter(std::ostream& out, const ScenarioStore& store, const std::map<UniqueID_t, std::uint64_t>& ids,
               kelCore::CoordinateSystem positions)
    : out_(out), store_(store), ids_(ids), positions_(positions)
  {
    const auto& p = store.properties();
    converter_.setReferenceOrigin(p.latOrigin, p.lonOrigin, p.altOrigin);
    converter_.setTangentPlaneOffsets(p.tangentPlaneX, p.tangentPlaneY, p.tangentPlaneAngle);
  }

  void write(const Entity& e)
  {
    const std::string id = fileId(e.id);
    // Host 0 is the scenario: only a custom rendering stands alone.
    const std::string host = e.host ? fileId(e.host) : std::string("0");
    std::visit([&](const auto& h) { writeHeader(h, id, host); }, e.header);
    if (const UniqueID_t original = originalIdOfHeader(e.header); original != ids_.at(e.id))
      out_ << "original-id " << id << ' ' << original << '\n';
    if (!e.alias.empty() || e.useAlias)
      out_ << "alias " << id << ' ' << q(e.alias) << (e.useAlias ? " shown" : "") << '\n';
    for (const auto& s : e.platformPoints)
      writePoint(id, s);
    for (const auto& p : e.beamPoints)
      out_ << "beam-point " << id << ' ' << num(p.time) << ' ' << num(p.azimuth) << ' ' << num(p.elevation) << ' '
           << num(p.length) << '\n';
    for (const auto& p : e.gatePoints)
      out_ << "gate-point " << id << ' ' << num(p.time) << ' ' << num(p.azimuth) << ' ' << num(p.elevation) << ' '
           << num(p.width) << ' ' << num(p.height) << ' ' << num(p.minRange) << ' ' << num(p.maxRange) << ' '
           << num(p.centroid) << '\n';
    for (const auto& p : e.laserPoints)
      out_ << "laser-point " << id << ' ' << num(p.time) << ' ' << num(p.azimuth) << ' ' << num(p.elevation) << ' '
           << num(p.roll) << '\n';
    for (const auto& v : e.laserMaxRange)
      out_ << "laser-range " << id << ' ' << num(v.time) << ' ' << num(v.value) << '\n';
    for (const auto& v : e.laserWidths)
      out_ << "laser-width " << id << ' ' << num(v.time) << ' ' << v.value << '\n';
    for (const auto& o : e.laserOffsets)
      out_ << "laser-offset " << id << ' ' << num(o.time) << ' ' << num(o.x) << ' ' << num(o.y) << ' ' << num(o.z) << '\n';
    for (const auto& p : e.lobPoints)
      out_ << "lob-point " << id << ' ' << num(p.time) << ' ' << num(p.azimuth) << ' ' << num(p.elevation) << ' '
           << num(p.length) << '\n';
    for (const auto& s : e.lobDrawStyles)
      out_ << "lob-style " << id << ' ' << num(s.time) << ' ' << NumberText::formatColor(s.color1) << ' '
           << NumberText::formatColor(s.color2) << ' ' << s.stipple1 << ' ' << s.stipple2 << ' ' << s.pixelWidth << '\n';
    for (const auto& p : e.projectorFov)
      out_ << "projector-fov " << id << ' ' << num(p.time) << ' ' << num(p.fieldOfView) << '\n';
    for (const auto& v : e.projectorOnOff)
      out_ << "projector-state " << id << ' ' << num(v.time) << (v.value ? " on" : " off") << '\n';
    for (const auto& v : e.states)
      out_ << "state " << id << ' ' << num(v.time) << (v.value ? " on" : " off") << '\n';
    for (const auto& v : e.colors)
      out_ << "color " << id << ' ' << num(v.time) << ' ' << NumberText::formatColor(v.value) << '\n';
    for (const auto& g : e.generic)
      out_ << "generic " << id << ' ' << num(g.time) << ' ' << q(g.tag) << ' ' << q(g.value) << ' '
           << num(g.expiration) << '\n';
    for (const auto& c : e.categories)
      out_ << "category " << id << ' ' << num(c.time) << ' ' << q(c.name) << ' ' << q(c.value) << '\n';
  }

  // Targets name entities that may come later in the file, so they go after all entities.
  // Target 0, "no target from then on", is written as 0, as is a target no longer in the scenario.
  void writeTargets(const Entity& e)
  {
    for (const auto& v : e.targets)
      out_ << "target " << fileId(e.id) << ' ' << num(v.time) << ' ' << (ids_.count(v.value) ? fileId(v.value) : "0")
           << '\n';
  }

  std::string fileId(UniqueID_t id) const { return std::to_string(ids_.at(id)); }

private:
  void writeHeader(const PIData::PIPlatformHeader& h, const std::string& id, const std::string&)
  {
    out_ << "platform " << id << ' ' << q(h.name) << " icon " << q(h.iconFile) << '\n';
  }
  void writeHeader(const PIData::PIBeamHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "beam " << id << ' ' << host << ' ' << q(h.name) << ' ' << ScenarioVocabulary::beamTypeName(h.beamType)
         << " hbw " << num(h.horizontalBeamWidth) << " vbw " << num(h.verticalBeamWidth) << " azoffset "
         << num(h.azimuthOffset) << " eloffset " << num(h.elevationOffset) << '\n';
  }
  void writeHeader(const PIData::PIGateHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "gate " << id << ' ' << host << ' ' << q(h.name) << ' ' << ScenarioVocabulary::gateTypeName(h.gateType) << '\n';
  }
  void writeHeader(const PIData::PILaserHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "laser " << id << ' ' << host << ' ' << q(h.name) << (h.relative ? " relative" : "") << '\n';
  }
  void writeHeader(const PIData::PILobHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "lob " << id << ' ' << host << ' ' << q(h.name) << ' ' << ScenarioVocabulary::lobTypeName(h.lobType) << '\n';
  }
  void writeHeader(const PIData::PIProjectorHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "projector " << id << ' ' << host << ' ' << q(h.name) << '\n';
  }
  void writeHeader(const PIData::PICustomRenderingHeader& h, const std::string& id, const std::string& host)
  {
    out_ << "custom " << id << ' ' << host << ' ' << q(h.name) << ' ' << q(h.renderer) << '\n';
  }

  void writePoint(const std::string& id, const StoredPlatformPoint& s)
  {
    kelCore::Coordinate c(kelCore::CoordinateSystem::LLA, {s.lat, s.lon, s.alt},
                          s.time < 0 ? 0.0 : std::max(0.0, s.time - store_.properties().frame.eciReferenceTime));
    if (s.hasOrientation())
      c.setOrientation({s.yaw, s.pitch, s.roll});
    if (s.hasVelocity())
      c.setVelocity({s.velEast, s.velNorth, s.velUp});
    if (positions_ != kelCore::CoordinateSystem::LLA)
      converter_.convert(kelCore::Coordinate(c), c, positions_);
    const auto& p = c.position();
    out_ << "point " << id << ' ' << num(s.time) << ' ' << num(p.x) << ' ' << num(p.y) << ' ' << num(p.z);
    if (c.hasOrientation() || c.hasVelocity())
    {
      if (c.hasOrientation())
        out_ << ' ' << num(c.orientation().x) << ' ' << num(c.orientation().y) << ' ' << num(c.orientation().z);
      else
        out_ << " - - -";
    }
    if (c.hasVelocity())
      out_ << ' ' << num(c.velocity().x) << ' ' << num(c.velocity().y) << ' ' << num(c.velocity().z);
    out_ << '\n';
  }

  std::ostream& out_;
  const ScenarioStore& store_;
  const std::map<UniqueID_t, std::uint64_t>& ids_;
  kelCore::CoordinateSystem positions_;
  kelCore::CoordinateConverter converter_;
};

} // namespace

void ScenarioWriter::write(std::ostream& out) const
{
  const ScenarioProperties& p = store_.properties();
  out << "kelvor-scenario 1\n";
  out << "# Written by KELVOR Lite. Angles in radians, distances in metres, times in seconds.\n";
  out << "angles radians\n";
  out << "reference-year " << p.referenceYear << '\n';
  out << "origin " << num(p.latOrigin) << ' ' << num(p.lonOrigin) << ' ' << num(p.altOrigin) << '\n';
  out << "tangent-plane " << num(p.tangentPlaneX) << ' ' << num(p.tangentPlaneY) << ' ' << num(p.tangentPlaneAngle) << '\n';
  out << "description " << q(p.description) << '\n';
  out << "classification " << q(p.classification) << ' ' << NumberText::formatColor(p.classificationColor) << '\n';
  out << "wind " << num(p.windSpeed) << ' ' << num(p.windDirection) << '\n';
  out << "coordinate-frame " << ScenarioVocabulary::piSystemName(p.frame.coordinateSystem) << ' '
      << num(p.frame.eciReferenceTime) << '\n';
  out << "positions " << ScenarioVocabulary::positionSystemName(options_.positions) << '\n';

  const auto ids = fileKeys(store_);
  EntityWriter entities(out, store_, ids, options_.positions);
  const std::vector<UniqueID_t> all = store_.list(PI_ALL_TYPES);
  for (UniqueID_t id : all)
    entities.write(*store_.entity(id));
  for (UniqueID_t id : all)
    entities.writeTargets(*store_.entity(id));

  long tableNumber = 0;
  for (UniqueID_t id : all)
  {
    for (long tableId : store_.entity(id)->tables)
    {
      const DataTable& table = *store_.table(tableId);
      const std::string t = std::to_string(++tableNumber);
      out << "table " << t << ' ' << entities.fileId(id) << ' ' << q(table.name()) << '\n';
      for (const auto& c : table.columns())
        out << "column " << t << ' ' << q(c.name) << ' ' << ScenarioVocabulary::storageTypeName(c.type) << ' '
            << static_cast<int>(c.units) << '\n';
      for (const auto& [time, row] : table.rows())
      {
        out << "row " << t << ' ' << num(time) << ScenarioVocabulary::formatCells(table, row) << '\n';
      }
    }
  }
  for (const auto& [id, files] : store_.allGogFiles())
    for (const std::string& file : files)
      out << "gog " << (id ? entities.fileId(id) : std::string("0")) << ' ' << q(file) << '\n';
  for (const PreferenceRule& rule : store_.preferenceRules())
    if (rule.saved)
      out << "rule " << q(rule.text) << '\n';
  for (UniqueID_t id : all)
    for (const std::string& flag : store_.drawFlags(id))
      out << "draw-flag " << entities.fileId(id) << ' ' << q(flag) << '\n';
  for (const std::string& flag : store_.drawFlags(0))
    out << "draw-flag 0 " << q(flag) << '\n';
}

bool ScenarioWriter::writeFile(const std::string& path, std::string& error) const
{
  return AtomicFile::write(path, [this](std::ostream& out) { write(out); }, error);
}

} // namespace kelvor
