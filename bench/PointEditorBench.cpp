// The Point Editor tab over a platform of 1,000,000 points through the real server: the table
// shown from the selection of the entity, sorted by another column, one cell edited and
// applied; and the memory the scratch copy and the view take a row. Also a beam of a million
// points and a data table of 100,000 rows of ten columns, each shown and one edit applied.
#include "BenchHost.h"
#include "datasources/EntityDataModel.h"
#include "datasources/PointEditorWidget.h"
#include "host/PIData.h"
#include "ui_PointEditorWidget.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityTreeComposite.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <cstdlib>
#include <fstream>
#include <string>

namespace
{

constexpr int POINTS = 1000000;

/// Resident memory of the process, bytes, from /proc.
double residentBytes()
{
  std::ifstream status("/proc/self/statm");
  long pages = 0;
  long resident = 0;
  status >> pages >> resident;
  return static_cast<double>(resident) * 4096.0;
}

/// The bench host with one platform of a million points, a tenth of a second apart.
struct Host : BenchHost
{
  Host()
  {
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Long";
    platform = PIData::createPlatform(&header, nullptr);
    std::vector<PIData::PIPlatformPoint> points(POINTS);
    for (int i = 0; i < POINTS; ++i)
    {
      points[i].time = 0.1 * i;
      points[i].position = {0.6 + 1e-7 * i, -2.0 + 2e-7 * i, 1000.0 + (i % 100)};
      points[i].orientation = {0.1, 0.0, 0.0};
      points[i].velocity = {10.0, 5.0, 0.0};
    }
    PIData::addDataPoints(platform, &points);
    PIData::clockAutoConfigureBeginEnd();
  }
  UniqueID_t platform = 0;
};

/// The tab over the editor's tree, shown, with nothing selected yet.
struct Editor
{
  explicit Editor(Host& host) : host_(host)
  {
    model.forceRefresh();
    composite.setModel(&model);
    tab = std::make_unique<QtSep::PointEditorWidget>(composite);
    tab->resize(1200, 800);
    tab->show();
    tab->setTabActive(true);
    QApplication::processEvents();
  }
  /// Selects the platform and waits until the table is drawn with its rows.
  void showPlatform()
  {
    composite.setSelected(host_.platform);
    if (!QTest::qWaitFor([this] { return tab->model().rowCount() == POINTS; }, 60000))
      std::abort();
    tab->ui().treeView->viewport()->repaint();
  }

  Host& host_;
  PluginUtils::EntityTreeModel model;
  kelQt::EntityTreeComposite composite;
  std::unique_ptr<QtSep::PointEditorWidget> tab;
};

void BM_ShowAMillionPoints(benchmark::State& state)
{
  Host host;
  double perRow = 0.0;
  for (auto _ : state)
  {
    state.PauseTiming();
    Editor editor(host);
    const double before = residentBytes();
    state.ResumeTiming();
    editor.showPlatform();
    state.PauseTiming();
    perRow = (residentBytes() - before) / POINTS;
    state.ResumeTiming();
  }
  state.counters["bytes_per_row"] = perRow;
}
BENCHMARK(BM_ShowAMillionPoints)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_SortAMillionPointsByAltitude(benchmark::State& state)
{
  Host host;
  Editor editor(host);
  editor.showPlatform();
  QTreeView& view = *editor.tab->ui().treeView;
  bool ascending = false;
  for (auto _ : state)
  {
    view.sortByColumn(3, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    view.viewport()->repaint();
    ascending = !ascending;
  }
}
BENCHMARK(BM_SortAMillionPointsByAltitude)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_EditOneCellAndApply(benchmark::State& state)
{
  Host host;
  Editor editor(host);
  editor.showPlatform();
  QAbstractItemModel& shown = *editor.tab->ui().treeView->model();
  int edit = 0;
  for (auto _ : state)
  {
    shown.setData(shown.index(500000, 3), QString::number(2000 + edit++));
    editor.tab->ui().applyPushButton->click();
    editor.tab->ui().treeView->viewport()->repaint();
  }
}
BENCHMARK(BM_EditOneCellAndApply)->Unit(benchmark::kMillisecond)->Iterations(2);

/// A beam of a million points on a platform, and a table of 100,000 rows of ten double columns.
struct ChildHost : BenchHost
{
  ChildHost()
  {
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Carrier";
    PIData::PIPlatformPoint first;
    first.time = 0.0;
    first.position = {0.6, -2.0, 0.0};
    platform = PIData::createPlatform(&header, &first);
    PIData::PIBeamHeader beamHeader;
    beamHeader.name = "Search";
    beamHeader.beamType = PIData::PI_BEAM_ABSOLUTE;
    beam = PIData::createBeam(platform, &beamHeader, nullptr, true);
    for (int i = 0; i < POINTS; ++i)
    {
      const PIData::PIBeamPoint point{1e-6 * i, 0.1, 5000.0, 0.1 * i};
      PIData::addDataPoint(beam, &point);
    }
    std::vector<std::string> names;
    std::vector<UTILS::VariableType_t> types;
    for (int c = 0; c < TABLE_COLUMNS; ++c)
    {
      names.push_back("Column " + std::to_string(c));
      types.push_back(UTILS::VT_DOUBLE);
    }
    PIData::addDataTable(platform, "Telemetry", &names, &types, &table);
    std::vector<long> columns;
    PIData::getDataTableColumns(table, &columns);
    for (int r = 0; r < TABLE_ROWS; ++r)
    {
      PIData::DataTableRowT row(0.1 * r);
      for (long column : columns)
        row.setCellValue(static_cast<unsigned long>(column), 0.5 * r + column);
      PIData::addDataTableRow(table, row);
    }
  }
  static constexpr int TABLE_ROWS = 100000;
  static constexpr int TABLE_COLUMNS = 10;
  UniqueID_t platform = 0;
  UniqueID_t beam = 0;
  long table = 0;
};

/// The tab over a ChildHost, showing an entity as a type of data.
struct ChildEditor
{
  ChildEditor()
  {
    model.forceRefresh();
    composite.setModel(&model);
    tab = std::make_unique<QtSep::PointEditorWidget>(composite);
    tab->resize(1200, 800);
    tab->show();
    tab->setTabActive(true);
    QApplication::processEvents();
  }
  void show(UniqueID_t id, int rows)
  {
    composite.setSelected(id);
    if (!QTest::qWaitFor([this, rows] { return tab->model().rowCount() == rows; }, 60000))
      std::abort();
    tab->ui().treeView->viewport()->repaint();
  }
  void chooseType(int type)
  {
    QComboBox& types = *tab->ui().typeComboBox;
    types.setCurrentIndex(types.findData(type));
    emit types.activated(types.currentIndex());
  }
  PluginUtils::EntityTreeModel model;
  kelQt::EntityTreeComposite composite;
  std::unique_ptr<QtSep::PointEditorWidget> tab;
};

void BM_ShowAMillionPointBeam(benchmark::State& state)
{
  ChildHost host;
  for (auto _ : state)
  {
    state.PauseTiming();
    ChildEditor editor;
    state.ResumeTiming();
    editor.show(host.beam, POINTS);
  }
}
BENCHMARK(BM_ShowAMillionPointBeam)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_ApplyOneEditToAMillionPointBeam(benchmark::State& state)
{
  ChildHost host;
  ChildEditor editor;
  editor.show(host.beam, POINTS);
  QAbstractItemModel& shown = *editor.tab->ui().treeView->model();
  int edit = 0;
  for (auto _ : state)
  {
    shown.setData(shown.index(500000, 3), QString::number(6000 + edit++));
    editor.tab->ui().applyPushButton->click();
    editor.tab->ui().treeView->viewport()->repaint();
  }
}
BENCHMARK(BM_ApplyOneEditToAMillionPointBeam)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_ShowATableOfAHundredThousandRowsAndApplyOneEdit(benchmark::State& state)
{
  ChildHost host;
  for (auto _ : state)
  {
    state.PauseTiming();
    ChildEditor editor;
    editor.chooseType(QtSep::PointEditorWidget::DATA_TABLES);
    state.ResumeTiming();
    editor.show(host.platform, ChildHost::TABLE_ROWS);
    QAbstractItemModel& shown = *editor.tab->ui().treeView->model();
    shown.setData(shown.index(50000, 5), "42.5");
    editor.tab->ui().applyPushButton->click();
    editor.tab->ui().treeView->viewport()->repaint();
  }
}
BENCHMARK(BM_ShowATableOfAHundredThousandRowsAndApplyOneEdit)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

int main(int argc, char** argv)
{
  return runBenchmarksWithWidgets(argc, argv);
}
