// Bulk track work through the whole call path (wrapper, handle, server, store): adding and
// reading a million platform points, in LLA and in ECEF, one addDataPoint, the store's memory
// per point, and what the undo journal adds to a rewrite of a million-point track and costs to undo.
#include "BenchHost.h"
#include "host/PIData.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{

using Host = BenchHost;

std::vector<PIData::PIPlatformPoint> track(std::size_t count)
{
  std::vector<PIData::PIPlatformPoint> points(count);
  for (std::size_t i = 0; i < count; ++i)
  {
    auto& p = points[i];
    p.time = static_cast<double>(i) * 0.1;
    p.position = {0.6 + i * 1e-8, -2.0 + i * 1e-8, 1000.0 + std::sin(i * 1e-3) * 50.0};
    p.orientation = {0.5, 0.01, 0.0};
    p.velocity = {100.0, 20.0, 0.5};
    p.frame.coordinateSystem = PI_COORDSYS_LLA;
  }
  return points;
}

UniqueID_t newPlatform()
{
  PIData::PIPlatformHeader header;
  PIData::PIPlatformPoint first = track(1)[0];
  const UniqueID_t id = PIData::createPlatform(&header, &first);
  PIData::flushEntityData(id, PIData::FLUSH_ALL);
  return id;
}

void BM_AddDataPoints(benchmark::State& state)
{
  const auto points = track(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state)
  {
    state.PauseTiming();
    Host host;
    const UniqueID_t id = newPlatform();
    state.ResumeTiming();
    PIData::addDataPoints(id, &points);
    state.PauseTiming();
    state.counters["bytes_per_point"] =
        static_cast<double>(sizeof(kelvor::StoredPlatformPoint) * host.store.entity(id)->platformPoints.size()) /
        static_cast<double>(points.size());
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_AddDataPoints)->Arg(1000000)->Unit(benchmark::kMillisecond);

// A command that rewrites a million-point track (flush, then every other point again), with
// the journal off (0) and on (1): what journalling adds to it.
/// @return every other point of points, as a thinning keeps them
std::vector<PIData::PIPlatformPoint> everyOther(const std::vector<PIData::PIPlatformPoint>& points)
{
  std::vector<PIData::PIPlatformPoint> kept;
  for (std::size_t i = 0; i < points.size(); i += 2)
    kept.push_back(points[i]);
  return kept;
}

/// @return a new platform holding the points
UniqueID_t platformWith(const std::vector<PIData::PIPlatformPoint>& points)
{
  const UniqueID_t id = newPlatform();
  PIData::addDataPoints(id, &points);
  return id;
}

/// Rewrites a platform's track whole, as a thinning command does: flush, then the kept points.
void rewrite(UniqueID_t id, const std::vector<PIData::PIPlatformPoint>& kept)
{
  PIData::flushEntityData(id, PIData::FLUSH_POINTS);
  PIData::addDataPoints(id, &kept);
}

void BM_RewriteTrack(benchmark::State& state)
{
  const auto points = track(1000000);
  const auto kept = everyOther(points);
  for (auto _ : state)
  {
    state.PauseTiming();
    Host host;
    const UniqueID_t id = platformWith(points);
    host.store.keepJournal(state.range(0) != 0);
    state.ResumeTiming();
    rewrite(id, kept);
    if (host.store.journal())
      host.store.journal()->endStep();
  }
}
BENCHMARK(BM_RewriteTrack)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Undo and redo of that rewrite: the million points come back, then go again.
void BM_UndoRewriteTrack(benchmark::State& state)
{
  const auto points = track(1000000);
  const auto kept = everyOther(points);
  for (auto _ : state)
  {
    state.PauseTiming();
    Host host;
    const UniqueID_t id = platformWith(points);
    host.store.keepJournal(true);
    rewrite(id, kept);
    state.ResumeTiming();
    host.store.undo();
    host.store.redo();
    state.PauseTiming();
    if (host.store.entity(id)->platformPoints.size() != kept.size())
      state.SkipWithError("redo did not give the rewritten track");
    state.ResumeTiming();
  }
}
BENCHMARK(BM_UndoRewriteTrack)->Unit(benchmark::kMillisecond);

// One point moved in a million-point track, as a Point Editor Apply does, with the journal off
// (0) and on (1), then undone and redone: the step keeps the point it replaced, not the track.
void BM_MoveOnePointOfTrack(benchmark::State& state)
{
  const auto points = track(1000000);
  PIData::PIPlatformPoint moved = points[points.size() / 2];
  moved.position.z += 10.0;
  std::size_t stepBytes = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    Host host;
    const UniqueID_t id = platformWith(points);
    host.store.keepJournal(state.range(0) != 0);
    state.ResumeTiming();
    PIData::addDataPoint(id, &moved);
    if (host.store.journal())
    {
      host.store.journal()->endStep();
      stepBytes = host.store.journal()->bytes();
      host.store.undo();
      host.store.redo();
    }
  }
  state.counters["step bytes"] = static_cast<double>(stepBytes);
}
BENCHMARK(BM_MoveOnePointOfTrack)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_GetDataPoints(benchmark::State& state)
{
  Host host;
  const UniqueID_t id = newPlatform();
  const auto points = track(static_cast<std::size_t>(state.range(0)));
  PIData::addDataPoints(id, &points);
  PIData::PICoordReferenceFrame frame;
  frame.coordinateSystem = static_cast<PICoordSystem_t>(state.range(1));
  std::vector<PIData::PIPlatformPoint> out;
  for (auto _ : state)
  {
    PIData::getDataPoints(id, 0.0, 1e300, &out, frame);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetLabel(state.range(1) == PI_COORDSYS_LLA ? "LLA" : "ECEF");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_GetDataPoints)->Args({1000000, PI_COORDSYS_LLA})->Args({1000000, PI_COORDSYS_ECEF})->Unit(benchmark::kMillisecond);

void BM_AddDataPoint(benchmark::State& state)
{
  Host host;
  const UniqueID_t id = newPlatform();
  auto point = track(1)[0];
  double time = 0.0;
  for (auto _ : state)
  {
    point.time = time;
    time += 0.1;
    benchmark::DoNotOptimize(PIData::addDataPoint(id, &point));
  }
}
BENCHMARK(BM_AddDataPoint);

} // namespace

BENCHMARK_MAIN();
