#pragma once

#include "host/UniqueID.h"

#include <QMainWindow>

#include <functional>
#include <vector>

class QLabel;
class QMenu;
class QTimer;

namespace kelvor
{

class UndoHistoryDock;

class ClockBar;
class DataBrowser;
class GlobeWidget;
class KelvorServer;
class NotificationsDock;
class ScenarioStore;
struct ReadReport;

/**
 * @brief KELVOR Lite's main window: the globe in the middle, the Data Browser and the
 * notifications in docks, the clock bar, and the File, Plug-ins, View and Help menus.
 * Opening, closing or replacing a scenario with unsaved changes asks first.
 */
class MainWindow : public QMainWindow
{
  Q_OBJECT
public:
  /// The answer to "save your changes?".
  enum class SaveAnswer
  {
    SAVE,
    DISCARD,
    CANCEL
  };
  using SaveQuestion = std::function<SaveAnswer(const QString& what)>;

  MainWindow(ScenarioStore& store, KelvorServer& server, QWidget* parent = nullptr);

  GlobeWidget* globe() const { return globe_; }
  DataBrowser* dataBrowser() const { return dataBrowser_; }
  NotificationsDock* notifications() const { return notifications_; }
  ClockBar* clockBar() const { return clockBar_; }
  QMenu* pluginMenu() const { return pluginMenu_; }

  /// Opens a scenario (.kls) or CSV track file, asking first about unsaved changes. @return true when opened
  bool openFile(const QString& path);
  /**
   * Adds the tracks of a track file to the scenario (File > Import...): a CSV file by its ".csv"
   * ending, any other through GDAL (GPX, KML, GeoJSON, GeoPackage, shapefiles...). Into an empty
   * scenario the tracks come with their reference year. @return true when added
   */
  bool importTracks(const QString& path);
  /// Writes every platform's track to a .gpx, .kml, .geojson or .gpkg file, by its ending (File > Export...). @return true when written
  bool exportTracks(const QString& path);
  /// Saves to the file opened, or asks for one. @return true when saved
  bool save();
  /// Saves to path. @return true when saved
  bool saveAs(const QString& path);
  /// Closes the scenario, asking first about unsaved changes. @return true when closed
  bool closeScenario();
  /// @return true when the scenario changed since it was opened or saved.
  bool isModified() const { return modified_; }
  /// Notes a change of the scenario.
  void setModified(bool modified);
  /// Replaces the question asked before unsaved changes are lost (tests answer it themselves).
  void setSaveQuestion(SaveQuestion question) { saveQuestion_ = std::move(question); }

  /// Shows a short message that goes by itself. @param duration 0 short, 1 medium, 2 long
  void showToast(const QString& text, int duration);
  /// Redraws every view soon, once however many changes come.
  void scheduleRefresh();
  /// Redraws every view now.
  void refreshNow();
  /// Rebuilds the Plug-ins menu from the items plug-ins added.
  void rebuildPluginMenu();
  /// Shows the plug-ins' right-click menu for entities. @param what 0 the view, 3 a list
  void showContextMenu(int what, const std::vector<UniqueID_t>& ids, const QPoint& globalPosition);

  /// @return Edit > Undo, named after the step it undoes
  QAction* undoAction() const { return undo_; }
  /// @return Edit > Redo, named after the step it redoes
  QAction* redoAction() const { return redo_; }
  /// Runs a plug-in's menu command as one step of the journal, named after the menu text.
  void runCommand(const std::string& text, const std::function<void()>& command);
  /// Undoes the newest step; the views and plug-ins hear of the entities it adds, removes and changes.
  void undo();
  /// Redoes the newest undone step.
  void redo();
  /// Undoes (negative) or redoes (positive) that many steps at once, as the undo history does.
  void moveInHistory(int steps);
  /// Sets the memory the undo steps may take, MiB, and keeps it for the next start; the oldest steps go past it.
  void setUndoMemory(std::size_t mib);
  /// @return the undo history dock
  UndoHistoryDock* undoHistory() const { return history_; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void buildMenus_();
  void buildMapThemeMenu_(QMenu* menu);
  /// Lists a read's errors and warnings in the notifications.
  void notifyProblems_(const ReadReport& report);
  bool maySetAside_(const QString& what);
  void updateTitle_();
  /// Names and enables Undo and Redo after the journal's steps.
  void updateUndoActions_();
  /// Closes a step that a change opened by itself, once control is back in the event loop.
  void closeImplicitStep_();

  ScenarioStore& store_;
  KelvorServer& server_;
  GlobeWidget* globe_;
  DataBrowser* dataBrowser_;
  NotificationsDock* notifications_;
  ClockBar* clockBar_;
  QMenu* pluginMenu_ = nullptr;
  UndoHistoryDock* history_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  QLabel* toast_;
  QLabel* cursor_;
  QTimer* refreshTimer_;
  QString fileName_;
  bool modified_ = false;
  SaveQuestion saveQuestion_;
};

} // namespace kelvor
