// The Point Editor tab over a platform of 1,000,000 points through the real server: the table
// shown from the selection of the entity, sorted by another column, one cell edited and
// applied; and the memory the scratch copy and the view take a row.
#include "BenchHost.h"
#include "datasources/EntityDataModel.h"
#include "datasources/PointEditorWidget.h"
#include "host/PIData.h"
#include "ui_PointEditorWidget.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityTreeComposite.h"

#include <benchmark/benchmark.h>

#include <QApplication>
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

} // namespace

int main(int argc, char** argv)
{
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
