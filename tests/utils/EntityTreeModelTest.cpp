#include "host/PIApplicationEvents.h"
#include "host/PIData.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "utils/EntityTreeModel.h"

#include <QIcon>
#include <QSignalSpy>
#include <QTest>

#include <cstdint>
#include <set>

using PluginUtils::EntityTreeModel;

namespace
{

class EntityTree : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    const SampleEntities made = createSampleEntities();
    platform = made.platform;
    beam = made.beam;
    gate = made.gate;
    std::get<PIData::PIPlatformHeader>(store.editEntity(platform)->header).originalId = 77;
    PIData::PIPlatformPoint point;
    PIData::getDataPoint(platform, 10.0, &point, PI_RETRIEVE_EXACT);
    point.time = 20.0;
    PIData::addDataPoint(platform, &point);
  }

  UniqueID_t addPlatform(const std::string& name)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    return PIData::createPlatform(&header, nullptr);
  }

  void announce(int event, UniqueID_t id)
  {
    const std::uint64_t value = id;
    model.listenToEvents(event, &value);
  }

  QString text(UniqueID_t id, int column, int role = Qt::DisplayRole)
  {
    const QModelIndex index = model.indexOf(id);
    return model.data(index.sibling(index.row(), column), role).toString();
  }

  EntityTreeModel model;
  ModelChecker checked{&model};
  UniqueID_t platform = 0;
  UniqueID_t beam = 0;
  UniqueID_t gate = 0;
};

} // namespace

TEST_F(EntityTree, BuildsHostsWithTheirChildrenOrAFlatList)
{
  model.forceRefresh();
  ASSERT_EQ(1, model.rowCount());
  const QModelIndex eagle = model.indexOf(platform);
  EXPECT_EQ(1, model.rowCount(eagle));
  EXPECT_EQ(model.indexOf(beam), model.index(0, 0, eagle));
  EXPECT_EQ(model.indexOf(beam), model.parent(model.indexOf(gate)));
  EXPECT_EQ("Name", model.headerData(0, Qt::Horizontal).toString());
  EXPECT_EQ("End Time", model.headerData(5, Qt::Horizontal).toString());
  EXPECT_EQ(int(Qt::AlignCenter), model.headerData(3, Qt::Horizontal, Qt::TextAlignmentRole).toInt());

  PIData::PICustomRenderingHeader coneHeader;
  const UniqueID_t cone = PIData::createCustomRendering(beam, &coneHeader);
  model.forceRefresh();
  EXPECT_EQ(model.indexOf(beam), model.parent(model.indexOf(cone))) << "a beam hosts renderings too";

  model.setToListView();
  EXPECT_EQ(4, model.rowCount());
  EXPECT_FALSE(model.parent(model.indexOf(gate)).isValid());
  EXPECT_EQ(0, model.rowCount(model.indexOf(platform)));
}

TEST_F(EntityTree, ColumnsShowNamesKindsIdsPointsAndTimes)
{
  const UniqueID_t still = addPlatform("Buoy");
  model.forceRefresh();
  EXPECT_EQ("Eagle", text(platform, EntityTreeModel::NAME_COLUMN));
  EXPECT_EQ("P", text(platform, EntityTreeModel::TYPE_COLUMN));
  EXPECT_EQ("G", text(gate, EntityTreeModel::TYPE_COLUMN));
  EXPECT_EQ("77", text(platform, EntityTreeModel::ID_COLUMN));
  EXPECT_EQ("2", text(platform, EntityTreeModel::POINTS_COLUMN));
  EXPECT_NE("Static", text(platform, EntityTreeModel::START_COLUMN));
  EXPECT_NE(text(platform, EntityTreeModel::START_COLUMN), text(platform, EntityTreeModel::END_COLUMN));
  EXPECT_EQ("Static", text(still, EntityTreeModel::START_COLUMN)) << "no time-stamped data";
  EXPECT_EQ("Name: Eagle\nAlias: \nType: Platform\nOriginal ID: 77", text(platform, 0, Qt::ToolTipRole));
  EXPECT_EQ("Original ID", text(platform, EntityTreeModel::ID_COLUMN, Qt::ToolTipRole));
  EXPECT_EQ(int(Qt::AlignLeft | Qt::AlignVCenter), model.data(model.indexOf(platform), Qt::TextAlignmentRole).toInt());
  EXPECT_FALSE(model.data(QModelIndex()).isValid());

  model.setUseEntityIcons(true);
  EXPECT_EQ("", text(gate, EntityTreeModel::TYPE_COLUMN)) << "the icon stands for the abbreviation";
  for (UniqueID_t id : {platform, beam, gate})
  {
    const QModelIndex kind = model.indexOf(id).sibling(model.indexOf(id).row(), EntityTreeModel::TYPE_COLUMN);
    EXPECT_FALSE(model.data(kind, Qt::DecorationRole).value<QIcon>().pixmap(16, 16).isNull());
  }
  EXPECT_FALSE(model.data(model.indexOf(platform), Qt::DecorationRole).isValid()) << "only the type column";
  model.setUseEntityIcons(false);

  model.setIncludeScenario(true);
  EXPECT_EQ("", text(0, EntityTreeModel::TYPE_COLUMN));
  EXPECT_EQ("", text(0, EntityTreeModel::POINTS_COLUMN));
  model.setIncludeScenario(false);
  EXPECT_FALSE(model.indexOf(0).isValid());
}

TEST_F(EntityTree, AdditionsWaitOneBatchAndSkipWhatIsGoneOrDuplicated)
{
  model.forceRefresh();
  QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
  std::vector<UniqueID_t> added;
  for (int i = 0; i < 1000; ++i)
  {
    added.push_back(addPlatform("P" + std::to_string(i)));
    announce(PI_EVENT_PLATFORM_ADDED, added.back());
  }
  announce(PI_EVENT_PLATFORM_ADDED, added.front()); // the same id twice
  PIData::removeEntity(added.back(), false);       // gone before the batch commits
  EXPECT_EQ(1, model.rowCount()) << "nothing is added before the batch time";
  ASSERT_TRUE(QTest::qWaitFor([&] { return model.rowCount() > 1; }, 10000));
  EXPECT_EQ(1 + 999, model.rowCount()) << "all in one batch";
  EXPECT_EQ(999, inserted.count());
  EXPECT_FALSE(model.indexOf(added.back()).isValid());
}

TEST_F(EntityTree, AChildOfAnUnknownHostGoesToTheTop)
{
  announce(PI_EVENT_BEAM_ADDED, beam); // the model has not read its platform
  ASSERT_TRUE(QTest::qWaitFor([&] { return model.rowCount() == 1; }, 10000));
  EXPECT_EQ(model.indexOf(beam), model.index(0, 0));
}

TEST_F(EntityTree, RemovalTakesTheSubtreeAndChangesRefreshTheRow)
{
  model.forceRefresh();
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  store.editEntity(beam)->alias = "Search";
  const std::set<std::uint64_t> ids = {beam, 9999};
  model.listenToEvents(PI_EVENT_ENTITY_DATA_CHANGED, &ids);
  EXPECT_EQ(1, changed.count());
  EXPECT_EQ("Name: Radar\nAlias: Search\nType: Beam\nOriginal ID: 0", text(beam, 0, Qt::ToolTipRole));

  announce(PI_EVENT_ENTITY_REMOVED, platform);
  EXPECT_EQ(0, model.rowCount());
  EXPECT_FALSE(model.indexOf(beam).isValid());
  EXPECT_FALSE(model.indexOf(gate).isValid());
  announce(PI_EVENT_ENTITY_REMOVED, platform); // already gone: nothing happens
}

TEST_F(EntityTree, SynchronisingCatchesUpWithChangesWhoseEventsWereMissed)
{
  model.forceRefresh();
  const UniqueID_t heron = addPlatform("Heron");
  PIData::removeEntity(gate, false);
  PIData::PIPlatformPoint point;
  PIData::getDataPoint(platform, 10.0, &point, PI_RETRIEVE_EXACT);
  point.time = 30.0;
  PIData::addDataPoint(platform, &point);
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

  model.synchronizeToScenario();
  EXPECT_TRUE(model.indexOf(heron).isValid());
  EXPECT_FALSE(model.indexOf(gate).isValid());
  EXPECT_EQ("3", text(platform, EntityTreeModel::POINTS_COLUMN));
  EXPECT_EQ(1, changed.count()) << "only the row whose texts changed is reported";

  model.synchronizeToScenario();
  EXPECT_EQ(1, changed.count()) << "nothing changed, nothing reported";
}

TEST_F(EntityTree, TurningIconsOnAnnouncesTheTypeCellOfEveryRowAtEveryLevel)
{
  model.forceRefresh();
  QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  model.setUseEntityIcons(true);
  const auto covered = [&changed](const QModelIndex& cell) {
    for (const QList<QVariant>& signal : changed)
    {
      const QModelIndex from = signal.at(0).toModelIndex();
      const QModelIndex to = signal.at(1).toModelIndex();
      if (from.parent() == cell.parent() && from.row() <= cell.row() && cell.row() <= to.row() &&
          from.column() <= cell.column() && cell.column() <= to.column())
        return true;
    }
    return false;
  };
  for (UniqueID_t id : {platform, beam, gate})
  {
    const QModelIndex row = model.indexOf(id);
    ASSERT_TRUE(row.isValid());
    EXPECT_TRUE(covered(row.sibling(row.row(), EntityTreeModel::TYPE_COLUMN))) << "entity " << id;
  }
}
