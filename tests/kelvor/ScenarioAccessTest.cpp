#include "host/PIData.h"
#include "kelCore/CoordinateConverter.h"
#include "support/ServerFixture.h"

#include <cmath>

using namespace PIData;

namespace
{

constexpr double DEG = M_PI / 180.0;

PIPlatformPoint llaPoint(double time, double lat, double lon, double alt)
{
  PIPlatformPoint p;
  p.time = time;
  p.position = {lat * DEG, lon * DEG, alt};
  p.frame.coordinateSystem = PI_COORDSYS_LLA;
  return p;
}

class ScenarioAccess : public ServerFixture
{
protected:
  UniqueID_t platform(const std::string& name, std::initializer_list<double> times = {})
  {
    PIPlatformHeader header;
    header.name = name;
    const PIPlatformPoint first = llaPoint(times.size() ? *times.begin() : 0.0, 35.0, -117.0, 1000.0);
    const UniqueID_t id = createPlatform(&header, &first);
    for (double t : times)
    {
      const PIPlatformPoint p = llaPoint(t, 35.0 + t * 1e-4, -117.0, 1000.0 + t);
      addDataPoint(id, &p);
    }
    return id;
  }
};

TEST_F(ScenarioAccess, EveryKindOfEntityAndDataComesBackAsWritten)
{
  PIPlatformHeader ph;
  ph.name = "Eagle";
  ph.originalId = 77;
  PIPlatformPoint first = llaPoint(10.0, 35.0, -117.0, 1000.0);
  first.orientation = {0.5, 0.1, -0.2};
  first.velocity = {100.0, 20.0, -1.0};
  const UniqueID_t p = createPlatform(&ph, &first);
  ASSERT_NE(0u, p);

  PIBeamHeader bh;
  bh.name = "Radar";
  bh.beamType = PI_BEAM_TARGET;
  PIBeamPoint bp{0.1, 0.2, 5000.0, 10.0};
  const UniqueID_t beam = createBeam(p, &bh, &bp, true);
  PIGateHeader gh;
  gh.gateType = PI_GATE_BODY;
  PIGatePoint gp{0.1, 0.2, 0.01, 0.02, 100.0, 200.0, 150.0, 10.0};
  const UniqueID_t gate = createGate(beam, &gh, &gp, true);
  PILaserHeader lh;
  lh.name = "Designator";
  const UniqueID_t laser = createLaser(p, &lh, 0);
  PILobHeader oh;
  oh.name = "Bearings";
  const UniqueID_t lob = createLob(p, &oh);
  PIProjectorHeader jh;
  const UniqueID_t projector = createProjector(p, &jh);
  PICustomRenderingHeader ch;
  ch.renderer = "Ribbon";
  const UniqueID_t custom = createCustomRendering(beam, &ch);
  for (UniqueID_t id : {beam, gate, laser, lob, projector, custom})
    ASSERT_NE(0u, id);
  EXPECT_EQ(0u, createGate(p, &gh, &gp, true)) << "a gate lives on a beam";

  // Kinds, hosts, names and lists.
  EXPECT_EQ(PI_GATE_TYPE, getObjectType(gate));
  EXPECT_EQ(beam, getObjectHost(gate));
  EXPECT_EQ(0u, getObjectHost(p));
  EXPECT_EQ(p, findPlatform("Eagle"));
  EXPECT_EQ(77u, getOriginalId(p));
  std::vector<UniqueID_t> ids;
  getObjectList(&ids);
  EXPECT_EQ(7u, ids.size());
  getBeamList(p, &ids);
  EXPECT_EQ(std::vector<UniqueID_t>{beam}, ids);
  getCustomRenderingList(&ids);
  EXPECT_EQ(std::vector<UniqueID_t>{custom}, ids);

  // Series of every kind.
  PILaserPoint lp{0.3, 0.4, 0.0, 11.0};
  EXPECT_EQ(0, addLaserOriDataPoint(laser, &lp));
  EXPECT_EQ(0, addLaserMaxRangeDataPoint(laser, 11.0, 9000.0));
  EXPECT_EQ(0, addLaserWidthDataPoint(laser, 11.0, 3));
  PILaserOffset lo{1.0, 2.0, 3.0, 11.0};
  EXPECT_EQ(0, addLaserOffsetDataPoint(laser, &lo));
  PILobPoint op{0.7, 0.0, 20000.0, 12.0};
  EXPECT_EQ(0, addDataPoint(lob, &op));
  PILobDrawStyle style;
  style.time = 12.0;
  style.pixelWidth = 4;
  EXPECT_EQ(0, addLobDrawStyle(lob, &style));
  EXPECT_EQ(0, addProjectorFOV(projector, 13.0, 0.5));
  EXPECT_EQ(0, addProjectorOnOff(projector, 13.0, true));
  EXPECT_EQ(0, setColor(p, 0xFF0000FF, 10.0));
  EXPECT_EQ(0, setStatus(beam, PI_VISIBILITY_ON, 10.0));
  EXPECT_EQ(0, setTarget(beam, p, 10.0));

  PIPlatformPoint readPoint;
  ASSERT_EQ(0, getDataPoint(p, 10.0, &readPoint, PI_RETRIEVE_AT_OR_BEFORE));
  EXPECT_EQ(first.position, readPoint.position);
  EXPECT_EQ(first.orientation, readPoint.orientation);
  EXPECT_EQ(first.velocity, readPoint.velocity);
  std::vector<PIGatePoint> gates;
  getDataPoints(gate, 0.0, 100.0, &gates);
  ASSERT_EQ(1u, gates.size());
  EXPECT_EQ(150.0, gates[0].centroid);
  std::vector<std::pair<double, int>> widths;
  getLaserWidths(laser, 0.0, 100.0, &widths);
  EXPECT_EQ((std::vector<std::pair<double, int>>{{11.0, 3}}), widths);
  std::vector<std::pair<double, double>> ranges;
  getLaserMaxRange(laser, 0.0, 100.0, &ranges);
  EXPECT_EQ(9000.0, ranges.at(0).second);
  std::vector<PILaserOffset> offsets;
  getLaserOffsets(laser, 0.0, 100.0, &offsets);
  EXPECT_EQ(3.0, offsets.at(0).z);
  std::vector<PILobDrawStyle> styles;
  getLobDrawStyles(lob, 0.0, 100.0, &styles);
  EXPECT_EQ(4, styles.at(0).pixelWidth);
  std::vector<PIProjectorPoint> fovs;
  getDataPoints(projector, 0.0, 100.0, &fovs);
  EXPECT_EQ(0.5, fovs.at(0).fieldOfView);
  std::vector<std::pair<double, UniqueID_t>> targets;
  getTargets(beam, 0.0, 100.0, &targets);
  EXPECT_EQ(p, targets.at(0).second);
  std::vector<std::pair<double, unsigned int>> colors;
  getColors(p, 0.0, 100.0, &colors);
  EXPECT_EQ(0xFF0000FFu, colors.at(0).second);

  // Headers, and an update that renames.
  PIBeamHeader readBeam;
  ASSERT_EQ(0, getHeader(beam, &readBeam));
  EXPECT_EQ("Radar", readBeam.name);
  EXPECT_EQ(PI_BEAM_TARGET, readBeam.beamType);
  ph.name = "Falcon";
  EXPECT_EQ(0, updateHeader(p, &ph));
  EXPECT_EQ(p, findPlatform("Falcon"));

  // Flush and rewrite the track.
  EXPECT_EQ(0, flushEntityData(p, FLUSH_POINTS));
  EXPECT_EQ(0u, getNumberDataPoints(p));
  std::vector<PIPlatformPoint> track = {llaPoint(20.0, 35.0, -117.0, 10.0), llaPoint(21.0, 35.1, -117.0, 20.0)};
  EXPECT_EQ(0, addDataPoints(p, &track));
  EXPECT_EQ(2u, getNumberDataPoints(p));
  getColors(p, 0.0, 100.0, &colors);
  EXPECT_EQ(1u, colors.size()) << "a track flush keeps the commands";

  // Removal takes the children along.
  EXPECT_EQ(0, removeEntity(beam, false));
  EXPECT_EQ(PI_NONE_TYPE, getObjectType(gate));
  EXPECT_EQ(PI_NONE_TYPE, getObjectType(custom));
  EXPECT_EQ(0, deleteScenario());
  getObjectList(&ids);
  EXPECT_TRUE(ids.empty());
}

TEST_F(ScenarioAccess, ASecondPointAtATimeAlreadyHeldReplacesTheFirst)
{
  const UniqueID_t id = platform("P", {1.0, 2.0, 3.0});
  PIPlatformPoint replacement = llaPoint(2.0, 10.0, 10.0, 10.0);
  addDataPoint(id, &replacement);
  std::vector<PIPlatformPoint> batch = {llaPoint(3.0, 20.0, 20.0, 20.0), llaPoint(3.0, 30.0, 30.0, 30.0),
                                        llaPoint(0.5, 1.0, 1.0, 1.0)};
  addDataPoints(id, &batch);
  std::vector<PIPlatformPoint> points;
  getDataPoints(id, -10.0, 10.0, &points);
  ASSERT_EQ(4u, points.size());
  EXPECT_EQ(0.5, points[0].time);
  EXPECT_NEAR(10.0 * DEG, points[2].position.x, 1e-15);
  EXPECT_NEAR(30.0 * DEG, points[3].position.x, 1e-15) << "of equal times in one batch the later wins";

  PIBeamHeader bh;
  PIBeamPoint a{1.0, 0.0, 10.0, 5.0}, b{2.0, 0.0, 10.0, 5.0};
  const UniqueID_t beam = createBeam(id, &bh, &a, true);
  addDataPoint(beam, &b);
  std::vector<PIBeamPoint> beams;
  getDataPoints(beam, 0.0, 10.0, &beams);
  ASSERT_EQ(1u, beams.size());
  EXPECT_EQ(2.0, beams[0].azimuth);
}

TEST_F(ScenarioAccess, FlushScopes)
{
  const UniqueID_t id = platform("P", {1.0, 2.0});
  setColor(id, 0x00FF00FF, 1.0);
  PICategoryDataPoint category{1.0, "Side", "Blue"};
  addCategoryData(id, &category);
  PIGenericDataPoint generic{1.0, -1.0, "Note", "hello"};
  createGenericData(id, &generic);

  std::vector<std::pair<double, unsigned int>> colors;
  std::vector<PICategoryDataPoint> categories;
  flushEntityData(id, FLUSH_POINTS);
  std::vector<PIPlatformPoint> none;
  addDataPoints(id, &none);
  EXPECT_EQ(0u, getNumberDataPoints(id));
  getColors(id, 0.0, 10.0, &colors);
  EXPECT_EQ(1u, colors.size()) << "scope 1 keeps the commands";

  flushEntityData(id, FLUSH_POINTS_AND_COMMANDS);
  getColors(id, 0.0, 10.0, &colors);
  EXPECT_TRUE(colors.empty());
  retrieveAllCategoryData(id, &categories);
  EXPECT_EQ(1u, categories.size()) << "scope 2 keeps category data";

  flushEntityData(id, FLUSH_ALL);
  retrieveAllCategoryData(id, &categories);
  EXPECT_TRUE(categories.empty());
  std::vector<PIGenericDataPoint> items;
  getDataPoints(id, &items);
  EXPECT_TRUE(items.empty());
  EXPECT_EQ(1, flushEntityData(999, FLUSH_ALL));
}

TEST_F(ScenarioAccess, RangesIncludeBothBoundsAndSinglePointsPickBySide)
{
  const UniqueID_t id = platform("P", {1.0, 2.0, 3.0, 4.0});
  std::vector<PIPlatformPoint> points;
  getDataPoints(id, 2.0, 3.0, &points);
  EXPECT_EQ(2u, points.size());
  getDataPoints(id, 3.0, 2.0, &points);
  EXPECT_TRUE(points.empty());

  PIPlatformPoint p;
  ASSERT_EQ(0, getDataPoint(id, 2.5, &p, PI_RETRIEVE_AT_OR_AFTER));
  EXPECT_EQ(3.0, p.time);
  ASSERT_EQ(0, getDataPoint(id, 2.5, &p, PI_RETRIEVE_AT_OR_BEFORE));
  EXPECT_EQ(2.0, p.time);
  ASSERT_EQ(0, getDataPoint(id, 3.0, &p, PI_RETRIEVE_AT_OR_AFTER));
  EXPECT_EQ(3.0, p.time);
  p.time = -5.0;
  EXPECT_EQ(1, getDataPoint(id, 4.5, &p, PI_RETRIEVE_AT_OR_AFTER));
  EXPECT_EQ(-5.0, p.time) << "a failed read leaves the record alone";
}

TEST_F(ScenarioAccess, PlatformPointsComeInTheFrameAsked)
{
  setOriginLLA(35.0 * DEG, -117.0 * DEG, 1000.0);
  const PIPlatformPoint atOrigin = llaPoint(1.0, 35.0, -117.0, 1000.0);
  const UniqueID_t id = createPlatform(nullptr, nullptr);
  EXPECT_EQ(0u, id) << "a platform needs a header";
  PIPlatformHeader header;
  const UniqueID_t p = createPlatform(&header, &atOrigin);

  PICoordReferenceFrame enu;
  enu.coordinateSystem = PI_COORDSYS_ENU;
  std::vector<PIPlatformPoint> points;
  getDataPoints(p, 0.0, 10.0, &points, enu);
  ASSERT_EQ(1u, points.size());
  EXPECT_LT(std::hypot(points[0].position.x, points[0].position.y, points[0].position.z), 1e-6)
      << "the scenario origin is the zero of its local frames";
  EXPECT_NEAR(35.0 * DEG, points[0].frame.latOrigin, 1e-15) << "an unset origin comes back filled";

  PICoordReferenceFrame ecef;
  ecef.coordinateSystem = PI_COORDSYS_ECEF;
  getDataPoints(p, 0.0, 10.0, &points, ecef);
  kelCore::Vec3 expected;
  kelCore::CoordinateConverter::convertGeodeticPosToEcef({35.0 * DEG, -117.0 * DEG, 1000.0}, expected);
  EXPECT_NEAR(expected.x, points[0].position.x, 1e-6);
  EXPECT_NEAR(expected.z, points[0].position.z, 1e-6);

  // A point written in NED, 100 m north of the origin, is stored geodetic.
  PIPlatformPoint north;
  north.time = 2.0;
  north.position = {100.0, 0.0, 0.0};
  north.frame.coordinateSystem = PI_COORDSYS_NED;
  addDataPoint(p, &north);
  PIPlatformPoint stored;
  getDataPoint(p, 2.0, &stored, PI_RETRIEVE_AT_OR_AFTER);
  EXPECT_GT(stored.position.x, 35.0 * DEG);
  EXPECT_NEAR(1000.0, stored.position.z, 1e-6);

  PICoordReferenceFrame scenarioFrame;
  ASSERT_EQ(0, getScenarioCoordReferenceFrame(&scenarioFrame));
  EXPECT_NEAR(-117.0 * DEG, scenarioFrame.lonOrigin, 1e-15);
  EXPECT_NEAR(1000.0, getAltitudeOrigin(), 1e-12);
}

TEST_F(ScenarioAccess, TimeBoundsOfEmptyStaticAndWholeScenarios)
{
  PIPlatformHeader header;
  PIPlatformPoint first = llaPoint(5.0, 0, 0, 0);
  const UniqueID_t timed = createPlatform(&header, &first);
  const PIPlatformPoint later = llaPoint(50.0, 0, 0, 0);
  addDataPoint(timed, &later);
  PIPlatformPoint staticPoint = llaPoint(-1.0, 1, 1, 1);
  const UniqueID_t fixed = createPlatform(&header, &staticPoint);
  flushEntityData(timed, FLUSH_POINTS);
  addDataPoint(timed, &first);
  addDataPoint(timed, &later);
  const UniqueID_t empty = createPlatform(&header, &first);
  flushEntityData(empty, FLUSH_ALL);

  EXPECT_EQ(-1.0, getEarliestTime(empty));
  EXPECT_EQ(-1.0, getLatestTime(empty));
  EXPECT_EQ(-1.0, getEarliestTime(fixed)) << "a static platform";
  EXPECT_EQ(5.0, getEarliestTime(0)) << "the scenario's span is that of its timed data";
  EXPECT_EQ(50.0, getLatestTime(0));
  std::vector<PIPlatformPoint> found;
  getDataPoints(fixed, getEarliestTime(0), getLatestTime(0), &found);
  ASSERT_EQ(1u, found.size()) << "a static platform stands at its point at every time";
  EXPECT_EQ(-1.0, found[0].time);

  EXPECT_EQ(0, clockAutoConfigureBeginEnd());
  EXPECT_EQ(5.0, clockGetBegin());
  EXPECT_EQ(50.0, clockGetEnd());
  clockSetTime(100.0, 0.0);
  EXPECT_EQ(50.0, clockGetTime()) << "the time stays inside the span";

  g_FunctionMap = nullptr;
  testing::internal::CaptureStderr();
  EXPECT_EQ(PI_INVALID_DOUBLE, getEarliestTime(timed)) << "no host answered";
  testing::internal::GetCapturedStderr();
}

TEST_F(ScenarioAccess, HeadersOfAnotherKindAreRefused)
{
  const UniqueID_t p = platform("P");
  PIBeamHeader beam;
  beam.name = "untouched";
  EXPECT_EQ(1, getHeader(p, &beam));
  EXPECT_EQ("untouched", beam.name);
  EXPECT_EQ(1, updateHeader(p, &beam));
  EXPECT_EQ(1, getHeader(12345, &beam));
}

TEST_F(ScenarioAccess, GenericDataInForceAndExpiring)
{
  const UniqueID_t p = platform("P");
  PIGenericDataPoint always{-1.0, -1.0, "KELVOR_TrackColor", "0xFF0000FF"};
  PIGenericDataPoint brief{10.0, 5.0, "Note", "brief"};
  PIGenericDataPoint later{20.0, -1.0, "Note", "later"};
  for (const auto* item : {&always, &brief, &later})
    ASSERT_EQ(p, createGenericData(p, item));
  std::vector<PIGenericDataPoint> items;
  getDataPoints(p, 12.0, &items);
  EXPECT_EQ(2u, items.size());
  getDataPoints(p, 16.0, &items);
  EXPECT_EQ(1u, items.size()) << "brief expired at 15";
  getDataPoints(p, 25.0, &items);
  EXPECT_EQ(2u, items.size());
  getDataPoints(p, &items);
  EXPECT_EQ(3u, items.size());
  deleteGenericData(p, "Note");
  getDataPoints(p, &items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ("KELVOR_TrackColor", items[0].tag);
}

TEST_F(ScenarioAccess, CategoryRemovalMatchesTimeNameAndValue)
{
  const UniqueID_t p = platform("P");
  PICategoryDataPoint blue{1.0, "Side", "Blue"}, red{5.0, "Side", "Red"}, type{-1.0, "Type", "Jet"};
  for (const auto* c : {&blue, &red, &type})
    addCategoryData(p, c);
  std::vector<PICategoryDataPoint> current;
  retrieveCurrentCategoryData(p, 3.0, &current);
  ASSERT_EQ(2u, current.size());
  EXPECT_EQ("Blue", current[0].value);
  retrieveCurrentCategoryData(p, 6.0, &current);
  EXPECT_EQ("Red", current[0].value);

  PICategoryDataPoint wrongValue{5.0, "Side", "Green"}, wrongTime{4.0, "Side", "Red"};
  EXPECT_EQ(1, removeCategoryData(p, &wrongValue));
  EXPECT_EQ(1, removeCategoryData(p, &wrongTime));
  EXPECT_EQ(0, removeCategoryData(p, &red));
  std::vector<PICategoryDataPoint> all;
  retrieveAllCategoryData(p, &all);
  EXPECT_EQ(2u, all.size());
}

TEST_F(ScenarioAccess, ScenarioPropertiesAndClock)
{
  EXPECT_FALSE(isScenarioInitialized());
  EXPECT_EQ(0, initializeScenario());
  EXPECT_TRUE(isScenarioInitialized());
  setReferenceYear(2024);
  EXPECT_EQ(2024, getReferenceYear());
  setDescription("Range day");
  EXPECT_EQ("Range day", getDescription());
  setClassification("UNCLASSIFIED//TEST");
  setClassificationColor(0x00FF00FF);
  EXPECT_EQ("UNCLASSIFIED//TEST", getClassification());
  EXPECT_EQ(0x00FF00FFu, getClassificationColor());
  setWindSpeed(7.5);
  setWindDirection(1.25);
  EXPECT_EQ(7.5, getWindSpeed());
  EXPECT_EQ(1.25, getWindDirection());
  setTangentPlaneOffsets(10.0, 20.0, 0.5);
  EXPECT_EQ(20.0, getTangentPlaneOffsetY());
  EXPECT_EQ(0.5, getTangentPlaneAngle());

  EXPECT_EQ(PI_CLOCK_FILE_PLAYBACK, clockGetMode());
  EXPECT_EQ(0, clockSetMode(PI_CLOCK_LIVE, -1.0));
  EXPECT_EQ(PI_CLOCK_LIVE, clockGetMode());
  EXPECT_EQ(1, clockSetMode(static_cast<PIClockMode_t>(9), -1.0));
  EXPECT_FALSE(clockIsPlaying());
  clockPlay();
  EXPECT_TRUE(clockIsPlaying());
  clockStop();
  EXPECT_FALSE(clockIsPlaying());
}

} // namespace
