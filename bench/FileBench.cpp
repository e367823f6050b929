// Saving and loading large synthetic scenarios: time, throughput and peak memory.
#include "ScenarioGenerator.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace
{

std::string scenarioFile(std::size_t points)
{
  return (std::filesystem::temp_directory_path() / ("kelvor-bench-" + std::to_string(points) + ".kls")).string();
}

double peakMegabytes()
{
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void BM_SaveScenario(benchmark::State& state)
{
  const auto points = static_cast<std::size_t>(state.range(0));
  kelvor::ScenarioStore store;
  kelvor::ScenarioGenerator::synthetic(store, points);
  std::string error;
  for (auto _ : state)
    if (!kelvor::ScenarioWriter(store).writeFile(scenarioFile(points), error))
      state.SkipWithError(error.c_str());
  const double bytes = static_cast<double>(std::filesystem::file_size(scenarioFile(points)));
  state.counters["MB"] = bytes / 1e6;
  state.counters["MB/s"] = benchmark::Counter(bytes / 1e6, benchmark::Counter::kIsIterationInvariantRate);
}

void BM_LoadScenario(benchmark::State& state)
{
  const auto points = static_cast<std::size_t>(state.range(0));
  const std::string file = scenarioFile(points);
  if (!std::filesystem::exists(file))
  {
    state.SkipWithError("run BM_SaveScenario first");
    return;
  }
  const double bytes = static_cast<double>(std::filesystem::file_size(file));
  for (auto _ : state)
  {
    kelvor::ScenarioStore store;
    const kelvor::ReadReport report = kelvor::ScenarioReader(store).readFile(file);
    if (!report.ok())
      state.SkipWithError("the file did not read clean");
    benchmark::DoNotOptimize(report.entities);
  }
  state.counters["MB/s"] = benchmark::Counter(bytes / 1e6, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["peak_MB"] = peakMegabytes();
  std::remove(file.c_str());
}

// One run each: the 10 million point case takes seconds and a few gigabytes of disk.
BENCHMARK(BM_SaveScenario)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadScenario)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveScenario)->Arg(10000000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadScenario)->Arg(10000000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
