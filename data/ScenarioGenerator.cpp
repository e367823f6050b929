#include "ScenarioGenerator.h"

#include <cmath>
#include <string>

namespace kelvor
{

namespace
{

constexpr double DEG = M_PI / 180.0;
// The demonstration happens near a desert test range.
constexpr double ORIGIN_LAT = 35.0 * DEG;
constexpr double ORIGIN_LON = -117.5 * DEG;

UniqueID_t makePlatform(ScenarioStore& store, const std::string& name, UniqueID_t originalId, const std::string& icon)
{
  PIData::PIPlatformHeader header;
  header.name = name;
  header.originalId = originalId;
  header.iconFile = icon;
  return store.createEntity(header, 0);
}

// A point on a straight course from (lat0, lon0) in degrees, moving at speed m/s on heading
// (degrees from north), with orientation along the course and an east, north, up velocity.
StoredPlatformPoint coursePoint(double t, double lat0, double lon0, double alt, double speed, double heading)
{
  const double metresPerDegree = 111320.0;
  const double north = speed * t * std::cos(heading * DEG);
  const double east = speed * t * std::sin(heading * DEG);
  StoredPlatformPoint p;
  p.time = t;
  p.lat = (lat0 + north / metresPerDegree) * DEG;
  p.lon = (lon0 + east / (metresPerDegree * std::cos(lat0 * DEG))) * DEG;
  p.alt = alt;
  p.yaw = heading * DEG;
  p.pitch = 0.0;
  p.roll = 0.0;
  p.velEast = speed * std::sin(heading * DEG);
  p.velNorth = speed * std::cos(heading * DEG);
  p.velUp = 0.0;
  return p;
}

void addCourse(Entity& e, double from, double to, double step, double lat0, double lon0, double alt, double speed,
               double heading)
{
  for (double t = from; t <= to + 1e-9; t += step)
    e.platformPoints.insert(coursePoint(t, lat0, lon0, alt, speed, heading));
}

void addGeneric(Entity& e, double time, const std::string& tag, const std::string& value, double expiration = -1.0)
{
  e.generic.push_back(PIData::PIGenericDataPoint{time, expiration, tag, value});
}

void addCategory(Entity& e, double time, const std::string& name, const std::string& value)
{
  e.categories.push_back(PIData::PICategoryDataPoint{time, name, value});
}

} // namespace

void ScenarioGenerator::demo(ScenarioStore& store)
{
  store.reset();
  ScenarioProperties& p = store.editProperties();
  p.initialized = true;
  p.referenceYear = 2024;
  p.latOrigin = ORIGIN_LAT;
  p.lonOrigin = ORIGIN_LON;
  p.altOrigin = 700.0;
  p.description = "Demonstration: every feature of the Scenario Editor";
  p.windSpeed = 6.0;
  p.windDirection = 250.0 * DEG;

  // An aircraft with every kind of child, category and generic data, and a table.
  const UniqueID_t eagle = makePlatform(store, "Eagle 1", 101, "fighter.png");
  Entity& e = *store.editEntity(eagle);
  addCourse(e, 0.0, 600.0, 2.0, 35.0, -117.5, 6000.0, 220.0, 45.0);
  addGeneric(e, -1.0, "KELVOR_TrackColor", "0xFF4040FF");
  addGeneric(e, -1.0, "KELVOR_Callsign", "EAGLE01");
  addGeneric(e, 120.0, "Note", "weapons release", 30.0);
  addCategory(e, -1.0, "Side", "Blue");
  addCategory(e, -1.0, "Type", "Fighter");
  addCategory(e, 300.0, "Mode", "Attack");
  e.colors.insert({0.0, 0xFF4040FF});
  e.states.insert({0.0, 1});

  PIData::PIBeamHeader beamHeader;
  beamHeader.name = "Eagle Radar";
  beamHeader.beamType = 1;
  beamHeader.horizontalBeamWidth = beamHeader.verticalBeamWidth = 5.0 * DEG;
  beamHeader.azimuthOffset = beamHeader.elevationOffset = 0.0;
  beamHeader.originalId = 102;
  const UniqueID_t beam = store.createEntity(beamHeader, eagle);
  // The beam carries data after its host's track has ended.
  for (double t = 0.0; t <= 640.0; t += 20.0)
    store.editEntity(beam)->beamPoints.insert(PIData::PIBeamPoint{(20.0 + t / 40.0) * DEG, -2.0 * DEG, 40000.0, t});
  store.editEntity(beam)->beamPoints.insert(PIData::PIBeamPoint{10.0 * DEG, 0.0, 30000.0, 900.0});

  PIData::PIGateHeader gateHeader;
  gateHeader.name = "Eagle Gate";
  gateHeader.gateType = 11;
  gateHeader.originalId = 103;
  const UniqueID_t gate = store.createEntity(gateHeader, beam);
  for (double t = 0.0; t <= 600.0; t += 30.0)
    store.editEntity(gate)->gatePoints.insert(
        PIData::PIGatePoint{20.0 * DEG, -2.0 * DEG, 2.0 * DEG, 2.0 * DEG, 10000.0, 12000.0, 11000.0, t});

  PIData::PILaserHeader laserHeader;
  laserHeader.name = "Eagle Designator";
  laserHeader.originalId = 104;
  const UniqueID_t laser = store.createEntity(laserHeader, eagle);
  for (double t = 100.0; t <= 200.0; t += 10.0)
    store.editEntity(laser)->laserPoints.insert(PIData::PILaserPoint{30.0 * DEG, -10.0 * DEG, 0.0, t});
  store.editEntity(laser)->laserMaxRange.insert({100.0, 15000.0});
  store.editEntity(laser)->laserWidths.insert({100.0, 2});

  PIData::PILobHeader lobHeader;
  lobHeader.name = "Eagle Bearings";
  lobHeader.originalId = 105;
  const UniqueID_t lob = store.createEntity(lobHeader, eagle);
  for (double t = 0.0; t <= 600.0; t += 60.0)
    store.editEntity(lob)->lobPoints.insert(PIData::PILobPoint{(90.0 + t / 20.0) * DEG, 0.0, 50000.0, t});
  PIData::PILobDrawStyle style;
  style.time = 0.0;
  store.editEntity(lob)->lobDrawStyles.insert(style);

  PIData::PIProjectorHeader projectorHeader;
  projectorHeader.name = "Eagle Camera";
  projectorHeader.originalId = 106;
  const UniqueID_t projector = store.createEntity(projectorHeader, eagle);
  store.editEntity(projector)->projectorFov.insert(PIData::PIProjectorPoint{0.0, 30.0 * DEG});
  store.editEntity(projector)->projectorOnOff.insert({0.0, 1});

  PIData::PICustomRenderingHeader customHeader;
  customHeader.name = "Eagle Cone";
  customHeader.renderer = "Cone";
  customHeader.originalId = 107;
  store.createEntity(customHeader, beam);

  const long table = store.addTable(eagle, "Fuel");
  DataTable& fuel = *store.editTable(table);
  const long kg = fuel.addColumn("Fuel (kg)", UTILS::VT_DOUBLE);
  const long state = fuel.addColumn("State", UTILS::VT_STRING);
  for (int i = 0; i <= 10; ++i)
  {
    PIData::DataTableRowT row(i * 60.0);
    row.setCellValue<double>(static_cast<unsigned long>(kg), 5000.0 - i * 180.0);
    if (i % 3 != 0) // every third row leaves the state NULL
      row.setCellValue<std::string>(static_cast<unsigned long>(state), i < 5 ? "cruise" : "combat");
    fuel.addRow(row);
  }

  // One aircraft recorded as three pieces of one name, with gaps between them.
  UniqueID_t original = 200;
  for (int piece = 0; piece < 3; ++piece)
  {
    Entity& v = *store.editEntity(makePlatform(store, "Viper 2", ++original, "fighter.png"));
    addCourse(v, piece * 200.0, piece * 200.0 + 150.0, 5.0, 35.05, -117.45, 4000.0, 180.0, 90.0);
    addCategory(v, -1.0, "Side", "Blue");
  }

  // A track with wild points: three samples far off the course.
  Entity& wild = *store.editEntity(makePlatform(store, "Hawk 3", 301, "fighter.png"));
  addCourse(wild, 0.0, 300.0, 3.0, 34.95, -117.55, 3000.0, 150.0, 10.0);
  for (double t : {60.0, 150.0, 240.0})
  {
    StoredPlatformPoint spike = coursePoint(t, 34.95, -117.55, 3000.0, 150.0, 10.0);
    spike.lat += 0.4 * DEG;
    spike.alt += 9000.0;
    wild.platformPoints.insert(spike);
  }

  // A recorder that repeated itself: runs of duplicate points.
  Entity& dup = *store.editEntity(makePlatform(store, "Tanker 4", 401, "tanker.png"));
  for (int i = 0; i < 60; ++i)
  {
    // Every position is held for four samples before the next arrives.
    StoredPlatformPoint p = coursePoint((i / 4) * 8.0, 35.1, -117.6, 7000.0, 160.0, 270.0);
    p.time = i * 2.0;
    dup.platformPoints.insert(p);
  }

  // Ships: one under way, one at anchor that never moves.
  Entity& ship = *store.editEntity(makePlatform(store, "Frigate 5", 501, "ship.png"));
  addCourse(ship, 0.0, 600.0, 10.0, 34.8, -117.7, 0.0, 8.0, 120.0);
  addCategory(ship, -1.0, "Side", "Red");
  addCategory(ship, -1.0, "Type", "Ship");
  Entity& anchored = *store.editEntity(makePlatform(store, "Oiler 6", 601, "ship.png"));
  for (double t = 0.0; t <= 600.0; t += 30.0)
    anchored.platformPoints.insert(coursePoint(t, 34.82, -117.72, 0.0, 0.0, 0.0));

  // A platform with one timed point, and one with only a static point.
  Entity& once = *store.editEntity(makePlatform(store, "Buoy 7", 701, "buoy.png"));
  once.platformPoints.insert(coursePoint(250.0, 34.9, -117.65, 0.0, 0.0, 0.0));
  Entity& fixed = *store.editEntity(makePlatform(store, "Radar Site 8", 801, "site.png"));
  fixed.platformPoints.insert(coursePoint(-1.0, 35.2, -117.3, 900.0, 0.0, 0.0));

  store.editEntity(beam)->targets.insert({0.0, store.findPlatform("Frigate 5")});
  store.autoConfigureClock();
}

void ScenarioGenerator::synthetic(ScenarioStore& store, std::size_t points)
{
  store.reset();
  store.editProperties().initialized = true;
  store.editProperties().referenceYear = 2024;
  store.editProperties().latOrigin = ORIGIN_LAT;
  store.editProperties().lonOrigin = ORIGIN_LON;
  constexpr std::size_t AIRCRAFT = 100;
  const std::size_t each = std::max<std::size_t>(1, points / AIRCRAFT);
  for (std::size_t a = 0; a < AIRCRAFT; ++a)
  {
    Entity& e = *store.editEntity(makePlatform(store, "Track " + std::to_string(a + 1), a + 1, "fighter.png"));
    e.platformPoints.reserve(each);
    const double heading = static_cast<double>((a * 37) % 360);
    for (std::size_t i = 0; i < each; ++i)
      e.platformPoints.insert(coursePoint(static_cast<double>(i) * 0.1, 34.5 + a * 0.01, -118.0 + a * 0.01,
                                          1000.0 + static_cast<double>(a) * 50.0, 150.0, heading));
  }
  store.autoConfigureClock();
}

} // namespace kelvor
