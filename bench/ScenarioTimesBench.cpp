// Whole-scenario repairs through the real server: shifting a scenario of 10,000,000 points
// (1,000 platforms of 10,000) in time, and detecting the stationary platforms among 10,000
// platforms of 100 points each.
#include "BenchHost.h"
#include "host/PIData.h"
#include "processing/AdjustScenarioTimes.h"
#include "processing/MakeStationary.h"

#include <benchmark/benchmark.h>

#include <QApplication>

namespace
{

/// A bench host holding platforms of points a second apart; every tenth platform stands still.
struct Host : BenchHost
{
  Host(int platforms, int pointsEach)
  {
    PIData::initializeScenario();
    std::vector<PIData::PIPlatformPoint> points(pointsEach);
    for (int p = 0; p < platforms; ++p)
    {
      PIData::PIPlatformHeader header;
      header.name = "Platform " + std::to_string(p);
      const UniqueID_t id = PIData::createPlatform(&header, nullptr);
      const double step = p % 10 == 0 ? 0.0 : 1e-6;
      for (int i = 0; i < pointsEach; ++i)
      {
        points[i].time = i;
        points[i].position = {0.6 + step * i, -2.0, 100.0};
        points[i].orientation = {0.2, 0.0, 0.0};
        points[i].velocity = {0.0, 10.0, 0.0};
      }
      PIData::addDataPoints(id, &points);
    }
    PIData::clockAutoConfigureBeginEnd();
  }
};

void BM_ShiftTenMillionPoints(benchmark::State& state)
{
  Host host(1000, 10000);
  double start = 0.0;
  for (auto _ : state)
  {
    start += 3600.0;
    QtSep::AdjustScenarioTimes().execute(PIData::getReferenceYear(), start);
  }
}
BENCHMARK(BM_ShiftTenMillionPoints)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_DetectStationaryAmongTenThousandPlatforms(benchmark::State& state)
{
  Host host(10000, 100);
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  for (auto _ : state)
  {
    QtSep::MakeStationary rule;
    rule.setDistance(true, 10);
    rule.setYaw(true, 5);
    int found = 0;
    for (UniqueID_t id : platforms)
      found += rule.isStationary(id) ? 1 : 0;
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_DetectStationaryAmongTenThousandPlatforms)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
  return runBenchmarksWithWidgets(argc, argv);
}
