#include "files/CsvTrackReader.h"
#include "files/GogReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

using namespace kelvor;

namespace
{

ReadReport readCsv(ScenarioStore& store, const std::string& text, bool strict = false, bool replace = true)
{
  std::istringstream in(text);
  return CsvTrackReader(store, {strict, replace}).read(in, "/tracks/flight7.csv");
}

TEST(CsvTrackImport, OneFileOnePlatformNamedAfterTheFile)
{
  ScenarioStore store;
  const ReadReport report = readCsv(store, "time,lat,lon,alt,yaw,pitch,roll,ve,vn,vu\n"
                                           "0,35.5,-117.25,1000,90,0,0,100,0,0\n"
                                           "\n"
                                           "1,35.5,-117.2489,1000,90,0,0,100,0,0\n");
  ASSERT_TRUE(report.ok());
  ASSERT_EQ(1u, store.list(PI_PLATFORM_TYPE).size());
  const Entity& e = *store.entity(store.list(PI_PLATFORM_TYPE)[0]);
  EXPECT_EQ("flight7", nameOfHeader(e.header));
  ASSERT_EQ(2u, e.platformPoints.size());
  EXPECT_DOUBLE_EQ(35.5 * M_PI / 180.0, e.platformPoints.front().lat);
  EXPECT_DOUBLE_EQ(M_PI_2, e.platformPoints.front().yaw);
  EXPECT_EQ(100.0, e.platformPoints.front().velEast);
  EXPECT_EQ(1.0, store.clock().end()) << "the clock spans the new data";
}

std::vector<double> timesOf(const ScenarioStore& store)
{
  std::vector<double> times;
  for (const StoredPlatformPoint& p : store.entity(store.list(PI_PLATFORM_TYPE).at(0))->platformPoints)
    times.push_back(p.time);
  return times;
}

// 2024-03-01T00:00:00Z is 60 days into 2024, and 1709251200 seconds after the Unix epoch.
constexpr double MARCH_2024 = 60 * 86400.0;

TEST(CsvTrackImport, DateTimesAndEpochSecondsCountFromTheYearOfTheFirstTime)
{
  ScenarioStore store;
  ReadReport report = readCsv(store, "time,lat,lon,alt\n"
                                     "2024-03-01T00:00:00Z,35,-117,0\n"
                                     "2024-03-01T02:00:01.5+02:00,35,-117,0\n" // 00:00:01.5 UTC
                                     "2024-03-01 00:00:03.25,35,-117,0\n");    // no zone: UTC
  ASSERT_TRUE(report.ok()) << (report.errors.empty() ? "" : report.errors[0]);
  EXPECT_EQ(2024, store.properties().referenceYear);
  EXPECT_EQ((std::vector<double>{MARCH_2024, MARCH_2024 + 1.5, MARCH_2024 + 3.25}), timesOf(store));

  report = readCsv(store, "time,lat,lon,alt\n1709251200,35,-117,0\n1709251201.5,35,-117,0\n");
  ASSERT_TRUE(report.ok());
  EXPECT_EQ(2024, store.properties().referenceYear);
  EXPECT_EQ((std::vector<double>{MARCH_2024, MARCH_2024 + 1.5}), timesOf(store));

  std::istringstream in("time,lat,lon,alt\n2024-03-01T00:00:00Z,35,-117,0\n");
  CsvTrackReader::Options options;
  options.referenceYear = 2023;
  ASSERT_TRUE(CsvTrackReader(store, options).read(in, "t.csv").ok());
  EXPECT_EQ(2023, store.properties().referenceYear);
  EXPECT_EQ((std::vector<double>{365 * 86400.0 + MARCH_2024}), timesOf(store)) << "counted from the year asked for";

  report = readCsv(store, "time,lat,lon,alt\n0,35,-117,0\n31622399,35,-117,0\n-1,35,-117,0\n");
  ASSERT_TRUE(report.ok()) << "numbers under 100,000,000 stay seconds since the reference year";
  EXPECT_EQ((std::vector<double>{-1, 0, 31622399}), timesOf(store));
}

TEST(CsvTrackImport, EveryRowMustHoldTheKindOfTimeTheFirstRowShows)
{
  ScenarioStore store;
  const ReadReport report = readCsv(store, "time,lat,lon,alt\n"
                                           "2024-03-01T00:00:00Z,35,-117,0\n"
                                           "5,35,-117,0\n"
                                           "2024-02-30T00:00:00Z,35,-117,0\n"
                                           "2024-03-01T00:00:09+25:00,35,-117,0\n"
                                           "2024-03-01T00:00:10Z,35,-117,0\n");
  ASSERT_EQ(3u, report.errors.size());
  EXPECT_EQ("/tracks/flight7.csv:3: bad time '5': an ISO 8601 date-time such as 2024-07-01T12:00:00.25Z, as in "
            "the first row",
            report.errors[0]);
  EXPECT_NE(std::string::npos, report.errors[1].find(":4: bad time '2024-02-30T00:00:00Z'")) << "no such day";
  EXPECT_EQ((std::vector<double>{MARCH_2024, MARCH_2024 + 10}), timesOf(store)) << "the good rows are read";

  // Found by fuzzing: a number this large once overflowed the year it falls in.
  const ReadReport numbers = readCsv(store, "time,lat,lon,alt\n1709251200,35,-117,0\n2024-03-01T00:00:00Z,35,-117,0\n"
                                            "1e300,35,-117,0\n253402300800,35,-117,0\n253402300799,35,-117,0\n");
  ASSERT_EQ(3u, numbers.errors.size());
  EXPECT_EQ("/tracks/flight7.csv:3: bad number '2024-03-01T00:00:00Z' for time", numbers.errors[0]);
  EXPECT_EQ("/tracks/flight7.csv:4: bad time '1e300': Unix seconds past the year 9999", numbers.errors[1]);
  EXPECT_NE(std::string::npos, numbers.errors[2].find(":5: bad time '253402300800'"));
  EXPECT_EQ(2u, timesOf(store).size()) << "the last second of 9999 is a time";
}

TEST(CsvTrackImport, ANameColumnMakesOnePlatformPerNameInAnyColumnOrder)
{
  ScenarioStore store;
  const ReadReport report = readCsv(store, "Name,ALT,lon,lat,time\n"
                                           "\"Eagle, lead\",100,-117,35,0\n"
                                           "Wing,200,-117,35.1,0\n"
                                           "\"Eagle, lead\",110,-117,35.01,1\n");
  ASSERT_TRUE(report.ok());
  EXPECT_EQ(2u, report.entities);
  const Entity& lead = *store.entity(store.findPlatform("Eagle, lead"));
  EXPECT_EQ(2u, lead.platformPoints.size());
  EXPECT_FALSE(lead.platformPoints.front().hasOrientation());
}

TEST(CsvTrackImport, ARowAtATimeHeldReplacesTheEarlierWithAWarning)
{
  ScenarioStore store;
  const ReadReport report = readCsv(store, "time,lat,lon,alt,name\n"
                                           "1,30.001,-80,100,A\n"
                                           "1,30,-80,100,B\n"        // another platform: no replacement
                                           "1,30.5,-80.5,999,A\n"
                                           "2,30,-80,100,B\n"
                                           "2,30,-80,100,B\n");
  EXPECT_TRUE(report.ok());
  EXPECT_EQ((std::vector<std::string>{"/tracks/flight7.csv:4: replaces the point of line 2 at time 1",
                                      "/tracks/flight7.csv: 1 identical repeated record ignored"}),
            report.warnings);
  const Entity& a = *store.entity(store.findPlatform("A"));
  ASSERT_EQ(1u, a.platformPoints.size());
  EXPECT_EQ(999.0, a.platformPoints.front().alt) << "the later row is kept";
  EXPECT_EQ(2u, store.entity(store.findPlatform("B"))->platformPoints.size());
}

TEST(CsvTrackImport, BadRowsAreReportedAndStrictModeRefusesTheFile)
{
  const std::string text = "time,lat,lon,alt\n"
                           "0,1,2,3\n"
                           "1,x,2,3\n"
                           "2,1,2\n"
                           "-4,1,2,3\n"
                           "3,1,2,3\n";
  ScenarioStore store;
  const ReadReport lenient = readCsv(store, text);
  EXPECT_EQ((std::vector<std::string>{"/tracks/flight7.csv:3: bad number 'x' for lat",
                                      "/tracks/flight7.csv:4: missing field: 3 fields for the header's columns",
                                      "/tracks/flight7.csv:5: bad time '-4'"}),
            lenient.errors);
  EXPECT_EQ(2u, store.pointCount()) << "the good rows loaded";

  ScenarioStore kept;
  kept.createEntity(PIData::PIPlatformHeader(), 0);
  EXPECT_FALSE(readCsv(kept, text, true).loaded);
  EXPECT_EQ(1u, kept.entityCount()) << "a refused file leaves the scenario alone";
  EXPECT_FALSE(readCsv(kept, "when,where\n1,2\n").loaded);
  EXPECT_FALSE(readCsv(kept, "").loaded);
  EXPECT_TRUE(readCsv(kept, "time,lat,lon,alt\n0,1,2,3\n", false, false).loaded);
  EXPECT_EQ(2u, kept.entityCount()) << "an import adds to the scenario loaded";
}

TEST(GogOverlays, SectionsOfEveryShapeAndLook)
{
  std::istringstream in("// exported by the Scenario Editor\n"
                        "start\n"
                        "depthbuffer false\n"
                        "linecolor color1 0xFF0000FF\n"
                        "linewidth 3\n"
                        "linestyle dash\n"
                        "line\n"
                        "lla 35.0 -117.0 1000\n"
                        "lla 35.1 -117.1 2000\n"
                        "end\n"
                        "start\n"
                        "linecolor color2\n"
                        "points\n"
                        "ll 36 -118\n"
                        "end\n"
                        "start\n"
                        "linecolor green\n"
                        "line\n"
                        "xy 10 20\n"
                        "end\n");
  std::vector<std::string> errors;
  const auto shapes = GogReader::read(in, "plot.gog", errors);
  EXPECT_TRUE(errors.empty()) << errors.front();
  ASSERT_EQ(3u, shapes.size());
  EXPECT_EQ(GogShape::LINE, shapes[0].kind);
  EXPECT_FALSE(shapes[0].depthBuffer);
  EXPECT_EQ(0xFF0000FFu, shapes[0].color) << "GOG's alpha-blue-green-red 0xFF0000FF is opaque red";
  EXPECT_EQ(3, shapes[0].width);
  EXPECT_EQ("dash", shapes[0].style);
  EXPECT_NEAR(304.8, shapes[0].points[0].z, 1e-9) << "lla altitudes are feet";
  EXPECT_EQ(GogShape::POINTS, shapes[1].kind);
  EXPECT_EQ(0xFFFFFFFFu, shapes[1].color) << "a colour slot without a value keeps the default";
  EXPECT_EQ(GogShape::XY, shapes[2].coordinates);
  EXPECT_EQ(0x00FF00FFu, shapes[2].color);
}

TEST(GogOverlays, BadLinesAreReportedWithFileAndLine)
{
  std::istringstream in("ll 1 2\n"
                        "start\n"
                        "ll 1\n"
                        "linewidth wide\n"
                        "circle\n"
                        "ll 3 4\n");
  std::vector<std::string> errors;
  const auto shapes = GogReader::read(in, "bad.gog", errors);
  EXPECT_EQ((std::vector<std::string>{"bad.gog:1: 'll' outside a start ... end section",
                                      "bad.gog:3: missing field: 'll' takes 2 numbers",
                                      "bad.gog:4: bad number 'wide'", "bad.gog:5: unknown GOG keyword 'circle'",
                                      "bad.gog:2: section not closed with 'end'"}),
            errors);
  ASSERT_EQ(1u, shapes.size());
  EXPECT_EQ(1u, shapes[0].points.size()) << "the good point is kept";
}

} // namespace
