// Tracks in and out of the files other tools write: GPX made by gpsbabel, KML, GeoJSON,
// GeoPackage and a projected shapefile made from it by ogr2ogr, our own exports read back, and
// the files that must be refused whole.
#include "cli/KelvorEdit.h"
#include "files/GdalTrackReader.h"
#include "files/GdalTrackWriter.h"
#include "files/ScenarioReader.h"
#include "kelCore/Iso8601TimeFormatter.h"
#include "support/ScenarioChecks.h"
#include "kelCore/TimeStamp.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace kelvor;

namespace
{

constexpr double DEG = 180.0 / M_PI;
const std::string DEMO = std::string(SEP_SOURCE_DIR) + "/data/demo.kls";

bool onPath(const std::string& tool)
{
  return std::system(("command -v " + tool + " >/dev/null 2>&1").c_str()) == 0;
}

const auto contentsOf = ScenarioChecks::fileContents;
using ScenarioChecks::scenarioText;

std::vector<const Entity*> platformsOf(const ScenarioStore& store)
{
  std::vector<const Entity*> platforms;
  for (UniqueID_t id : store.list(PI_PLATFORM_TYPE))
    platforms.push_back(store.entity(id));
  return platforms;
}

/// What survives a file: positions to 1e-7 degrees, times to 1 ms, altitude to the millimetre.
struct Tolerance
{
  bool names = true;  ///< the names are the platforms'
  bool motion = true; ///< orientation and velocity were written
};

void expectSameTracks(const std::vector<const Entity*>& expected, const ScenarioStore& read, Tolerance tolerance,
                      const std::string& what)
{
  const std::vector<const Entity*> got = platformsOf(read);
  ASSERT_EQ(expected.size(), got.size()) << what;
  for (std::size_t i = 0; i < expected.size(); ++i)
  {
    const Entity& e = *expected[i];
    const Entity& g = *got[i];
    if (tolerance.names)
    {
      EXPECT_EQ(nameOfHeader(e.header), nameOfHeader(g.header)) << what;
    }
    ASSERT_EQ(e.platformPoints.size(), g.platformPoints.size()) << what << ": " << nameOfHeader(e.header);
    auto p = g.platformPoints.begin();
    for (const StoredPlatformPoint& q : e.platformPoints)
    {
      SCOPED_TRACE(what + ": " + nameOfHeader(e.header) + " at " + std::to_string(q.time));
      EXPECT_NEAR(q.time, p->time, 1e-3);
      EXPECT_NEAR(q.lat * DEG, p->lat * DEG, 1e-7);
      EXPECT_NEAR(q.lon * DEG, p->lon * DEG, 1e-7);
      EXPECT_NEAR(q.alt, p->alt, 1e-3);
      if (tolerance.motion)
      {
        EXPECT_EQ(q.hasOrientation(), p->hasOrientation());
        EXPECT_EQ(q.hasVelocity(), p->hasVelocity());
        if (q.hasOrientation() && p->hasOrientation())
        {
          EXPECT_NEAR(q.yaw, p->yaw, 1e-9);
          EXPECT_NEAR(q.roll, p->roll, 1e-9);
        }
        if (q.hasVelocity() && p->hasVelocity())
        {
          EXPECT_NEAR(q.velNorth, p->velNorth, 1e-9);
          EXPECT_NEAR(q.velUp, p->velUp, 1e-9);
        }
      }
      ++p;
    }
  }
}

class GdalTracks : public ::testing::Test
{
protected:
  void SetUp() override
  {
    ASSERT_TRUE(ScenarioReader(demo).readFile(DEMO).ok());
    for (const Entity* platform : platformsOf(demo))
      if (platform->earliestTimedTime() >= 0.0)
        timed.push_back(platform);
  }

  std::string path(const std::string& name) const { return dir.filePath(QString::fromStdString(name)).toStdString(); }

  /// Runs a tool; the test fails when it does. @return true when it ran clean
  static bool run(const std::string& command)
  {
    const int status = std::system((command + " 2>/dev/null").c_str());
    EXPECT_EQ(0, status) << command;
    return status == 0;
  }

  /// A GPX file of the demo's moving platforms, written plainly by the test: times to the millisecond, as loggers do.
  std::string ownGpx() const
  {
    const std::string file = path("own.gpx");
    std::ofstream out(file);
    out.precision(12);
    out << "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n";
    for (const Entity* platform : timed)
    {
      out << "<trk><name>" << nameOfHeader(platform->header) << "</name><trkseg>\n";
      for (const StoredPlatformPoint& p : platform->platformPoints)
        out << "<trkpt lat=\"" << p.lat * DEG << "\" lon=\"" << p.lon * DEG << "\"><ele>" << p.alt << "</ele><time>"
            << kelCore::Iso8601TimeFormatter().toString(kelCore::TimeStamp(2024, kelCore::Seconds(p.time)), 2024, 3)
            << "</time></trkpt>\n";
      out << "</trkseg></trk>\n";
    }
    out << "</gpx>\n";
    return file;
  }

  /// The demo's moving platforms as gpsbabel writes them to GPX.
  std::string babelGpx()
  {
    const std::string file = path("babel.gpx");
    run("gpsbabel -i gpx -f '" + ownGpx() + "' -o gpx -F '" + file + "'");
    return file;
  }

  ReadReport import(const std::string& file, ScenarioStore& into, bool replace = true)
  {
    GdalTrackReader::Options options;
    options.replace = replace;
    return GdalTrackReader(into, options).readFile(file);
  }

  ScenarioStore demo;
  std::vector<const Entity*> timed;
  QTemporaryDir dir;
};

TEST_F(GdalTracks, FilesOfOtherToolsImportWithEveryPointAndTime)
{
  ASSERT_TRUE(onPath("gpsbabel") && onPath("ogr2ogr"))
    << "gpsbabel and ogr2ogr make this test's files: scripts/install-deps.sh installs them";
  const std::string gpx = babelGpx();
  ScenarioStore store;
  ReadReport report = import(gpx, store);
  ASSERT_TRUE(report.ok()) << (report.errors.empty() ? "" : report.errors[0]);
  EXPECT_EQ(2024, store.properties().referenceYear) << "the year of the earliest time";
  // A trk is a platform named after it; the three recordings of "Viper 2" stay three.
  expectSameTracks(timed, store, {true, false}, "gpsbabel's GPX");
  EXPECT_EQ(0u, store.entity(store.list(PI_PLATFORM_TYPE)[0])->generic.size()) << "GPX's structure is no data";

  // The track points as GDAL's own tools carry them on: the id groups them, the names are gone;
  // a shapefile keeps no date-times but text, here in UTM zone 11 metres.
  struct Made
  {
    const char* file;
    const char* options;
  };
  for (const Made& made : {Made{"tracks.kml", "-f KML"}, Made{"tracks.geojson", "-f GeoJSON"},
                           Made{"tracks.gpkg", "-f GPKG"},
                           Made{"utm.shp", "-f 'ESRI Shapefile' -t_srs EPSG:32611 -mapFieldType DateTime=String"}})
  {
    const std::string file = path(made.file);
    ASSERT_TRUE(run(std::string("ogr2ogr ") + made.options + " '" + file + "' '" + gpx + "' track_points"));
    ScenarioStore other;
    report = import(file, other);
    ASSERT_TRUE(report.ok()) << made.file << ": " << (report.errors.empty() ? "" : report.errors[0]);
    expectSameTracks(timed, other, {false, false}, made.file);
    EXPECT_EQ(std::string(made.file) == "utm.shp" ? "utm 0" : "track_points 0", nameOfHeader(platformsOf(other)[0]->header))
        << "named after the layer and the id";
  }
}

TEST_F(GdalTracks, ExportThenImportGivesTheSameScenarioInEveryFormat)
{
  const std::vector<const Entity*> all = platformsOf(demo);
  for (const char* ending : {".gpx", ".kml", ".geojson", ".gpkg"})
  {
    const std::string file = path(std::string("demo") + ending);
    std::string error;
    std::vector<UniqueID_t> ids;
    for (const Entity* platform : all)
      ids.push_back(platform->id);
    ASSERT_TRUE(GdalTrackWriter(demo).writeFile(file, ids, error)) << error;
    EXPECT_FALSE(std::filesystem::exists(file + ".saving" + ending)) << "the temporary file is gone";
    ScenarioStore store;
    const ReadReport report = import(file, store);
    ASSERT_TRUE(report.ok()) << ending << ": " << (report.errors.empty() ? "" : report.errors[0]);
    // Static points (the buoy, the radar site) go out without a time and come back static.
    expectSameTracks(all, store, {}, file);
    EXPECT_EQ(demo.properties().referenceYear, store.properties().referenceYear);
    for (const Entity* platform : platformsOf(store))
      EXPECT_TRUE(platform->generic.empty()) << ending << ": every field written is read as what it is";
  }
}

TEST_F(GdalTracks, LinesWithTimesAreTracksWhenNoPointLayerHasTimes)
{
  ASSERT_TRUE(onPath("ogr2ogr")) << "ogr2ogr takes the lines out of an export: scripts/install-deps.sh installs it";
  // A line needs two vertices: a platform of one point has none.
  std::vector<UniqueID_t> ids;
  std::vector<const Entity*> lined;
  for (const Entity* platform : timed)
  {
    ids.push_back(platform->id);
    if (platform->platformPoints.size() > 1)
      lined.push_back(platform);
  }
  ASSERT_LT(lined.size(), timed.size());
  std::string error;
  ASSERT_TRUE(GdalTrackWriter(demo).writeFile(path("all.gpkg"), ids, error)) << error;
  ASSERT_TRUE(GdalTrackWriter(demo).writeFile(path("all.geojson"), ids, error)) << error;
  // M values as Unix seconds; a GeoJSON line's "times" list of the same.
  ASSERT_TRUE(run("ogr2ogr -f GPKG '" + path("lines.gpkg") + "' '" + path("all.gpkg") + "' tracks"));
  ASSERT_TRUE(run("ogr2ogr -f GeoJSON '" + path("lines.geojson") + "' '" + path("all.geojson") +
                  "' -where \"name IS NOT NULL\""));
  for (const char* file : {"lines.gpkg", "lines.geojson"})
  {
    ScenarioStore store;
    const ReadReport report = import(path(file), store);
    ASSERT_TRUE(report.ok()) << file << ": " << (report.errors.empty() ? "" : report.errors[0]);
    expectSameTracks(lined, store, {true, false}, file);
  }
}

TEST_F(GdalTracks, FieldsGroupTimeAndDescribeThePoints)
{
  // Two tracks by name; a zone offset; a feature without a time is a static point; the speed
  // is generic data kept where it changes; a Unix-seconds time field counts as well.
  const std::string file = path("hand.geojson");
  std::ofstream(file) << R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"track":"A","time":"2025-06-01T02:00:00.250+02:00","speed":"10","yaw":90,"pitch":0,"roll":0},"geometry":{"type":"Point","coordinates":[10.5,50.25,100]}},
{"type":"Feature","properties":{"track":"B","time":"2025-06-01T00:00:05Z","speed":"10"},"geometry":{"type":"Point","coordinates":[11,51]}},
{"type":"Feature","properties":{"track":"A","time":"2025-06-01T00:00:01.250Z","speed":"10"},"geometry":{"type":"Point","coordinates":[10.6,50.35,110]}},
{"type":"Feature","properties":{"track":"A","time":"2025-06-01T00:00:02.250Z","speed":"12"},"geometry":{"type":"Point","coordinates":[10.7,50.45,120]}},
{"type":"Feature","properties":{"track":"A","time":null},"geometry":{"type":"Point","coordinates":[10,50,0]}}
]})";
  ScenarioStore store;
  ReadReport report = import(file, store);
  ASSERT_TRUE(report.ok()) << (report.errors.empty() ? "" : report.errors[0]);
  ASSERT_EQ(2u, store.list(PI_PLATFORM_TYPE).size());
  const Entity& a = *platformsOf(store)[0];
  EXPECT_EQ("A", nameOfHeader(a.header));
  // 2025-06-01 is day 151 of 2025: 151 * 86400 s after the reference year began.
  const double june = 151 * 86400.0;
  std::vector<double> times;
  for (const StoredPlatformPoint& p : a.platformPoints)
    times.push_back(p.time);
  EXPECT_EQ((std::vector<double>{-1, june + 0.25, june + 1.25, june + 2.25}), times);
  EXPECT_NEAR(M_PI_2, std::next(a.platformPoints.begin())->yaw, 1e-12) << "degrees in the file";
  EXPECT_FALSE(std::next(a.platformPoints.begin(), 2)->hasOrientation());
  ASSERT_EQ(2u, a.generic.size()) << "the speed where it changes";
  EXPECT_EQ("speed", a.generic[1].tag);
  EXPECT_EQ("12", a.generic[1].value);
  EXPECT_EQ(june + 2.25, a.generic[1].time);

  // A bad time refuses the file, naming the layer and the feature.
  std::ofstream(file) << R"({"type":"FeatureCollection","name":"log","features":[
{"type":"Feature","properties":{"time":"2025-06-01T00:00:00Z"},"geometry":{"type":"Point","coordinates":[10,50]}},
{"type":"Feature","properties":{"time":"soon"},"geometry":{"type":"Point","coordinates":[10,50]}}]})";
  report = import(file, store);
  ASSERT_FALSE(report.loaded);
  ASSERT_EQ(1u, report.errors.size());
  EXPECT_EQ(file + ":log:feature 2: bad time 'soon': a date-time such as 2024-07-01T12:00:00.25Z", report.errors[0]);
  EXPECT_EQ(2u, store.list(PI_PLATFORM_TYPE).size()) << "nothing of the bad file loaded";

  // Unix seconds beyond any year a track can hold are refused too, not read into the clock.
  std::ofstream(file) << R"({"type":"FeatureCollection","name":"log","features":[
{"type":"Feature","properties":{"time":1.5e300},"geometry":{"type":"Point","coordinates":[10,50]}}]})";
  report = import(file, store);
  ASSERT_FALSE(report.loaded);
  ASSERT_EQ(1u, report.errors.size());
  EXPECT_EQ(0u, report.errors[0].find(file + ":log:feature 1: bad time")) << report.errors[0];

  // A point one second before the year its times count from is no static point.
  std::ofstream(file) << R"({"type":"FeatureCollection","name":"log","features":[
{"type":"Feature","properties":{"time":"2024-12-31T23:59:59Z"},"geometry":{"type":"Point","coordinates":[10,50]}}]})";
  ScenarioStore of2025;
  of2025.editProperties().referenceYear = 2025;
  GdalTrackReader::Options add;
  add.replace = false;
  report = GdalTrackReader(of2025, add).readFile(file);
  ASSERT_FALSE(report.loaded);
  EXPECT_NE(std::string::npos, report.errors.at(0).find("time before the reference year 2025")) << report.errors[0];
}

TEST_F(GdalTracks, FilesWithoutTimesEmptyOrCorruptAreRefusedAndLoadNothing)
{
  ASSERT_TRUE(onPath("gpsbabel") && onPath("ogr2ogr"))
    << "gpsbabel and ogr2ogr make this test's files: scripts/install-deps.sh installs them";
  const std::string gpx = babelGpx();
  ASSERT_TRUE(run("ogr2ogr -f KML '" + path("lines.kml") + "' '" + gpx + "' tracks"));
  ASSERT_TRUE(run("ogr2ogr -f GeoJSON '" + path("empty.geojson") + "' '" + gpx + "' track_points -where \"1=0\""));
  // A GPX file cut in its middle: GDAL opens it and fails on the way through.
  const auto size = std::filesystem::file_size(gpx);
  std::filesystem::copy_file(gpx, path("cut.gpx"));
  std::filesystem::resize_file(path("cut.gpx"), size / 2);
  std::ofstream(path("noise.gpkg")) << std::string(4096, '\x5a');
  // GDAL reads a virtual layer, but one could point anywhere: it is not a track file.
  std::ofstream(path("other.vrt")) << "<OGRVRTDataSource><OGRVRTLayer name=\"track_points\"><SrcDataSource>" << gpx
                                   << "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>\n";

  std::size_t vertices = 0;
  for (const Entity* platform : timed)
    vertices += platform->platformPoints.size();
  struct Refusal
  {
    std::string file, error;
  };
  const std::vector<Refusal> refusals = {
    {"lines.kml", "lines.kml: no times: 1 layer: 'tracks' " + std::to_string(timed.size()) + " lines with " +
                      std::to_string(vertices) + " vertices and no M values or times field"},
    {"empty.geojson", "empty.geojson: no features: 1 layer: 'track_points' is empty"},
    {"cut.gpx", "cut.gpx: cannot be read to its end: XML parsing of GPX file failed"},
    {"noise.gpkg", "noise.gpkg: not a track file of the formats read here"},
    {"other.vrt", "other.vrt: not a track file of the formats read here"},
    {"missing.gpx", "missing.gpx:0: cannot open the file"},
  };
  const std::string before = scenarioText(demo);
  for (const Refusal& refusal : refusals)
  {
    for (bool replace : {true, false})
    {
      const ReadReport report = import(path(refusal.file), demo, replace);
      EXPECT_FALSE(report.loaded) << refusal.file;
      ASSERT_EQ(1u, report.errors.size()) << refusal.file;
      EXPECT_EQ(0u, report.errors[0].find(path(refusal.error))) << report.errors[0];
      EXPECT_TRUE(before == scenarioText(demo)) << refusal.file << ": the scenario is not as it was";
    }
  }
}

class KelvorEditTrackFiles : public GdalTracks
{
protected:
  int edit(std::vector<std::string> args)
  {
    out.str("");
    err.str("");
    return KelvorEdit().run(args, out, err);
  }
  std::ostringstream out, err;
};

TEST_F(KelvorEditTrackFiles, ExportWritesWhatConvertReadsBackAndNothingOnFailure)
{
  EXPECT_EQ(KelvorEdit::SUCCESS, edit({"export", "--help"}));
  EXPECT_NE(std::string::npos, out.str().find("export IN OUT.gpx|.kml|.geojson|.gpkg")) << out.str();

  const std::string gpx = path("eagle.gpx");
  ASSERT_EQ(KelvorEdit::SUCCESS, edit({"export", DEMO, gpx, "--entity", "Eagle 1", "--json"})) << err.str();
  EXPECT_NE(std::string::npos, out.str().find("\"name\": \"Eagle 1\"")) << out.str();
  ASSERT_EQ(KelvorEdit::SUCCESS, edit({"convert", gpx, path("eagle.kls")})) << err.str();
  ScenarioStore back;
  ASSERT_TRUE(ScenarioReader(back).readFile(path("eagle.kls")).ok());
  expectSameTracks({timed[0]}, back, {}, "convert of an export");
  ASSERT_EQ(KelvorEdit::SUCCESS, edit({"check", gpx})) << err.str();
  EXPECT_EQ(gpx + ": 301 features, all readable\n", out.str()) << "a track file has features, not lines";
  ASSERT_EQ(KelvorEdit::SUCCESS, edit({"info", gpx, "--reference-year", "2023"})) << err.str();
  EXPECT_NE(std::string::npos, out.str().find("reference year: 2023")) << out.str();

  // Bad usage, a failed read and a name no platform has: exit status, message, no file.
  EXPECT_EQ(KelvorEdit::USAGE, edit({"export", DEMO, path("out.shp")}));
  EXPECT_NE(std::string::npos, err.str().find("OUT must end in .gpx, .kml, .geojson or .gpkg")) << err.str();
  EXPECT_EQ(KelvorEdit::FAILURE, edit({"export", DEMO, path("out.kml"), "--entity", "Nobody"}));
  std::ofstream(path("lines.geojson")) << R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[10,50],[11,51]]}}]})";
  EXPECT_EQ(KelvorEdit::FAILURE, edit({"convert", path("lines.geojson"), path("out.kls")}));
  EXPECT_NE(std::string::npos, err.str().find("no times: 1 layer: 'lines' 1 line with 2 vertices")) << err.str();
  EXPECT_EQ(KelvorEdit::FAILURE, edit({"export", DEMO, path("no/such/folder/out.gpkg")}));
  EXPECT_NE(std::string::npos, err.str().find("cannot write")) << err.str();
  // A command that writes a scenario does not write it over a track file.
  const std::string before = contentsOf(gpx);
  EXPECT_EQ(KelvorEdit::FAILURE, edit({"decimate", gpx, gpx, "--method", "point", "--every", "2"}));
  EXPECT_NE(std::string::npos, err.str().find("a scenario (.kls) is written here")) << err.str();
  EXPECT_TRUE(before == contentsOf(gpx)) << "the track file is as it was";
  for (const char* name : {"out.shp", "out.kml", "out.kls"})
    EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
}

} // namespace
