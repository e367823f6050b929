#include "host/PIData.h"
#include "host/PIDataTableCreateHelper.h"
#include "host/PIDataTables.h"
#include "merge/PlatformMerge.h"
#include "support/ServerFixture.h"

using QtSep::PlatformMerge;

namespace
{

class PlatformMerging : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    target = platform("Target", {});
    source = platform("Source", {0, 50, 100, 150, 200});
  }

  UniqueID_t platform(const std::string& name, const std::vector<double>& times)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, 1000.0 + t};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  UniqueID_t beam(UniqueID_t host, const std::string& name, int type, const std::vector<double>& times)
  {
    PIData::PIBeamHeader header;
    header.name = name;
    header.beamType = type;
    const UniqueID_t id = PIData::createBeam(host, &header, nullptr, true);
    for (double t : times)
    {
      PIData::PIBeamPoint point{0.1, 0.2, 100.0, t};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  std::vector<std::pair<std::string, UniqueID_t>> beamsOf(UniqueID_t id)
  {
    std::vector<UniqueID_t> ids;
    PIData::getBeamList(id, &ids);
    std::vector<std::pair<std::string, UniqueID_t>> out;
    for (UniqueID_t beamId : ids)
    {
      PIData::PIBeamHeader header;
      PIData::getHeader(beamId, &header);
      out.emplace_back(header.name, beamId);
    }
    return out;
  }

  std::vector<PIData::PICategoryDataPoint> categories(UniqueID_t id)
  {
    std::vector<PIData::PICategoryDataPoint> items;
    PIData::retrieveAllCategoryData(id, &items);
    return items;
  }

  void addCategory(UniqueID_t id, double time, const std::string& name, const std::string& value)
  {
    PIData::PICategoryDataPoint item{time, name, value};
    PIData::addCategoryData(id, &item);
  }

  void addGeneric(UniqueID_t id, double time, double expiration, const std::string& tag, const std::string& value)
  {
    PIData::PIGenericDataPoint item;
    item.time = time;
    item.expiration = expiration;
    item.tag = tag;
    item.value = value;
    PIData::createGenericData(id, &item);
  }

  UniqueID_t target = 0;
  UniqueID_t source = 0;
  PlatformMerge merge;
};

} // namespace

TEST_F(PlatformMerging, TheSlicesPointsJoinTheTargetAndAStaticSourceGivesNone)
{
  merge.mergePlatform(target, source, 50, 150);
  EXPECT_EQ(3u, PIData::getNumberDataPoints(target)) << "both ends of the slice included";

  const UniqueID_t site = platform("Site", {-1.0});
  addCategory(site, -1.0, "Side", "Blue");
  beam(site, "Radar", PIData::PI_BEAM_ABSOLUTE, {60});
  const UniqueID_t merged = platform("Merged", {});
  merge.mergePlatform(merged, site, -1.0, 200);
  EXPECT_EQ(0u, PIData::getNumberDataPoints(merged)) << "a static platform contributes no point";
  EXPECT_EQ(1u, beamsOf(merged).size()) << "its children still merge";
  EXPECT_EQ(1u, categories(merged).size());
}

TEST_F(PlatformMerging, ChildrenMeetByMergeNameAndTargetBeamsBringNoPoints)
{
  beam(target, "Radar", PIData::PI_BEAM_ABSOLUTE, {});
  const UniqueID_t first = beam(source, "Radar", PIData::PI_BEAM_ABSOLUTE, {50, 100});
  beam(source, "Radar", PIData::PI_BEAM_ABSOLUTE, {120});
  const UniqueID_t pointing = beam(source, "Tracker", PIData::PI_BEAM_TARGET, {60, 70});
  PIData::PIGateHeader gateHeader;
  gateHeader.name = "Window";
  const UniqueID_t gate = PIData::createGate(pointing, &gateHeader, nullptr, true);
  PIData::PIGatePoint gp{0, 0, 0.1, 0.1, 10, 20, 15, 80};
  PIData::addDataPoint(gate, &gp);

  merge.mergePlatform(target, source, 0, 200);
  const auto beams = beamsOf(target);
  ASSERT_EQ(3u, beams.size());
  EXPECT_EQ("Radar", beams[0].first) << "the target's own beam is not the merge name";
  EXPECT_EQ("Radar_Merge", beams[1].first);
  EXPECT_EQ(3u, PIData::getNumberDataPoints(beams[1].second)) << "both source beams of one name merge into one";
  EXPECT_EQ("Tracker_Merge", beams[2].first);
  EXPECT_EQ(0u, PIData::getNumberDataPoints(beams[2].second)) << "a target beam's geometry is the target's";
  std::vector<UniqueID_t> gates;
  PIData::getGateList(beams[2].second, &gates);
  ASSERT_EQ(1u, gates.size());
  EXPECT_EQ(1u, PIData::getNumberDataPoints(gates[0]));
  EXPECT_NE(first, beams[1].second) << "the source is left alone";

  PlatformMerge intoNamesakes;
  intoNamesakes.setMergeSuffix("");
  const UniqueID_t other = platform("Other", {});
  beam(other, "Radar", PIData::PI_BEAM_ABSOLUTE, {});
  intoNamesakes.mergePlatform(other, source, 0, 200);
  EXPECT_EQ(2u, beamsOf(other).size()) << "Radar joins Radar, Tracker is new";
}

TEST_F(PlatformMerging, CategoryValuesHoldingAtTheStartAreCarriedInUnlessTheTargetSaysTheSame)
{
  addCategory(source, 10, "Mode", "Cruise");
  addCategory(source, 10, "Side", "Red");
  addCategory(source, 120, "Mode", "Attack");
  addCategory(source, 300, "Mode", "Home");
  addCategory(target, 20, "Side", "Red");
  merge.mergePlatform(target, source, 100, 200);
  std::vector<std::string> written;
  for (const auto& item : categories(target))
    written.push_back(std::to_string(static_cast<int>(item.time)) + " " + item.name + "=" + item.value);
  std::sort(written.begin(), written.end());
  EXPECT_EQ((std::vector<std::string>{"100 Mode=Cruise", "120 Mode=Attack", "20 Side=Red"}), written);
}

TEST_F(PlatformMerging, GenericValuesCarryTheirRemainingLifeAndCallsignsStayBehind)
{
  addGeneric(source, 95, 10, "Beacon", "On");
  addGeneric(source, 50, 10, "Flare", "Out"); // over at 60
  addGeneric(source, 110, -1, "kelvor_callsign", "VIPER");
  addGeneric(source, 120, -1, "KELVOR_Callsign", "VIPER");
  addGeneric(source, 130, -1, "Note", "Turn");
  merge.mergePlatform(target, source, 100, 200);
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(target, &items);
  ASSERT_EQ(2u, items.size());
  EXPECT_EQ("Beacon", items[0].tag);
  EXPECT_EQ(100.0, items[0].time);
  EXPECT_EQ(5.0, items[0].expiration) << "it still ends at 105";
  EXPECT_EQ("Note", items[1].tag);
}

TEST_F(PlatformMerging, TableCellsJoinWithoutOverwritingTheTargets)
{
  PIData::PIDataTableCreateHelper sourceTable;
  sourceTable.addColumn("Speed", UTILS::VT_DOUBLE);
  sourceTable.addColumn("Fuel", UTILS::VT_DOUBLE);
  long sourceId = 0;
  ASSERT_EQ(1, sourceTable.create(source, "Telemetry", &sourceId));
  std::vector<long> sourceColumns;
  PIData::getDataTableColumns(sourceId, &sourceColumns);
  for (double t : {100.0, 110.0})
  {
    PIData::DataTableRowT row(t);
    row.setCellValue(sourceColumns[0], 250.0 + t);
    row.setCellValue(sourceColumns[1], 0.5);
    PIData::addDataTableRow(sourceId, row);
  }
  PIData::PIDataTableCreateHelper targetTable;
  targetTable.addColumn("Speed", UTILS::VT_DOUBLE);
  long targetId = 0;
  ASSERT_EQ(1, targetTable.create(target, "Telemetry", &targetId));
  std::vector<long> targetColumns;
  PIData::getDataTableColumns(targetId, &targetColumns);
  PIData::DataTableRowT own(100.0);
  own.setCellValue(targetColumns[0], 1.0);
  PIData::addDataTableRow(targetId, own);

  merge.mergePlatform(target, source, 0, 200);
  targetColumns.clear();
  PIData::getDataTableColumns(targetId, &targetColumns);
  ASSERT_EQ(2u, targetColumns.size()) << "Fuel was added";
  PIData::TableColumnIterator speed;
  ASSERT_EQ(0, PIData::getDataTableColumnValueIterator(targetId, targetColumns[0], 100.0, &speed));
  double value = 0;
  speed.getValue(value);
  EXPECT_EQ(1.0, value) << "the target's own cell stays";
  speed.next();
  speed.getValue(value);
  EXPECT_EQ(360.0, value);

  const UniqueID_t fresh = platform("Fresh", {});
  merge.mergePlatform(fresh, source, 0, 200);
  long made = 0;
  ASSERT_EQ(1, PIData::findDataTable(fresh, "Telemetry", &made)) << "a missing table is made";
}

TEST_F(PlatformMerging, CarriedSeriesKeepTheirOwnTimesOrGoStatic)
{
  const UniqueID_t radar = beam(source, "Radar", PIData::PI_BEAM_ABSOLUTE, {150});
  PIData::setColor(radar, 0x11111111, 10);
  PIData::setColor(radar, 0x22222222, 20);
  PIData::PILaserHeader laserHeader;
  laserHeader.name = "Designator";
  const UniqueID_t laser = PIData::createLaser(source, &laserHeader, 0);
  PIData::addLaserWidthDataPoint(laser, 30, 2);
  PIData::addLaserWidthDataPoint(laser, 160, 4);

  merge.mergePlatform(target, source, 100, 200);
  const auto beams = beamsOf(target);
  ASSERT_EQ(1u, beams.size());
  std::vector<std::pair<double, unsigned int>> colors;
  PIData::getColors(beams[0].second, -1.0, 1000, &colors);
  ASSERT_EQ(1u, colors.size()) << "all before the slice: only the last";
  EXPECT_EQ(20.0, colors[0].first) << "at its own time";
  EXPECT_EQ(0x22222222u, colors[0].second);

  std::vector<UniqueID_t> lasers;
  PIData::getLaserList(target, &lasers);
  ASSERT_EQ(1u, lasers.size());
  std::vector<std::pair<double, int>> widths;
  PIData::getLaserWidths(lasers[0], -1.0, 1000, &widths);
  EXPECT_EQ((std::vector<std::pair<double, int>>{{-1.0, 2}, {160.0, 4}}), widths) << "a laser's carried width goes static";
}
