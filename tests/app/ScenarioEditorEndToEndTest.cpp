// KELVOR Lite with the real Scenario Editor plug-in: one command from the user's click to the
// store and back to the views.
#include "app/HostApplication.h"
#include "store/ScenarioStore.h"
#include "support/WhenShown.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioVocabulary.h"
#include "files/ScenarioWriter.h"
#include "store/DataTable.h"
#include "ui/DataBrowser.h"
#include "ui/GlobeWidget.h"
#include "ui/MainWindow.h"
#include "ui/UndoHistoryDock.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QProcess>
#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QDrag>
#include <QEventLoop>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QPushButton>

#include <marble/MarbleWidget.h>

#include <cmath>
#include <iostream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

using namespace kelvor;

namespace
{

const QString DEMO = QString(SEP_SOURCE_DIR) + "/data/demo.kls";
const char* const TRACK = "Tanker 4"; // a recorder that held each position for four samples

class ScenarioEditorEndToEnd : public ::testing::Test
{
protected:
  void SetUp() override
  {
    host = std::make_unique<HostApplication>(dir.filePath("registry.ini").toStdString());
    host->window().show();
    ASSERT_EQ(1u, host->loadPlugins({SCENARIO_EDITOR_PLUGIN_DIR}, PIApp::CommandLineArguments({"kelvor"})));
    ASSERT_TRUE(host->window().openFile(DEMO));
  }
  void TearDown() override { host.reset(); }

  UniqueID_t trackId() const { return host->store().findPlatform(TRACK); }
  std::size_t trackPoints() const { return host->store().entity(trackId())->pointCount(); }

  QString dataBrowserPoints() const
  {
    QTreeWidget* tree = host->window().dataBrowser()->tree();
    const QList<QTreeWidgetItem*> rows = tree->findItems(TRACK, Qt::MatchExactly | Qt::MatchRecursive);
    return rows.isEmpty() ? QString() : rows.front()->text(3);
  }

  /// Runs the plug-in's menu item and returns its editor window.
  QDockWidget* openEditor()
  {
    for (QAction* item : host->window().pluginMenu()->actions())
    {
      if (item->text() == "Scenario Editor...")
        item->trigger();
    }
    return host->window().findChild<QDockWidget*>("ScenarioEditorMainDialog");
  }

  /// @return the view of the editor window's entity tree; null when there is none
  static QTreeView* editorTree(QDockWidget& editor)
  {
    // The tree's class lives in the plug-in, so it is known here by its name only; the Make
    // Stationary tab has another, of its own name.
    for (QWidget* child : editor.findChildren<QWidget*>())
    {
      if (QString(child->metaObject()->className()) == "kelQt::EntityTreeComposite" &&
          child->objectName() != "entityTreeComposite")
        return child->findChild<QTreeView*>("treeView");
    }
    return nullptr;
  }

  /// Selects a row of the editor's tree and chooses a command of its right-click menu,
  /// accepting the question that follows when the command asks one. @return the menu's texts
  QStringList chooseFromTreeMenu(QTreeView& tree, const QString& command, const QString& row = TRACK,
                                 bool asks = true)
  {
    const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, row, 1,
                                                      Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
      return {};
    tree.selectionModel()->select(found.front(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    QStringList texts;
    const auto question = asks ? answerNextDialog(true) : nullptr;
    WhenShown<QMenu> menu([&texts, command](QMenu& shown) { texts = chooseFrom(shown, command); });
    emit tree.customContextMenuRequested(tree.visualRect(found.front()).center());
    EXPECT_TRUE(QTest::qWaitFor([&] { return menu.acted() && (!question || question->acted()); }, 60000));
    return texts;
  }

  /// Closes a menu and triggers its entry of that text. @return the menu's texts, "---" for rules
  static QStringList chooseFrom(QMenu& menu, const QString& command)
  {
    QStringList texts;
    QAction* chosen = nullptr;
    for (QAction* action : menu.actions())
    {
      texts << (action->isSeparator() ? QString("---") : action->text());
      if (action->text() == command)
        chosen = action;
    }
    menu.close();
    if (chosen)
      chosen->trigger();
    return texts;
  }

  QTemporaryDir dir;
  std::unique_ptr<HostApplication> host;
};

} // namespace

TEST_F(ScenarioEditorEndToEnd, RemoveDuplicatePointsFromTheEditorsTreeMenu)
{
  ASSERT_NE(0u, trackId());
  const std::size_t before = trackPoints();
  EXPECT_EQ(60u, before);
  EXPECT_EQ("60", dataBrowserPoints());

  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  EXPECT_TRUE(editor->isVisible());
  EXPECT_EQ("Qt Scenario Editor", editor->windowTitle());
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);

  const QStringList menu = chooseFromTreeMenu(*tree, "Remove Duplicate Points...");
  ASSERT_TRUE(menu.contains("Remove Duplicate Points...")) << menu.join(", ").toStdString();
  EXPECT_LT(menu.indexOf("Remove Duplicate Points..."), menu.indexOf("&Copy")) << "the actions come first";

  // Fifteen runs of four equal points each keep their first and last.
  EXPECT_EQ(30u, trackPoints());
  auto* toast = host->window().findChild<QLabel*>("toast");
  ASSERT_NE(nullptr, toast);
  EXPECT_TRUE(toast->isVisible());
  EXPECT_EQ("Points Removed", toast->text());
  EXPECT_TRUE(host->window().isModified());
  EXPECT_TRUE(QTest::qWaitFor([&] { return dataBrowserPoints() == "30"; }, 10000)) << "the Data Browser refreshed";
  const QModelIndexList row = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, TRACK, 1,
                                                   Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_FALSE(row.isEmpty());
  EXPECT_EQ("30", row.front().sibling(row.front().row(), 3).data().toString()) << "the editor's tree follows";

  QDir().mkpath(TEST_OUTPUT_DIR);
  EXPECT_TRUE(host->window().grab().save(QString(TEST_OUTPUT_DIR) + "/scenario-editor.png"));
}

TEST_F(ScenarioEditorEndToEnd, MergeFromTheDataBrowsersMenuLeavesTheFirstPlatform)
{
  QTreeWidget* browser = host->window().dataBrowser()->tree();
  const QList<QTreeWidgetItem*> vipers = browser->findItems("Viper 2", Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(3, vipers.size()) << "one object recorded as three platforms";
  for (QTreeWidgetItem* item : vipers)
    item->setSelected(true);
  const std::size_t before = host->store().entityCount();

  QStringList offered;
  const auto question = answerNextDialog(true);
  WhenShown<QMenu> menu([&offered](QMenu& shown) { offered = chooseFrom(shown, "Merge..."); });
  emit browser->customContextMenuRequested(browser->visualItemRect(vipers.front()).center());
  EXPECT_TRUE(QTest::qWaitFor([&] { return host->store().entityCount() != before; }, 60000));

  EXPECT_TRUE(offered.contains("Merge...")) << offered.join("|").toStdString();
  EXPECT_EQ(before - 2, host->store().entityCount()) << "the other two merged into the first and went";
  const auto listed = [browser] { return browser->findItems("Viper 2", Qt::MatchExactly | Qt::MatchRecursive).size(); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return listed() == 1; }, 10000)) << "the Data Browser follows";
}


TEST_F(ScenarioEditorEndToEnd, EditPointsFromTheDataBrowserThenApplyAndFenceOnTheGlobe)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeWidget* browser = host->window().dataBrowser()->tree();
  const QList<QTreeWidgetItem*> tanker = browser->findItems(TRACK, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(1, tanker.size());
  browser->clearSelection();
  tanker.front()->setSelected(true);
  QStringList offered;
  {
    WhenShown<QMenu> menu([&offered](QMenu& shown) { offered = chooseFrom(shown, "Edit Points..."); });
    emit browser->customContextMenuRequested(browser->visualItemRect(tanker.front()).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.acted(); }, 60000));
  }
  ASSERT_TRUE(offered.contains("Edit Points...")) << offered.join("|").toStdString();

  // The Point Editor tab is current with the track's points; its table is a tree view whose
  // model has the time role.
  auto* tabs = editor->findChild<QTabWidget*>();
  ASSERT_NE(nullptr, tabs);
  EXPECT_EQ("Point Editor", tabs->tabText(tabs->currentIndex()));
  QWidget* pointEditor = tabs->currentWidget();
  auto* table = pointEditor->findChild<QTreeView*>("treeView");
  ASSERT_NE(nullptr, table);
  ASSERT_TRUE(QTest::qWaitFor([&] { return table->model() && table->model()->rowCount() == 60; }, 10000));

  // A latitude typed in degrees, minutes and seconds, then Apply.
  QAbstractItemModel& rows = *table->model();
  const double before = host->store().entity(trackId())->platformPoints.front().lat;
  ASSERT_TRUE(rows.setData(rows.index(0, 1), "36 30 15.25 N"));
  auto* apply = pointEditor->findChild<QPushButton*>("applyPushButton");
  ASSERT_TRUE(apply && apply->isEnabled());
  apply->click();
  const kelvor::Entity* stored = host->store().entity(trackId());
  ASSERT_NE(nullptr, stored);
  const double typed = (36.0 + 30.0 / 60.0 + 15.25 / 3600.0) * M_PI / 180.0;
  EXPECT_NEAR(typed, stored->platformPoints.front().lat, 1e-9) << "the store holds the new latitude";
  EXPECT_TRUE(host->window().isModified());
  EXPECT_TRUE(QTest::qWaitFor([&] { return dataBrowserPoints() == "60"; }, 10000)) << "the Data Browser follows";

  // Apply is one step: undone, the point is as before; redone, as typed.
  host->window().undo();
  EXPECT_EQ(before, host->store().entity(trackId())->platformPoints.front().lat);
  EXPECT_FALSE(host->window().isModified());
  host->window().redo();
  stored = host->store().entity(trackId());
  EXPECT_NEAR(typed, stored->platformPoints.front().lat, 1e-9);

  // A fence dragged on the globe with real mouse events, around points 20 to 40 of the track.
  kelvor::GlobeWidget* globe = host->window().globe();
  const std::vector<kelvor::StoredPlatformPoint> track(stored->platformPoints.begin(), stored->platformPoints.end());
  globe->marble()->centerOn(track[30].lon * 180 / M_PI, track[30].lat * 180 / M_PI);
  globe->marble()->setDistance(50.0); // km above the ground, so the track spans the view
  QCoreApplication::processEvents();
  auto* fence = pointEditor->findChild<QToolButton*>("selectToolButton");
  ASSERT_NE(nullptr, fence);
  fence->click();
  const auto pixel = [globe](const auto& point) {
    qreal x = 0, y = 0;
    globe->marble()->screenCoordinates(point.lon * 180 / M_PI, point.lat * 180 / M_PI, x, y);
    return QPointF(x, y);
  };
  const QPointF a = pixel(track[20]);
  const QPointF b = pixel(track[40]);
  const QPoint from(static_cast<int>(std::min(a.x(), b.x())) - 3, static_cast<int>(std::min(a.y(), b.y())) - 3);
  const QPoint to(static_cast<int>(std::max(a.x(), b.x())) + 3, static_cast<int>(std::max(a.y(), b.y())) + 3);
  QWidget* view = globe->marble();
  QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, from);
  QTest::mouseMove(view, (from + to) / 2);
  QTest::mouseMove(view, to);
  QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, to);

  // The box as the globe reads its corners, and the points inside it.
  qreal lon1 = 0, lat1 = 0, lon2 = 0, lat2 = 0;
  ASSERT_TRUE(globe->marble()->geoCoordinates(from.x(), from.y(), lon1, lat1, Marble::GeoDataCoordinates::Radian));
  ASSERT_TRUE(globe->marble()->geoCoordinates(to.x(), to.y(), lon2, lat2, Marble::GeoDataCoordinates::Radian));
  std::set<double> inside;
  for (const auto& point : track)
  {
    if (point.lat >= std::min(lat1, lat2) && point.lat <= std::max(lat1, lat2) && point.lon >= std::min(lon1, lon2) &&
        point.lon <= std::max(lon1, lon2))
      inside.insert(point.time);
  }
  ASSERT_GE(inside.size(), 10u) << "the box holds a stretch of the track";
  std::set<double> selected;
  for (const QModelIndex& index : table->selectionModel()->selectedRows())
    selected.insert(index.data(Qt::UserRole).toDouble());
  EXPECT_EQ(inside, selected) << "exactly the rows whose points lie in the box";
  fence->click();
}

TEST_F(ScenarioEditorEndToEnd, ABeamCategoryGenericTagAndTableCellEditedAppliedSavedAndReopened)
{
  // An absolute beam on Eagle 1, whose pointing is data (the demo's own beam follows a target).
  const UniqueID_t eagle = host->store().findPlatform("Eagle 1");
  ASSERT_NE(0u, eagle);
  PIData::PIBeamHeader header;
  header.name = "Search Beam";
  header.beamType = PIData::PI_BEAM_ABSOLUTE;
  const UniqueID_t beam = host->store().createEntity(header, eagle);
  for (double t : {100.0, 200.0})
    host->store().editEntity(beam)->beamPoints.insert(PIData::PIBeamPoint{0.1, 0.0, 5000.0, t});

  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  auto* tabs = editor->findChild<QTabWidget*>();
  QWidget* pointEditor = nullptr;
  for (int i = 0; i < tabs->count(); ++i)
  {
    if (tabs->tabText(i) == "Point Editor")
      pointEditor = tabs->widget(i);
  }
  ASSERT_NE(nullptr, pointEditor);
  tabs->setCurrentWidget(pointEditor);
  QTreeView* entities = editorTree(*editor);
  ASSERT_NE(nullptr, entities);
  auto* table = pointEditor->findChild<QTreeView*>("treeView");
  auto* types = pointEditor->findChild<QComboBox*>("typeComboBox");
  auto* apply = pointEditor->findChild<QPushButton*>("applyPushButton");
  ASSERT_TRUE(table && types && apply);
  const auto select = [&](const QString& name) {
    ASSERT_TRUE(QTest::qWaitFor([&] {
      return !entities->model()->match(entities->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                       Qt::MatchExactly | Qt::MatchRecursive).isEmpty();
    }, 10000)) << name.toStdString();
    const QModelIndex row = entities->model()->match(entities->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                                     Qt::MatchExactly | Qt::MatchRecursive).front();
    entities->selectionModel()->select(row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  };
  const auto chooseType = [&](const QString& type) {
    const int index = types->findText(type);
    types->setCurrentIndex(index);
    emit types->activated(index);
  };
  const auto editAndApply = [&](int column, const QString& key, const QString& text) {
    // The row whose column 1 shows key (the first row when key is empty), then Apply.
    QAbstractItemModel& rows = *table->model();
    int row = 0;
    for (int r = 0; !key.isEmpty() && r < rows.rowCount(); ++r)
    {
      if (rows.index(r, 1).data().toString() == key)
        row = r;
    }
    ASSERT_TRUE(rows.setData(rows.index(row, column), text)) << text.toStdString();
    ASSERT_TRUE(apply->isEnabled());
    apply->click();
  };

  select("Search Beam");
  ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 2; }, 10000));
  editAndApply(1, QString(), "45");
  select("Eagle 1");
  chooseType("Category Data");
  ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 3; }, 10000));
  editAndApply(2, "Side", "Green");
  chooseType("Generic Data");
  editAndApply(2, "Note", "bingo fuel");
  chooseType("Data Tables");
  ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() > 0; }, 10000));
  editAndApply(1, QString(), "1234.5");

  // Saved, and opened again.
  const QString saved = dir.filePath("edited.kls");
  ASSERT_TRUE(host->window().saveAs(saved));
  ASSERT_TRUE(host->window().openFile(saved));
  kelvor::ScenarioStore& store = host->store();
  const UniqueID_t reopened = store.findPlatform("Eagle 1");
  ASSERT_NE(0u, reopened);
  const kelvor::Entity& platform = *store.entity(reopened);
  UniqueID_t searchBeam = 0;
  for (UniqueID_t child : platform.children)
  {
    if (nameOfHeader(store.entity(child)->header) == "Search Beam")
      searchBeam = child;
  }
  ASSERT_NE(0u, searchBeam);
  EXPECT_NEAR(45.0 * M_PI / 180.0, store.entity(searchBeam)->beamPoints.front().azimuth, 1e-9);
  bool green = false;
  for (const auto& category : platform.categories)
    green = green || (category.name == "Side" && category.value == "Green");
  EXPECT_TRUE(green) << "the category value";
  bool note = false;
  for (const auto& item : platform.generic)
    note = note || (item.tag == "Note" && item.value == "bingo fuel" && item.expiration == 30.0);
  EXPECT_TRUE(note) << "the generic tag, its expiration kept";
  ASSERT_FALSE(platform.tables.empty());
  const kelvor::DataTable& fuel = *store.table(platform.tables.front());
  const std::string firstRow = kelvor::ScenarioVocabulary::formatCells(fuel, fuel.rows().begin()->second);
  EXPECT_NE(std::string::npos, firstRow.find("1234.5")) << firstRow;
}

TEST_F(ScenarioEditorEndToEnd, TheMakeStationaryTabListsTheDemosStillPlatformsAndConvertsOne)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  auto* tabs = editor->findChild<QTabWidget*>();
  QWidget* stationary = nullptr;
  for (int i = 0; i < tabs->count(); ++i)
  {
    if (tabs->tabText(i) == "Make Stationary")
      stationary = tabs->widget(i);
  }
  ASSERT_NE(nullptr, stationary);
  tabs->setCurrentWidget(stationary);
  for (const char* name : {"distanceCheckBox", "yawCheckBox", "pitchCheckBox", "rollCheckBox"})
    stationary->findChild<QCheckBox*>(name)->setChecked(false);
  auto* distance = stationary->findChild<QCheckBox*>("distanceCheckBox");
  distance->setChecked(true);
  stationary->findChild<QSpinBox*>("distanceSpinBox")->setValue(10);
  stationary->findChild<QPushButton*>("detectPushButton")->click();

  // Oiler 6 lies at anchor for its whole life and Buoy 7 has one timed point; the others move,
  // or are static already.
  auto* list = stationary->findChild<QTreeView*>("treeView");
  ASSERT_NE(nullptr, list);
  QStringList found;
  ASSERT_TRUE(QTest::qWaitFor([&] {
    found.clear();
    for (int row = 0; row < list->model()->rowCount(); ++row)
      found << list->model()->index(row, 0).data().toString();
    return found.contains("Oiler 6");
  }, 10000)) << found.join(", ").toStdString();
  EXPECT_FALSE(found.contains("Tanker 4"));
  EXPECT_TRUE(found.contains("Buoy 7")) << "one point at a time";
  EXPECT_FALSE(found.contains("Radar Site 8")) << "static already";
  const QModelIndex oiler =
    list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, "Oiler 6", 1, Qt::MatchExactly).front();
  list->selectionModel()->select(oiler, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  auto* accept = stationary->findChild<QPushButton*>("acceptPushButton");
  ASSERT_TRUE(QTest::qWaitFor([&] { return accept->isEnabled(); }, 10000));
  accept->click();
  const kelvor::Entity& converted = *host->store().entity(host->store().findPlatform("Oiler 6"));
  ASSERT_EQ(1u, converted.platformPoints.size());
  EXPECT_EQ(-1.0, converted.platformPoints.front().time) << "one static point";
  EXPECT_TRUE(host->window().isModified());
}

TEST_F(ScenarioEditorEndToEnd, EditTimesMovesTheDemoByADayAndTheClockBarFollows)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  auto* tabs = editor->findChild<QTabWidget*>();
  QWidget* miscellaneous = nullptr;
  for (int i = 0; i < tabs->count(); ++i)
  {
    if (tabs->tabText(i) == "Miscellaneous")
      miscellaneous = tabs->widget(i);
  }
  ASSERT_NE(nullptr, miscellaneous);
  tabs->setCurrentWidget(miscellaneous);
  auto* begin = host->window().findChild<QLabel*>("ClockBegin");
  auto* end = host->window().findChild<QLabel*>("ClockEnd");
  ASSERT_TRUE(begin && end);
  const QString beginBefore = begin->text();
  const double firstBefore = host->store().clock().begin();
  const std::size_t tankerPoints = trackPoints();

  // The dialog's start is its time widget: a day later, typed as the user's edit.
  WhenShown<QDialog> times([](QDialog& dialog) {
    QWidget* start = dialog.findChild<QWidget*>("startTime");
    ASSERT_NE(nullptr, start);
    // Step the start's day with the keyboard, as a user does: the first field is the day of year.
    QAbstractSpinBox* box = nullptr;
    for (QAbstractSpinBox* shown : start->findChildren<QAbstractSpinBox*>())
    {
      if (shown->isVisible())
        box = shown;
    }
    ASSERT_NE(nullptr, box);
    box->setFocus();
    box->findChild<QLineEdit*>()->setCursorPosition(0);
    QTest::keyClick(box, Qt::Key_Up);
    QTest::keyClick(box, Qt::Key_Return);
    dialog.accept();
  });
  miscellaneous->findChild<QPushButton*>("timesPushButton")->click();
  ASSERT_TRUE(times.acted());
  EXPECT_EQ(firstBefore + 86400.0, host->store().clock().begin()) << "a day later";
  EXPECT_EQ(tankerPoints, trackPoints()) << "nothing lost";
  EXPECT_TRUE(QTest::qWaitFor([&] { return begin->text() != beginBefore; }, 10000)) << "the clock bar shows the new span";
}

TEST_F(ScenarioEditorEndToEnd, ManualMergeOfTheThreeVipersPreviewedOnTheGlobeThenMerged)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeWidget* browser = host->window().dataBrowser()->tree();
  const QList<QTreeWidgetItem*> vipers = browser->findItems("Viper 2", Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(3, vipers.size()) << "one object recorded as three platforms";
  browser->clearSelection();
  for (QTreeWidgetItem* item : vipers)
    item->setSelected(true);
  QStringList offered;
  {
    WhenShown<QMenu> menu([&offered](QMenu& shown) { offered = chooseFrom(shown, "Manual Merge..."); });
    emit browser->customContextMenuRequested(browser->visualItemRect(vipers.front()).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu.acted(); }, 60000));
  }
  ASSERT_TRUE(offered.contains("Manual Merge...")) << offered.join("|").toStdString();

  auto* tabs = editor->findChild<QTabWidget*>();
  ASSERT_NE(nullptr, tabs);
  EXPECT_EQ("Manual Merge", tabs->tabText(tabs->currentIndex()));
  QWidget* merge = tabs->currentWidget();
  auto* ordered = merge->findChild<QTreeWidget*>("orderedTreeWidget");
  ASSERT_NE(nullptr, ordered);
  ASSERT_EQ(3, ordered->topLevelItemCount()) << "the three Vipers are listed at once";

  merge->findChild<QPushButton*>("detectPushButton")->click();
  auto* dropouts = merge->findChild<QTreeWidget*>("dropoutTreeWidget");
  ASSERT_EQ(2, dropouts->topLevelItemCount()) << "the second and third Viper fill the first's hole";

  // The globe over the Vipers' tracks, before and during the preview.
  const UniqueID_t primary = ordered->topLevelItem(0)->data(0, Qt::UserRole).toULongLong();
  const kelvor::Entity& first = *host->store().entity(primary);
  GlobeWidget* globe = host->window().globe();
  globe->marble()->centerOn(first.platformPoints.front().lon * 180 / M_PI, first.platformPoints.front().lat * 180 / M_PI);
  globe->marble()->setDistance(120.0); // km above the ground: the tracks fill the view
  QCoreApplication::processEvents();
  const QImage before = globe->marble()->grab().toImage();
  auto* preview = merge->findChild<QPushButton*>("previewPushButton");
  preview->click();
  ASSERT_TRUE(preview->isChecked());
  const UniqueID_t temporary = host->store().findPlatform("Viper 2_ScenarioEditor_Temp");
  ASSERT_NE(0u, temporary);
  EXPECT_TRUE(host->store().drawFlag(primary, "Hidden")) << "the first Viper gives way to the preview";
  EXPECT_EQ(3u, host->store().preferenceRules().size());
  EXPECT_EQ(93u, host->store().entity(temporary)->pointCount()) << "31 points of each Viper";
  QImage during;
  EXPECT_TRUE(QTest::qWaitFor([&] {
    during = globe->marble()->grab().toImage();
    return during != before;
  }, 10000)) << "the preview shows on the globe";
  EXPECT_TRUE(during.save(QString(TEST_OUTPUT_DIR) + "/manual-merge-preview.png"));

  merge->findChild<QPushButton*>("mergePushButton")->click();
  EXPECT_EQ(nullptr, host->store().entity(temporary)) << "the preview went before the merge";
  EXPECT_TRUE(host->store().preferenceRules().empty());
  EXPECT_FALSE(host->store().drawFlag(primary, "Hidden"));
  const UniqueID_t merged = host->store().findPlatform("Viper 2_Merge");
  ASSERT_NE(0u, merged);
  EXPECT_EQ(93u, host->store().entity(merged)->pointCount()) << "the first Viper's track with the others' fill";
  EXPECT_EQ(31u, host->store().entity(primary)->pointCount()) << "the sources stay";
  EXPECT_EQ(0, ordered->topLevelItemCount());
  const auto listed = [browser] { return !browser->findItems("Viper 2_Merge", Qt::MatchExactly | Qt::MatchRecursive).isEmpty(); };
  EXPECT_TRUE(QTest::qWaitFor(listed, 10000)) << "the Data Browser lists the new platform";
}

namespace
{

// The pasting side of the test of two processes runs in a second process of these tests: this
// variable names the file it saves its scenario to.
const char* const PASTE_INTO = "SEP_PASTE_INTO";
const char* const COPIED = "Eagle 1";

std::string number(double value) { return QString::number(value, 'g', 17).toStdString(); }

/**
 * What a paste brings over of an entity and its children, as text: kind, name, the own points
 * (a platform's each), categories, generic data, targets by name and tables, then the children
 * in the order the payload carries them.
 */
void describeForPaste(const kelvor::ScenarioStore& store, UniqueID_t id, std::string& out)
{
  const kelvor::Entity* entity = store.entity(id);
  if (!entity)
    return;
  out += std::to_string(entity->kind) + " \"" + kelvor::nameOfHeader(entity->header) + "\" " +
         std::to_string(entity->pointCount()) + " points from " + number(entity->earliestTime()) + " to " +
         number(entity->latestTime()) + "\n";
  for (const auto& point : entity->platformPoints)
    out += " " + number(point.time) + " " + number(point.lat) + " " + number(point.lon) + " " + number(point.alt) + "\n";
  for (const auto& item : entity->categories)
    out += " category " + number(item.time) + " " + item.name + "=" + item.value + "\n";
  for (const auto& item : entity->generic)
    out += " generic " + number(item.time) + " " + item.tag + "=" + item.value + "\n";
  for (const auto& target : entity->targets)
  {
    const kelvor::Entity* aimed = store.entity(target.value);
    out += " target " + number(target.time) + " " + (aimed ? kelvor::nameOfHeader(aimed->header) : "none") + "\n";
  }
  for (long tableId : entity->tables)
  {
    const kelvor::DataTable* table = store.table(tableId);
    out += " table " + table->name() + " " + std::to_string(table->rows().size()) + " rows\n";
  }
  const std::vector<PIScenarioObjectType_t> order =
    entity->kind == PI_PLATFORM_TYPE
      ? std::vector<PIScenarioObjectType_t>{PI_CUSTOM_RENDERING_TYPE, PI_BEAM_TYPE, PI_LASER_TYPE, PI_LOB_GROUP_TYPE,
                                            PI_PROJECTOR_TYPE}
    : entity->kind == PI_BEAM_TYPE ? std::vector<PIScenarioObjectType_t>{PI_GATE_TYPE, PI_PROJECTOR_TYPE}
                                   : std::vector<PIScenarioObjectType_t>{};
  for (PIScenarioObjectType_t kind : order)
  {
    for (UniqueID_t child : entity->children)
    {
      if (store.entity(child) && store.entity(child)->kind == kind)
        describeForPaste(store, child, out);
    }
  }
}

/// @return the platform of that name made last
UniqueID_t lastPlatformNamed(const kelvor::ScenarioStore& store, const std::string& name)
{
  UniqueID_t last = 0;
  for (UniqueID_t id : store.list(PI_PLATFORM_TYPE))
  {
    if (kelvor::nameOfHeader(store.entity(id)->header) == name)
      last = std::max(last, id);
  }
  return last;
}

} // namespace

// Two KELVOR Lite processes on one display: "Copy Entity" here, "Paste Entity" in the other,
// which saves its scenario; the platform arrives there with its children, equal to this one.
TEST_F(ScenarioEditorEndToEnd, CopyEntityInOneKelvorLiteAndPasteEntityInAnother)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !chooseFromTreeMenu(*tree, "Copy Entity", COPIED, false).isEmpty(); }, 30000));
  ASSERT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("application/asi.1.0"));

  const QString saved = dir.filePath("pasted.kls");
  QProcess other;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(PASTE_INTO, saved);
  other.setProcessEnvironment(environment);
  other.setProcessChannelMode(QProcess::MergedChannels);
  other.start(QCoreApplication::applicationFilePath(),
              {"--gtest_filter=ScenarioEditorEndToEnd.PasteSideOfTwoKelvorLites"});
  // This process owns the clipboard: it answers the other's request while it waits.
  ASSERT_TRUE(QTest::qWaitFor([&] { return other.state() == QProcess::NotRunning; }, 300000));
  const QString output = QString::fromLocal8Bit(other.readAll());
  ASSERT_EQ(0, other.exitCode()) << output.toStdString();
  ASSERT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.toStdString();

  kelvor::ScenarioStore pasted;
  ASSERT_TRUE(kelvor::ScenarioReader(pasted).readFile(saved.toStdString()).loaded);
  std::string expected;
  std::string actual;
  describeForPaste(host->store(), host->store().findPlatform(COPIED), expected);
  describeForPaste(pasted, lastPlatformNamed(pasted, COPIED), actual);
  EXPECT_NE(host->store().findPlatform(COPIED), lastPlatformNamed(pasted, COPIED)) << "a new entity";
  EXPECT_GT(std::count(expected.begin(), expected.end(), '\n'), 20);
  EXPECT_EQ(expected, actual);
}

// The other process of the test above: pastes what the clipboard holds and saves.
TEST_F(ScenarioEditorEndToEnd, PasteSideOfTwoKelvorLites)
{
  const QString target = qEnvironmentVariable(PASTE_INTO);
  if (target.isEmpty())
    GTEST_SKIP() << "runs only as the second process of CopyEntityInOneKelvorLiteAndPasteEntityInAnother";
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  const std::size_t before = host->store().list(PI_ALL_TYPES).size();
  // The other process serves the clipboard; a busy one may answer a request only at a retry.
  ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::clipboard()->mimeData()->hasFormat("application/asi.1.0"); },
                              120000));
  QStringList menu;
  ASSERT_TRUE(QTest::qWaitFor([&] { menu = chooseFromTreeMenu(*tree, "Paste Entity", TRACK, false); return !menu.isEmpty(); }, 30000));
  ASSERT_TRUE(menu.contains("Paste Entity")) << menu.join(", ").toStdString();
  EXPECT_GT(host->store().list(PI_ALL_TYPES).size(), before + 4);
  ASSERT_TRUE(host->window().saveAs(target));
}

namespace
{

const char* const DROP_INTO = "SEP_DROP_INTO";

/// Tells the test's other process, on its output, once a drag moves over a widget.
class DragWatcher : public QObject
{
public:
  bool eventFilter(QObject*, QEvent* event) override
  {
    if (event->type() == QEvent::DragMove && !told_)
    {
      std::cout << "DRAG OVER" << std::endl;
      told_ = true;
    }
    return false;
  }

private:
  bool told_ = false;
};

/// @return the point on screen at the middle of the row of that name in the tree; (-1, -1) while it is not shown
QPoint rowOnScreen(QTreeView& tree, const QString& name)
{
  const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, name, 1,
                                                    Qt::MatchExactly | Qt::MatchRecursive);
  if (found.isEmpty())
    return {-1, -1};
  tree.scrollTo(found.front());
  return tree.viewport()->mapToGlobal(tree.visualRect(found.front()).center());
}

} // namespace

// Two KELVOR Lite processes side by side on one display: a platform dragged with the pointer
// from the editor's tree of this one drops on the other's tree, which then holds a copy of it
// with its children.
TEST_F(ScenarioEditorEndToEnd, ADragFromOneKelvorLiteDropsIntoAnother)
{
  host->window().setGeometry(0, 0, 790, 960);
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  QPoint from;
  ASSERT_TRUE(QTest::qWaitFor([&] { return (from = rowOnScreen(*tree, COPIED)).x() >= 0; }, 30000));

  const QString saved = dir.filePath("dropped.kls");
  QProcess other;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(DROP_INTO, saved);
  other.setProcessEnvironment(environment);
  QString output;
  QPoint to(-1, -1);
  bool over = false;
  QObject::connect(&other, &QProcess::readyReadStandardOutput, [&] {
    output += QString::fromLocal8Bit(other.readAllStandardOutput());
    for (const QString& line : output.split('\n'))
    {
      const QStringList words = line.split(' ');
      if (words.size() == 4 && words[0] == "DROP" && words[1] == "AT")
        to = QPoint(words[2].toInt(), words[3].toInt());
      over = over || line == "DRAG OVER";
    }
  });
  other.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=ScenarioEditorEndToEnd.DropSideOfTwoKelvorLites"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return to.x() >= 0 || other.state() == QProcess::NotRunning; }, 120000));
  ASSERT_GE(to.x(), 0) << output.toStdString();

  // The pointer's moves, each once the one before has shown: press on the row here and move
  // until the drag starts, over the other's row until it sees the drag, then release. Moves
  // repeat, a few pixels apart, until they show: the window system may fold quick moves into
  // one. The drag runs its own event loop here, so a timer drives the steps.
  QProcess pointer;
  int step = 0;
  int nudge = 0;
  const auto moveNear = [&](const QPoint& point) {
    const int dx = ++nudge % 2 ? 3 : -3;
    pointer.start("xdotool", {"mousemove", QString::number(point.x() + dx), QString::number(point.y())});
  };
  QTimer driver;
  QObject::connect(&driver, &QTimer::timeout, [&] {
    if (pointer.state() != QProcess::NotRunning)
      return;
    const bool dragging = tree->findChild<QDrag*>() != nullptr;
    if (step == 0)
    {
      pointer.start("xdotool", {"mousemove", QString::number(from.x()), QString::number(from.y()), "mousedown", "1"});
      step = 1;
    }
    else if (step == 1 && !dragging)
      moveNear(from + QPoint(30, 0));
    else if (step == 1 || (step == 2 && !over))
    {
      moveNear(to);
      step = 2;
    }
    else if (step == 2)
    {
      pointer.start("xdotool", {"mouseup", "1"});
      step = 3;
    }
  });
  driver.start(50);
  ASSERT_TRUE(QTest::qWaitFor([&] { return other.state() == QProcess::NotRunning; }, 300000)) << "step " << step;
  driver.stop();
  output += QString::fromLocal8Bit(other.readAll());
  ASSERT_EQ(0, other.exitCode()) << output.toStdString();
  ASSERT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.toStdString();

  kelvor::ScenarioStore dropped;
  ASSERT_TRUE(kelvor::ScenarioReader(dropped).readFile(saved.toStdString()).loaded);
  std::string expected;
  std::string actual;
  describeForPaste(host->store(), host->store().findPlatform(COPIED), expected);
  describeForPaste(dropped, lastPlatformNamed(dropped, COPIED), actual);
  EXPECT_EQ(expected, actual);
  EXPECT_NE(0u, host->store().findPlatform(COPIED)) << "a drag between hosts copies";
}

// The other process of the test above: shows where to drop, and saves once the drop came.
TEST_F(ScenarioEditorEndToEnd, DropSideOfTwoKelvorLites)
{
  const QString target = qEnvironmentVariable(DROP_INTO);
  if (target.isEmpty())
    GTEST_SKIP() << "runs only as the second process of ADragFromOneKelvorLiteDropsIntoAnother";
  host->window().setGeometry(800, 0, 790, 960);
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  DragWatcher watcher;
  tree->viewport()->installEventFilter(&watcher);
  QPoint at;
  ASSERT_TRUE(QTest::qWaitFor([&] { return (at = rowOnScreen(*tree, TRACK)).x() >= 0; }, 30000));
  const std::size_t before = host->store().list(PI_ALL_TYPES).size();
  std::cout << "DROP AT " << at.x() << " " << at.y() << std::endl;
  ASSERT_TRUE(QTest::qWaitFor([&] { return host->store().list(PI_ALL_TYPES).size() > before + 4; }, 120000));
  ASSERT_TRUE(host->window().saveAs(target));
}

namespace
{

/// Waits for a condition in a real event loop, which blocks while nothing happens: the host
/// closes a change's step when its loop would block, which QTest's waiting never does.
bool waitInEventLoop(const std::function<bool()>& condition, int milliseconds)
{
  QEventLoop loop;
  QTimer check;
  QObject::connect(&check, &QTimer::timeout, &loop, [&] {
    if (condition())
      loop.quit();
  });
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  check.start(20);
  loop.exec();
  return condition();
}

} // namespace

// Edit > Undo takes back a command of the editor's own menu, and the views follow; Redo makes it again.
TEST_F(ScenarioEditorEndToEnd, UndoTakesBackRemoveDuplicatePointsAndRedoMakesItAgain)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  QAction* undo = host->window().undoAction();
  QAction* redo = host->window().redoAction();
  ASSERT_TRUE(undo && redo);
  EXPECT_FALSE(undo->isEnabled()) << "a scenario just opened has nothing to undo";

  ASSERT_FALSE(chooseFromTreeMenu(*tree, "Remove Duplicate Points...").isEmpty());
  ASSERT_EQ(30u, trackPoints());
  // The command's step closes once control is back in the event loop.
  ASSERT_TRUE(waitInEventLoop([&] { return undo->isEnabled(); }, 10000));
  EXPECT_EQ("Undo \"Edit by ScenarioEditor_Plugin\"", undo->text()) << "named after the plug-in that made it";
  EXPECT_EQ(QKeySequence(QKeySequence::Undo), undo->shortcut());
  EXPECT_EQ(QKeySequence("Ctrl+Shift+Z"), redo->shortcut());

  EXPECT_TRUE(host->window().isModified());
  undo->trigger();
  EXPECT_EQ(60u, trackPoints());
  EXPECT_FALSE(host->window().isModified()) << "undone back to the file as opened";
  EXPECT_TRUE(QTest::qWaitFor([&] { return dataBrowserPoints() == "60"; }, 10000)) << "the Data Browser follows";
  EXPECT_TRUE(redo->isEnabled());
  EXPECT_EQ("Redo \"Edit by ScenarioEditor_Plugin\"", redo->text());

  redo->trigger();
  EXPECT_EQ(30u, trackPoints());
  EXPECT_TRUE(host->window().isModified());
  EXPECT_TRUE(QTest::qWaitFor([&] { return dataBrowserPoints() == "30"; }, 10000));
}

// A command of the host's menus is one step, named after its menu text, however many changes it makes.
TEST_F(ScenarioEditorEndToEnd, ACommandOfTheHostsMenusUndoesAsOneNamedStep)
{
  const std::size_t entities = host->store().entityCount();
  host->window().runCommand("Look Only", [] {});
  EXPECT_FALSE(host->window().undoAction()->isEnabled()) << "a command that changed nothing leaves no step";
  host->window().runCommand("Remove Two", [&] {
    host->store().removeEntity(trackId());
    host->store().removeEntity(host->store().findPlatform("Buoy 7"));
  });
  EXPECT_EQ(entities - 2, host->store().entityCount());
  EXPECT_EQ("Undo \"Remove Two\"", host->window().undoAction()->text());
  host->window().undo();
  EXPECT_EQ(entities, host->store().entityCount());
  EXPECT_NE(0u, trackId());
  EXPECT_EQ(60u, trackPoints());
  EXPECT_EQ("Redo \"Remove Two\"", host->window().redoAction()->text());
}

// The undo history lists the steps; choosing one goes back, or forward, several at once.
TEST_F(ScenarioEditorEndToEnd, TheUndoHistoryGoesBackSeveralStepsAtOnce)
{
  const std::size_t entities = host->store().entityCount();
  for (const char* name : {"Tanker 4", "Buoy 7", "Hawk 3"})
    host->window().runCommand(std::string("Remove ") + name,
                              [&] { host->store().removeEntity(host->store().findPlatform(name)); });
  host->window().refreshNow();
  QListWidget* list = host->window().undoHistory()->list();
  ASSERT_EQ(4, list->count());
  EXPECT_EQ("Scenario as opened", list->item(0)->text());
  EXPECT_EQ("Remove Hawk 3", list->item(3)->text());
  EXPECT_EQ(3, list->currentRow());

  emit list->itemClicked(list->item(1));
  EXPECT_EQ(0u, trackId()) << "the first step stays done";
  EXPECT_NE(0u, host->store().findPlatform("Buoy 7"));
  EXPECT_NE(0u, host->store().findPlatform("Hawk 3"));
  EXPECT_EQ(1, list->currentRow());
  EXPECT_EQ(4, list->count()) << "the undone steps stay listed, to redo";

  emit list->itemClicked(list->item(0));
  EXPECT_EQ(entities, host->store().entityCount());
  EXPECT_FALSE(host->window().isModified()) << "back to the file as opened";
  emit list->itemClicked(list->item(3));
  EXPECT_EQ(entities - 3, host->store().entityCount());
}

// Decimate from the Data Browser's menu, then Ctrl+Z: the thinned copy leaves the store, the Data
// Browser and the editor's tree, and the scenario is the file as opened again.
TEST_F(ScenarioEditorEndToEnd, DecimateFromTheDataBrowserThenCtrlZPutsTheViewsBack)
{
  QDockWidget* editor = openEditor();
  ASSERT_NE(nullptr, editor);
  QTreeView* tree = editorTree(*editor);
  ASSERT_NE(nullptr, tree);
  const auto file = [this] {
    std::ostringstream out;
    kelvor::ScenarioWriter(host->store()).write(out);
    return out.str();
  };
  const std::string opened = file();
  const std::size_t entities = host->store().entityCount();
  QTreeWidget* browser = host->window().dataBrowser()->tree();
  const auto inBrowser = [browser] { return browser->findItems("Tanker 4 (", Qt::MatchStartsWith | Qt::MatchRecursive).size(); };
  const auto inEditor = [tree] {
    return tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, "Tanker 4 (", -1,
                                Qt::MatchStartsWith | Qt::MatchRecursive).size();
  };
  const QList<QTreeWidgetItem*> tanker = browser->findItems(TRACK, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(1, tanker.size());
  browser->clearSelection();
  tanker.front()->setSelected(true);

  QStringList offered;
  const auto options = answerNextDialog(true);
  WhenShown<QMenu> menu([&offered](QMenu& shown) { offered = chooseFrom(shown, "Decimate..."); });
  emit browser->customContextMenuRequested(browser->visualItemRect(tanker.front()).center());
  ASSERT_TRUE(QTest::qWaitFor([&] { return host->store().entityCount() == entities + 1; }, 60000))
    << offered.join("|").toStdString();
  EXPECT_TRUE(QTest::qWaitFor([&] { return inBrowser() == 1 && inEditor() == 1; }, 10000)) << "a thinned copy beside it";
  EXPECT_EQ("Undo \"Decimate...\"", host->window().undoAction()->text());

  // A slow run may still be closing the menu when the keys come: they go again until one lands
  // (the journal holds the one step, so a second undo has nothing to take).
  host->window().activateWindow();
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        QTest::keyClick(&host->window(), Qt::Key_Z, Qt::ControlModifier);
        return host->store().entityCount() == entities;
      },
      20000))
    << "Ctrl+Z undid nothing";
  EXPECT_TRUE(opened == file()) << "undone to the very file as opened";
  EXPECT_FALSE(host->window().isModified());
  EXPECT_TRUE(QTest::qWaitFor([&] { return inBrowser() == 0 && inEditor() == 0; }, 10000)) << "the views follow";
  EXPECT_EQ(60u, trackPoints());
}
