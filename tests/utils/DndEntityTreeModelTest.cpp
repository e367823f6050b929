// Drag and drop of whole entities in the editor's tree: what a drag carries and where a drop lands.
#include "exchange/PayloadMarkers.h"
#include "host/PIDataEntities.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "utils/DndEntityTreeModel.h"

#include <QMimeData>

#include <memory>
#include <unistd.h>

namespace
{

class DndEntityTree : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    sample = createSampleEntities();
    heron = createTrack("Heron", 3, {1.0, 2.0});
    model.setIncludeScenario(true);
    model.forceRefresh();
  }

  static std::size_t platformCount()
  {
    std::vector<UniqueID_t> platforms;
    PIData::getPlatformList(&platforms);
    return platforms.size();
  }

  /// Every column's index of the rows of ids, as a view hands a dragged selection over.
  QModelIndexList rowsOf(std::initializer_list<UniqueID_t> ids) const
  {
    QModelIndexList indexes;
    for (UniqueID_t id : ids)
    {
      const QModelIndex first = model.indexOf(id);
      for (int column = 0; column < model.columnCount(first.parent()); ++column)
        indexes << first.sibling(first.row(), column);
    }
    return indexes;
  }

  /// Makes a payload look written by another process.
  static void makeForeign(QMimeData& mime)
  {
    QByteArray bytes = mime.data(QtSep::CP_VERSION);
    const quint64 other = static_cast<quint64>(::getpid()) + 1;
    for (int i = 0; i < 8; ++i)
      bytes[5 + i] = static_cast<char>((other >> (8 * (7 - i))) & 0xFF);
    mime.setData(QtSep::CP_VERSION, bytes);
  }

  SampleEntities sample;
  UniqueID_t heron = 0;
  PluginUtils::DndEntityTreeModel model;
  ModelChecker modelChecked{&model};
};

} // namespace

TEST_F(DndEntityTree, RowsWithAnEntityDragAndEveryRowTakesDrops)
{
  EXPECT_EQ(Qt::CopyAction | Qt::MoveAction, model.supportedDragActions());
  EXPECT_EQ(Qt::NoItemFlags, model.flags(QModelIndex()));
  const Qt::ItemFlags platform = model.flags(model.indexOf(heron));
  EXPECT_TRUE(platform & Qt::ItemIsDragEnabled);
  EXPECT_TRUE(platform & Qt::ItemIsDropEnabled);
  EXPECT_TRUE(platform & Qt::ItemIsSelectable);
  const Qt::ItemFlags scenario = model.flags(model.indexOf(0));
  EXPECT_FALSE(scenario & Qt::ItemIsDragEnabled);
  EXPECT_TRUE(scenario & Qt::ItemIsDropEnabled);
}

TEST_F(DndEntityTree, ADragCarriesEachEntityOnceWhateverColumnsItsRowGave)
{
  EXPECT_EQ(nullptr, model.mimeData({}));
  EXPECT_EQ(nullptr, model.mimeData(rowsOf({0})));
  // A beam and its gate cannot travel together.
  EXPECT_EQ(nullptr, model.mimeData(rowsOf({sample.beam, sample.gate})));

  const std::unique_ptr<QMimeData> both(model.mimeData(rowsOf({heron, sample.platform, heron})));
  ASSERT_TRUE(both);
  // Dropped on no row at all: a top-level payload needs no target.
  ASSERT_TRUE(model.dropMimeData(both.get(), Qt::CopyAction, -1, -1, QModelIndex()));
  // Two platforms more, with the sample's beam and gate: Heron once, Eagle once.
  EXPECT_EQ(4u, platformCount());
  std::vector<UniqueID_t> gates;
  PIData::getGateList(&gates);
  EXPECT_EQ(2u, gates.size());
}

TEST_F(DndEntityTree, WithinAHostADropCopiesAndAMoveIsLeftToAnotherHost)
{
  const std::unique_ptr<QMimeData> local(model.mimeData(rowsOf({heron})));
  const QModelIndex onHeron = model.indexOf(heron);
  EXPECT_TRUE(model.canDropMimeData(local.get(), Qt::CopyAction, onHeron.row(), 0, onHeron.parent()));
  EXPECT_FALSE(model.canDropMimeData(local.get(), Qt::MoveAction, onHeron.row(), 0, onHeron.parent()));
  EXPECT_FALSE(model.canDropMimeData(local.get(), Qt::LinkAction, onHeron.row(), 0, onHeron.parent()));
  EXPECT_FALSE(model.dropMimeData(local.get(), Qt::MoveAction, onHeron.row(), 0, onHeron.parent()));
  EXPECT_EQ(2u, platformCount());

  makeForeign(*local);
  EXPECT_TRUE(model.canDropMimeData(local.get(), Qt::MoveAction, onHeron.row(), 0, onHeron.parent()));
  EXPECT_TRUE(model.dropMimeData(local.get(), Qt::MoveAction, -1, -1, onHeron));
  EXPECT_EQ(3u, platformCount());
}

TEST_F(DndEntityTree, AChildLandsOnlyOnARowThatCanHoldIt)
{
  const std::unique_ptr<QMimeData> gate(model.mimeData(rowsOf({sample.gate})));
  ASSERT_TRUE(gate);
  const QModelIndex beam = model.indexOf(sample.beam);
  const QModelIndex platform = model.indexOf(heron);
  // On the beam's row, given as a row under its parent or as the parent itself.
  EXPECT_TRUE(model.canDropMimeData(gate.get(), Qt::CopyAction, beam.row(), 0, beam.parent()));
  EXPECT_TRUE(model.canDropMimeData(gate.get(), Qt::CopyAction, -1, -1, beam));
  EXPECT_FALSE(model.canDropMimeData(gate.get(), Qt::CopyAction, platform.row(), 0, platform.parent()));
  EXPECT_FALSE(model.canDropMimeData(gate.get(), Qt::CopyAction, -1, -1, QModelIndex()));
  ASSERT_TRUE(model.dropMimeData(gate.get(), Qt::CopyAction, -1, -1, beam));
  std::vector<UniqueID_t> gates;
  PIData::getGateList(sample.beam, &gates);
  EXPECT_EQ(2u, gates.size());
}

TEST_F(DndEntityTree, AMovedRowLeavesTheHostAndTheScenarioRowStays)
{
  const QModelIndex platform = model.indexOf(heron);
  EXPECT_TRUE(model.removeRows(platform.row(), 1, platform.parent()));
  EXPECT_EQ(0u, PIData::findPlatform("Heron"));
  const QModelIndex scenario = model.indexOf(0);
  EXPECT_FALSE(model.removeRows(scenario.row(), 1, scenario.parent()));
}
