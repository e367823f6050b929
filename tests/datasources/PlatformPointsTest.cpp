#include "datasources/EntityDataModel.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/KeySortFilter.h"
#include "datasources/PlatformDataSource.h"
#include "host/PIData.h"
#include "kelCore/Angle.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "units/Units.h"

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>

#include <QSignalSpy>
#include <QWidget>

#include <cmath>

using namespace QtSep;
using kelCore::CoordinateSystem;

namespace
{

constexpr double DEG = M_PI / 180.0;
constexpr double ORIGIN_LAT = 35.0 * DEG;
constexpr double ORIGIN_LON = -117.0 * DEG;
constexpr double ORIGIN_ALT = 500.0;

/// A platform with points, a source and its model over the real server, in the user's units.
class PlatformPoints : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::setOriginLLA(ORIGIN_LAT, ORIGIN_LON, ORIGIN_ALT);
    units.setCoordinateSystem(CoordinateSystem::LLA);
    units.setGeodeticPrecision(9);
  }

  /// A platform with points at these times, 100 m apart northwards, moving at 10 m/s north.
  UniqueID_t track(const std::string& name, const std::vector<double>& times)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (std::size_t i = 0; i < times.size(); ++i)
    {
      PIData::PIPlatformPoint point;
      point.time = times[i];
      point.position = {ORIGIN_LAT + 100.0 * i / 6371000.0, ORIGIN_LON, 1000.0};
      point.orientation = {0.0, 0.05, 0.0};
      point.velocity = {0.0, 10.0, 0.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  /// A new source, made after the scenario's frame is set, loaded with a platform and in a model.
  void edit(UniqueID_t id)
  {
    model.setDataSource(nullptr);
    source = std::make_unique<PlatformDataSource>(formatter, units);
    model.setDataSource(source.get());
    model.setUniqueId(id);
  }

  std::vector<double> times() const
  {
    std::vector<double> out;
    for (int row = 0; row < source->rowCount(); ++row)
      out.push_back(source->time(row));
    return out;
  }

  std::vector<PIData::PIPlatformPoint> stored(UniqueID_t id) const
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e9, 1e9, &points);
    return points;
  }

  bool type(int row, int column, const QString& text) { return model.setData(model.index(row, column), text); }

  kelCore::UnitContextAdapter units;
  kelCore::UnitContextFormatter formatter{units};
  EntityDataModel model;
  std::unique_ptr<PlatformDataSource> source;
};

} // namespace

TEST_F(PlatformPoints, AModelWithoutASourceIsEmptyAndANullSourceIsCleanAndValid)
{
  ModelChecker checked(&model);
  EXPECT_EQ(0, model.rowCount());
  EXPECT_EQ(0, model.columnCount());
  EXPECT_EQ(Qt::NoItemFlags, model.flags(QModelIndex()));
  EXPECT_EQ(-1, model.copyRow(0));
  EXPECT_FALSE(model.isDirty());
  EXPECT_FALSE(model.headerData(0, Qt::Horizontal).isValid());

  EntityDataSourceProxy proxy(formatter, units);
  proxy.setUniqueId(0, true);
  EXPECT_TRUE(proxy.isValid());
  EXPECT_FALSE(proxy.isDirty());
  EXPECT_EQ(0, proxy.columnCount());
  EXPECT_EQ(1, proxy.setData(0, 0, QString("10")));
}

TEST_F(PlatformPoints, TheProxyKeepsItsSourceWithinAKindAndMakesANewOneForAnother)
{
  const UniqueID_t hawk = track("Hawk", {0, 10});
  const UniqueID_t kite = track("Kite", {0, 10, 20});
  PIData::PIBeamHeader beamHeader;
  const UniqueID_t beam = PIData::createBeam(hawk, &beamHeader, nullptr, true);
  EntityDataSourceProxy proxy(formatter, units);
  QSignalSpy picked(&proxy, &EntityDataSourceProxy::selectedTimes);

  proxy.setUniqueId(hawk, true);
  DataSource* platformSource = &proxy.currentSource();
  ASSERT_NE(nullptr, dynamic_cast<PlatformDataSource*>(platformSource));
  QWidget* controls = platformSource->widget();
  EXPECT_EQ(proxy.widget(), controls->parentWidget()) << "the fence button shows in the proxy's frame";
  EXPECT_EQ(13, proxy.columnCount());

  proxy.setUniqueId(kite, true);
  EXPECT_EQ(platformSource, &proxy.currentSource()) << "one platform to another keeps the source";
  EXPECT_EQ(3, proxy.rowCount());

  proxy.setUniqueId(beam, true);
  EXPECT_EQ(nullptr, dynamic_cast<PlatformDataSource*>(&proxy.currentSource())) << "a beam has its own kind";
  EXPECT_EQ(0, proxy.rowCount());
}

TEST_F(PlatformPoints, AnEditedTimeMovesItsRowByTheStrictRule)
{
  const UniqueID_t hawk = track("Hawk", {10, 20, 30, 40});
  edit(hawk);
  ModelChecker checked(&model);

  ASSERT_TRUE(type(0, 0, "30"));
  EXPECT_EQ((std::vector<double>{20, 30, 30, 40}), times()) << "a time equal to another lands after it";
  EXPECT_TRUE(source->isDirty(2, 0));

  ASSERT_TRUE(type(3, 0, "45"));
  EXPECT_EQ((std::vector<double>{20, 30, 30, 45}), times()) << "the last row made later stays last";

  ASSERT_TRUE(type(0, 0, "99"));
  EXPECT_EQ((std::vector<double>{30, 30, 45, 99}), times()) << "the first row above all goes last";

  EXPECT_FALSE(type(1, 0, "not a time"));
  EXPECT_EQ((std::vector<double>{30, 30, 45, 99}), times()) << "a refused time changes nothing";
}

TEST_F(PlatformPoints, ARevertedTimeGoesBackByOrderNotByNumber)
{
  const UniqueID_t hawk = track("Hawk", {10, 20, 30, 40});
  edit(hawk);
  ASSERT_TRUE(type(0, 0, "35"));                    // row 0 moves to row 2
  ASSERT_TRUE(type(0, 0, "5"));                     // the row of 20 goes first
  EXPECT_EQ((std::vector<double>{5, 30, 35, 40}), times());
  model.revert(model.index(2, 0));                  // 35 back to 10
  EXPECT_EQ((std::vector<double>{5, 10, 30, 40}), times()) << "placed by its time, not at its old row 0";
  EXPECT_TRUE(model.isDirty()) << "the row of 20 is still edited";
  model.revert(model.index(0, 0));
  EXPECT_EQ((std::vector<double>{10, 20, 30, 40}), times());
  EXPECT_FALSE(model.isDirty()) << "the last dirty cell reverted";
}

TEST_F(PlatformPoints, ARevertRepaintsItsWholeRowThroughTheColumnPastTheLast)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  edit(hawk);
  ASSERT_TRUE(type(1, PlatformDataSource::SPEED, "20"));
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  model.revert(model.index(1, PlatformDataSource::SPEED));
  ASSERT_EQ(1, changed.count());
  EXPECT_EQ(model.index(1, 0), changed.at(0).at(0).toModelIndex());
  EXPECT_FALSE(changed.at(0).at(1).toModelIndex().isValid()) << "the row's end is given past the last column";
}

TEST_F(PlatformPoints, CellsAreDirtyOnTheStoredFormAndTheEntityStaysDirty)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  units.setCoordinateSystem(CoordinateSystem::ECEF);
  units.setDistancePrecision(8); // so that the text shown types back to the same place
  edit(hawk);
  EXPECT_EQ("X ECEF (m)", source->columnName(1));
  const QString original = model.data(model.index(0, 1)).toString();
  ASSERT_TRUE(type(0, 1, "1000"));
  EXPECT_TRUE(source->isDirty(0, 1));
  EXPECT_EQ(EDIT_RED, model.data(model.index(0, 1), Qt::BackgroundRole).value<QColor>());
  ASSERT_TRUE(type(0, 1, original));
  for (int column = 0; column < source->columnCount(); ++column)
    EXPECT_FALSE(source->isDirty(0, column)) << "typed back: no red cell, column " << column;
  EXPECT_TRUE(model.isDirty()) << "yet the entity is dirty";

  // A change of display system alone dirties nothing.
  edit(hawk);
  units.setCoordinateSystem(CoordinateSystem::GTP);
  model.applyUnitsChange();
  EXPECT_EQ("X GTP (m)", source->columnName(1));
  EXPECT_FALSE(model.isDirty());
}

TEST_F(PlatformPoints, ColumnsCarryTheirUnitsAndRowZeroDerivesNothing)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  units.setGeodeticFormat(kelCore::GeodeticFormat::DEGREES_MINUTES_SECONDS);
  units.setAltitudeUnits(kelCore::Units::FEET);
  units.setSpeedUnits(kelCore::Units::KNOTS);
  edit(hawk);
  EXPECT_EQ("Time", source->columnName(0));
  EXPECT_EQ("Lat (dms)", source->columnName(1));
  EXPECT_EQ("Alt (ft)", source->columnName(3));
  EXPECT_EQ("Calc. Head (deg)", source->columnName(4));
  EXPECT_EQ("Speed (kts)", source->columnName(9));
  EXPECT_EQ("Vel (U) (kts)", source->columnName(12));
  EXPECT_EQ(0.0, source->data(0, PlatformDataSource::CALC_HEAD, DataSource::Role::Raw).toDouble());
  EXPECT_EQ(0.0, source->data(0, PlatformDataSource::CALC_SPEED, DataSource::Role::Raw).toDouble());
  EXPECT_NEAR(10.0, source->data(1, PlatformDataSource::CALC_SPEED, DataSource::Role::Raw).toDouble(), 0.05)
    << "about 100 m in 10 s";
  EXPECT_TRUE(kelCore::areAnglesEqual(0.0, source->data(1, PlatformDataSource::CALC_HEAD, DataSource::Role::Raw).toDouble(), 1e-6))
    << "heading north, the way the platform went";
  EXPECT_FALSE(source->isColumnEditable(PlatformDataSource::CALC_HEAD));
  EXPECT_TRUE(source->isColumnEditable(PlatformDataSource::SPEED));
  units.setCoordinateSystem(CoordinateSystem::ECEF);
  source->applyUnitsChange();
  EXPECT_FALSE(source->isColumnEditable(PlatformDataSource::SPEED)) << "Speed is edited in LLA only";
}

TEST_F(PlatformPoints, ValuesTypedInEachSystemReachTheStoreInLatitudeLongitudeAltitude)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  const std::vector<PIData::PIPlatformPoint> before = stored(hawk);
  const GeographicLib::Geocentric& earth = GeographicLib::Geocentric::WGS84();

  // LLA: a latitude in degrees, minutes and seconds.
  edit(hawk);
  ASSERT_TRUE(type(0, 1, "35 30 15.5 N"));
  model.commitChanges();
  EXPECT_NEAR((35.0 + 30.0 / 60 + 15.5 / 3600) * DEG, stored(hawk)[0].position.x, 1e-9);

  // ECEF: X moved by 1000 m, checked against GeographicLib.
  units.setCoordinateSystem(CoordinateSystem::ECEF);
  edit(hawk);
  const PIData::PIPlatformPoint second = stored(hawk)[1];
  double x = 0, y = 0, z = 0;
  earth.Forward(second.position.x / DEG, second.position.y / DEG, second.position.z, x, y, z);
  const QString typedX = QString::number(x + 1000.0, 'f', 4);
  ASSERT_TRUE(type(1, 1, typedX));
  model.commitChanges();
  double lat = 0, lon = 0, alt = 0;
  // Y and Z are the round trip of what was stored; X is what was typed.
  earth.Reverse(typedX.toDouble(), y, z, lat, lon, alt);
  EXPECT_NEAR(lat * DEG, stored(hawk)[1].position.x, 1e-9);
  EXPECT_NEAR(lon * DEG, stored(hawk)[1].position.y, 1e-9);
  EXPECT_NEAR(alt, stored(hawk)[1].position.z, 1e-6);

  // XEAST: the true tangent plane at the origin.
  units.setCoordinateSystem(CoordinateSystem::XEAST);
  edit(hawk);
  const GeographicLib::LocalCartesian plane(ORIGIN_LAT / DEG, ORIGIN_LON / DEG, ORIGIN_ALT, earth);
  ASSERT_TRUE(type(0, 1, "250"));
  ASSERT_TRUE(type(0, 2, "-400"));
  ASSERT_TRUE(type(0, 3, "1200"));
  model.commitChanges();
  plane.Reverse(250.0, -400.0, 1200.0, lat, lon, alt);
  EXPECT_NEAR(lat * DEG, stored(hawk)[0].position.x, 1e-9);
  EXPECT_NEAR(lon * DEG, stored(hawk)[0].position.y, 1e-9);
  EXPECT_NEAR(alt, stored(hawk)[0].position.z, 1e-6);

  // ENU: the flat earth about the origin, north scaled by the meridian radius.
  units.setCoordinateSystem(CoordinateSystem::ENU);
  edit(hawk);
  ASSERT_TRUE(type(1, 2, "500"));
  model.commitChanges();
  const double a = earth.EquatorialRadius();
  const double e2 = earth.Flattening() * (2 - earth.Flattening());
  const double meridian = a * (1 - e2) / std::pow(1 - e2 * std::sin(ORIGIN_LAT) * std::sin(ORIGIN_LAT), 1.5);
  EXPECT_NEAR(ORIGIN_LAT + 500.0 / meridian, stored(hawk)[1].position.x, 1e-9);
  EXPECT_EQ(before.size(), stored(hawk).size());
}

TEST_F(PlatformPoints, TheSpeedColumnScalesTheVelocityAndItsRevertRestoresAllThree)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  edit(hawk);
  ASSERT_TRUE(type(0, PlatformDataSource::SPEED, "20"));
  const double pitch = 0.05;
  EXPECT_NEAR(0.0, source->data(0, 10, DataSource::Role::Raw).toDouble(), 1e-9) << "yaw 0: no east";
  EXPECT_NEAR(20.0 * std::cos(pitch), source->data(0, 11, DataSource::Role::Raw).toDouble(), 1e-9);
  EXPECT_NEAR(20.0 * std::sin(pitch), source->data(0, 12, DataSource::Role::Raw).toDouble(), 1e-9);
  EXPECT_FALSE(type(0, PlatformDataSource::SPEED, "-1")) << "no negative speed";
  EXPECT_TRUE(source->isDirty(0, PlatformDataSource::SPEED));
  model.revert(model.index(0, PlatformDataSource::SPEED));
  for (int column : {9, 10, 11, 12})
    EXPECT_FALSE(source->isDirty(0, column)) << column;
  EXPECT_NEAR(10.0, source->data(0, 11, DataSource::Role::Raw).toDouble(), 1e-9);
  EXPECT_FALSE(model.isDirty());
}

TEST_F(PlatformPoints, LatitudesStopAtThePolesAndTextThatIsNoNumberIsRefused)
{
  const UniqueID_t hawk = track("Hawk", {10, 20});
  edit(hawk);
  EXPECT_FALSE(type(0, 1, "91"));
  EXPECT_TRUE(type(0, 1, "90"));
  EXPECT_FALSE(type(0, 2, "181"));
  EXPECT_FALSE(type(0, 3, "high"));
  EXPECT_FALSE(type(0, PlatformDataSource::CALC_SPEED, "3"));
  EXPECT_TRUE(type(0, 0, "static"));
  EXPECT_EQ(-1.0, source->time(0)) << "a static time in words";
  EXPECT_FALSE(source->isValid()) << "a track holds no static point";
}

TEST_F(PlatformPoints, RowsAreAddedCopiedDeletedAndValidatedAsAPlatformAllows)
{
  PIData::PIPlatformHeader header;
  header.name = "Empty";
  const UniqueID_t empty = PIData::createPlatform(&header, nullptr);
  PIData::setOriginLLA(ORIGIN_LAT, ORIGIN_LON, -30.0);
  PIData::clockSetEnd(500.0);
  PIData::clockSetBegin(5.0);
  edit(empty);
  EXPECT_FALSE(source->isValid()) << "no rows";
  EXPECT_EQ(0, model.copyRow(-1));
  ASSERT_EQ(1, source->rowCount());
  EXPECT_EQ(5.0, source->time(0)) << "the clock's begin";
  EXPECT_EQ(0.0, source->data(0, 3, DataSource::Role::Raw).toDouble()) << "an origin below the ellipsoid is raised to 0";
  EXPECT_NEAR(ORIGIN_LAT, source->data(0, 1, DataSource::Role::Raw).toDouble(), 1e-12);
  EXPECT_EQ(ADDED_ROW_YELLOW, model.data(model.index(0, 0), Qt::BackgroundRole).value<QColor>());
  EXPECT_FALSE(source->isValid()) << "one timed point is no platform";
  EXPECT_FALSE(source->canDeleteRow());

  const UniqueID_t hawk = track("Hawk", {10});
  edit(hawk);
  EXPECT_FALSE(source->isValid()) << "a one-point track with a time cannot be applied";
  EXPECT_EQ(1, model.copyRow(-1)) << "nothing selected: a copy of the last row at the end";
  EXPECT_TRUE(source->isValid());
  EXPECT_EQ(source->time(0), source->time(1)) << "the copy keeps its source's time";
  EXPECT_TRUE(source->isAddedRow(1));
  EXPECT_FALSE(source->isDirty(1, 0)) << "an added row has no dirty cell";

  const UniqueID_t kite = track("Kite", {10, 20, 30});
  edit(kite);
  model.deleteRows({1, 1});
  EXPECT_EQ((std::vector<double>{10, 30}), times()) << "one row number twice deletes once";
  EXPECT_TRUE(model.isDirty());
}

TEST_F(PlatformPoints, ApplyRewritesTheTrackInRowOrderAndReadsItBack)
{
  const UniqueID_t hawk = track("Hawk", {10, 20, 30});
  edit(hawk);
  model.deleteRows({0});
  ASSERT_TRUE(type(0, 3, "2500"));
  model.copyRow(1);
  ASSERT_TRUE(type(2, 0, "40"));
  QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
  model.commitChanges();
  EXPECT_EQ(1, reset.count());
  const std::vector<PIData::PIPlatformPoint> points = stored(hawk);
  ASSERT_EQ(3u, points.size()) << "the deleted point is gone: the track was flushed first";
  EXPECT_EQ(20.0, points[0].time);
  EXPECT_EQ(2500.0, points[0].position.z);
  EXPECT_EQ(40.0, points[2].time);
  EXPECT_FALSE(model.isDirty()) << "read back anew";
  EXPECT_FALSE(source->isAddedRow(2));
  EXPECT_EQ(40.0, PIData::clockGetEnd()) << "the clock's span follows the data";
}

TEST_F(PlatformPoints, TheSortKeepsRowsOfOneTimeInTheirOrderAndRunsUnderTheModelTester)
{
  const UniqueID_t hawk = track("Hawk", {10, 20, 30});
  edit(hawk);
  KeySortFilter sorted;
  ModelChecker checkedModel(&model);
  ModelChecker checkedSort(&sorted);
  sorted.setSourceModel(&model);
  sorted.setSortRole(EntityDataModel::RAW_ROLE);
  sorted.sort(0, Qt::AscendingOrder);
  ASSERT_TRUE(type(2, 0, "20"));
  model.copyRow(0);
  EXPECT_EQ(20.0, sorted.index(2, 0).data(EntityDataModel::TIME_ROLE).toDouble());
  EXPECT_EQ(1, sorted.mapToSource(sorted.index(1, 0)).row()) << "of two rows at 20, the first stays first";
  sorted.sort(3, Qt::DescendingOrder);
  model.deleteRows({0});
  units.setCoordinateSystem(CoordinateSystem::NED);
  model.applyUnitsChange();
}

TEST_F(PlatformPoints, TheSortFollowsEditsOfTheColumnItSortsOn)
{
  const UniqueID_t hawk = track("Hawk", {10, 20, 30, 40, 50, 60});
  edit(hawk);
  KeySortFilter sorted;
  sorted.setSourceModel(&model);
  sorted.setSortRole(EntityDataModel::RAW_ROLE);
  sorted.setDynamicSortFilter(true);
  sorted.sort(3, Qt::AscendingOrder);
  const auto altitudes = [&sorted] {
    std::vector<double> out;
    for (int row = 0; row < sorted.rowCount(); ++row)
      out.push_back(sorted.index(row, 3).data(EntityDataModel::RAW_ROLE).toDouble());
    return out;
  };
  // Each edit goes through the cache of the sorted column, so the order stays right.
  for (const auto& [row, altitude] : std::vector<std::pair<int, const char*>>{{0, "5000"}, {3, "-20"}, {5, "700"}, {1, "700"}})
  {
    ASSERT_TRUE(type(row, 3, altitude));
    const std::vector<double> shown = altitudes();
    EXPECT_TRUE(std::is_sorted(shown.begin(), shown.end())) << "after row " << row << " became " << altitude;
  }
  EXPECT_EQ((std::vector<double>{-20, 700, 700, 1000, 1000, 5000}), altitudes());
  model.copyRow(0);
  EXPECT_EQ(7, sorted.rowCount());
  const std::vector<double> withCopy = altitudes();
  EXPECT_TRUE(std::is_sorted(withCopy.begin(), withCopy.end()));
}
