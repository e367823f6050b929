#include "app/HostApplication.h"
#include "support/WhenShown.h"
#include "ui/DataBrowser.h"
#include "ui/GlobeWidget.h"
#include "ui/NotificationsDock.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <marble/MarbleWidget.h>

#include <map>

using namespace kelvor;

namespace
{

const QString DEMO = QString(SEP_SOURCE_DIR) + "/data/demo.kls";

class KelvorLiteWindow : public ::testing::Test
{
protected:
  void SetUp() override
  {
    host = std::make_unique<HostApplication>(dir.filePath("registry.ini").toStdString());
    host->window().show();
    host->loadPlugins({std::string(TEST_PLUGIN_DIR) + "/MenuPlugin"}, PIApp::CommandLineArguments({"kelvor"}));
  }
  void TearDown() override { host.reset(); }

  // Opens a right-click menu on the Data Browser's selection and reads it as it shows.
  QStringList rightClickDataBrowser()
  {
    QStringList texts;
    WhenShown<QMenu> shown([&texts](QMenu& menu) {
      for (QAction* action : menu.actions())
        texts << (action->isSeparator() ? QString("---") : action->text());
      menu.close();
    });
    QTreeWidget* tree = host->window().dataBrowser()->tree();
    emit tree->customContextMenuRequested(tree->visualItemRect(tree->selectedItems().front()).center());
    EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown.acted(); }, 60000));
    return texts;
  }

  QTemporaryDir dir;
  std::unique_ptr<HostApplication> host;
};

TEST_F(KelvorLiteWindow, OpensTheDemoScenarioAndListsEveryEntity)
{
  ASSERT_TRUE(host->window().openFile(DEMO));
  QTreeWidget* tree = host->window().dataBrowser()->tree();
  int listed = 0;
  for (QTreeWidgetItemIterator it(tree); *it; ++it)
    ++listed;
  EXPECT_EQ(static_cast<int>(host->store().entityCount()), listed);
  EXPECT_EQ(16, listed);
  EXPECT_FALSE(host->window().isModified());
  EXPECT_TRUE(host->window().windowTitle().startsWith("demo.kls"));

  QDir().mkpath(TEST_OUTPUT_DIR);
  const QString shot = QString(TEST_OUTPUT_DIR) + "/kelvor-lite-demo.png";
  QApplication::processEvents();
  ASSERT_TRUE(host->window().grab().save(shot));
  EXPECT_TRUE(QFileInfo(shot).size() > 10000) << shot.toStdString();
}

TEST_F(KelvorLiteWindow, OpeningReportsThePointsTheDataBrowserListsAsKelvorEditInfoDoes)
{
  ASSERT_TRUE(host->window().openFile(DEMO));
  const NotificationsDock* notes = host->window().notifications();
  EXPECT_TRUE(notes->line(notes->count() - 1).endsWith(": 16 entities, 717 points"))
      << notes->line(notes->count() - 1).toStdString() << "; kelvor-edit info says 717 too";

  QTreeWidget* tree = host->window().dataBrowser()->tree();
  const int pointsColumn = 3;
  ASSERT_EQ("Points", tree->headerItem()->text(pointsColumn));
  EXPECT_TRUE(tree->headerItem()->toolTip(pointsColumn).contains("a platform's positions"))
      << "the header says what is counted";
  int listed = 0;
  for (QTreeWidgetItemIterator it(tree); *it; ++it)
    listed += (*it)->text(pointsColumn).toInt();
  EXPECT_EQ(717, listed);
}

TEST_F(KelvorLiteWindow, OpeningWarnsOfEachRecordThatReplacedAnEarlierOne)
{
  const QString path = dir.filePath("twice.kls");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 0 35 -117 0\npoint 1 0 35.5 -117 0\n"
             "point 1 9 35 -117 0\npoint 1 9 35 -117 0\n");
  file.close();
  ASSERT_TRUE(host->window().openFile(path));
  const NotificationsDock* notes = host->window().notifications();
  QStringList lines;
  for (int i = 0; i < notes->count(); ++i)
    lines << notes->line(i);
  EXPECT_TRUE(lines.contains("WARN: " + path + ":4: replaces the point of line 3 at time 0")) << lines.join('\n').toStdString();
  EXPECT_TRUE(lines.contains("WARN: " + path + ": 1 identical repeated record ignored"));
  EXPECT_EQ("NOTICE: Opened " + path + ": 1 entities, 2 points; 1 record replaced an earlier one, 1 identical repeated "
            "record ignored",
            lines.last());
  EXPECT_FALSE(host->window().isModified()) << "nothing was lost that a save would drop";
}

// The Map Theme menu's items by text, and which one is checked.
std::map<QString, QAction*> mapThemeItems(MainWindow& window, QString& checked)
{
  auto* menu = window.findChild<QMenu*>("MapThemeMenu");
  std::map<QString, QAction*> items;
  if (!menu)
    return items;
  for (QAction* action : menu->actions())
  {
    items[action->text()] = action;
    if (action->isChecked())
      checked += action->text();
  }
  return items;
}

TEST_F(KelvorLiteWindow, TheViewMenuOffersTheOfflineMapThemesAndTheChoiceIsKept)
{
  QString checked;
  auto items = mapThemeItems(host->window(), checked);
  ASSERT_EQ(3u, items.size()) << "Atlas, Plain and Blue Marble are installed with Marble's data";
  EXPECT_EQ("Plain", checked) << "the theme that stays sharp at a scenario's scale comes first";
  EXPECT_EQ("earth/plain/plain.dgml", host->window().globe()->marble()->mapThemeId());

  items.at("Atlas")->trigger();
  EXPECT_EQ("earth/srtm/srtm.dgml", host->window().globe()->marble()->mapThemeId());
  items.at("Blue Marble")->trigger();
  items.at("Atlas")->trigger();
  checked.clear();
  mapThemeItems(host->window(), checked);
  EXPECT_EQ("Atlas", checked) << "one theme is checked at a time";

  host.reset();
  host = std::make_unique<HostApplication>(dir.filePath("registry.ini").toStdString());
  checked.clear();
  mapThemeItems(host->window(), checked);
  EXPECT_EQ("Atlas", checked) << "the next start opens with the theme chosen";
  EXPECT_EQ("earth/srtm/srtm.dgml", host->window().globe()->marble()->mapThemeId());
}

TEST_F(KelvorLiteWindow, TheUndoMemoryIsASettingKeptForTheNextStart)
{
  EXPECT_EQ(std::size_t(1) << 30, host->store().journal()->budget()) << "1 GiB unless set";
  host->window().setUndoMemory(48);
  EXPECT_EQ(std::size_t(48) << 20, host->store().journal()->budget());
  host.reset();
  host = std::make_unique<HostApplication>(dir.filePath("registry.ini").toStdString());
  EXPECT_EQ(std::size_t(48) << 20, host->store().journal()->budget());
}

TEST_F(KelvorLiteWindow, ARightClickBuildsTheMenuThePluginsAskFor)
{
  ASSERT_TRUE(host->window().openFile(DEMO));
  QTreeWidget* tree = host->window().dataBrowser()->tree();
  tree->topLevelItem(0)->setSelected(true);
  tree->topLevelItem(1)->setSelected(true);
  const QStringList texts = rightClickDataBrowser();
  EXPECT_EQ((QStringList{"---", "Test Action (2)"}), texts) << "the rule at weight 50 stands above the item at 100";

  ASSERT_FALSE(host->window().pluginMenu()->actions().isEmpty());
  QAction* item = host->window().pluginMenu()->actions().front();
  EXPECT_EQ("Test Item...", item->text());
  EXPECT_EQ("Runs the test command.", item->statusTip());
  item->trigger();
  const NotificationsDock* notes = host->window().notifications();
  EXPECT_EQ("INFO: Menu: Command", notes->line(notes->count() - 1));
}

TEST_F(KelvorLiteWindow, ImportAddsTheTracksOfATrackFileAndExportWritesEveryPlatform)
{
  QStringList fileMenu;
  for (QAction* action : host->window().menuBar()->actions().front()->menu()->actions())
    fileMenu << action->text();
  EXPECT_TRUE(fileMenu.contains("I&mport...") && fileMenu.contains("E&xport...")) << fileMenu.join(", ").toStdString();

  ASSERT_TRUE(host->window().openFile(DEMO));
  const std::size_t platforms = host->store().list(PI_PLATFORM_TYPE).size();
  const QString exported = dir.filePath("demo.gpkg");
  ASSERT_TRUE(host->window().exportTracks(exported));
  EXPECT_FALSE(host->window().isModified()) << "an export changes nothing";
  ASSERT_TRUE(host->window().importTracks(exported));
  EXPECT_EQ(2 * platforms, host->store().list(PI_PLATFORM_TYPE).size()) << "added to the scenario open";
  EXPECT_TRUE(host->window().isModified());
  EXPECT_EQ(2024, host->store().properties().referenceYear);
  EXPECT_EQ("Undo \"Import demo.gpkg\"", host->window().undoAction()->text());
  host->window().undo();
  EXPECT_EQ(platforms, host->store().list(PI_PLATFORM_TYPE).size()) << "the import is one step";
  EXPECT_FALSE(host->window().isModified());
  host->window().redo();

  // A file that cannot be read adds nothing and says why.
  QFile bad(dir.filePath("bad.geojson"));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  bad.write("{\"type\":\"FeatureCollection\",\"features\":[]}");
  bad.close();
  const std::size_t entities = host->store().entityCount();
  EXPECT_FALSE(host->window().importTracks(bad.fileName()));
  EXPECT_EQ(entities, host->store().entityCount());
  const NotificationsDock* notes = host->window().notifications();
  EXPECT_TRUE(notes->line(notes->count() - 1).contains("no features")) << notes->line(notes->count() - 1).toStdString();
}

TEST_F(KelvorLiteWindow, UnsavedChangesAreNotLostWithoutBeingAsked)
{
  ASSERT_TRUE(host->window().openFile(DEMO));
  host->window().setModified(true);
  QStringList asked;
  host->window().setSaveQuestion([&](const QString& what) {
    asked << what;
    return MainWindow::SaveAnswer::CANCEL;
  });
  EXPECT_FALSE(host->window().closeScenario());
  EXPECT_EQ(16u, host->store().entityCount()) << "cancelled: nothing closed";
  EXPECT_FALSE(host->window().openFile(DEMO));
  EXPECT_EQ(2, asked.size());

  host->window().setSaveQuestion([](const QString&) { return MainWindow::SaveAnswer::SAVE; });
  const QString copy = dir.filePath("copy.kls");
  ASSERT_TRUE(host->window().saveAs(copy));
  host->window().setModified(true);
  EXPECT_TRUE(host->window().closeScenario()) << "saved first, then closed";
  EXPECT_EQ(0u, host->store().entityCount());
  ASSERT_TRUE(host->window().openFile(copy));
  EXPECT_EQ(16u, host->store().entityCount()) << "what was saved is what opens";
}

} // namespace
