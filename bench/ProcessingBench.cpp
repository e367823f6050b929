// Track processing through the plug-in's call path against the real store: each thinning
// method, the speed filter and duplicate removal of a million-point platform, as the editor's
// commands run them (the copy, the earth-centred fetch, the work, the write).
#include "BenchHost.h"
#include "host/PIData.h"
#include "processing/ByCalculatedSpeed.h"
#include "processing/ByPointDecimation.h"
#include "processing/ByTimeDecimation.h"
#include "processing/CullAngleDecimation.h"
#include "processing/DistanceDecimation.h"
#include "processing/RemoveDuplicatePoints.h"
#include "processing/VisvalingamDecimation.h"
#include "merge/CommonMerge.h"
#include "actions/TransformPlatformAction.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cmath>
#include <functional>
#include <memory>

namespace
{

constexpr std::size_t MILLION = 1000000;

// A platform of 1,000,000 points of which half lie inside runs of equal points: the track
// alternates between 250,000 single moves and 250,000 runs of three.
std::vector<PIData::PIPlatformPoint> halfDuplicated()
{
  std::vector<PIData::PIPlatformPoint> points;
  points.reserve(MILLION);
  double time = 0.0;
  for (int step = 0; points.size() < MILLION; ++step)
  {
    PIData::PIPlatformPoint point;
    point.position = {0.6 + step * 1e-7, -2.0, 1000.0};
    const int copies = step % 2 ? 3 : 1;
    for (int c = 0; c < copies && points.size() < MILLION; ++c)
    {
      point.time = time++;
      points.push_back(point);
    }
  }
  return points;
}

/**
 * A recorded flight of n points, one a second (latitude, longitude in radians, altitude in
 * metres): laps of a wide loop some 400 km across, weaving at 60 to 80 m/s and climbing and
 * descending 500 m, with a spell of taxiing at a crawl every thousand points.
 */
std::vector<PIData::PIPlatformPoint> flight(std::size_t n)
{
  std::vector<PIData::PIPlatformPoint> points(n);
  double s = 0.0; // how far along the course, in seconds of flying
  for (std::size_t i = 0; i < n; ++i)
  {
    s += i % 1000 < 40 ? 0.0025 : 1.0;
    PIData::PIPlatformPoint& p = points[i];
    p.time = static_cast<double>(i);
    p.position = {0.6 + 0.035 * std::sin(s * 2 * M_PI / 90000) + 0.0002 * std::sin(s * 0.05),
                  -2.0 + 0.05 * std::sin(s * 2 * M_PI / 70000 + 1.0) + 0.0002 * std::cos(s * 0.031),
                  3000.0 + 500.0 * std::sin(s * 2 * M_PI / 20000)};
    p.frame.coordinateSystem = PI_COORDSYS_LLA;
  }
  return points;
}

UniqueID_t platformOf(const std::vector<PIData::PIPlatformPoint>& points, const std::string& name)
{
  PIData::PIPlatformHeader header;
  header.name = name;
  const UniqueID_t id = PIData::createPlatform(&header, nullptr);
  PIData::addDataPoints(id, &points);
  return id;
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

/// The five thinning methods, as the Decimate dialog's defaults and common choices set them.
std::unique_ptr<QtSep::DecimateAlgorithm> method(int which)
{
  switch (which)
  {
  case 0: {
    auto byPoint = std::make_unique<QtSep::ByPointDecimation>();
    byPoint->setKeepEveryNumPoints(10);
    return byPoint;
  }
  case 1: {
    auto byTime = std::make_unique<QtSep::ByTimeDecimation>();
    byTime->setMinimumDataInterval(10.0);
    return byTime;
  }
  case 2: {
    auto byAngle = std::make_unique<QtSep::CullAngleDecimation>();
    byAngle->setCullAngle(1.0 * M_PI / 180.0);
    return byAngle;
  }
  case 3: {
    auto byDistance = std::make_unique<QtSep::DistanceDecimation>();
    byDistance->setDistance(1000.0);
    return byDistance;
  }
  default: {
    auto byArea = std::make_unique<QtSep::VisvalingamDecimation>();
    byArea->setPercentageDrop(0.9);
    return byArea;
  }
  }
}

const char* const METHOD_NAMES[] = {"point (every 10)", "time (10 s)", "angle (1 deg)", "distance (1000 m)",
                                    "area (drop 90 %)"};

// Decimating a 1,000,000-point platform as the command does: the full copy into a new
// platform, the earth-centred fetch, the thinning and the write of the thinned track.
void BM_DecimateMillion(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const UniqueID_t id = platformOf(flight(MILLION), "Recorder");
  const std::unique_ptr<QtSep::DecimateAlgorithm> algorithm = method(static_cast<int>(state.range(0)));
  std::size_t kept = 0;
  for (auto _ : state)
  {
    std::uint64_t made = 0;
    algorithm->execute(id, &made, false);
    state.PauseTiming();
    kept = PIData::getNumberDataPoints(made);
    PIData::removeEntity(made, false);
    state.ResumeTiming();
  }
  state.SetLabel(METHOD_NAMES[state.range(0)]);
  state.counters["points_kept"] = static_cast<double>(kept);
}
BENCHMARK(BM_DecimateMillion)->DenseRange(0, 4)->Unit(benchmark::kMillisecond)->Iterations(3);

// The area method's thinning alone, at growing lengths: n log n (and the misses of a heap that
// outgrows the caches), where the linear search of the rule as written took 0.6 s for 20,000
// points and grew with the square.
void BM_VisvalingamAlone(benchmark::State& state)
{
  const std::vector<PIData::PIPlatformPoint> lla = flight(static_cast<std::size_t>(state.range(0)));
  std::vector<PIData::PIPlatformPoint> points = lla;
  for (auto& p : points)
    p.position = {p.position.y * 6.37e6, p.position.x * 6.37e6, p.position.z}; // any metric frame will do
  QtSep::VisvalingamDecimation byArea;
  byArea.setPercentageDrop(0.9);
  for (auto _ : state)
  {
    std::vector<PIData::PIPlatformPoint> out;
    byArea.execute_(points, out);
    benchmark::DoNotOptimize(out.size());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_VisvalingamAlone)
    ->Arg(20000)
    ->Arg(60000)
    ->Arg(200000)
    ->Arg(600000)
    ->Arg(MILLION)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

// Velocity filtering by calculated speed of a million points, as the command replaces the track.
void BM_FilterByCalculatedSpeedMillion(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const std::vector<PIData::PIPlatformPoint> points = flight(MILLION);
  const UniqueID_t id = platformOf(points, "Recorder");
  QtSep::ByCalculatedSpeed filter;
  filter.minVelocityMs = 10.0;
  filter.maxVelocityMs = 70.0;
  PIData::PICoordReferenceFrame geodetic;
  geodetic.coordinateSystem = PI_COORDSYS_LLA;
  for (auto _ : state)
  {
    std::vector<PIData::PIPlatformPoint> fetched, kept;
    PIData::getDataPoints(id, -1e300, 1e300, &fetched, geodetic);
    filter.filterPlatform_(fetched, kept);
    CommonMerge::ReplaceDataPoints(id, kept, true);
    state.PauseTiming();
    state.counters["points_kept"] = static_cast<double>(kept.size());
    PIData::flushEntityData(id, PIData::FLUSH_POINTS);
    PIData::addDataPoints(id, &points);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FilterByCalculatedSpeedMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

// Transform Platform... on a million points: an offset of X in ECEF (every point through the
// frame and back), and a time scale that takes the platform's beam with it.
void BM_TransformMillion(benchmark::State& state)
{
  const bool time = state.range(0) == 1;
  const std::vector<PIData::PIPlatformPoint> points = flight(MILLION);
  for (auto _ : state)
  {
    state.PauseTiming();
    BenchHost host;
    PIData::initializeScenario();
    const UniqueID_t id = platformOf(points, "Recorder");
    PIData::PIBeamHeader beam;
    PIData::PIBeamPoint pointing{0, 0, 1000, 10};
    PIData::createBeam(id, &beam, &pointing, true);
    QtSep::TransformPlatformAction::Coefficients rows;
    if (time)
      rows[QtSep::TransformPlatformDialog::TIME] = {true, 1.5, 20.0};
    else
      rows[QtSep::TransformPlatformDialog::X] = {true, 1.0, 250.0};
    state.ResumeTiming();
    QtSep::TransformPlatformAction::transform({{static_cast<unsigned long>(id), PI_PLATFORM_TYPE, "Recorder"}}, rows,
                                              time ? kelCore::CoordinateSystem::LLA : kelCore::CoordinateSystem::ECEF);
  }
  state.SetLabel(time ? "time x1.5 + 20 s, the beam following" : "ECEF x + 250 m");
}
BENCHMARK(BM_TransformMillion)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
  return runBenchmarksWithWidgets(argc, argv);
}
