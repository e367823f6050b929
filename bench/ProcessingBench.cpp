// Track processing through the plug-in's call path against the real store.
#include "BenchHost.h"
#include "host/PIData.h"
#include "processing/ByPointDecimation.h"
#include "processing/RemoveDuplicatePoints.h"
#include "processing/VisvalingamDecimation.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{

// A platform of 1,000,000 points of which half lie inside runs of equal points: the track
// alternates between 250,000 single moves and 250,000 runs of three.
std::vector<PIData::PIPlatformPoint> halfDuplicated()
{
  std::vector<PIData::PIPlatformPoint> points;
  points.reserve(1000000);
  double time = 0.0;
  for (int step = 0; points.size() < 1000000; ++step)
  {
    PIData::PIPlatformPoint point;
    point.position = {0.6 + step * 1e-7, -2.0, 1000.0};
    const int copies = step % 2 ? 3 : 1;
    for (int c = 0; c < copies && points.size() < 1000000; ++c)
    {
      point.time = time++;
      points.push_back(point);
    }
  }
  return points;
}

void BM_RemoveDuplicatePointsMillion(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const std::vector<PIData::PIPlatformPoint> points = halfDuplicated();
  PIData::PIPlatformHeader header;
  header.name = "Recorder";
  const UniqueID_t id = PIData::createPlatform(&header, nullptr);
  std::size_t left = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    PIData::flushEntityData(id, PIData::FLUSH_POINTS);
    PIData::addDataPoints(id, &points);
    state.ResumeTiming();
    QtSep::RemoveDuplicatePoints().remove({id});
    left = PIData::getNumberDataPoints(id);
  }
  state.counters["points_before"] = static_cast<double>(points.size());
  state.counters["points_after"] = static_cast<double>(left);
}
BENCHMARK(BM_RemoveDuplicatePointsMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

// Decimating a 1,000,000-point platform keeping every 10th point: the full copy into a new
// platform, the earth-centred fetch, the thinning and the write of the thinned track.
void BM_DecimateByPointMillion(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const std::vector<PIData::PIPlatformPoint> points = halfDuplicated();
  PIData::PIPlatformHeader header;
  header.name = "Recorder";
  const UniqueID_t id = PIData::createPlatform(&header, nullptr);
  PIData::addDataPoints(id, &points);
  QtSep::ByPointDecimation byPoint;
  byPoint.setKeepEveryNumPoints(10);
  for (auto _ : state)
  {
    std::uint64_t made = 0;
    byPoint.execute(id, &made, false);
    state.PauseTiming();
    PIData::removeEntity(made, false);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_DecimateByPointMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

// Visvalingam over 20,000 points dropping 75 %: its neighbour search is linear, so it grows
// with the square of the track.
void BM_VisvalingamTwentyThousand(benchmark::State& state)
{
  std::vector<PIData::PIPlatformPoint> points(20000);
  for (std::size_t i = 0; i < points.size(); ++i)
  {
    points[i].time = static_cast<double>(i);
    points[i].position = {static_cast<double>(i) * 10.0, std::sin(i * 0.01) * 500.0, 0.0};
  }
  QtSep::VisvalingamDecimation byArea;
  for (auto _ : state)
  {
    std::vector<PIData::PIPlatformPoint> out;
    byArea.execute_(points, out);
    benchmark::DoNotOptimize(out.size());
  }
}
BENCHMARK(BM_VisvalingamTwentyThousand)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
