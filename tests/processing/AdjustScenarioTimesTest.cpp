#include "host/PIData.h"
#include "processing/AdjustScenarioTimes.h"
#include "support/ServerFixture.h"

#include <cfloat>

using namespace QtSep;

namespace
{

constexpr double DAY = 86400.0;

/// A scenario with a platform, its beam, category and generic data, a table, and static values.
class ScenarioTimes : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::setReferenceYear(2023);
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    hawk = PIData::createPlatform(&header, nullptr);
    for (double t : {100.0, 200.0})
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, 10.0};
      PIData::addDataPoint(hawk, &point);
    }
    PIData::setColor(hawk, 0xFF0000FF, 150.0);
    PIData::PIPlatformPoint fixed;
    fixed.time = -1.0;
    fixed.position = {0.6, -2.0, 0.0};
    header.name = "Site";
    site = PIData::createPlatform(&header, &fixed);
    PIData::PIBeamHeader beamHeader;
    beam = PIData::createBeam(hawk, &beamHeader, nullptr, true);
    const PIData::PIBeamPoint pointing{0.1, 0.0, 100.0, 120.0};
    PIData::addDataPoint(beam, &pointing);
    PIData::setStatus(beam, PI_VISIBILITY_ON, 130.0);
    const PIData::PICategoryDataPoint side{-1.0, "Side", "Blue"};
    PIData::addCategoryData(hawk, &side);
    const PIData::PICategoryDataPoint mode{140.0, "Mode", "Attack"};
    PIData::addCategoryData(hawk, &mode);
    PIData::PIGenericDataPoint note;
    note.time = 160.0;
    note.tag = "Note";
    note.value = "fuel";
    note.expiration = 30.0;
    PIData::createGenericData(hawk, &note);
    const std::vector<std::string> names{"Fuel"};
    const std::vector<UTILS::VariableType_t> types{UTILS::VT_DOUBLE};
    PIData::addDataTable(hawk, "Telemetry", &names, &types, &table);
    std::vector<long> columns;
    PIData::getDataTableColumns(table, &columns);
    PIData::DataTableRowT row(170.0);
    row.setCellValue(static_cast<unsigned long>(columns[0]), 5.5);
    PIData::addDataTableRow(table, row);
    PIData::clockAutoConfigureBeginEnd();
  }

  template <typename T>
  std::vector<double> timesOf(int (*read)(UniqueID_t, double, double, std::vector<std::pair<double, T>>*), UniqueID_t id)
  {
    std::vector<std::pair<double, T>> items;
    read(id, -DBL_MAX, DBL_MAX, &items);
    std::vector<double> times;
    for (const auto& item : items)
      times.push_back(item.first);
    return times;
  }

  std::vector<double> pointTimes(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -DBL_MAX, DBL_MAX, &points);
    std::vector<double> times;
    for (const auto& p : points)
      times.push_back(p.time);
    return times;
  }

  UniqueID_t hawk = 0, site = 0, beam = 0;
  long table = 0;
};

} // namespace

TEST_F(ScenarioTimes, EveryTimedValueMovesAndStaticOnesStay)
{
  ASSERT_EQ(100.0, PIData::clockGetBegin());
  // Start a day and a second later: 2023 is no leap year, so day 60 of it is March 1.
  AdjustScenarioTimes().execute(2023, 100.0 + DAY + 1.0);
  const double shift = DAY + 1.0;
  EXPECT_EQ((std::vector<double>{100.0 + shift, 200.0 + shift}), pointTimes(hawk));
  EXPECT_EQ(std::vector<double>{150.0 + shift}, timesOf(&PIData::getColors, hawk)) << "a platform's own colours";
  EXPECT_EQ(std::vector<double>{-1.0}, pointTimes(site)) << "a static platform stays";
  std::vector<PIData::PIBeamPoint> pointing;
  PIData::getDataPoints(beam, -DBL_MAX, DBL_MAX, &pointing);
  ASSERT_EQ(1u, pointing.size());
  EXPECT_EQ(120.0 + shift, pointing[0].time);
  EXPECT_EQ(std::vector<double>{130.0 + shift}, timesOf(&PIData::getStates, beam));
  std::vector<PIData::PICategoryDataPoint> categories;
  PIData::retrieveAllCategoryData(hawk, &categories);
  ASSERT_EQ(2u, categories.size());
  EXPECT_EQ(-1.0, categories[0].time) << "a static category stays";
  EXPECT_EQ(140.0 + shift, categories[1].time);
  std::vector<PIData::PIGenericDataPoint> generic;
  PIData::getDataPoints(hawk, &generic);
  ASSERT_EQ(1u, generic.size());
  EXPECT_EQ(160.0 + shift, generic[0].time);
  EXPECT_EQ(30.0, generic[0].expiration) << "a lifetime is no time";
  long remade = 0;
  ASSERT_EQ(1, PIData::findDataTable(hawk, "Telemetry", &remade));
  std::vector<long> columns;
  PIData::getDataTableColumns(remade, &columns);
  PIData::TableColumnIterator rows;
  PIData::getDataTableColumnValueIterator(remade, columns[0], 0.0, &rows);
  ASSERT_TRUE(rows.isValid());
  EXPECT_NEAR(170.0 + shift, rows.getTime(), 1e-9);
  EXPECT_EQ(100.0 + shift, PIData::clockGetBegin()) << "the clock follows";
}

TEST_F(ScenarioTimes, AYearAloneRelabelsAndTheSameStartChangesNothing)
{
  int announced = 0;
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>&) { ++announced; });
  AdjustScenarioTimes().execute(2023, 100.0);
  EXPECT_EQ((std::vector<double>{100.0, 200.0}), pointTimes(hawk)) << "no shift";
  EXPECT_EQ(0, announced) << "nothing changed, nothing announced";
  // 2024 is a leap year; values keep their seconds, so a time after February moves a day earlier
  // in the calendar: the usual repair of a recording stamped with the wrong year.
  AdjustScenarioTimes().execute(2024, 100.0);
  EXPECT_EQ(2024, PIData::getReferenceYear());
  EXPECT_EQ((std::vector<double>{100.0, 200.0}), pointTimes(hawk));
  EXPECT_EQ(1, announced);
}

TEST_F(ScenarioTimes, AnEntityMapsThroughAFactorAndAnAddition)
{
  AdjustScenarioTimes::adjustEntityTime(hawk, 2.0, -50.0);
  EXPECT_EQ((std::vector<double>{150.0, 350.0}), pointTimes(hawk));
  EXPECT_EQ(std::vector<double>{250.0}, timesOf(&PIData::getColors, hawk));
  std::vector<PIData::PIBeamPoint> pointing;
  PIData::getDataPoints(beam, -DBL_MAX, DBL_MAX, &pointing);
  EXPECT_EQ(120.0, pointing[0].time) << "children are entities of their own";
}
