#include "ScenarioGenerator.h"
#include "cli/KelvorEdit.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"

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
