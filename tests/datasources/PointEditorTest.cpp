#include "datasources/AvoidNoopEditsDelegate.h"
#include "datasources/EntityDataModel.h"
#include "datasources/FenceSelectionWidget.h"
#include "datasources/FilterWidget.h"
#include "datasources/PlatformDataSource.h"
#include "datasources/PointEditorWidget.h"
#include "host/PIData.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "ui_PointEditorWidget.h"
#include "utils/BoxSelectMouseHandler.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityTreeComposite.h"

#include <QCoreApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <cmath>

using namespace QtSep;

namespace
{

constexpr double DEG = M_PI / 180.0;
constexpr double LAT = 30.0 * DEG;
constexpr double LON = 40.0 * DEG;

/// The Point Editor tab over the editor's entity tree, on a scenario of two platforms.
class PointEditor : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    hawk = track("Hawk", {10, 20, 30, 40, 50});
    kite = track("Kite", {0, 100});
    PIData::clockSetEnd(100.0);
    PIData::clockSetBegin(0.0);
    model.forceRefresh();
    composite.setModel(&model);
    tab = std::make_unique<PointEditorWidget>(composite);
    tab->show();
    tab->setTabActive(true);
  }
  void TearDown() override
  {
    tab.reset();
    ServerFixture::TearDown();
  }

  /// A platform whose points go east by 0.001 degree a second.
  UniqueID_t track(const std::string& name, const std::vector<double>& times)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {LAT, LON + 0.001 * DEG * t, 100.0};
      point.orientation = {0, 0, 0};
      point.velocity = {0, 0, 0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  /// Selects an entity in the tree and waits until the tab edits it.
  bool select(UniqueID_t id)
  {
    composite.setSelected(id);
    return QTest::qWaitFor([&] { return tab->uniqueId() == id; }, 10000);
  }

  QTreeView& view() const { return *tab->ui().treeView; }
  QAbstractItemModel& shown() const { return *view().model(); }

  QList<int> selectedRows() const
  {
    QList<int> rows;
    for (const QModelIndex& index : view().selectionModel()->selectedRows())
      rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  bool type(int row, int column, const QString& text) { return shown().setData(shown().index(row, column), text); }

  UniqueID_t hawk = 0;
  UniqueID_t kite = 0;
  PluginUtils::EntityTreeModel model;
  kelQt::EntityTreeComposite composite;
  std::unique_ptr<PointEditorWidget> tab;
};

} // namespace

TEST_F(PointEditor, TheTabShowsItsFormWithTipsAndFollowsTheTreesSelection)
{
  const Ui_PointEditorWidget& ui = tab->ui();
  EXPECT_EQ("Point Editor", tab->windowTitle());
  EXPECT_EQ("Type:", ui.label->text());
  EXPECT_EQ("Point Data", ui.typeComboBox->itemText(0));
  EXPECT_EQ("<strong>Push the changes to KELVOR.  This action cannot be undone.</strong>", ui.applyPushButton->toolTip());
  EXPECT_EQ("<strong>Highlight the data row closest to the current scenario time.</strong>", ui.findPushButton->toolTip());
  EXPECT_FALSE(ui.applyPushButton->isEnabled());
  EXPECT_FALSE(ui.findPushButton->isEnabled()) << "nothing edited yet";

  ASSERT_TRUE(select(hawk));
  EXPECT_EQ(5, shown().rowCount());
  EXPECT_EQ("Lat (deg)", shown().headerData(1, Qt::Horizontal).toString()) << "the tab's default geodetic format";
  EXPECT_TRUE(ui.findPushButton->isEnabled());
  EXPECT_GT(view().columnWidth(0), 10) << "columns sized to their contents";
  auto* fence = tab->findChild<FenceSelectionWidget*>();
  ASSERT_NE(nullptr, fence) << "the platform source's controls show above the table";

  tab->setTabActive(false);
  EXPECT_EQ(0u, tab->uniqueId()) << "away from the tab it holds nothing";
  composite.setSelected(kite);
  QCoreApplication::processEvents(); // what the selection posted, if anything, has run
  EXPECT_EQ(0u, tab->uniqueId());
}

TEST_F(PointEditor, SwitchingEntitiesAsksToSaveOrToAbandonAndKeepsTheTreeOnNo)
{
  ASSERT_TRUE(select(hawk));
  ASSERT_TRUE(type(0, 3, "250"));
  {
    WhenShown<QMessageBox> save([](QMessageBox& box) {
      EXPECT_EQ("Save Changes", box.windowTitle());
      EXPECT_EQ("Save changes before switching?", box.text());
      box.button(QMessageBox::Yes)->click();
    });
    ASSERT_TRUE(select(kite));
  }
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(hawk, 0, 1e9, &points);
  EXPECT_EQ(250.0, points[0].position.z) << "saved on the way";

  // Invalid changes: a static time in a track.
  ASSERT_TRUE(type(0, 0, "static"));
  ASSERT_TRUE(tab->dirty());
  {
    WhenShown<QMessageBox> abandon([](QMessageBox& box) {
      EXPECT_EQ("Abandon Changes", box.windowTitle());
      EXPECT_EQ("Current changes are invalid. Switch without saving?", box.text());
      box.button(QMessageBox::No)->click();
    });
    composite.setSelected(hawk);
    ASSERT_TRUE(QTest::qWaitFor([&] { return abandon.acted(); }, 10000));
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return composite.selectedItems() == QList<unsigned long>{kite}; }, 10000))
    << "the tree goes back to the entity edited";
  QCoreApplication::processEvents(); // what the selection posted, if anything, has run
  EXPECT_EQ(kite, tab->uniqueId());
  EXPECT_TRUE(tab->dirty()) << "the edits are still there, asked about once";
}

TEST_F(PointEditor, ApplyWritesAnnouncesOnceAndSetsTheClock)
{
  ASSERT_TRUE(select(hawk));
  PIData::clockSetTime(25.0, 0.0);
  ASSERT_TRUE(type(2, 3, "777"));
  EXPECT_TRUE(tab->ui().applyPushButton->isEnabled());
  EXPECT_TRUE(tab->ui().resetPushButton->isEnabled());
  int announced = 0;
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>& ids) {
    ++announced;
    EXPECT_EQ(std::vector<UniqueID_t>{hawk}, ids);
  });
  tab->ui().applyPushButton->click();
  EXPECT_EQ(1, announced);
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(hawk, 0, 1e9, &points);
  EXPECT_EQ(777.0, points[2].position.z);
  EXPECT_FALSE(tab->dirty());
  EXPECT_FALSE(tab->ui().applyPushButton->isEnabled());
  EXPECT_EQ(25.0, PIData::clockGetTime());
}

TEST_F(PointEditor, AddCopiesTheFirstSelectedRowAndFindCurrentSelectsByTime)
{
  ASSERT_TRUE(select(hawk));
  tab->ui().addPushButton->click();
  EXPECT_EQ(6, shown().rowCount()) << "nothing selected: the last row copied to the end";
  EXPECT_EQ(QList<int>{5}, selectedRows()) << "the copy is selected";
  view().selectionModel()->select(QItemSelection(shown().index(1, 0), shown().index(2, 0)),
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  tab->ui().addPushButton->click();
  EXPECT_EQ(7, shown().rowCount());
  EXPECT_EQ(20.0, shown().index(2, 0).data(EntityDataModel::TIME_ROLE).toDouble()) << "one copy, of the first";

  PIData::clockSetTime(35.0, 0.0);
  tab->ui().findPushButton->click();
  EXPECT_EQ(40.0, shown().index(selectedRows().value(0), 0).data(EntityDataModel::TIME_ROLE).toDouble())
    << "the first row at or after the clock";
  PIData::clockSetTime(99.0, 0.0);
  tab->ui().findPushButton->click();
  EXPECT_EQ(QList<int>{6}, selectedRows()) << "past the end: the last row";
  PIData::clockSetTime(0.0, 0.0);
  tab->ui().findPushButton->click();
  EXPECT_EQ(QList<int>{0}, selectedRows()) << "before the start: the first row";
}

TEST_F(PointEditor, DeleteTakesTheSelectedRowsAndAPlatformKeepsItsLastPoint)
{
  ASSERT_TRUE(select(kite));
  view().selectionModel()->select(shown().index(0, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  EXPECT_TRUE(tab->ui().deletePushButton->isEnabled());
  tab->ui().deletePushButton->click();
  EXPECT_EQ(1, shown().rowCount());
  view().selectionModel()->select(shown().index(0, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  EXPECT_FALSE(tab->ui().deletePushButton->isEnabled()) << "the last point stays";
  EXPECT_FALSE(tab->ui().applyPushButton->isEnabled()) << "one timed point cannot be applied";
}

TEST_F(PointEditor, ARemovedEntityLeavesTheTableAndAResetDropsTheEdits)
{
  ASSERT_TRUE(select(hawk));
  ASSERT_TRUE(type(0, 3, "5"));
  tab->resetModel();
  EXPECT_FALSE(tab->dirty());
  std::uint64_t gone = hawk;
  tab->listenToEvents(PI_EVENT_ENTITY_REMOVED, &gone);
  EXPECT_EQ(0u, tab->uniqueId());
  EXPECT_EQ(0, shown().rowCount());
}

TEST_F(PointEditor, TheRightClickMenuOffersTimeFieldAndLineAsTheCellAllows)
{
  ASSERT_TRUE(select(hawk));
  const auto menuAt = [this](int row, int column) {
    QStringList texts;
    view().scrollTo(shown().index(row, column));
    WhenShown<QMenu> shownMenu([&texts](QMenu& menu) {
      for (QAction* action : menu.actions())
        texts << action->text();
      menu.close();
    });
    emit view().customContextMenuRequested(view().visualRect(shown().index(row, column)).center());
    return texts;
  };
  EXPECT_EQ(QStringList{"Set Scenario Time to Row Time"}, menuAt(1, 3));
  ASSERT_TRUE(type(1, 3, "900"));
  EXPECT_EQ((QStringList{"Set Scenario Time to Row Time", "Revert Field"}), menuAt(1, 3))
    << "the only dirty cell of the row: no Revert Line";
  EXPECT_EQ((QStringList{"Set Scenario Time to Row Time", "Revert Line"}), menuAt(1, 2));
}

TEST_F(PointEditor, LeavingACellUnchangedDoesNotReachTheData)
{
  ASSERT_TRUE(select(hawk));
  AvoidNoopEditsDelegate delegate;
  const QModelIndex cell = shown().index(1, 1);
  QSignalSpy changed(&shown(), &QAbstractItemModel::dataChanged);
  std::unique_ptr<QWidget> editor(delegate.createEditor(&view(), QStyleOptionViewItem(), cell));
  ASSERT_NE(nullptr, editor);
  delegate.setEditorData(editor.get(), cell);
  delegate.setModelData(editor.get(), &shown(), cell);
  EXPECT_EQ(0, changed.count()) << "the text shown is not parsed again";
  EXPECT_FALSE(tab->dirty());
  auto* line = qobject_cast<QLineEdit*>(editor.get());
  ASSERT_NE(nullptr, line);
  line->setText("30 30.0");
  delegate.setModelData(editor.get(), &shown(), cell);
  EXPECT_EQ(1, changed.count());
  EXPECT_TRUE(tab->dirty());
}

TEST_F(PointEditor, AFenceDraggedInTheViewSelectsThePointsInsideIt)
{
  ASSERT_TRUE(select(hawk));
  auto* fence = tab->findChild<FenceSelectionWidget*>();
  ASSERT_NE(nullptr, fence);
  ASSERT_TRUE(QTest::qWaitFor([fence] { return fence->isVisible(); }, 10000)) << "shown with the table";
  fence->selectToolButton()->click();
  EXPECT_TRUE(services.mouseGrabbed);
  const auto mouse = [this](PIGUI::PIMouseEventType_t type, double lat, double lon) {
    services.cursorOnGlobe = true;
    services.cursorLat = lat;
    services.cursorLon = lon;
    return tab->handleMouseEvent(type, PIGUI::PIMouseEvent{});
  };
  // Points at 20, 30 and 40 s lie between these longitudes; 10 and 50 do not.
  EXPECT_EQ(1, mouse(PIGUI::PI_MOUSE_PRESS, LAT - 0.01 * DEG, LON + 0.015 * DEG));
  EXPECT_EQ(1, mouse(PIGUI::PI_MOUSE_MOVE, LAT, LON + 0.03 * DEG));
  EXPECT_EQ(4u, services.lines.size()) << "the box shows while it is dragged";
  EXPECT_EQ(1, mouse(PIGUI::PI_MOUSE_RELEASE, LAT + 0.01 * DEG, LON + 0.045 * DEG));
  EXPECT_TRUE(services.lines.empty()) << "and goes with the release";
  EXPECT_EQ((QList<int>{1, 2, 3}), selectedRows());
  EXPECT_EQ(1, view().selectionModel()->selection().size()) << "neighbouring rows merge into one range";

  // A press off the globe draws nothing and passes the event on.
  services.cursorOnGlobe = false;
  EXPECT_EQ(0, tab->handleMouseEvent(PIGUI::PI_MOUSE_PRESS, PIGUI::PIMouseEvent{}));

  tab->hide();
  EXPECT_FALSE(fence->selectToolButton()->isChecked()) << "hiding the tab ends the selection mode";
  EXPECT_FALSE(services.mouseGrabbed);
}

TEST(FenceBox, SidesAreInsideAndAWideBoxCrossesTheDateLine)
{
  PIData::PIPlatformPoint point;
  point.position = {10 * DEG, 20 * DEG, 0};
  using PluginUtils::BoxSelectMouseHandler;
  EXPECT_TRUE(BoxSelectMouseHandler::isContained_(point, 10 * DEG, 20 * DEG, 0, 0)) << "a corner counts";
  EXPECT_FALSE(BoxSelectMouseHandler::isContained_(point, 9 * DEG, 30 * DEG, 0, 0));
  // West -170, east 170: wider than half the globe, so the box spans the date line.
  point.position = {0, 175 * DEG, 0};
  EXPECT_TRUE(BoxSelectMouseHandler::isContained_(point, 1 * DEG, 170 * DEG, -1 * DEG, -170 * DEG));
  point.position = {0, 0, 0};
  EXPECT_FALSE(BoxSelectMouseHandler::isContained_(point, 1 * DEG, 170 * DEG, -1 * DEG, -170 * DEG));
  point.frame.coordinateSystem = PI_COORDSYS_ECEF;
  EXPECT_FALSE(BoxSelectMouseHandler::isContained_(point, 1, 1, -1, -1)) << "only geodetic points are tested";
}

TEST(KeyFilter, KeysAreCountedAndTheShownKeyIsKeptWhileItIsListed)
{
  FilterWidget filter;
  QSignalSpy changed(&filter, &FilterWidget::currentKeyChanged);
  filter.addKey("Side", true);
  filter.addKey("Side", true);
  filter.addKey("Class", true);
  EXPECT_EQ(4, filter.comboBox()->count()) << "All, a rule, and two keys";
  EXPECT_EQ("All", filter.comboBox()->itemText(0));
  EXPECT_EQ("Class", filter.comboBox()->itemText(2)) << "keys in order";
  filter.setCurrentKey("Side");
  EXPECT_EQ("Side", filter.currentKey());
  filter.removeKey("Side");
  EXPECT_EQ("Side", filter.currentKey()) << "still used once";
  filter.removeKey("Side");
  EXPECT_EQ("", filter.currentKey()) << "gone: All";
  EXPECT_EQ("", changed.last().at(0).toString());
  filter.setCurrentKey("Nothing");
  EXPECT_EQ(0, filter.comboBox()->currentIndex());
}
