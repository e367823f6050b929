// Cost of the conversions every table cell and every track edit pays: one LLA to ECEF to
// XEAST conversion with orientation and velocity, and one time text.
#include "kelCore/CoordinateConverter.h"
#include "kelCore/TimeFormatterRegistry.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{

constexpr double DEG = M_PI / 180.0;

void BM_LlaToEcefToXEast(benchmark::State& state)
{
  kelCore::CoordinateConverter converter;
  converter.setReferenceOrigin(35.0 * DEG, -117.0 * DEG, 700.0);
  const kelCore::Coordinate lla(kelCore::CoordinateSystem::LLA, {35.01 * DEG, -116.98 * DEG, 1500.0},
                                {0.5, 0.05, -0.02}, {120.0, -40.0, 3.0});
  kelCore::Coordinate ecef, xeast;
  for (auto _ : state)
  {
    converter.convert(lla, ecef, kelCore::CoordinateSystem::ECEF);
    converter.convert(ecef, xeast, kelCore::CoordinateSystem::XEAST);
    benchmark::DoNotOptimize(xeast);
  }
}
BENCHMARK(BM_LlaToEcefToXEast);

void BM_TimeToString(benchmark::State& state)
{
  const kelCore::TimeFormatterRegistry registry;
  const auto format = static_cast<kelCore::TimeFormat>(state.range(0));
  const kelCore::TimeStamp stamp(2024, 60 * 86400.0 + 3723.456);
  for (auto _ : state)
    benchmark::DoNotOptimize(registry.toString(format, stamp, 2024, 3));
}
BENCHMARK(BM_TimeToString)->DenseRange(1, 7);

void BM_TimeFromString(benchmark::State& state)
{
  const kelCore::TimeFormatterRegistry registry;
  kelCore::TimeStamp stamp;
  for (auto _ : state)
    benchmark::DoNotOptimize(registry.fromString("061 2024 01:02:03.456", stamp, 2024));
}
BENCHMARK(BM_TimeFromString);

} // namespace

BENCHMARK_MAIN();
