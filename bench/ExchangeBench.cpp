// Whole entities through the clipboard's payload, against the real store: a platform of a
// million points with orientation and velocity, a beam, a laser and a projector of a
// thousand points each, copied to a payload and pasted as new entities.
#include "BenchHost.h"
#include "exchange/EntityMimeData.h"
#include "host/PIData.h"
#include "plugin/ActionUtilities.h"

#include <QMimeData>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace
{

constexpr std::size_t MILLION = 1000000;
constexpr int CHILD_POINTS = 1000;

UniqueID_t makePlatformWithChildren(std::size_t points)
{
  std::vector<PIData::PIPlatformPoint> track(points);
  for (std::size_t i = 0; i < points; ++i)
  {
    PIData::PIPlatformPoint& p = track[i];
    p.time = static_cast<double>(i);
    p.position = {0.6 + p.time * 3e-8, -2.0 + p.time * 2e-8, 3000.0 + 20.0 * std::sin(p.time * 1e-3)};
    p.orientation = {0.5, 0.01, 0.0};
    p.velocity = {100.0, 150.0, 0.0};
    p.frame.coordinateSystem = PI_COORDSYS_LLA;
  }
  PIData::PIPlatformHeader header;
  header.name = "Eagle";
  const UniqueID_t platform = PIData::createPlatform(&header, nullptr);
  PIData::addDataPoints(platform, &track);

  PIData::PIBeamHeader beamHeader;
  beamHeader.name = "Radar";
  const UniqueID_t beam = PIData::createBeam(platform, &beamHeader, nullptr, true);
  PIData::PILaserHeader laserHeader;
  laserHeader.name = "Designator";
  const UniqueID_t laser = PIData::createLaser(platform, &laserHeader, 0);
  PIData::PIProjectorHeader projectorHeader;
  projectorHeader.name = "Lamp";
  const UniqueID_t projector = PIData::createProjector(platform, &projectorHeader);
  for (int i = 0; i < CHILD_POINTS; ++i)
  {
    const double t = i * 10.0;
    const PIData::PIBeamPoint bp{0.1, 0.05, 20000.0, t};
    PIData::addDataPoint(beam, &bp);
    const PIData::PILaserPoint lp{0.2, 0.1, 0.0, t};
    PIData::addLaserOriDataPoint(laser, &lp);
    PIData::addProjectorFOV(projector, t, 0.3);
  }
  return platform;
}

// Copy Entity then Paste Entity of the platform with its three children, in one host.
void BM_CopyAndPastePlatformWithThreeChildren(benchmark::State& state)
{
  const auto points = static_cast<std::size_t>(state.range(0));
  std::size_t bytes = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    BenchHost host;
    PIData::initializeScenario();
    const UniqueID_t platform = makePlatformWithChildren(points);
    QtSep::EntityMimeData exchange;
    state.ResumeTiming();
    std::unique_ptr<QMimeData> mime(exchange.copy({QtSep::EntityInfo{platform, PI_PLATFORM_TYPE, "Eagle"}}));
    const int status = exchange.paste({}, mime.get());
    state.PauseTiming();
    bytes = static_cast<std::size_t>(mime->data(QtSep::CP_VERSION).size());
    if (status != 0 || PIData::getNumberDataPoints(exchange.pastedIds().front()) != points)
      state.SkipWithError("the paste did not make the platform whole");
    mime.reset();
    state.ResumeTiming();
  }
  state.counters["payload_MB"] = static_cast<double>(bytes) / 1e6;
}
BENCHMARK(BM_CopyAndPastePlatformWithThreeChildren)->Arg(100000)->Arg(MILLION)->Unit(benchmark::kMillisecond)->Iterations(1);

// The copy alone, which the clipboard and a drag both pay when they start.
void BM_CopyPlatformWithThreeChildren(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const UniqueID_t platform = makePlatformWithChildren(MILLION);
  QtSep::EntityMimeData exchange;
  for (auto _ : state)
  {
    std::unique_ptr<QMimeData> mime(exchange.copy({QtSep::EntityInfo{platform, PI_PLATFORM_TYPE, "Eagle"}}));
    benchmark::DoNotOptimize(mime.get());
  }
}
BENCHMARK(BM_CopyPlatformWithThreeChildren)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv) { return runBenchmarksWithWidgets(argc, argv); }
