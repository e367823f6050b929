// Cost of the call path: one server request through handle(), and one client message
// through SPI_PluginDispatchFunction. Every API call pays the first twice over (the override
// query and the request), which is why bulk work uses the bulk operations.
#include "host/PIBase.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/PISupportFunctionMap.h"
#include "host/PI_DATA_STRUCT.h"
#include "host/PluginExports.h"
#include "host/handle.h"

#include <benchmark/benchmark.h>

namespace
{

// Answers like a host that does nothing: the override query leaves the stack empty.
class IdleHost : public PISupportFunctionMap
{
public:
  std::int64_t operator()(void*, PIServerFunctions_t, void*) override { return 0; }
};

void BM_EntityRequest(benchmark::State& state)
{
  IdleHost host;
  g_FunctionMap = &host;
  for (auto _ : state)
  {
    PIData::PI_DATA_STRUCT record;
    record.entityId = 42;
    benchmark::DoNotOptimize(handle(PISF_GET_HEADER, &record));
  }
  g_FunctionMap = nullptr;
}
BENCHMARK(BM_EntityRequest);

void BM_CatchAllRequest(benchmark::State& state)
{
  IdleHost host;
  g_FunctionMap = &host;
  for (auto _ : state)
  {
    PI_DATA_CATCHALL record = PI_DATA_CATCHALL::withSelector(3);
    record.doubles.push_back(0.0);
    benchmark::DoNotOptimize(handle(PISF_CLOCK, &record));
  }
  g_FunctionMap = nullptr;
}
BENCHMARK(BM_CatchAllRequest);

void BM_ClientMessage(benchmark::State& state)
{
  IdleHost host;
  SPI_InitializeFunctionMap(&host, &host);
  PIFunctionParams_t params;
  for (auto _ : state)
  {
    SPI_PluginDispatchFunction(PICF_LOAD_IN_KELVOR10, &params);
    benchmark::DoNotOptimize(params.integers);
  }
  PIFunctionParams_t close;
  SPI_PluginDispatchFunction(PICF_CLOSE, &close);
  SPI_CleanUpPlugin();
  g_ClientMessageMap.clear();
}
BENCHMARK(BM_ClientMessage);

} // namespace

BENCHMARK_MAIN();
