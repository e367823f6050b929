// One million-point track through GDAL: a GPX file as GPS receivers write it read in, and the
// track written out to GPX and GeoJSON.
#include "files/GdalTrackReader.h"
#include "files/GdalTrackWriter.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{

constexpr std::size_t POINTS = 1000000;

std::string benchFile(const char* ending)
{
  return (std::filesystem::temp_directory_path() / (std::string("kelvor-bench-track") + ending)).string();
}

/// One platform flying a straight course north-east at 150 m/s, a point every 0.1 s.
kelvor::ScenarioStore& track()
{
  static kelvor::ScenarioStore store;
  if (store.entityCount() == 0)
  {
    store.editProperties().referenceYear = 2024;
    PIData::PIPlatformHeader header;
    header.name = "Track 1";
    header.originalId = 1;
    kelvor::Entity& e = *store.editEntity(store.createEntity(header, 0));
    std::vector<kelvor::StoredPlatformPoint> points(POINTS);
    for (std::size_t i = 0; i < POINTS; ++i)
    {
      kelvor::StoredPlatformPoint& p = points[i];
      p.time = 3600.0 + static_cast<double>(i) * 0.1;
      p.lat = (34.5 + static_cast<double>(i) * 1e-6) * M_PI / 180.0;
      p.lon = (-118.0 + static_cast<double>(i) * 1.2e-6) * M_PI / 180.0;
      p.alt = 1000.0 + static_cast<double>(i % 1000);
      p.yaw = M_PI / 4, p.pitch = 0.0, p.roll = 0.0;
      p.velEast = 106.07, p.velNorth = 106.07, p.velUp = 0.0;
    }
    e.platformPoints.insertMany(std::move(points));
  }
  return store;
}

void exportTo(benchmark::State& state, const char* ending)
{
  kelvor::ScenarioStore& store = track();
  const std::string file = benchFile(ending);
  std::string error;
  for (auto _ : state)
    if (!kelvor::GdalTrackWriter(store).writeFile(file, store.list(PI_PLATFORM_TYPE), error))
      state.SkipWithError(error.c_str());
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
  state.counters["points/s"] = benchmark::Counter(POINTS, benchmark::Counter::kIsIterationInvariantRate);
  std::remove(file.c_str());
}

void BM_ExportGpx(benchmark::State& state) { exportTo(state, ".gpx"); }
void BM_ExportGeoJson(benchmark::State& state) { exportTo(state, ".geojson"); }

/// Writes a GPX file as a receiver logs one: a trk of trkpt with lat, lon (9 decimals), ele and time, 112 MB.
std::string receiverGpx()
{
  const std::string file = benchFile("-receiver.gpx");
  std::ofstream out(file);
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<gpx version=\"1.1\" creator=\"bench\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n"
         "<trk><name>Track 1</name><trkseg>\n";
  char line[200];
  const std::time_t start = 1704070800; // 2024-01-01T01:00:00Z
  for (std::size_t i = 0; i < POINTS; ++i)
  {
    const std::time_t second = start + static_cast<std::time_t>(i / 10);
    std::tm utc{};
    gmtime_r(&second, &utc);
    const int n = std::snprintf(line, sizeof(line),
                                "<trkpt lat=\"%.9f\" lon=\"%.9f\"><ele>%.3f</ele><time>%04d-%02d-%02dT%02d:%02d:%02d.%03dZ"
                                "</time></trkpt>\n",
                                34.5 + static_cast<double>(i) * 1e-6, -118.0 + static_cast<double>(i) * 1.2e-6,
                                1000.0 + static_cast<double>(i % 1000), utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday,
                                utc.tm_hour, utc.tm_min, utc.tm_sec, static_cast<int>(i % 10) * 100);
    out.write(line, n);
  }
  out << "</trkseg></trk>\n</gpx>\n";
  return file;
}

void BM_ImportGpx(benchmark::State& state)
{
  const std::string file = receiverGpx();
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
  for (auto _ : state)
  {
    kelvor::ScenarioStore store;
    const kelvor::ReadReport report = kelvor::GdalTrackReader(store).readFile(file);
    if (!report.ok() || store.pointCount() != POINTS)
      state.SkipWithError(report.errors.empty() ? "not every point read" : report.errors[0].c_str());
  }
  state.counters["points/s"] = benchmark::Counter(POINTS, benchmark::Counter::kIsIterationInvariantRate);
  std::remove(file.c_str());
}

// One run each: a run takes seconds.
BENCHMARK(BM_ImportGpx)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportGeoJson)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportGpx)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
