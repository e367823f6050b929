// Track processing through the plug-in's call path against the real store.
#include "BenchHost.h"
#include "host/PIData.h"
#include "processing/RemoveDuplicatePoints.h"

#include <benchmark/benchmark.h>

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

} // namespace

BENCHMARK_MAIN();
