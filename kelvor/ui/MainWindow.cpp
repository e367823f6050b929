#include "ui/MainWindow.h"

#include "ui/UndoHistoryDock.h"

#include <QAbstractEventDispatcher>

#include "files/CsvTrackReader.h"
#include "files/GdalTrackReader.h"
#include "files/GdalTrackWriter.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "ui/ClockBar.h"
#include "ui/ContextMenuRenderer.h"
#include "ui/DataBrowser.h"
#include "ui/GlobeWidget.h"
#include "ui/MapThemes.h"
#include "ui/NotificationsDock.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <cmath>

namespace kelvor
{

namespace
{

constexpr int NOTIFY_ERROR = 2;
constexpr int NOTIFY_WARN = 3;
constexpr int NOTIFY_NOTICE = 4;

// The setting of the memory the undo steps may take, MiB.
const char* const UNDO_MEMORY_SETTING = "UndoMemoryMiB";

// The map theme the user chose last time, if it is still installed.
QString savedMapTheme(const Registry& registry)
{
  std::string saved;
  registry.setting(MapThemes::SETTING, saved);
  return MapThemes::choose(QString::fromStdString(saved));
}

MainWindow::SaveAnswer askWithDialog(QWidget* parent, const QString& what)
{
  const auto answer = QMessageBox::question(parent, QObject::tr("Unsaved Changes"),
                                            QObject::tr("The scenario has unsaved changes. Save them before %1?").arg(what),
                                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                            QMessageBox::Save);
  return answer == QMessageBox::Save ? MainWindow::SaveAnswer::SAVE
                                     : (answer == QMessageBox::Discard ? MainWindow::SaveAnswer::DISCARD
                                                                       : MainWindow::SaveAnswer::CANCEL);
}

} // namespace

MainWindow::MainWindow(ScenarioStore& store, KelvorServer& server, QWidget* parent)
  : QMainWindow(parent),
    store_(store),
    server_(server),
    globe_(new GlobeWidget(store, savedMapTheme(server.registry()), this)),
    dataBrowser_(new DataBrowser(store, this)),
    notifications_(new NotificationsDock(this)),
    clockBar_(new ClockBar(store, server.registry(), this)),
    toast_(new QLabel(this)),
    cursor_(new QLabel(this)),
    refreshTimer_(new QTimer(this))
{
  setObjectName("KelvorLiteMainWindow");
  setCentralWidget(globe_);
  addDockWidget(Qt::LeftDockWidgetArea, dataBrowser_);
  addDockWidget(Qt::BottomDockWidgetArea, notifications_);
  addToolBar(Qt::BottomToolBarArea, clockBar_);
  toast_->setStyleSheet("background: rgba(30,30,30,220); color: white; padding: 8px; border-radius: 6px;");
  toast_->setObjectName("toast");
  toast_->hide();
  refreshTimer_->setSingleShot(true);
  refreshTimer_->setInterval(50);
  connect(refreshTimer_, &QTimer::timeout, this, &MainWindow::refreshNow);
  connect(clockBar_, &ClockBar::timeChanged, globe_, &GlobeWidget::refresh);
  connect(dataBrowser_, &DataBrowser::contextMenuRequested, this,
          [this](const std::vector<UniqueID_t>& ids, const QPoint& at) { showContextMenu(3, ids, at); });
  connect(globe_, &GlobeWidget::contextMenuRequested, this,
          [this](UniqueID_t id, const QPoint& at) { showContextMenu(0, {id}, at); });
  saveQuestion_ = [this](const QString& what) { return askWithDialog(this, what); };
  // Every change is journalled, so that any plug-in's edit can be taken back.
  store_.keepJournal(true);
  std::string undoMemory;
  if (server.registry().setting(UNDO_MEMORY_SETTING, undoMemory))
  {
    bool read = false;
    const qulonglong mib = QString::fromStdString(undoMemory).toULongLong(&read);
    if (read && mib > 0)
      store_.journal()->setBudget(static_cast<std::size_t>(mib) << 20);
  }
  history_ = new UndoHistoryDock([this](int steps) { moveInHistory(steps); }, this);
  addDockWidget(Qt::RightDockWidgetArea, history_);
  history_->hide();
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          &MainWindow::closeImplicitStep_);
  buildMenus_();
  resize(1400, 900);
  updateTitle_();
  statusBar()->addPermanentWidget(cursor_);
  connect(globe_, &GlobeWidget::cursorMoved, this, [this](double lat, double lon) {
    cursor_->setText(tr("Lat %1  Lon %2").arg(lat * 180.0 / M_PI, 0, 'f', 5).arg(lon * 180.0 / M_PI, 0, 'f', 5));
  });
  statusBar()->showMessage(tr("Ready"));
}

void MainWindow::buildMenus_()
{
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Open..."), this, [this]() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Scenario"), QString(),
                                                      tr("Scenarios and tracks (*.kls *.csv);;All files (*)"));
    if (!path.isEmpty())
      openFile(path);
  }, QKeySequence::Open);
  file->addAction(tr("&Import CSV..."), this, [this]() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Import CSV Tracks"), QString(), tr("CSV (*.csv)"));
    if (path.isEmpty())
      return;
    ReadReport report;
    runCommand(tr("Import %1").arg(QFileInfo(path).fileName()).toStdString(),
               [&] { report = CsvTrackReader(store_, {false, false}).readFile(path.toStdString()); });
    notifyProblems_(report);
    if (report.loaded)
      setModified(true);
  });
  file->addAction(tr("I&mport..."), this, [this]() {
    QStringList filters{tr("Track files (*.gpx *.kml *.kmz *.geojson *.json *.gpkg *.shp *.csv)"), tr("CSV (*.csv)")};
    for (const std::string& filter : GdalTrackReader::fileFilters())
      filters << QString::fromStdString(filter);
    filters << tr("All files (*)");
    const QString path = QFileDialog::getOpenFileName(this, tr("Import Tracks"), QString(), filters.join(";;"));
    if (!path.isEmpty())
      importTracks(path);
  });
  file->addAction(tr("E&xport..."), this, [this]() {
    QString filter;
    QString path = QFileDialog::getSaveFileName(this, tr("Export Tracks"), QString(),
                                                tr("GPX (*.gpx);;KML (*.kml);;GeoJSON (*.geojson);;GeoPackage (*.gpkg)"),
                                                &filter);
    // A name typed without its ending takes the one of the format chosen.
    if (!path.isEmpty() && GdalTrackWriter::driverFor(path.toStdString()).empty())
      path += filter.mid(filter.indexOf("*.") + 1).chopped(1);
    if (!path.isEmpty())
      exportTracks(path);
  });
  file->addAction(tr("&Save"), this, [this]() { save(); }, QKeySequence::Save);
  file->addAction(tr("Save &As..."), this, [this]() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Scenario"), fileName_, tr("Scenarios (*.kls)"));
    if (!path.isEmpty())
      saveAs(path);
  }, QKeySequence::SaveAs);
  file->addAction(tr("&Close Scenario"), this, [this]() { closeScenario(); });
  file->addAction(tr("Load &GOG..."), this, [this]() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Load GOG Overlay"), QString(), tr("GOG (*.gog)"));
    if (path.isEmpty())
      return;
    runCommand(tr("Load %1").arg(QFileInfo(path).fileName()).toStdString(),
               [&] { store_.attachGogFile(0, path.toStdString()); });
    setModified(true);
    globe_->refresh();
  });
  file->addSeparator();
  file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  undo_ = edit->addAction(tr("Undo"), this, [this]() { undo(); }, QKeySequence::Undo);
  redo_ = edit->addAction(tr("Redo"), this, [this]() { redo(); }, QKeySequence(tr("Ctrl+Shift+Z")));
  edit->addSeparator();
  edit->addAction(history_->toggleViewAction());
  edit->addAction(tr("Undo &Memory..."), this, [this]() {
    bool chosen = false;
    const int mib = QInputDialog::getInt(this, tr("Undo Memory"), tr("Memory the undo steps may take (MiB):"),
                                         static_cast<int>(store_.journal()->budget() >> 20), 1, 1 << 20, 64, &chosen);
    if (chosen)
      setUndoMemory(static_cast<std::size_t>(mib));
  });
  connect(edit, &QMenu::aboutToShow, this, &MainWindow::updateUndoActions_);
  updateUndoActions_();

  pluginMenu_ = menuBar()->addMenu(tr("&Plug-ins"));
  QMenu* view = menuBar()->addMenu(tr("&View"));
  view->addAction(dataBrowser_->toggleViewAction());
  view->addAction(notifications_->toggleViewAction());
  view->addAction(clockBar_->toggleViewAction());
  view->addAction(history_->toggleViewAction());
  view->addAction(tr("Show &Scenario"), globe_, &GlobeWidget::showScenario);
  buildMapThemeMenu_(view->addMenu(tr("&Map Theme")));
  QMenu* help = menuBar()->addMenu(tr("&Help"));
  help->addAction(tr("&About KELVOR Lite"), this, [this]() {
    QMessageBox::about(this, tr("About KELVOR Lite"),
                       tr("KELVOR Lite: a desktop host of 3-D scenario displays and their plug-ins. Host API 1.29.0."));
  });
  rebuildPluginMenu();
}

void MainWindow::buildMapThemeMenu_(QMenu* menu)
{
  menu->setObjectName("MapThemeMenu");
  auto* group = new QActionGroup(menu);
  for (const MapThemes::Theme& theme : MapThemes::installed())
  {
    QAction* action = group->addAction(theme.name);
    action->setCheckable(true);
    action->setChecked(theme.id == globe_->mapTheme());
    menu->addAction(action);
    connect(action, &QAction::triggered, this, [this, id = theme.id]() {
      globe_->setMapTheme(id);
      server_.registry().setSetting(MapThemes::SETTING, id.toStdString());
    });
  }
  menu->setEnabled(!group->actions().isEmpty());
}

void MainWindow::rebuildPluginMenu()
{
  pluginMenu_->clear();
  for (const PluginMenu::Item& item : server_.pluginMenu().items())
  {
    QAction* action = pluginMenu_->addAction(QString::fromStdString(PluginMenu::label(item)));
    action->setStatusTip(QString::fromStdString(PluginMenu::help(item)));
    action->setEnabled(item.enabled);
    if (item.icon)
    {
      const std::string bytes = server_.iconBytes(item.icon);
      QPixmap pixmap;
      if (pixmap.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<uint>(bytes.size())))
        action->setIcon(QIcon(pixmap));
    }
    const long handle = item.handle;
    connect(action, &QAction::triggered, this, [this, handle]() {
      if (const PluginMenu::Item* current = server_.pluginMenu().item(handle))
        runCommand(PluginMenu::label(*current), [current] { PluginMenu::activate(*current); });
    });
  }
  pluginMenu_->setEnabled(!pluginMenu_->isEmpty());
}

void MainWindow::showContextMenu(int what, const std::vector<UniqueID_t>& ids, const QPoint& globalPosition)
{
  const auto built = server_.buildContextMenu(what, ids);
  if (built->empty())
    return;
  QMenu menu(this);
  menu.setObjectName("ContextMenu");
  ContextMenuRenderer::render(*built, menu, [this](long id) { return server_.iconBytes(id); },
                              [this](const std::string& text, const std::function<void()>& command) {
                                runCommand(text, command);
                              });
  menu.exec(globalPosition);
}

bool MainWindow::maySetAside_(const QString& what)
{
  if (!modified_)
    return true;
  switch (saveQuestion_(what))
  {
  case SaveAnswer::SAVE: return save();
  case SaveAnswer::DISCARD: return true;
  case SaveAnswer::CANCEL: break;
  }
  return false;
}

bool MainWindow::openFile(const QString& path)
{
  if (!maySetAside_(tr("opening %1").arg(QFileInfo(path).fileName())))
    return false;
  const bool csv = path.endsWith(".csv", Qt::CaseInsensitive);
  const ReadReport report = csv ? CsvTrackReader(store_).readFile(path.toStdString())
                                : ScenarioReader(store_).readFile(path.toStdString());
  notifyProblems_(report);
  if (!report.loaded)
  {
    QMessageBox::warning(this, tr("Open"), tr("%1 could not be opened; see the notifications.").arg(path));
    return false;
  }
  fileName_ = csv ? QString() : path;
  // The points the Data Browser lists, not the lines read: a line may hold no point or replace one.
  QString opened = tr("Opened %1: %2 entities, %3 points").arg(path).arg(store_.entityCount()).arg(store_.pointCount());
  if (const std::string replaced = report.replacementSummary(); !replaced.empty())
    opened += "; " + QString::fromStdString(replaced);
  notifications_->add(opened, NOTIFY_NOTICE);
  const bool unsaved = csv || !report.errors.empty();
  // Undoing back to a scenario that no file holds does not make it saved.
  if (unsaved && store_.journal())
    store_.journal()->markUnsaved();
  setModified(unsaved);
  globe_->layer().clearOverlays();
  refreshNow();
  globe_->showScenario();
  return true;
}

void MainWindow::notifyProblems_(const ReadReport& report)
{
  for (const std::string& e : report.errors)
    notifications_->add(QString::fromStdString(e), NOTIFY_ERROR);
  for (const std::string& w : report.warnings)
    notifications_->add(QString::fromStdString(w), NOTIFY_WARN);
}

bool MainWindow::importTracks(const QString& path)
{
  // Into an empty scenario the file's tracks come as they are, with the year their times count from.
  const bool replace = store_.entityCount() == 0 && !store_.properties().initialized;
  const std::string file = path.toStdString();
  ReadReport report;
  // Added to a scenario, the tracks are one step to undo.
  runCommand(tr("Import %1").arg(QFileInfo(path).fileName()).toStdString(), [&] {
    if (path.endsWith(".csv", Qt::CaseInsensitive))
      report = CsvTrackReader(store_, {false, replace}).readFile(file);
    else
    {
      GdalTrackReader::Options options;
      options.replace = replace;
      report = GdalTrackReader(store_, options).readFile(file);
    }
  });
  notifyProblems_(report);
  if (!report.loaded)
  {
    statusBar()->showMessage(tr("%1 could not be imported; see the notifications.").arg(path), 8000);
    return false;
  }
  notifications_->add(tr("Imported %1: %2 platforms").arg(path).arg(report.entities), NOTIFY_NOTICE);
  if (replace && store_.journal())
    store_.journal()->markUnsaved();
  setModified(true);
  refreshNow();
  return true;
}

bool MainWindow::exportTracks(const QString& path)
{
  std::string error;
  if (!GdalTrackWriter(store_).writeFile(path.toStdString(), store_.list(PI_PLATFORM_TYPE), error))
  {
    QMessageBox::critical(this, tr("Export"), QString::fromStdString(error));
    return false;
  }
  statusBar()->showMessage(tr("Exported %1").arg(path), 4000);
  return true;
}

bool MainWindow::save()
{
  if (fileName_.isEmpty())
  {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Scenario"), QString(), tr("Scenarios (*.kls)"));
    return !path.isEmpty() && saveAs(path);
  }
  return saveAs(fileName_);
}

bool MainWindow::saveAs(const QString& path)
{
  std::string error;
  if (!ScenarioWriter(store_).writeFile(path.toStdString(), error))
  {
    QMessageBox::critical(this, tr("Save"), QString::fromStdString(error));
    return false;
  }
  fileName_ = path;
  // Undoing back to here is a saved scenario again.
  if (StoreJournal* journal = store_.journal())
    journal->markClean();
  setModified(false);
  statusBar()->showMessage(tr("Saved %1").arg(path), 4000);
  return true;
}

bool MainWindow::closeScenario()
{
  if (!maySetAside_(tr("closing the scenario")))
    return false;
  ScenarioStore empty;
  store_.replaceWith(empty);
  fileName_.clear();
  setModified(false);
  refreshNow();
  return true;
}

void MainWindow::setModified(bool modified)
{
  modified_ = modified;
  updateTitle_();
}

void MainWindow::updateTitle_()
{
  const QString name = fileName_.isEmpty() ? tr("Untitled") : QFileInfo(fileName_).fileName();
  setWindowTitle(tr("%1%2 - KELVOR Lite").arg(name, modified_ ? "*" : ""));
}

void MainWindow::showToast(const QString& text, int duration)
{
  toast_->setText(text);
  toast_->adjustSize();
  toast_->move((width() - toast_->width()) / 2, height() - toast_->height() - 80);
  toast_->show();
  toast_->raise();
  QTimer::singleShot(1500 + 1500 * std::max(0, duration), toast_, &QWidget::hide);
}

void MainWindow::scheduleRefresh() { refreshTimer_->start(); }

void MainWindow::refreshNow()
{
  dataBrowser_->refresh();
  clockBar_->refresh();
  globe_->refresh();
  updateUndoActions_();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
  if (maySetAside_(tr("quitting")))
    event->accept();
  else
    event->ignore();
}

void MainWindow::runCommand(const std::string& text, const std::function<void()>& command)
{
  StoreJournal* journal = store_.journal();
  if (journal)
    journal->beginStep(text);
  command();
  if (journal)
    journal->endStep();
  updateUndoActions_();
}

void MainWindow::closeImplicitStep_()
{
  StoreJournal* journal = store_.journal();
  if (!journal || !journal->implicitStepOpen())
    return;
  journal->endStep();
  updateUndoActions_();
}

void MainWindow::updateUndoActions_()
{
  StoreJournal* journal = store_.journal();
  const auto named = [](const char* verb, const std::vector<std::unique_ptr<StoreJournal::Step>>& steps) {
    return steps.empty() ? QString(verb) : QString("%1 \"%2\"").arg(verb, QString::fromStdString(steps.back()->name));
  };
  if (!undo_ || !journal)
    return;
  const QString undoText = named("Undo", journal->undoSteps());
  const QString redoText = named("Redo", journal->redoSteps());
  if (undo_->text() != undoText)
    undo_->setText(undoText);
  if (redo_->text() != redoText)
    redo_->setText(redoText);
  undo_->setEnabled(!journal->undoSteps().empty() || journal->stepOpen());
  redo_->setEnabled(!journal->redoSteps().empty());
  if (history_)
    history_->showJournal(journal);
}

void MainWindow::setUndoMemory(std::size_t mib)
{
  store_.journal()->setBudget(mib << 20);
  server_.registry().setSetting(UNDO_MEMORY_SETTING, std::to_string(mib));
  updateUndoActions_();
}

void MainWindow::undo() { moveInHistory(-1); }

void MainWindow::redo() { moveInHistory(1); }

void MainWindow::moveInHistory(int steps)
{
  bool moved = false;
  for (int i = 0; i < -steps; ++i)
    moved = store_.undo() || moved;
  for (int i = 0; i < steps; ++i)
    moved = store_.redo() || moved;
  if (moved)
  {
    setModified(!store_.journal()->isClean());
    // The scenario's own settings change with no event of their own.
    scheduleRefresh();
  }
  updateUndoActions_();
}

} // namespace kelvor
