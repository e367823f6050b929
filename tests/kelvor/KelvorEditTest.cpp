#include "ScenarioGenerator.h"
#include "cli/KelvorEdit.h"
#include "cli/ProgressLine.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace kelvor;

namespace
{

class KelvorEditCommands : public ::testing::Test
{
protected:
  int run(std::vector<std::string> args)
  {
    out.str("");
    err.str("");
    return KelvorEdit().run(args, out, err);
  }
  std::string file(const std::string& name, const std::string& text)
  {
    const std::string path = dir.filePath(QString::fromStdString(name)).toStdString();
    std::ofstream(path) << text;
    return path;
  }
  QTemporaryDir dir;
  std::ostringstream out, err;
};

TEST_F(KelvorEditCommands, UsageHelpAndUnknownCommands)
{
  EXPECT_EQ(KelvorEdit::USAGE, run({}));
  EXPECT_NE(std::string::npos, err.str().find("Usage: kelvor-edit"));
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"--help"}));
  EXPECT_NE(std::string::npos, out.str().find("convert IN OUT"));
  EXPECT_EQ(KelvorEdit::USAGE, run({"frobnicate"}));
  EXPECT_NE(std::string::npos, err.str().find("unknown command 'frobnicate'"));
  EXPECT_EQ(KelvorEdit::USAGE, run({"info"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"convert", "a.kls"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"convert", "a.kls", "b.kls", "--positions", "MARS"}));
}

TEST_F(KelvorEditCommands, InfoSummarisesTheScenario)
{
  const std::string path = file("small.kls", "kelvor-scenario 1\nreference-year 2025\norigin 35 -117 10\n"
                                             "platform 1 \"A\"\npoint 1 5 35 -117 0\npoint 1 65 35.1 -117 0\n"
                                             "beam 2 1 \"B\" absolute\nbeam-point 2 5 0 0 100\n");
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", path}));
  const std::string text = out.str();
  EXPECT_NE(std::string::npos, text.find("entities: 2")) << text;
  EXPECT_NE(std::string::npos, text.find("platform: 1"));
  EXPECT_NE(std::string::npos, text.find("points: 3"));
  EXPECT_NE(std::string::npos, text.find("time span: 5 to 65 s (60 s)"));
  EXPECT_NE(std::string::npos, text.find("reference year: 2025"));
  EXPECT_NE(std::string::npos, text.find("origin: 35.000000 N, 117.000000 W, 10 m"));
  EXPECT_EQ(KelvorEdit::FAILURE, run({"info", dir.filePath("missing.kls").toStdString()}));
}

TEST_F(KelvorEditCommands, InfoCountsEachEntitysOwnPointsAndSaysWhichThoseAre)
{
  // Points: 2 positions, 1 laser pointing, 1 LOB pointing, 1 field of view. The laser's range,
  // width and offset, the LOB style, the projector's on/off and the platform's commands are none.
  const std::string path = file("kinds.kls", "kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 0 35 -117 0\n"
                                             "point 1 10 35 -117 0\nstate 1 0 on\ncolor 1 0 0xFF0000FF\n"
                                             "laser 2 1 \"L\"\nlaser-point 2 0 0 0 0\nlaser-range 2 0 900\n"
                                             "laser-width 2 0 3\nlaser-offset 2 0 1 2 3\n"
                                             "lob 3 1 \"B\" absolute\nlob-point 3 0 1 0 100\n"
                                             "lob-style 3 0 0x00FF00FF 0xFF0000FF 1 1 2\n"
                                             "projector 4 1 \"P\"\nprojector-fov 4 0 30\nprojector-state 4 0 on\n");
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", path})) << err.str();
  EXPECT_NE(std::string::npos, out.str().find("points: 5 (each entity's own: platform positions; beam, gate, laser "
                                              "and LOB pointings; projector fields of view; custom rendering states)\n"))
      << out.str();
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", std::string(SEP_SOURCE_DIR) + "/data/demo.kls"}));
  EXPECT_NE(std::string::npos, out.str().find("points: 717 ")) << "as KELVOR Lite counts them on opening the file";
}

TEST_F(KelvorEditCommands, CheckReportsEveryBadLine)
{
  const std::string good = file("good.kls", "kelvor-scenario 1\nplatform 1 \"A\"\n");
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"check", good}));
  const std::string bad = file("bad.kls", "kelvor-scenario 1\nplatform 1 \"A\"\nflying 1\npoint 1 x 0 0 0\n");
  EXPECT_EQ(KelvorEdit::FAILURE, run({"check", bad}));
  EXPECT_EQ(bad + ":3: unknown command 'flying'\n" + bad + ":4: bad time 'x': seconds since the reference year, or -1 "
                                                         "for a static value\n",
            err.str());
  EXPECT_NE(std::string::npos, out.str().find("2 of 4 lines cannot be read"));
}

TEST_F(KelvorEditCommands, CheckAndConvertCountTheRecordsThatReplacedEarlierOnes)
{
  const std::string csv = file("twice.csv", "time,lat,lon,alt\n1,30.001,-80,100\n1,30.5,-80.5,999\n");
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"check", csv})) << "a warning is no error";
  EXPECT_EQ(csv + ":3: replaces the point of line 2 at time 1\n", err.str());
  EXPECT_EQ(csv + ": 3 lines, all readable; 1 record replaced an earlier one\n", out.str());

  const std::string kls = file("twice.kls", "kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 0 35 -117 0\n"
                                            "point 1 0 35 -117 0\npoint 1 0 35 -117 5\nstate 1 0 on\nstate 1 0 on\n");
  const std::string out2 = dir.filePath("out.kls").toStdString();
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"convert", kls, out2}));
  EXPECT_EQ(kls + ":5: replaces the point of line 4 at time 0\n" + kls + ": 2 identical repeated records ignored\n",
            err.str());
  EXPECT_NE(std::string::npos,
            out.str().find("; 1 record replaced an earlier one, 2 identical repeated records ignored)\n"))
      << out.str();
}

TEST_F(KelvorEditCommands, ConvertReadsCsvAndWritesAnySystemButNeverDropsBadLines)
{
  const std::string csv = file("track.csv", "time,lat,lon,alt\n0,35,-117,100\n1,35.001,-117,110\n");
  const std::string ecef = dir.filePath("track.kls").toStdString();
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"convert", csv, ecef, "--positions", "ECEF"}));
  std::ifstream written(ecef);
  std::stringstream text;
  text << written.rdbuf();
  EXPECT_NE(std::string::npos, text.str().find("positions ECEF"));
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"info", ecef}));
  EXPECT_NE(std::string::npos, out.str().find("points: 2"));

  const std::string bad = file("bad.kls", "kelvor-scenario 1\nplatform 1 \"A\"\nnonsense\n");
  const std::string target = dir.filePath("never.kls").toStdString();
  EXPECT_EQ(KelvorEdit::FAILURE, run({"convert", bad, target}));
  EXPECT_FALSE(std::ifstream(target).good()) << "nothing is written when lines would be lost";
}

TEST_F(KelvorEditCommands, RemoveDuplicatesOnNamedEntitiesOrTheWholeScenario)
{
  const std::string in = file("runs.kls", "kelvor-scenario 1\nreference-year 2025\n"
                                          "platform 1 \"A\"\npoint 1 0 35 -117 0\npoint 1 1 35 -117 0\n"
                                          "point 1 2 35 -117 0\npoint 1 3 35 -117 0\n"
                                          "beam 2 1 \"R\" absolute\nbeam-point 2 0 0 0 100\nbeam-point 2 1 0 0 100\n"
                                          "beam-point 2 2 0 0 100\n"
                                          "platform 3 \"B\"\npoint 3 0 35 -117 0\npoint 3 1 36 -117 0\n");
  const std::string outFile = dir.filePath("out.kls").toStdString();

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"remove-duplicates", in, outFile, "--entity", "B"}));
  EXPECT_NE(std::string::npos, out.str().find("0 duplicate points removed from 0 entities")) << out.str();

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"remove-duplicates", in, outFile, "--entity", "R"}));
  EXPECT_NE(std::string::npos, out.str().find("R (id 2): 1 of 3 points removed")) << out.str();
  EXPECT_EQ(std::string::npos, out.str().find("A (id")) << "the host is left alone";

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"remove-duplicates", in, outFile}));
  EXPECT_NE(std::string::npos, out.str().find("A (id 1): 2 of 4 points removed")) << out.str();
  EXPECT_NE(std::string::npos, out.str().find("3 duplicate points removed from 2 entities"));
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", outFile}));
  EXPECT_NE(std::string::npos, out.str().find("points: 6")) << out.str();
  EXPECT_NE(std::string::npos, out.str().find("time span: 0 to 3 s")) << "each run keeps its ends";

  const std::string never = dir.filePath("never.kls").toStdString();
  EXPECT_EQ(KelvorEdit::FAILURE, run({"remove-duplicates", in, never, "--entity", "Nobody"}));
  EXPECT_NE(std::string::npos, err.str().find("no entity named 'Nobody'"));
  EXPECT_FALSE(std::ifstream(never).good());
  EXPECT_EQ(KelvorEdit::USAGE, run({"remove-duplicates", in, never, "--entity"}));
}

TEST_F(KelvorEditCommands, ValidateListsTheIssuesOfAFile)
{
  const std::string lone = file("lone.kls", "kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 5 35 -117 0\n");
  EXPECT_EQ(KelvorEdit::FAILURE, run({"validate", lone}));
  EXPECT_NE(std::string::npos, out.str().find("The non-static platform A must have at least two TSPI points.\n"))
      << out.str();
  EXPECT_NE(std::string::npos, out.str().find("2 issues"));
  const std::string good = file("good.kls", "kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 5 35 -117 0\n"
                                            "point 1 9 35 -117 0\nstate 1 5 on\n");
  EXPECT_EQ(KelvorEdit::SUCCESS, run({"validate", good})) << out.str();
  EXPECT_NE(std::string::npos, out.str().find("no issues found"));
  EXPECT_EQ(KelvorEdit::USAGE, run({"validate"}));
}

/// Eagle flies; R is its beam; Site is static.
const char* const SMALL = "kelvor-scenario 1\nreference-year 2025\n"
                          "platform 1 \"Eagle\"\npoint 1 0 35 -117 0\npoint 1 1 35.001 -117 0\npoint 1 2 35.002 -117 0\n"
                          "point 1 3 35.003 -117 0\npoint 1 4 35.004 -117.001 0\n"
                          "beam 2 1 \"R\" absolute\nbeam-point 2 0 0 0 100\n"
                          "platform 3 \"Site\"\npoint 3 -1 35 -117 0\n";

bool exists(const std::string& path)
{
  return QFileInfo::exists(QString::fromStdString(path));
}

TEST_F(KelvorEditCommands, EveryCommandTellsItsUsage)
{
  for (const char* command : {"info", "check", "convert", "remove-duplicates", "validate", "decimate", "filter-speed",
                              "derive", "export-gog", "merge", "auto-merge", "dropouts"})
  {
    ASSERT_EQ(KelvorEdit::SUCCESS, run({command, "--help"})) << command;
    EXPECT_EQ(0u, out.str().find(std::string("Usage: kelvor-edit ") + command + " ")) << out.str();
    EXPECT_NE(std::string::npos, out.str().find("Exit status: 0 success, 1 failure")) << command;
    const std::string help = out.str();
    ASSERT_EQ(KelvorEdit::SUCCESS, run({"help", command}));
    EXPECT_EQ(help, out.str());
    EXPECT_NE(std::string::npos, [&] { run({"--help"}); return out.str(); }().find(std::string("  ") + command + " "))
        << "the overview lists " << command;
  }
}

TEST_F(KelvorEditCommands, BadUsageExitsTwoSaysWhyAndWritesNothing)
{
  const std::string in = file("small.kls", SMALL);
  const std::string csv = file("t.csv", "time,lat,lon,alt\n0,35,-117,0\n");
  const std::string o = dir.filePath("out.kls").toStdString();
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
    {{"decimate", in, o}, "decimate: --method is needed: point, time, angle, distance or area"},
    {{"decimate", in, o, "--method", "spline"}, "--method takes point, time, angle, distance or area, not 'spline'"},
    {{"decimate", in, o, "--method", "time"}, "--method time needs --interval"},
    {{"decimate", in, o, "--method", "time", "--interval", "5", "--every", "3"}, "--every applies to --method point"},
    {{"decimate", in, o, "--method", "point", "--every", "2", "--interpolate"}, "--interpolate applies to --method time"},
    {{"decimate", in, o, "--method", "area", "--drop", "1.5"}, "--drop 1.5 is out of range: 0 to 1"},
    {{"decimate", in, o, "--method", "area", "--drop", "1"}, "--drop 1 is out of range: more than 0 and less than 1"},
    {{"decimate", in, o, "--method", "area", "--drop", "0.5", "--no-keep-last"}, "--no-keep-last does not apply"},
    {{"decimate", in, o, "--method", "angle", "--angle", "0"}, "--angle 0 is out of range: more than 0"},
    {{"decimate", in, o, "--method", "angle", "--angle", "181"}, "--angle 181 is out of range"},
    {{"decimate", in, o, "--method", "point", "--every", "x"}, "--every takes a whole number, not 'x'"},
    {{"decimate", in, o, "--method", "point", "--every", "99999999999999999999999"}, "--every takes a whole number"},
    {{"decimate", in, o, "--method", "point", "--every", "0"}, "--every 0 is out of range"},
    {{"decimate", in, o, "--method", "time", "--interval", "nan"}, "--interval takes a number, not 'nan'"},
    {{"decimate", in, o, "--method", "point", "--every", "2", "--replace", "--append-suffix"}, "--append-suffix names a copy"},
    {{"decimate", in, "--method", "point", "--every", "2"}, "decimate: takes IN and OUT"},
    {{"decimate", in, o, "--method", "point", "--every", "2", "--colour", "red"}, "unknown option '--colour'"},
    {{"decimate", in, o, "--method", "point", "--every"}, "--every needs a value"},
    {{"decimate", in, o, "--method", "point", "--every", "2", "--method", "time"}, "--method is given twice"},
    {{"filter-speed", in, o, "--min", "10"}, "--min and --max are needed"},
    {{"filter-speed", in, o, "--min", "10", "--max", "5"}, "--min 10 is above --max 5"},
    {{"filter-speed", in, o, "--min", "-1", "--max", "5"}, "--min -1 is out of range"},
    {{"filter-speed", in, o, "--min", "1", "--max", "5", "--units", "furlongs"}, "--units takes"},
    {{"derive", in, o, "--method", "delta", "--window", "7"}, "--window applies to --method lagrangian"},
    {{"derive", in, o, "--window", "4"}, "--window 4 is out of range: 5 to "},
    {{"export-gog", in, o}, "--plot is needed"},
    {{"export-gog", in, o, "--plot", "ground", "--x-offset", "3"}, "--x-offset applies to the x-y plots"},
    {{"export-gog", in, o, "--plot", "vel-time", "--line-width", "11"}, "--line-width 11 is out of range: 1 to 10"},
    {{"export-gog", in, o, "--plot", "vel-time", "--color", "blue"}, "--color takes 0xRRGGBBAA"},
    {{"merge", in, o}, "--entity is needed"},
    {{"dropouts", in, "--entity", "Eagle"}, "--gap is needed"},
    {{"dropouts", in, "--entity", "Eagle", "--gap", "0"}, "--gap 0 is out of range: more than 0"},
    {{"dropouts", in, "--entity", "Eagle", "--gap", "1", "--start", "3", "--end", "1"}, "--end 1 is before --start 3"},
    {{"dropouts", in, "--entity", "Eagle", "--entity", "Site", "--gap", "1"}, "--entity is needed once"},
    {{"convert", in, o, "--reference-year", "2020"}, "--reference-year applies to CSV tracks"},
    {{"convert", csv, o, "--reference-year", "20200"}, "--reference-year 20200 is out of range: 1 to 9999"},
    {{"validate", in, "--fix-all"}, "--fix-all needs a value"},
  };
  for (const auto& [args, message] : cases)
  {
    EXPECT_EQ(KelvorEdit::USAGE, run(args)) << message;
    EXPECT_NE(std::string::npos, err.str().find(message)) << err.str();
    EXPECT_NE(std::string::npos, err.str().find("Try 'kelvor-edit " + args[0] + " --help'.")) << err.str();
    EXPECT_FALSE(exists(o)) << message;
    EXPECT_EQ("", out.str()) << message;
  }
}

TEST_F(KelvorEditCommands, UnknownEntitiesAndFailuresExitOneAndWriteNothing)
{
  const std::string in = file("small.kls", SMALL);
  const std::string bad = file("bad.kls", std::string(SMALL) + "point 1 x 35 -117 0\n");
  const std::string o = dir.filePath("out.kls").toStdString();
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
    {{"decimate", in, o, "--method", "point", "--every", "2", "--entity", "Nobody"},
     "no entity named 'Nobody' in " + in + "; nothing written"},
    // Once an abort: the number is too long for an id, so it is a name no entity has.
    {{"remove-duplicates", in, o, "--entity", "123456789012345678901234567890"},
     "no entity named '123456789012345678901234567890'"},
    {{"filter-speed", in, o, "--min", "0", "--max", "1", "--entity", "R"}, "'R' is no platform; filter-speed works on platforms"},
    {{"derive", in, o, "--entity", "Site"}, "Site (id 3) cannot be worked on: it is static; nothing written"},
    {{"derive", in, o, "--entity", "Eagle", "--window", "6"}, "Calculation for platform Eagle failed due to: Not enough data points"},
    {{"merge", in, o, "--entity", "Eagle"}, "merge needs two platforms or more, and the names give one"},
    {{"export-gog", in, o, "--plot", "ground", "--entity", "7"}, "no entity named '7'"},
    {{"dropouts", in, "--entity", "Nobody", "--gap", "5"}, "no entity named 'Nobody'"},
    {{"decimate", bad, o, "--method", "point", "--every", "2"}, bad + " has lines that cannot be read; nothing written"},
    {{"auto-merge", dir.filePath("missing.kls").toStdString(), o}, "missing.kls:0: cannot open the file"},
    {{"convert", in, dir.filePath("no/such/folder/out.kls").toStdString()}, "cannot write"},
  };
  for (const auto& [args, message] : cases)
  {
    EXPECT_EQ(KelvorEdit::FAILURE, run(args)) << message;
    EXPECT_NE(std::string::npos, err.str().find(message)) << err.str();
    EXPECT_FALSE(exists(o)) << message;
  }
  EXPECT_EQ(0u, QDir(dir.path()).entryList({"*.saving"}).size()) << "no temporary file is left behind";
}

TEST_F(KelvorEditCommands, OutMayBeInAndIsReplacedWhole)
{
  const std::string in = file("small.kls", SMALL);
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"decimate", in, in, "--method", "point", "--every", "2", "--replace"})) << err.str();
  EXPECT_EQ("Eagle (id 1): 3 of 5 points kept\nwrote " + in + ": 1 platform thinned\n", out.str());
  EXPECT_NE(std::string::npos, err.str().find("Decimation skipping static platform Site"));
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", in, "--json"}));
  const QJsonObject info = QJsonDocument::fromJson(QByteArray::fromStdString(out.str())).object();
  EXPECT_EQ(3 + 1 + 1, info["points"].toInt()) << "Eagle's 0, 2 and 4, R's and Site's";
  EXPECT_EQ(2, info["kinds"].toObject()["platform"].toInt());
  EXPECT_EQ(2025, info["referenceYear"].toInt());
  EXPECT_EQ(4.0, info["timeSpan"].toObject()["end"].toDouble());
  EXPECT_FALSE(exists(in + ".saving"));
}

// The window's fits used to reach past the track's ends: a window as long as the track must
// derive, and one longer must say that the track is too short, not fail in general terms.
TEST_F(KelvorEditCommands, ALagrangianWindowOfTheWholeTrackDerives)
{
  std::string track = "kelvor-scenario 1\nplatform 1 \"Eagle\"\n";
  for (int i = 0; i < 12; ++i)
    track += "point 1 " + std::to_string(i) + " " + std::to_string(35 + 0.001 * i) + " " +
             std::to_string(-117 + 0.0002 * i * i) + " 1000\n";
  const std::string in = file("twelve.kls", track);
  const std::string o = dir.filePath("out.kls").toStdString();
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"derive", in, o, "--window", "12"})) << err.str();
  std::ifstream written(o);
  std::stringstream text;
  text << written.rdbuf();
  EXPECT_NE(std::string::npos, text.str().find("\"Lagrangian calculation for orientation and velocity with 12 points\""));

  EXPECT_EQ(KelvorEdit::FAILURE, run({"derive", in, o, "--window", "13", "--entity", "Eagle"}));
  EXPECT_NE(std::string::npos, err.str().find("failed due to: Not enough data points to perform calculation"));
  EXPECT_EQ(std::string::npos, err.str().find("Error occurred during Lagrangian calculation"));
}

TEST_F(KelvorEditCommands, AFileOfMostlyBadLinesListsTwentyAndCountsTheRest)
{
  std::string rows = "time,lat,lon,alt\n";
  for (int i = 0; i < 100; ++i)
    rows += std::to_string(i) + ",north,-117,0\n";
  rows += "100,35,-117,0\n";
  const std::string mostly = file("mostly.csv", rows);
  EXPECT_EQ(KelvorEdit::FAILURE, run({"check", mostly}));
  const std::string text = err.str();
  EXPECT_EQ(21, std::count(text.begin(), text.end(), '\n')) << text;
  EXPECT_NE(std::string::npos, text.find(mostly + ":21: bad number 'north' for lat\n"));
  EXPECT_EQ(std::string::npos, text.find(mostly + ":22: "));
  EXPECT_NE(std::string::npos, text.find(mostly + ": 80 more lines that cannot be read\n"));
  EXPECT_NE(std::string::npos, out.str().find("100 of 102 lines cannot be read")) << out.str();

  rows = "time,lat,lon,alt\n";
  for (int i = 0; i < 60; ++i)
    rows += std::to_string(i) + (i % 2 ? ",north,-117,0\n" : ",35,-117,0\n");
  EXPECT_EQ(KelvorEdit::FAILURE, run({"check", file("half.csv", rows)}));
  const std::string half = err.str();
  EXPECT_EQ(30, std::count(half.begin(), half.end(), '\n')) << "not most: every one is listed";
}

TEST_F(KelvorEditCommands, CsvDateTimesCountFromTheReferenceYearAsked)
{
  const std::string csv = file("gps.csv", "time,lat,lon,alt\n2024-01-01T00:00:10Z,35,-117,0\n"
                                          "2024-01-01T01:00:10+01:00,35.001,-117,0\n");
  const std::string o = dir.filePath("gps.kls").toStdString();
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"convert", csv, o, "--reference-year", "2023"})) << err.str();
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"info", o, "--json"}));
  const QJsonObject info = QJsonDocument::fromJson(QByteArray::fromStdString(out.str())).object();
  EXPECT_EQ(2023, info["referenceYear"].toInt());
  const double yearStart = 365 * 86400.0;
  EXPECT_EQ(yearStart + 10, info["timeSpan"].toObject()["begin"].toDouble()) << "both rows are 00:00:10 UTC";
  EXPECT_EQ(yearStart + 10, info["timeSpan"].toObject()["end"].toDouble());
}

TEST(ProgressLine, ShowsOnlyWhenOnAndLateAndErasesItself)
{
  std::ostringstream err;
  {
    ProgressLine off(err, false, std::chrono::milliseconds(0));
    off.step("reading a.kls");
  }
  EXPECT_EQ("", err.str()) << "scripts and logs see nothing";
  {
    ProgressLine early(err, true, std::chrono::hours(1));
    early.step("reading a.kls");
  }
  EXPECT_EQ("", err.str()) << "work shorter than the delay shows nothing";
  {
    ProgressLine late(err, true, std::chrono::milliseconds(0));
    late.step("reading a.kls");
    late.step("writing b.kls");
    EXPECT_EQ("\r\033[Kkelvor-edit: reading a.kls (0 s)\r\033[Kkelvor-edit: writing b.kls (0 s)", err.str());
    late.clear();
    late.clear();
  }
  EXPECT_EQ("\r\033[Kkelvor-edit: reading a.kls (0 s)\r\033[Kkelvor-edit: writing b.kls (0 s)\r\033[K", err.str())
      << "erased once, before anything else is printed";
}

TEST(DemoScenario, TheCommittedFileIsWhatTheGeneratorMakesAndReadsClean)
{
  ScenarioStore generated;
  ScenarioGenerator::demo(generated);
  std::ostringstream text;
  ScenarioWriter(generated).write(text);
  std::ifstream committed(std::string(SEP_SOURCE_DIR) + "/data/demo.kls");
  std::stringstream committedText;
  committedText << committed.rdbuf();
  EXPECT_EQ(text.str(), committedText.str()) << "run: build/bin/kelvor-datagen demo data/demo.kls";

  ScenarioStore read;
  const ReadReport report = ScenarioReader(read).readText(committedText.str(), "demo.kls");
  EXPECT_TRUE(report.ok());
  EXPECT_EQ(3u, [&] {
    std::size_t vipers = 0;
    for (UniqueID_t id : read.list(PI_PLATFORM_TYPE))
      vipers += nameOfHeader(read.entity(id)->header) == "Viper 2";
    return vipers;
  }()) << "a track broken into pieces of one name";
}

} // namespace
