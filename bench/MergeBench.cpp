// Joining tracks through the plug-in's call path against the real store: the Merge command on
// two interleaved million-point tracks, Auto Merge of a million-point track recorded in a
// hundred pieces, and points added one by one into the holes of a long track, as dropout
// filling adds them.
#include "BenchHost.h"
#include "host/PIData.h"
#include "merge/AutoMerge.h"
#include "merge/CommonMerge.h"
#include "merge/ManualMerge.h"
#include "merge/ManualMergeWidget.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{

constexpr std::size_t MILLION = 1000000;

/// Points of one track at times first, first + step, ... (seconds), in LLA radians and metres.
std::vector<PIData::PIPlatformPoint> track(std::size_t count, double first, double step)
{
  std::vector<PIData::PIPlatformPoint> points(count);
  for (std::size_t i = 0; i < count; ++i)
  {
    PIData::PIPlatformPoint& p = points[i];
    p.time = first + step * static_cast<double>(i);
    p.position = {0.6 + p.time * 3e-8, -2.0 + p.time * 2e-8, 3000.0 + 20.0 * std::sin(p.time * 1e-3)};
    p.frame.coordinateSystem = PI_COORDSYS_LLA;
  }
  return points;
}

UniqueID_t platformOf(const std::vector<PIData::PIPlatformPoint>& points, const std::string& name,
                      UniqueID_t originalId = 0)
{
  PIData::PIPlatformHeader header;
  header.name = name;
  header.originalId = originalId;
  const UniqueID_t id = PIData::createPlatform(&header, nullptr);
  PIData::addDataPoints(id, &points);
  return id;
}

// Merge with two platforms selected: B's million points, at the odd seconds, go into A's
// million at the even seconds, and B is removed.
void BM_MergeTwoInterleavedMillion(benchmark::State& state)
{
  const auto even = track(MILLION, 0.0, 2.0);
  const auto odd = track(MILLION, 1.0, 2.0);
  std::size_t merged = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    BenchHost host;
    PIData::initializeScenario();
    const UniqueID_t a = platformOf(even, "Eagle");
    const UniqueID_t b = platformOf(odd, "Eagle");
    state.ResumeTiming();
    QtSep::AutoMerge().mergeAndRemove({a, b});
    state.PauseTiming();
    merged = PIData::getNumberDataPoints(a);
    state.ResumeTiming();
  }
  state.counters["points_merged"] = static_cast<double>(merged);
}
BENCHMARK(BM_MergeTwoInterleavedMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

// Auto Merge's Detect and Accept on one million-point track recorded as a hundred platforms
// of one name and original id.
void BM_AutoMergeHundredPieces(benchmark::State& state)
{
  const auto whole = track(MILLION, 0.0, 1.0);
  const std::size_t pieces = 100, each = MILLION / pieces;
  std::size_t merged = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    BenchHost host;
    PIData::initializeScenario();
    for (std::size_t k = 0; k < pieces; ++k)
      platformOf(std::vector<PIData::PIPlatformPoint>(whole.begin() + k * each, whole.begin() + (k + 1) * each),
                 "Viper", 7);
    state.ResumeTiming();
    QtSep::AutoMerge autoMerge;
    for (const auto& group : autoMerge.detectGroups(true))
      autoMerge.mergeAndRemove(group->ids);
    state.PauseTiming();
    std::vector<UniqueID_t> left;
    PIData::getPlatformList(&left);
    merged = left.size() == 1 ? PIData::getNumberDataPoints(left.front()) : 0;
    state.ResumeTiming();
  }
  state.counters["points_merged"] = static_cast<double>(merged);
}
BENCHMARK(BM_AutoMergeHundredPieces)->Unit(benchmark::kMillisecond)->Iterations(3);

// Manual Merge's Detect then Merge over three million-point tracks: the primary has a thousand
// dropouts of 30 s, the second covers every other hole and the third the rest; a new platform
// is made and the sources are kept.
void BM_ManualMergeThreeMillion(benchmark::State& state)
{
  std::vector<PIData::PIPlatformPoint> primary = track(MILLION + 30000, 0.0, 1.0);
  // Every thousand-and-thirtieth second starts a hole of thirty points.
  std::vector<PIData::PIPlatformPoint> holed;
  holed.reserve(MILLION);
  for (const PIData::PIPlatformPoint& p : primary)
    if (static_cast<std::size_t>(p.time) % 1030 < 1000)
      holed.push_back(p);
  const auto second = track(MILLION, 0.25, 1.03);
  const auto third = track(MILLION, 0.5, 1.03);
  std::size_t stretches = 0, merged = 0;
  for (auto _ : state)
  {
    state.PauseTiming();
    BenchHost host;
    PIData::initializeScenario();
    const std::vector<UniqueID_t> ids = {platformOf(holed, "Eagle", 1), platformOf(second, "Eagle", 2),
                                         platformOf(third, "Eagle", 3)};
    PIData::clockSetBegin(0.0);
    PIData::clockSetEnd(holed.back().time);
    state.ResumeTiming();
    std::vector<QtSep::DropOut> found;
    QtSep::ManualMerge::detect(ids, 0.0, holed.back().time, 15.0, QtSep::ManualMergeWidget::DEFAULT_COLORS, found);
    const UniqueID_t made = QtSep::ManualMerge::merge(ids, 0.0, holed.back().time, found,
                                                      std::vector<bool>(found.size(), true));
    state.PauseTiming();
    stretches = found.size();
    merged = PIData::getNumberDataPoints(made);
    state.ResumeTiming();
  }
  state.counters["stretches"] = static_cast<double>(stretches);
  state.counters["points_merged"] = static_cast<double>(merged);
}
BENCHMARK(BM_ManualMergeThreeMillion)->Unit(benchmark::kMillisecond)->Iterations(3);

// Points added one at a time into the middle of a million-point track, each through the call
// path, as a dropout is filled from another source: the cost of one point must not grow with
// the track.
void BM_AddPointIntoTheMiddle(benchmark::State& state)
{
  BenchHost host;
  PIData::initializeScenario();
  const UniqueID_t id = platformOf(track(static_cast<std::size_t>(state.range(0)), 0.0, 1.0), "Eagle");
  PIData::PIPlatformPoint point = track(1, 0.0, 1.0).front();
  double time = 0.5;
  const double last = static_cast<double>(state.range(0));
  for (auto _ : state)
  {
    point.time = time;
    PIData::addDataPoint(id, &point);
    time += 997.0; // strides through the whole track, between its points
    if (time >= last)
      time = std::fmod(time, last) + 1e-3;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_AddPointIntoTheMiddle)->Arg(10000)->Arg(MILLION);

} // namespace

BENCHMARK_MAIN();
