// Each kelvor-edit command end to end, against the editor's own command run on the same file
// through the same server: the file the command writes must be the scenario the editor leaves.
#include "actions/CalculateOriVelAction.h"
#include "actions/DecimateAction.h"
#include "actions/DecimateDialog.h"
#include "actions/GogExportAction.h"
#include "actions/VelocityAction.h"
#include "actions/VelocityDialog.h"
#include "cli/EditSession.h"
#include "cli/KelvorEdit.h"
#include "support/ScenarioChecks.h"
#include "host/PIData.h"
#include "merge/AutoMerge.h"
#include "merge/AutomaticMergeWidget.h"
#include "merge/CommonMerge.h"
#include "merge/ManualMergeWidget.h"
#include "actions/MakeStationaryWidget.h"
#include "actions/TransformPlatformAction.h"
#include "processing/AdjustScenarioTimes.h"
#include "processing/MakeStationary.h"
#include "plugin/Action.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityTreeComposite.h"
#include "plugin/ActionUtilities.h"
#include "processing/SpeedFilter.h"
#include "processing/VisvalingamDecimation.h"
#include "validation/ValidateScenarioWidget.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <sstream>

using namespace kelvor;

namespace
{

/**
 * A scenario with something for every command. Eagle flies north at speeds from 50 to 340 m/s,
 * stands still from 120 to 127 s, turns east, and has no points from 145 to 180 s; its track
 * colour changes at 130 s; it carries a beam whose data outlast it and a category set after its
 * end. Viper is one object recorded as three platforms, two with one original id. Site is
 * static; Lone has one point.
 */
std::string sampleScenario()
{
  std::ostringstream text;
  text << "kelvor-scenario 1\nreference-year 2025\norigin 35 -117 0\n";
  text << "platform 1 \"Eagle\"\n";
  for (int i = 0; i < 60; ++i)
  {
    const int t = i < 45 ? 100 + i : 135 + i; // 100..144, then 180..194
    const int moving = i < 20 ? i : (i < 28 ? 20 : i - 7);
    const double lat = 35.0 + 0.001 * std::min(moving, 30);
    const double lon = -117.0 + 0.0012 * std::max(0, moving - 30);
    const double speed = 50.0 + 10.0 * (i % 30);
    text << "point 1 " << t << ' ' << lat << ' ' << lon << ' ' << 1000 + 5 * i << " 0 0 0 " << (moving > 30 ? speed : 0)
         << ' ' << (moving > 30 ? 0 : speed) << " 0\n";
  }
  text << "generic 1 100 \"KELVOR_TrackColor\" \"0xFF0000FF\"\n"
          "generic 1 130 \"KELVOR_TrackColor\" \"0x00FF00FF\"\n"
          "category 1 500 \"Mode\" \"Cruise\"\n"
          "beam 10 1 \"Radar\" absolute\nbeam-point 10 100 0 0 1000\nbeam-point 10 300 10 0 1000\n"
          "color 10 100 0xFF0000FF\nstate 10 100 on\n";
  for (const auto& [id, original, from, to] : {std::tuple<int, int, int, int>{2, 2, 0, 40}, {3, 2, 50, 90}, {5, 5, 95, 99}})
  {
    text << "platform " << id << " \"Viper\"\n";
    if (id != original)
      text << "original-id " << id << ' ' << original << '\n';
    for (int t = from; t <= to; ++t)
      text << "point " << id << ' ' << t << ' ' << 35.2 + 0.0008 * t << " -117.1 3000\n";
  }
  text << "platform 4 \"Site\"\npoint 4 -1 35 -117 0\n";
  text << "platform 6 \"Lone\"\npoint 6 150 35.3 -117.3 10\n";
  return text.str();
}

using ScenarioChecks::scenarioText;
const auto fileText = ScenarioChecks::fileContents;

std::vector<QtSep::EntityInfo> platformsOf(const ScenarioStore& store)
{
  std::vector<QtSep::EntityInfo> selection;
  for (UniqueID_t id : store.list(PI_PLATFORM_TYPE))
    selection.push_back({static_cast<unsigned long>(id), PI_PLATFORM_TYPE, QtSep::getEntityName(id)});
  return selection;
}

class KelvorEditAgainstTheEditor : public ::testing::Test
{
protected:
  void SetUp() override
  {
    in = path("sample.kls");
    std::ofstream(in) << sampleScenario();
    out = path("out.kls");
  }

  std::string path(const std::string& name) const { return dir.filePath(QString::fromStdString(name)).toStdString(); }

  int run(std::vector<std::string> args)
  {
    std::ostringstream o, e;
    const int status = KelvorEdit().run(args, o, e);
    printed = o.str();
    complaints = e.str();
    return status;
  }

  /// Reads the sample into a session of its own (the only one while it runs: the plug-in is bound to
  /// one server at a time) and runs the editor's side on it. @return the scenario it leaves
  std::string editor(const std::function<void(EditSession&)>& command)
  {
    EditSession session;
    EXPECT_TRUE(session.open(in).ok());
    command(session);
    return scenarioText(session.store());
  }

  QTemporaryDir dir;
  std::string in, out, printed, complaints;
};

TEST_F(KelvorEditAgainstTheEditor, DecimateLeavesTheEditorsCopiesAndAuditLinesForEveryMethod)
{
  struct Case
  {
    std::vector<std::string> options;
    std::function<void(QtSep::DecimateDialog&)> choose; ///< what the user picks in the dialog
    std::string eagleCopy;                              ///< the name the copy of Eagle takes
  };
  const std::vector<Case> cases = {
    {{"--method", "point", "--every", "3"}, [](auto& d) { d.setType(0), d.setEveryNPoint(3); }, "Eagle (Pnt 3)"},
    {{"--method", "time", "--interval", "4", "--interpolate", "--no-keep-last"},
     [](auto& d) { d.setType(1), d.setTimeInterval(4), d.setInterpolate(true), d.setKeepLastPoint(false); },
     "Eagle (TimeInterp 4)"},
    {{"--method", "angle", "--angle", "5"}, [](auto& d) { d.setType(2), d.setAngle(5.0); }, "Eagle (Ang 5)"},
    {{"--method", "distance", "--distance", "300", "--append-suffix"},
     [](auto& d) { d.setType(3), d.setDistance(300), d.setAppendSuffix(true); }, "Eagle"},
    {{"--method", "area", "--drop", "0.4"}, [](auto& d) { d.setType(4), d.setPercentage(0.4); },
     "Eagle (Percentage 40)"},
  };
  for (const Case& c : cases)
  {
    std::vector<std::string> args = {"decimate", in, out};
    args.insert(args.end(), c.options.begin(), c.options.end());
    ASSERT_EQ(KelvorEdit::SUCCESS, run(args)) << complaints;
    const std::string expected = editor([&](EditSession& session) {
      QtSep::DecimateDialog dialog;
      dialog.setKeepLastPoint(true); // as the registry's default shows it; the command's default too
      c.choose(dialog);
      const auto algorithm = QtSep::DecimateAction::getAlgorithm_(dialog);
      QtSep::DecimateAction::decimatePlatforms(platformsOf(session.store()), *algorithm);
    });
    EXPECT_EQ(expected, fileText(out)) << c.options[1];
    EXPECT_NE(std::string::npos, printed.find(" in " + c.eagleCopy + " (id ")) << printed;
    EXPECT_NE(std::string::npos, complaints.find("Decimation skipping static platform Site")) << complaints;
  }
  // Five copies of Eagle's 60 points by the rules, read back: every third point, and the last.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"decimate", in, out, "--method", "point", "--every", "3", "--entity", "Eagle"}));
  EditSession written;
  ASSERT_TRUE(written.open(out).ok());
  const UniqueID_t copy = written.store().findPlatform("Eagle (Pnt 3)");
  ASSERT_NE(0u, copy);
  EXPECT_EQ(21u, written.store().entity(copy)->platformPoints.size()) << "0, 3, ... 57 and 59";
  std::vector<PIData::PIGenericDataPoint> audit;
  PIData::getDataPoints(copy, &audit);
  EXPECT_TRUE(std::any_of(audit.begin(), audit.end(), [](const auto& g) { return g.value == "Pnts: Eagle (3p)"; }));
}

TEST_F(KelvorEditAgainstTheEditor, DecimateReplaceThinsTheSourceToTheCopysSurvivors)
{
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"decimate", in, out, "--method", "area", "--drop", "0.5", "--replace",
                                      "--entity", "Eagle"}));
  std::vector<double> copyTimes, ownTimes;
  {
    EditSession replaced;
    ASSERT_TRUE(replaced.open(out).ok());
    const ScenarioStore& store = replaced.store();
    ASSERT_EQ(6u, store.list(PI_PLATFORM_TYPE).size()) << "no copy";
    const UniqueID_t eagle = store.findPlatform("Eagle");
    EXPECT_EQ(30u, store.entity(eagle)->platformPoints.size());
    EXPECT_EQ(1u, store.entity(eagle)->children.size()) << "the beam stays on its platform";
    std::vector<PIData::PIGenericDataPoint> audit;
    PIData::getDataPoints(eagle, &audit);
    EXPECT_TRUE(std::any_of(audit.begin(), audit.end(), [](const auto& g) { return g.value == "Area: Eagle (50%)"; }));
    for (const StoredPlatformPoint& p : store.entity(eagle)->platformPoints)
      ownTimes.push_back(p.time);
  }

  // The survivors are those of the editor's copy.
  editor([&](EditSession& session) {
    QtSep::VisvalingamDecimation byArea;
    byArea.setPercentageDrop(0.5);
    std::uint64_t made = 0;
    ASSERT_EQ(0, byArea.execute(session.store().findPlatform("Eagle"), &made, false));
    for (const StoredPlatformPoint& p : session.store().entity(made)->platformPoints)
      copyTimes.push_back(p.time);
  });
  EXPECT_EQ(copyTimes, ownTimes);
}

TEST_F(KelvorEditAgainstTheEditor, FilterSpeedAndDeriveRunAsTheirDialogsRunThem)
{
  for (bool calculated : {false, true})
  {
    std::vector<std::string> args = {"filter-speed", in, out, "--min", "100", "--max", "400", "--units", "kts"};
    if (calculated)
      args.push_back("--calculated");
    ASSERT_EQ(KelvorEdit::SUCCESS, run(args)) << complaints;
    const std::string expected = editor([&](EditSession& session) {
      QtSep::VelocityDialog dialog;
      dialog.setMinUnits("kts");
      dialog.setMaxUnits("kts");
      dialog.findChild<QSpinBox*>("minSpeedSpinBox")->setValue(100);
      dialog.findChild<QSpinBox*>("maxSpeedSpinBox")->setValue(400);
      dialog.setUsePlatformPosition(calculated);
      QtSep::VelocityAction::filterPlatforms(platformsOf(session.store()), *QtSep::VelocityAction::getFilter_(dialog));
    });
    EXPECT_EQ(expected, fileText(out));
    EXPECT_NE(std::string::npos, expected.find("Filtered by by " + std::string(calculated ? "calculated" : "given") +
                                               " velocity  with limit of [51,205] m/s"))
        << "the audit line, limits in whole m/s";
  }

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"derive", in, out, "--window", "7"})) << complaints;
  EXPECT_NE(std::string::npos, complaints.find("passing over Site (id 4): it is static")) << complaints;
  EXPECT_NE(std::string::npos, complaints.find("Calculation for platform Viper failed due to: Not enough data points"))
      << "the five-point piece cannot hold a window of seven";
  const std::string expected = editor([&](EditSession& session) {
    QtSep::CalculateOriVelAction::calculate(platformsOf(session.store()), true, true, true, 7);
  });
  EXPECT_EQ(expected, fileText(out));
  EXPECT_NE(std::string::npos, expected.find("Lagrangian calculation for orientation and velocity with 7 points"));

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"derive", in, out, "--method", "delta", "--entity", "Eagle"})) << complaints;
  EXPECT_EQ(editor([&](EditSession& session) {
              QtSep::CalculateOriVelAction::calculate({platformsOf(session.store()).front()}, false, true, true, 10);
            }),
            fileText(out));
}

TEST_F(KelvorEditAgainstTheEditor, ExportGogWritesWhatTheExportWrites)
{
  const std::string gog = path("eagle.gog");
  ASSERT_EQ(KelvorEdit::SUCCESS,
            run({"export-gog", in, gog, "--plot", "alt-range", "--line-style", "dashed", "--line-width", "3",
                 "--color", "0x11223344", "--x-offset", "2.5", "--no-depth-buffer", "--entity", "Lone", "--entity",
                 "Eagle"}))
      << complaints;
  std::ostringstream expected;
  editor([&](EditSession& session) {
    int number = 0;
    for (const char* name : {"Lone", "Eagle"})
      QtSep::GogExportAction::exportToGog_(expected, session.store().findPlatform(name), ++number,
                                           QtSep::GogExportDialog::ALTITUDE_VS_RANGE, QtSep::GogExportDialog::DASHED, 3,
                                           QColor(0x11, 0x22, 0x33, 0x44), 2.5, false, false);
  });
  EXPECT_EQ(expected.str(), fileText(gog));
  EXPECT_EQ(0u, fileText(gog).find("start\ndepthbuffer false\nlinecolor color1 0x44332211\nlinewidth 3\npoints\n"))
      << "Lone's one point; the colour as alpha, blue, green, red";

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"export-gog", in, gog, "--plot", "ground", "--track-color", "--entity", "Eagle"}));
  const std::string sections = fileText(gog);
  EXPECT_NE(std::string::npos, sections.find("linecolor color1 0xFF0000FF\n"));
  EXPECT_NE(std::string::npos, sections.find("linecolor color1 0xFF00FF00\n"))
      << "a section from 130 s on, its colour 0x00FF00FF read as the export reads track colours";
}

TEST_F(KelvorEditAgainstTheEditor, MergeAndAutoMergeAsTheMergeCommandAndTheAutoMergeTab)
{
  // Ids are those the file shows: Viper 5 is the store's fifth entity (after Eagle's beam).
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"merge", in, out, "--entity", "Eagle", "--entity", "5"})) << complaints;
  EXPECT_EQ(editor([](EditSession& session) {
              ASSERT_EQ("Viper", nameOfHeader(session.store().entity(5)->header));
              QtSep::AutoMerge().mergeAndRemove({1, 5});
            }),
            fileText(out));
  EXPECT_NE(std::string::npos, printed.find("merged Viper (id 5) into Eagle (id 1)")) << printed;

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"merge", in, out, "--entity", "Viper"})) << "one name, three platforms";
  EXPECT_EQ(editor([](EditSession&) { QtSep::AutoMerge().mergeAndRemove({3, 4, 5}); }), fileText(out));
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"merge", in, out, "--entity", "2"})) << "one original id, two platforms";
  EXPECT_EQ(editor([](EditSession&) { QtSep::AutoMerge().mergeAndRemove({3, 4}); }), fileText(out));

  for (bool byNameAlone : {false, true})
  {
    std::vector<std::string> args = {"auto-merge", in, out};
    if (byNameAlone)
      args.push_back("--no-original-id");
    ASSERT_EQ(KelvorEdit::SUCCESS, run(args)) << complaints;
    const std::string expected = editor([&](EditSession&) {
      QtSep::AutomaticMergeWidget tab;
      tab.findChild<QCheckBox*>("compareCheckBox")->setChecked(!byNameAlone);
      tab.findChild<QPushButton*>("detectPushButton")->click();
      tab.findChild<QPushButton*>("acceptPushButton")->click();
    });
    EXPECT_EQ(expected, fileText(out));
    EXPECT_NE(std::string::npos, printed.find(byNameAlone ? "Viper (id 2): 3 platforms merged into the earliest"
                                                          : "Viper (id 2): 2 platforms merged into the earliest"))
        << printed;
  }
}

TEST_F(KelvorEditAgainstTheEditor, ValidateFixAllRepairsAsTheValidationView)
{
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"validate", in, "--fix-all", out, "--json"})) << complaints;
  const std::string expected = editor([](EditSession&) {
    QtSep::ValidateScenarioWidget view;
    view.findChild<QPushButton*>("validatePushButton")->click();
    view.findChild<QPushButton*>("fixAllPushButton")->click();
  });
  EXPECT_EQ(expected, fileText(out));

  const QJsonObject report = QJsonDocument::fromJson(QByteArray::fromStdString(printed)).object();
  EXPECT_EQ(2, report["fixed"].toInt()) << printed;
  const QJsonArray issues = report["issues"].toArray();
  auto issueOf = [&](const QString& description) {
    for (const QJsonValue& issue : issues)
      if (issue["description"].toString() == description)
        return issue.toObject();
    return QJsonObject();
  };
  const QJsonObject outside = issueOf("Data outside the time range of the host entity Eagle.");
  EXPECT_EQ(QJsonArray({"Expand", "Trim Points"}), outside["solutions"].toArray());
  EXPECT_EQ("Expand", outside["fixedBy"].toString()) << "the first that works";
  EXPECT_EQ("Duplicate Point",
            issueOf("The non-static platform Lone must have at least two TSPI points.")["fixedBy"].toString());
  EXPECT_TRUE(issueOf("Data for entity Radar outside the time range of the host entity Eagle.")["fixedBy"].isNull());

  EXPECT_EQ(KelvorEdit::FAILURE, run({"validate", in})) << "issues found";
  EXPECT_NE(std::string::npos, printed.find(in + ": ")) << printed;
}

TEST_F(KelvorEditAgainstTheEditor, DropoutsAreTheStretchesTheDetectionFinds)
{
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"dropouts", in, "--entity", "Eagle", "--gap", "10", "--json"})) << complaints;
  std::vector<QtSep::DropOut> found;
  editor([&](EditSession&) {
    CommonMerge::GenerateDropOuts(1, PIData::clockGetBegin(), PIData::clockGetEnd(), 10.0, found); // Eagle
  });
  const QJsonArray listed = QJsonDocument::fromJson(QByteArray::fromStdString(printed)).object()["dropouts"].toArray();
  ASSERT_EQ(found.size(), static_cast<std::size_t>(listed.size())) << printed;
  for (std::size_t i = 0; i < found.size(); ++i)
  {
    EXPECT_EQ(found[i].startTime, listed[static_cast<int>(i)]["start"].toDouble());
    EXPECT_EQ(found[i].endTime, listed[static_cast<int>(i)]["end"].toDouble());
  }

  // Within Eagle's own span: the hole from 144 to 180 s, its ends half a microsecond inside.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"dropouts", in, "--entity", "1", "--gap", "10", "--start", "100", "--end", "194"}));
  EXPECT_EQ("144.0000005 179.9999995\n", printed);
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"dropouts", in, "--entity", "1", "--gap", "36", "--start", "100", "--end", "194"}));
  EXPECT_EQ("", printed) << "a hole of exactly the gap is none";
}

TEST_F(KelvorEditAgainstTheEditor, ManualMergeBuildsThePlatformTheManualMergeTabBuilds)
{
  // Over the scenario's span (0 to 300 s) the Vipers fill before Eagle begins, Lone's point at
  // 150 s fills Eagle's hole, and nothing reaches past 194 s.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--entity",
                                      "Viper", "--gap", "10"}))
    << complaints;
  const std::string expected = editor([](EditSession& session) {
    PluginUtils::EntityTreeModel model;
    model.forceRefresh();
    kelQt::EntityTreeComposite list;
    list.setModel(&model);
    QtSep::ManualMergeWidget tab(list);
    // One at a time, so that the priority is the order added.
    for (UniqueID_t id : {session.store().findPlatform("Eagle"), session.store().findPlatform("Lone"),
                          UniqueID_t(3), UniqueID_t(4), UniqueID_t(5)})
    {
      list.setSelected(QList<unsigned long>{static_cast<unsigned long>(id)});
      tab.addSelectedPlatforms();
    }
    tab.findChild<QSpinBox*>("gapSpinBox")->setValue(10);
    tab.findChild<QPushButton*>("detectPushButton")->click();
    ASSERT_GT(tab.findChild<QTreeWidget*>("dropoutTreeWidget")->topLevelItemCount(), 0);
    tab.findChild<QPushButton*>("mergePushButton")->click();
  });
  EXPECT_EQ(expected, fileText(out));
  EXPECT_NE(std::string::npos, printed.find("3. 150 150 Lone (id 6), 1 point\n")) << printed;
  EXPECT_NE(std::string::npos, printed.find("4. 194.0000005 300 no source, left out")) << printed;
  EXPECT_NE(std::string::npos, printed.find("Eagle_Merge (id 1) holds 143 points")) << printed;

  // Leaving Lone's stretch out leaves Eagle's hole open in the new platform.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--gap", "10",
                                      "--skip", "2", "--json"}));
  const QJsonArray listed = QJsonDocument::fromJson(QByteArray::fromStdString(printed)).object()["dropouts"].toArray();
  ASSERT_EQ(3, listed.size()) << printed;
  EXPECT_EQ("Lone", listed[1]["fill"].toString());
  EXPECT_EQ(150.0, listed[1]["start"].toDouble());
  EXPECT_EQ("N/A", listed[0]["fill"].toString()) << "before Eagle only the Vipers, not listed";
  EXPECT_EQ(300.0, listed[2]["end"].toDouble());
  {
    EditSession written;
    ASSERT_TRUE(written.open(out).ok());
    const Entity* merged = written.store().entity(written.store().findPlatform("Eagle_Merge"));
    ASSERT_NE(nullptr, merged);
    EXPECT_EQ(60u, merged->platformPoints.size()) << "Eagle's own points, Lone's left out";
  }

  EXPECT_EQ(KelvorEdit::USAGE, run({"manual-merge", in, out, "--entity", "Eagle"})) << "one platform fills nothing";
  EXPECT_EQ(KelvorEdit::USAGE, run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--gap", "121"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--skip", "0"}));
  EXPECT_EQ(KelvorEdit::USAGE,
            run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--gap", "10", "--skip", "4"}))
    << "there are three stretches";
  EXPECT_EQ(KelvorEdit::FAILURE, run({"manual-merge", in, out, "--entity", "Eagle", "--entity", "Lone", "--start",
                                      "150", "--end", "170"}))
    << "Eagle has no points in the slice";
}

TEST_F(KelvorEditAgainstTheEditor, MakeStationaryConvertsWhatTheMakeStationaryTabDetects)
{
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"make-stationary", in, "--detect-only", "--distance", "500", "--json"}))
    << complaints;
  const QJsonArray listed = QJsonDocument::fromJson(QByteArray::fromStdString(printed)).object()["candidates"].toArray();
  ASSERT_EQ(2, listed.size()) << printed;
  EXPECT_EQ(5, listed[0]["id"].toInt()) << "the Viper that moves 360 m";
  EXPECT_EQ("Lone", listed[1]["name"].toString()) << "one point at a time stays within any distance";

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"make-stationary", in, out, "--distance", "500", "--maintain-life-span"}))
    << complaints;
  const std::string expected = editor([](EditSession& session) {
    QtSep::MakeStationaryWidget tab;
    tab.findChild<QCheckBox*>("distanceCheckBox")->setChecked(true);
    tab.findChild<QSpinBox*>("distanceSpinBox")->setValue(500);
    for (const char* name : {"yawCheckBox", "pitchCheckBox", "rollCheckBox"})
      tab.findChild<QCheckBox*>(name)->setChecked(false);
    tab.findChild<QCheckBox*>("lifeSpanCheckBox")->setChecked(true);
    tab.findChild<QPushButton*>("detectPushButton")->click();
    // The tab's list shows what Detect found once its rows are in.
    const QList<unsigned long> found{5, static_cast<unsigned long>(session.store().findPlatform("Lone"))};
    ASSERT_TRUE(QTest::qWaitFor([&] {
      tab.entityTreeComposite().setSelected(found);
      return tab.entityTreeComposite().selectedItems().size() == found.size();
    }, 10000));
    auto* accept = tab.findChild<QPushButton*>("acceptPushButton");
    ASSERT_TRUE(QTest::qWaitFor([&] { return accept->isEnabled(); }, 10000));
    accept->click();
  });
  EXPECT_EQ(expected, fileText(out));

  // Without a delta every platform that is not static is a candidate, as the tab says.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"make-stationary", in, "--detect-only"})) << complaints;
  EXPECT_EQ("Eagle (id 1)\nViper (id 2)\nViper (id 2)\nViper (id 5)\nLone (id 6)\n", printed);

  // Named platforms are converted as the command converts them, with its audit line.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"make-stationary", in, out, "--entity", "Eagle"})) << complaints;
  EXPECT_EQ(editor([](EditSession&) {
              QtSep::MakeStationary().execute(1, false);
              QtSep::Action::addAudit(1, "Made stationary");
            }),
            fileText(out));

  EXPECT_EQ(KelvorEdit::USAGE, run({"make-stationary", in, out, "--yaw", "181"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"make-stationary", in, out, "--distance", "5", "--json"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"make-stationary", in, "--detect-only", "--maintain-life-span"}));
}

TEST_F(KelvorEditAgainstTheEditor, ShiftTimesMovesTheScenarioAsEditTimesDoes)
{
  ASSERT_EQ(KelvorEdit::SUCCESS,
            run({"shift-times", in, out, "--start", "2026-01-02T00:00:00Z", "--reference-year", "2026"}))
    << complaints;
  EXPECT_EQ(editor([](EditSession&) { QtSep::AdjustScenarioTimes().execute(2026, 86400.0); }), fileText(out));
  EXPECT_NE(std::string::npos, printed.find("reference year 2026, start 86400 s")) << printed;

  ASSERT_EQ(KelvorEdit::SUCCESS, run({"shift-times", in, out, "--start", "500"})) << "seconds in the file's year";
  EXPECT_EQ(editor([](EditSession&) { QtSep::AdjustScenarioTimes().execute(2025, 500.0); }), fileText(out));

  // The year alone relabels the scenario: every value keeps its seconds.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"shift-times", in, out, "--reference-year", "2024"})) << complaints;
  EXPECT_EQ(editor([](EditSession&) { QtSep::AdjustScenarioTimes().execute(2024, PIData::clockGetBegin()); }),
            fileText(out));
  EXPECT_NE(std::string::npos, fileText(out).find("point 1 100 ")) << "Eagle still starts at 100 s";

  EXPECT_EQ(KelvorEdit::USAGE, run({"shift-times", in, out})) << "nothing to move by";
  EXPECT_EQ(KelvorEdit::USAGE, run({"shift-times", in, out, "--start", "yesterday"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"shift-times", in, out, "--start", "2024-12-31T00:00:00Z"})) << "before 2025";
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(out + ".saving")));
}

TEST_F(KelvorEditAgainstTheEditor, TransformMapsTheRowsAsTransformPlatformDoes)
{
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"transform", in, out, "--system", "ECEF", "--x", "1,250", "--time", "2,10",
                                      "--entity", "Eagle"}))
    << complaints;
  EXPECT_EQ(editor([](EditSession&) {
              QtSep::TransformPlatformAction::Coefficients rows;
              rows[QtSep::TransformPlatformDialog::X] = {true, 1.0, 250.0};
              rows[QtSep::TransformPlatformDialog::TIME] = {true, 2.0, 10.0};
              QtSep::TransformPlatformAction::transform({{1, PI_PLATFORM_TYPE, "Eagle"}}, rows,
                                                        kelCore::CoordinateSystem::ECEF);
            }),
            fileText(out));
  EXPECT_NE(std::string::npos, fileText(out).find("beam-point 10 210 ")) << "the beam follows Eagle's time";

  // Altitude in LLA, every platform; a time that would fall before the year leaves a platform alone.
  ASSERT_EQ(KelvorEdit::SUCCESS, run({"transform", in, out, "--z", "1,100", "--time", "1,-60"})) << complaints;
  EXPECT_NE(std::string::npos, complaints.find("Viper (id 2) left as it was")) << complaints;
  EXPECT_NE(std::string::npos, fileText(out).find("point 1 40 ")) << "Eagle moved a minute earlier";

  EXPECT_EQ(KelvorEdit::USAGE, run({"transform", in, out})) << "no row";
  EXPECT_EQ(KelvorEdit::USAGE, run({"transform", in, out, "--x", "1"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"transform", in, out, "--x", "1,nan"}));
  EXPECT_EQ(KelvorEdit::USAGE, run({"transform", in, out, "--system", "UTM", "--x", "1,0"}));
  EXPECT_EQ(KelvorEdit::FAILURE, run({"transform", in, out, "--time", "1,-1000", "--entity", "Eagle"}));
  EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(out + ".saving")));
}

} // namespace
