#include "datasources/BeamDataSource.h"
#include "datasources/CustomRenderingDataSource.h"
#include "datasources/EntityDataModel.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/GateDataSource.h"
#include "datasources/LaserDataSource.h"
#include "datasources/LobDataSource.h"
#include "datasources/ProjectorDataSource.h"
#include "host/PIData.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"

#include <cfloat>
#include <cmath>

using namespace QtSep;

namespace
{

constexpr double DEG = M_PI / 180.0;

/// A platform "Hawk" with children whose series meet at some times and not at others.
class ChildData : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    PIData::PIPlatformPoint point;
    point.time = 0.0;
    point.position = {0.5, -2.0, 100.0};
    hawk = PIData::createPlatform(&header, &point);
    header.name = "Kite";
    kite = PIData::createPlatform(&header, &point);
  }

  UniqueID_t beam(int type)
  {
    PIData::PIBeamHeader header;
    header.name = "Radar";
    header.beamType = type;
    const UniqueID_t id = PIData::createBeam(hawk, &header, nullptr, true);
    for (double t : {10.0, 20.0})
    {
      const PIData::PIBeamPoint point{t * DEG, 2 * DEG, 1000.0 + t, t};
      PIData::addDataPoint(id, &point);
    }
    PIData::setColor(id, 0xFF0000FF, 15.0);
    PIData::setColor(id, 0x00FF00FF, 20.0);
    PIData::setStatus(id, PI_VISIBILITY_ON, 20.0);
    PIData::setTarget(id, kite, 10.0);
    return id;
  }

  void load(DataSource& source, UniqueID_t id)
  {
    model.setDataSource(&source);
    model.setUniqueId(id);
  }

  QString shown(int row, int column) const { return model.index(row, column).data().toString(); }
  bool type(int row, int column, const QString& text) { return model.setData(model.index(row, column), text); }

  template <typename T>
  std::vector<std::pair<double, T>> series(int (*read)(UniqueID_t, double, double, std::vector<std::pair<double, T>>*), UniqueID_t id)
  {
    std::vector<std::pair<double, T>> out;
    read(id, -DBL_MAX, DBL_MAX, &out);
    return out;
  }

  UniqueID_t hawk = 0;
  UniqueID_t kite = 0;
  kelCore::UnitContextAdapter units;
  kelCore::UnitContextFormatter formatter{units};
  EntityDataModel model;
};

} // namespace

TEST_F(ChildData, ABeamsSeriesMergeIntoOneRowATimeAndSplitBackWhole)
{
  const UniqueID_t radar = beam(PIData::PI_BEAM_ABSOLUTE);
  BeamDataSource source(formatter, units);
  ModelChecker checked(&model);
  load(source, radar);
  ASSERT_EQ(3, model.rowCount()) << "10 (point, target), 15 (colour), 20 (point, colour, state)";
  EXPECT_EQ(7, model.columnCount());
  EXPECT_EQ("Azimuth (deg)", source.columnName(1));
  EXPECT_EQ("Length (m)", source.columnName(3));
  EXPECT_EQ("Color (RGBA)", source.columnName(4));
  EXPECT_EQ("--", shown(1, 1)) << "only a colour at 15 s";
  EXPECT_TRUE(source.data(1, 1, DataSource::Role::Raw).isNull());
  EXPECT_EQ("On", shown(2, 5));
  EXPECT_EQ("Kite", shown(0, 6));
  const QVariantList target = source.data(0, 6, DataSource::Role::Raw).toList();
  ASSERT_EQ(2, target.size());
  EXPECT_EQ(kite, target[1].toULongLong()) << "the name and the id";

  // Apply unchanged: every item comes back once, none lost or doubled.
  model.commitChanges();
  std::vector<PIData::PIBeamPoint> points;
  PIData::getDataPoints(radar, -DBL_MAX, DBL_MAX, &points);
  EXPECT_EQ(2u, points.size());
  EXPECT_EQ(2u, series(&PIData::getColors, radar).size());
  EXPECT_EQ(1u, series(&PIData::getStates, radar).size());
  EXPECT_EQ(1u, series(&PIData::getTargets, radar).size());

  // A colour typed into the empty cell at 10 s and an azimuth into the empty point at 15 s.
  ASSERT_TRUE(type(0, 4, "0x0000FFFF"));
  ASSERT_TRUE(type(1, 1, "30"));
  EXPECT_EQ("0", shown(1, 3).left(1)) << "the rest of the new point starts at zero";
  model.commitChanges();
  const auto colors = series(&PIData::getColors, radar);
  ASSERT_EQ(3u, colors.size());
  EXPECT_EQ(0x0000FFFFu, colors[0].second);
  points.clear();
  PIData::getDataPoints(radar, -DBL_MAX, DBL_MAX, &points);
  ASSERT_EQ(3u, points.size());
  EXPECT_NEAR(30 * DEG, points[1].azimuth, 1e-12);
  EXPECT_EQ(15.0, points[1].time);
}

TEST_F(ChildData, ATargetBeamsPointingIsNoDataButItsTargetIs)
{
  const UniqueID_t radar = beam(PIData::PI_BEAM_TARGET);
  BeamDataSource source(formatter, units);
  load(source, radar);
  for (int column : {1, 2, 3})
    EXPECT_FALSE(source.isColumnEditable(column)) << column;
  EXPECT_TRUE(source.isColumnEditable(6));
  EXPECT_FALSE(type(0, 6, "Nobody")) << "a platform no one has";
  ASSERT_TRUE(type(0, 6, "0"));
  EXPECT_EQ("None", shown(0, 6));
  ASSERT_TRUE(type(0, 6, "Hawk"));
  EXPECT_EQ("Hawk", shown(0, 6));
  EXPECT_FALSE(type(0, 0, "-1")) << "a child's time is never static";
  EXPECT_FALSE(type(0, 0, "static"));
  ASSERT_TRUE(type(0, 6, "None")) << "what the cell shows for no target reads back";
  EXPECT_EQ("None", shown(0, 6));
  EXPECT_EQ(0, source.setData(0, 0, QVariant(-1.0))) << "a pasted static item stays static";
  EXPECT_DOUBLE_EQ(-1.0, source.time(0));
}

TEST_F(ChildData, AGatesMissingRangeShowsTheHostsMarker)
{
  PIData::PIBeamHeader beamHeader;
  const UniqueID_t radar = PIData::createBeam(hawk, &beamHeader, nullptr, true);
  PIData::PIGateHeader header;
  header.gateType = PIData::PI_GATE_TARGET;
  const UniqueID_t gate = PIData::createGate(radar, &header, nullptr, true);
  PIData::PIGatePoint point;
  point.time = 5.0;
  point.azimuth = point.elevation = point.width = point.height = 0.1;
  point.minRange = -1.0;
  point.maxRange = 5000.0;
  point.centroid = 2500.0;
  PIData::addDataPoint(gate, &point);
  GateDataSource source(formatter, units);
  load(source, gate);
  ASSERT_EQ(1, model.rowCount());
  EXPECT_EQ("-1.0", shown(0, 3));
  EXPECT_EQ("Max Range (m)", source.columnName(5));
  EXPECT_FALSE(source.isColumnEditable(1)) << "a target gate follows its target";
  EXPECT_TRUE(source.isColumnEditable(3));
  ASSERT_TRUE(type(0, 3, "100"));
  model.commitChanges();
  std::vector<PIData::PIGatePoint> stored;
  PIData::getDataPoints(gate, -DBL_MAX, DBL_MAX, &stored);
  ASSERT_EQ(1u, stored.size());
  EXPECT_EQ(100.0, stored[0].minRange);
  EXPECT_EQ(5000.0, stored[0].maxRange);
}

TEST_F(ChildData, ALasersSixSeriesAndALobsStylesSurviveAnApply)
{
  PIData::PILaserHeader laserHeader;
  const UniqueID_t laser = PIData::createLaser(hawk, &laserHeader, 0);
  PIData::PILaserPoint pointing;
  pointing.time = 1.0;
  pointing.azimuth = pointing.elevation = pointing.roll = 0.2;
  PIData::addLaserOriDataPoint(laser, &pointing);
  const PIData::PILaserOffset offset{1.0, 2.0, 3.0, 2.0};
  PIData::addLaserOffsetDataPoint(laser, &offset);
  PIData::addLaserMaxRangeDataPoint(laser, 3.0, 9000.0);
  PIData::addLaserWidthDataPoint(laser, 3.0, 4);
  LaserDataSource lasers(formatter, units);
  load(lasers, laser);
  ASSERT_EQ(3, model.rowCount());
  EXPECT_EQ("4", shown(2, 10));
  ASSERT_TRUE(type(2, 10, "6"));
  EXPECT_FALSE(type(2, 10, "wide"));
  model.commitChanges();
  std::vector<std::pair<double, int>> widths;
  PIData::getLaserWidths(laser, -DBL_MAX, DBL_MAX, &widths);
  ASSERT_EQ(1u, widths.size());
  EXPECT_EQ(6, widths[0].second);
  std::vector<PIData::PILaserOffset> offsets;
  PIData::getLaserOffsets(laser, -DBL_MAX, DBL_MAX, &offsets);
  ASSERT_EQ(1u, offsets.size());
  EXPECT_EQ(3.0, offsets[0].z);

  PIData::PILobHeader lobHeader;
  const UniqueID_t lob = PIData::createLob(hawk, &lobHeader);
  const PIData::PILobPoint bearing{0.3, 0.0, 500.0, 4.0};
  PIData::addDataPoint(lob, &bearing);
  PIData::PILobDrawStyle style;
  style.time = 4.0;
  PIData::addLobDrawStyle(lob, &style);
  LobDataSource lobs(formatter, units);
  load(lobs, lob);
  ASSERT_EQ(1, model.rowCount());
  EXPECT_EQ("0xFF00", shown(0, 6));
  EXPECT_FALSE(type(0, 6, "0x10000")) << "more than sixteen bits";
  EXPECT_NE(0, lobs.setData(0, 6, QVariant(0x10000))) << "a pasted pattern of more than sixteen bits";
  EXPECT_NE(0, lobs.setData(0, 6, QVariant(-1)));
  ASSERT_TRUE(type(0, 6, "0x0F0F"));
  ASSERT_TRUE(type(0, 8, "3"));
  EXPECT_TRUE(lobs.canDeleteRow()) << "a LOB group may lose its last row";
  model.commitChanges();
  std::vector<PIData::PILobDrawStyle> styles;
  PIData::getLobDrawStyles(lob, -DBL_MAX, DBL_MAX, &styles);
  ASSERT_EQ(1u, styles.size());
  EXPECT_EQ(0x0F0F, styles[0].stipple1);
  EXPECT_EQ(3, styles[0].pixelWidth);
  EXPECT_EQ(0x00FF00FFu, styles[0].color1) << "the untouched colour stays";
}

TEST_F(ChildData, TheProxyMakesASourceForEveryChildKind)
{
  PIData::PIProjectorHeader projectorHeader;
  const UniqueID_t projector = PIData::createProjector(hawk, &projectorHeader);
  PIData::addProjectorFOV(projector, 7.0, 20 * DEG);
  PIData::PICustomRenderingHeader renderingHeader;
  const UniqueID_t rendering = PIData::createCustomRendering(hawk, &renderingHeader);
  PIData::setStatus(rendering, PI_VISIBILITY_OFF, 8.0);

  EntityDataSourceProxy proxy(formatter, units);
  load(proxy, projector);
  EXPECT_NE(nullptr, dynamic_cast<ProjectorDataSource*>(&proxy.currentSource()));
  EXPECT_EQ("FOV (deg)", proxy.columnName(1));
  EXPECT_NEAR(20 * DEG, proxy.data(0, 1, DataSource::Role::Raw).toDouble(), 1e-12);
  model.setUniqueId(rendering);
  EXPECT_NE(nullptr, dynamic_cast<CustomRenderingDataSource*>(&proxy.currentSource()));
  EXPECT_EQ("Off", shown(0, 2));
  ASSERT_TRUE(type(0, 2, "on"));
  model.commitChanges();
  const auto states = series(&PIData::getStates, rendering);
  ASSERT_EQ(1u, states.size());
  EXPECT_EQ(PI_VISIBILITY_ON, states[0].second);
}
