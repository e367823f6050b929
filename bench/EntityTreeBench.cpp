// The entity tree over a large scenario: 2,500 platforms each with a beam, a gate under the beam
// and a laser (10,000 entities), read whole by the model and shown in a tree view, and filtered
// by a name pattern.
#include "BenchHost.h"
#include "host/PIData.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityNameFilter.h"
#include "widgets/EntityProxyModel.h"
#include "widgets/EntityTreeComposite.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTreeView>

namespace
{

// The bench host holding 2,500 platform families.
struct Host : BenchHost
{
  Host()
  {
    PIData::initializeScenario();
    for (int i = 0; i < 2500; ++i)
      addFamily(i);
  }
  static void addFamily(int i)
  {
    PIData::PIPlatformHeader header;
    header.name = "Platform " + std::to_string(i);
    PIData::PIPlatformPoint point;
    point.time = i;
    point.position = {0.6, -2.0, 100.0};
    const UniqueID_t platform = PIData::createPlatform(&header, &point);
    PIData::PIBeamHeader beamHeader;
    PIData::PIBeamPoint bp{0, 0, 1, static_cast<double>(i)};
    const UniqueID_t beam = PIData::createBeam(platform, &beamHeader, &bp, true);
    PIData::PIGateHeader gateHeader;
    PIData::PIGatePoint gp{0, 0, 0, 0, 0, 1, 0.5, static_cast<double>(i)};
    PIData::createGate(beam, &gateHeader, &gp, true);
    PIData::PILaserHeader laserHeader;
    PIData::createLaser(platform, &laserHeader, 0);
  }
};

void BM_BuildAndShowTenThousandEntities(benchmark::State& state)
{
  Host host;
  for (auto _ : state)
  {
    PluginUtils::EntityTreeModel model;
    model.forceRefresh();
    QTreeView view;
    view.setModel(&model);
    view.expandAll();
    view.resize(800, 600);
    view.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(model.rowCount());
  }
  state.counters["entities"] = static_cast<double>(host.store.entityCount());
}
BENCHMARK(BM_BuildAndShowTenThousandEntities)->Unit(benchmark::kMillisecond)->Iterations(3);

// One change of the name pattern filters all 10,000 rows again.
void BM_NameFilterOverTenThousandEntities(benchmark::State& state)
{
  Host host;
  PluginUtils::EntityTreeModel model;
  model.forceRefresh();
  kelQt::EntityProxyModel proxy;
  proxy.setSourceModel(&model);
  auto* names = new kelQt::EntityNameFilter(&model);
  proxy.addEntityFilter(names);
  int flip = 0;
  for (auto _ : state)
  {
    names->setRegExp((flip++ % 2) ? "Platform 1.*7" : "Platform 24", Qt::CaseInsensitive, QRegExp::RegExp);
    benchmark::DoNotOptimize(proxy.rowCount());
  }
}
BENCHMARK(BM_NameFilterOverTenThousandEntities)->Unit(benchmark::kMillisecond);

// The editor window's tree as the user meets it: the composite with its name search, built,
// shown expanded, then searched by typing a pattern into its line edit.
void BM_CompositeBuildShowAndSearch(benchmark::State& state)
{
  Host host;
  for (auto _ : state)
  {
    PluginUtils::EntityTreeModel model;
    model.forceRefresh();
    kelQt::EntityTreeComposite composite;
    composite.setModel(&model);
    composite.resize(400, 600);
    composite.show();
    composite.view()->expandAll();
    QApplication::processEvents();
    QMap<QString, QVariant> search;
    search[kelQt::EntityNameFilter::TEXT_KEY] = "Platform 24";
    composite.setFilterSettings(search);
    QApplication::processEvents();
    benchmark::DoNotOptimize(composite.view()->model()->rowCount());
  }
}
BENCHMARK(BM_CompositeBuildShowAndSearch)->Unit(benchmark::kMillisecond)->Iterations(3);

// The editor window's 5 s synchronisation when nothing changed: every entity read again.
void BM_SynchronizeTenThousandUnchanged(benchmark::State& state)
{
  Host host;
  PluginUtils::EntityTreeModel model;
  model.forceRefresh();
  for (auto _ : state)
    model.synchronizeToScenario();
}
BENCHMARK(BM_SynchronizeTenThousandUnchanged)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
  return runBenchmarksWithWidgets(argc, argv);
}
