#include "files/ScenarioReader.h"
#include "files/ScenarioVocabulary.h"
#include "files/ScenarioWriter.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <tuple>

using namespace kelvor;

namespace
{

// Every command of the format, written by hand in degrees as a user would.
const char* const EVERY_COMMAND = R"(kelvor-scenario 1
# a comment line
reference-year 2024
origin 35.5 -117.25 700
tangent-plane 100 -50 15
description "Range day \"alpha\""
classification "UNCLASSIFIED" 0x00FF00FF
wind 7.5 270
coordinate-frame LLA 0
positions LLA
angles degrees
platform 10 "Eagle 1" icon "f16.png"
point 10 0 35.5 -117.25 1000 90 5 0 200 10 -1
point 10 10 35.51 -117.24 1100 - - - 201 11 -2
point 10 -1 35.5 -117.25 1000
platform 20 "Ship" # a trailing comment
point 20 5 35.0 -117.0 0
alias 20 "Hull 7" shown
beam 30 10 "Radar" target hbw 5 vbw 4 azoffset 1 eloffset 2
beam-point 30 1 45 10 20000
gate 40 30 "Gate" body
gate-point 40 1 45 10 1 1 100 200 150
laser 50 10 "Designator" relative
laser-point 50 2 10 20 0
laser-range 50 2 9000
laser-width 50 2 3
laser-offset 50 2 1 2 3
lob 60 20 "Bearings" relative
lob-point 60 3 120 0 30000
lob-style 60 3 0x00FF00FF 0xFF0000FF 65280 255 2
projector 70 10 "Camera"
projector-fov 70 4 30
projector-state 70 4 on
custom 80 30 "Cone" "Ribbon"
custom 90 0 "Range Fan" "Custom Line"
state 10 0 on
color 10 0 0xFF0000FF
target 30 1 20
generic 10 0 "KELVOR_TrackColor" "0xFF0000FF"
generic 10 5 "Note" "brief" 2.5
category 10 -1 "Side" "Blue"
table 1 10 "Telemetry"
column 1 "Fuel" double 0
column 1 "Mode" string 0
column 1 "Raw" blob 0
column 1 "Count" int32 0
row 1 0 12.5 "cruise" blob:01FF NULL
row 1 1 nan "NULL" NULL 7
gog 10 "/data/route.gog"
gog 0 "/data/range.gog"
rule "TrackDrawMode=Ribbon"
draw-flag 10 "Preview"
)";

std::string writeToText(const ScenarioStore& store, kelCore::CoordinateSystem positions = kelCore::CoordinateSystem::LLA)
{
  std::ostringstream out;
  ScenarioWriter(store, {positions}).write(out);
  return out.str();
}

ReadReport readInto(ScenarioStore& store, const std::string& text, bool strict = false)
{
  return ScenarioReader(store, {strict}).readText(text, "test.kls");
}

const Entity& byOriginalId(const ScenarioStore& store, UniqueID_t original)
{
  for (UniqueID_t id : store.list(PI_ALL_TYPES))
    if (originalIdOfHeader(store.entity(id)->header) == original)
      return *store.entity(id);
  throw std::runtime_error("no entity " + std::to_string(original));
}

TEST(ScenarioFile, EveryCommandReadsAndTheSecondWriteIsTheSameText)
{
  ScenarioStore first;
  const ReadReport report = readInto(first, EVERY_COMMAND);
  ASSERT_TRUE(report.ok()) << (report.errors.empty() ? "" : report.errors[0]);
  EXPECT_EQ(9u, report.entities) << "a custom rendering may stand alone, with host 0";
  const std::string written = writeToText(first);

  ScenarioStore second;
  ASSERT_TRUE(readInto(second, written).ok());
  EXPECT_EQ(written, writeToText(second)) << "reading back loses nothing";

  const Entity& eagle = byOriginalId(second, 10);
  ASSERT_EQ(3u, eagle.platformPoints.size());
  EXPECT_EQ(-1.0, eagle.platformPoints.front().time);
  const StoredPlatformPoint& p = *eagle.platformPoints.atOrAfter(10.0);
  EXPECT_EQ(35.51 * M_PI / 180.0, p.lat) << "bit for bit";
  EXPECT_FALSE(p.hasOrientation());
  EXPECT_EQ(201.0, p.velEast);
  EXPECT_EQ("Hull 7", byOriginalId(second, 20).alias);
  EXPECT_TRUE(byOriginalId(second, 20).useAlias);
  EXPECT_EQ(byOriginalId(second, 20).id, byOriginalId(second, 30).targets.front().value);
  EXPECT_EQ(5.0 * M_PI / 180.0, std::get<PIData::PIBeamHeader>(byOriginalId(second, 30).header).horizontalBeamWidth);
  EXPECT_EQ("Range day \"alpha\"", second.properties().description);
  EXPECT_EQ(2024, second.properties().referenceYear);
  EXPECT_EQ(2u, second.preferenceRules().size() + second.drawFlags(eagle.id).size());
  second.addPreferenceRule("ruleName=TracksWidth ruleValue=\"3\"", false);
  EXPECT_EQ(written, writeToText(second)) << "a rule of the session stays out of the file";
  EXPECT_EQ(std::vector<std::string>{"/data/range.gog"}, second.attachedGogFiles(0));

  const DataTable& table = *second.table(eagle.tables.at(0));
  ASSERT_EQ(2u, table.rows().size());
  const PIData::DataTableRowT& row1 = table.rows().at(1.0);
  double fuel = 0;
  row1.getCell(static_cast<unsigned long>(table.columns()[0].id), fuel);
  EXPECT_TRUE(std::isnan(fuel));
  std::string mode;
  row1.getCell(static_cast<unsigned long>(table.columns()[1].id), mode);
  EXPECT_EQ("NULL", mode) << "a quoted NULL is text";
  EXPECT_EQ(nullptr, row1.findCell(static_cast<unsigned long>(table.columns()[2].id))) << "a bare NULL is no cell";
}

TEST(ScenarioFile, EveryDoubleSurvivesToTheLastBit)
{
  ScenarioStore store;
  store.editProperties().initialized = true;
  const UniqueID_t id = store.createEntity(PIData::PIPlatformHeader(), 0);
  StoredPlatformPoint s;
  s.time = 0.1 + 0.2;
  s.lat = std::nextafter(0.6, 1.0);
  s.lon = -2.0000000000000004;
  s.alt = 1e-310; // subnormal
  s.yaw = M_PI;
  s.pitch = -0.0;
  s.roll = 1e300;
  store.editEntity(id)->platformPoints.insert(s);
  ScenarioStore back;
  ASSERT_TRUE(readInto(back, writeToText(store)).ok());
  const StoredPlatformPoint& r = back.entity(back.list(PI_PLATFORM_TYPE)[0])->platformPoints.front();
  EXPECT_EQ(s.time, r.time);
  EXPECT_EQ(s.lat, r.lat);
  EXPECT_EQ(s.lon, r.lon);
  EXPECT_EQ(s.alt, r.alt);
  EXPECT_EQ(s.roll, r.roll);
  EXPECT_TRUE(std::signbit(r.pitch)) << "negative zero stays negative";
}

TEST(ScenarioFile, PositionsInEverySystemReadBackToTheSamePlace)
{
  ScenarioStore store;
  ASSERT_TRUE(readInto(store, EVERY_COMMAND).ok());
  const StoredPlatformPoint original = byOriginalId(store, 10).platformPoints.back();
  for (auto system : {kelCore::CoordinateSystem::ECEF, kelCore::CoordinateSystem::NED, kelCore::CoordinateSystem::NWU,
                      kelCore::CoordinateSystem::ENU, kelCore::CoordinateSystem::XEAST, kelCore::CoordinateSystem::GTP})
  {
    ScenarioStore back;
    const std::string text = writeToText(store, system);
    ASSERT_TRUE(readInto(back, text).ok()) << text.substr(0, 400);
    const StoredPlatformPoint p = byOriginalId(back, 10).platformPoints.back();
    EXPECT_NEAR(original.lat, p.lat, 1e-10) << static_cast<int>(system);
    EXPECT_NEAR(original.alt, p.alt, 1e-3) << static_cast<int>(system);
    EXPECT_NEAR(original.velNorth, p.velNorth, 1e-6) << static_cast<int>(system);
  }
}

// Each entity as (name, original id, host's name), in the store's order.
std::vector<std::tuple<std::string, UniqueID_t, std::string>> identities(const ScenarioStore& store)
{
  std::vector<std::tuple<std::string, UniqueID_t, std::string>> result;
  for (UniqueID_t id : store.list(PI_ALL_TYPES))
  {
    const Entity& e = *store.entity(id);
    result.emplace_back(nameOfHeader(e.header), originalIdOfHeader(e.header),
                        e.host ? nameOfHeader(store.entity(e.host)->header) : std::string());
  }
  return result;
}

UniqueID_t addPlatform(ScenarioStore& store, const std::string& name, UniqueID_t original)
{
  PIData::PIPlatformHeader header;
  header.name = name;
  header.originalId = original;
  return store.createEntity(header, 0);
}

TEST(ScenarioFile, SavingKeepsEveryOriginalIdSharedZeroAndHugeOnes)
{
  ScenarioStore store;
  store.editProperties().initialized = true;
  PIData::PIBeamHeader radar;
  radar.name = "Radar";
  radar.originalId = 2;
  // A thinned copy keeps its source's original ids, its children's too.
  const UniqueID_t source = addPlatform(store, "Source", 1);
  const UniqueID_t beam = store.createEntity(radar, source);
  store.createEntity(radar, addPlatform(store, "Source thinned", 1));
  addPlatform(store, "Zero", 0);
  addPlatform(store, "Zero too", 0);
  addPlatform(store, "Largest", UINT64_MAX);
  addPlatform(store, "Largest key", INT64_MAX);                           // a key still: new keys wrap past it
  addPlatform(store, "Beyond keys", static_cast<UniqueID_t>(INT64_MAX) + 1);
  const UniqueID_t seven = addPlatform(store, "Seven", 7);
  store.editEntity(beam)->targets.insert({5.0, seven});

  const std::string text = writeToText(store);
  ScenarioStore back;
  const ReadReport report = readInto(back, text);
  ASSERT_TRUE(report.ok()) << (report.errors.empty() ? "" : report.errors[0]) << "\n" << text;
  EXPECT_EQ(identities(store), identities(back)) << text;
  const Entity& backBeam = *back.entity(back.entity(back.list(PI_PLATFORM_TYPE)[0])->children.at(0));
  EXPECT_EQ("Seven", nameOfHeader(back.entity(backBeam.targets.front().value)->header)) << "keys still tie lines together";
  EXPECT_EQ(text, writeToText(back)) << "a second save writes the same text";

  std::size_t apart = 0;
  for (std::size_t at = text.find("\noriginal-id "); at != std::string::npos; at = text.find("\noriginal-id ", at + 1))
    ++apart;
  EXPECT_EQ(6u, apart) << "the first of a shared id keeps it as its key, so do unique ids up to the largest key";
  EXPECT_NE(std::string::npos, text.find("platform 1 \"Source\""));
}

TEST(ScenarioFile, NoTargetAndTheTargetOfARemovedEntitySurviveASave)
{
  // Targets 0 and those of removed entities were once left out of the file without a word.
  ScenarioStore store;
  store.editProperties().initialized = true;
  PIData::PIBeamHeader radar;
  radar.name = "Radar";
  const UniqueID_t hawk = addPlatform(store, "Hawk", 1);
  const UniqueID_t kite = addPlatform(store, "Kite", 2);
  const UniqueID_t beam = store.createEntity(radar, hawk);
  store.editEntity(beam)->targets.insert({1.0, kite});
  store.editEntity(beam)->targets.insert({2.0, UniqueID_t(0)});
  ScenarioStore back;
  ASSERT_TRUE(readInto(back, writeToText(store)).ok());
  const Entity& backBeam = *back.entity(back.entity(back.findPlatform("Hawk"))->children.at(0));
  ASSERT_EQ(2u, backBeam.targets.size());
  EXPECT_EQ(0u, backBeam.targets.back().value) << "no target from then on";

  ASSERT_TRUE(store.removeEntity(kite));
  EXPECT_EQ(0u, store.entity(beam)->targets.front().value) << "a removed entity is no one's target";
  ScenarioStore again;
  ASSERT_TRUE(readInto(again, writeToText(store)).ok());
  EXPECT_EQ(2u, again.entity(again.entity(again.findPlatform("Hawk"))->children.at(0))->targets.size());
}

TEST(ScenarioFile, AnOriginalIdLineGivesTheIdApartFromTheKey)
{
  ScenarioStore store;
  const ReadReport report = readInto(store, "kelvor-scenario 1\n"
                                            "platform 5 \"Old style\"\n"    // the key is the original id
                                            "platform 6 \"Copy\"\n"
                                            "ORIGINAL-ID 6 5\n"
                                            "beam 7 6 \"Radar\" absolute\n"
                                            "original-id 7 0\n"
                                            "original-id 7 3\n"             // 7 a second one
                                            "original-id 8 1\n"             // 8 no such entity
                                            "original-id 5 -1\n"            // 9 not an original id
                                            "original-id 5 18446744073709551616\n"
                                            "original-id 5\n");
  const std::vector<std::string> expected = {
    "test.kls:7: a second original id for entity 7",
    "test.kls:8: unknown entity id 8",
    "test.kls:9: bad original id '-1': expected 0 to 18446744073709551615",
    "test.kls:10: bad original id '18446744073709551616': expected 0 to 18446744073709551615",
    "test.kls:11: missing field: expected ORIGINAL_ID",
  };
  EXPECT_EQ(expected, report.errors);
  const std::vector<std::tuple<std::string, UniqueID_t, std::string>> held = {
    {"Old style", 5, ""}, {"Copy", 5, ""}, {"Radar", 0, "Copy"}};
  EXPECT_EQ(held, identities(store));
}

TEST(ScenarioFile, ARecordAtATimeHeldReplacesTheEarlierWithAWarningAndRepeatsAreCounted)
{
  const std::string text = std::string("kelvor-scenario 1\n") +
                           "platform 1 \"A\"\n"
                           "point 1 0 30.001 -80 100\n"
                           "point 1 10 30 -80 100\n"
                           "point 1 0 30.5 -80.5 999\n"       // 5 replaces line 3
                           "point 1 10 30 -80 100\n"          // 6 the same again
                           "state 1 5 on\n"
                           "state 1 5 off\n"                  // 8 replaces line 7
                           "color 1 -1 0xFF0000FF\n"
                           "color 1 -1 0x00FF00FF\n"          // 10 replaces line 9
                           "generic 1 0 \"Note\" \"a\"\n"
                           "generic 1 0 \"Other\" \"b\"\n"    // another tag: no replacement
                           "generic 1 0 \"Note\" \"c\"\n"     // 13 replaces line 11
                           "category 1 0 \"Side\" \"Blue\"\n"
                           "category 1 0 \"Side\" \"Blue\"\n" // 15 the same again
                           "point 1 5 30 -80 100\n"           // before the point of time 10
                           "point 1 10 30.2 -80 100\n"        // 17 replaces line 6, which replaced line 4
                           "beam 2 1 \"B\" absolute\n"
                           "beam-point 2 1 0 0 100\n"
                           "beam-point 2 1 0 0 200\n"         // 20 replaces line 19
                           "laser 3 1 \"L\"\n"
                           "laser-range 3 0 100\n"
                           "laser-range 3 0 200\n"            // 23 replaces line 22
                           "table 1 1 \"T\"\n"
                           "column 1 \"X\" double\n"
                           "column 1 \"Y\" string\n"
                           "row 1 0 1 \"a\"\n"
                           "row 1 0 NULL \"b\"\n"             // 28 replaces Y of line 27, keeps X
                           "row 1 0 NULL \"b\"\n";            // 29 changes nothing
  ScenarioStore store;
  const ReadReport report = readInto(store, text);
  EXPECT_TRUE(report.ok()) << "a replacement is no error";
  const std::vector<std::string> expected = {
    "test.kls:5: replaces the point of line 3 at time 0",
    "test.kls:8: replaces the state of line 7 at time 5",
    "test.kls:10: replaces the colour of line 9 at time -1",
    "test.kls:13: replaces the generic data \"Note\" of line 11 at time 0",
    "test.kls:17: replaces the point of line 6 at time 10",
    "test.kls:20: replaces the point of line 19 at time 1",
    "test.kls:23: replaces the range of line 22 at time 0",
    "test.kls:28: replaces cells of the row of line 27 at time 0",
    "test.kls: 3 identical repeated records ignored",
  };
  EXPECT_EQ(expected, report.warnings);
  EXPECT_EQ(8u, report.replaced);
  EXPECT_EQ(3u, report.repeats);

  const Entity& a = byOriginalId(store, 1);
  ASSERT_EQ(3u, a.platformPoints.size());
  EXPECT_EQ(30.5 * M_PI / 180.0, a.platformPoints.front().lat) << "the later record is kept";
  EXPECT_EQ(999.0, a.platformPoints.front().alt);
  EXPECT_EQ(0, a.states.front().value);
  EXPECT_EQ(2u, a.generic.size());
  EXPECT_EQ("c", a.generic.front().value);
  const DataTable& table = *store.table(a.tables.at(0));
  EXPECT_EQ(" 1 \"b\"", ScenarioVocabulary::formatCells(table, table.rows().at(0.0)));
}

TEST(ScenarioFile, EachBadLineIsReportedAndTheRestLoads)
{
  const std::string text = std::string("kelvor-scenario 1\n") +
                           "platform 1 \"A\"\n"
                           "pointt 1 0 0 0 0\n"          // 3 unknown command
                           "point 1 0 0.5\n"             // 4 missing field
                           "point 1 0 abc 0 0\n"         // 5 bad number
                           "point 1 inf 0 0 0\n"         // 6 bad time
                           "point 9 0 0 0 0\n"           // 7 unknown entity
                           "platform 1 \"B\"\n"          // 8 duplicate id
                           "description \"open\n"        // 9 unterminated quote
                           "point 1 1 \xff\xfe 0 0\n"    // 10 not UTF-8
                           "point 1 2 0.1 0.2 3\n"       // 11 fine
                           "beam 5 1 \"R\" sideways\n"   // 12 unknown beam type
                           "gate 6 1 \"G\" body\n";      // 13 a gate on a platform
  ScenarioStore store;
  const ReadReport report = readInto(store, text);
  ASSERT_TRUE(report.loaded);
  const std::vector<std::string> expected = {
    "test.kls:3: unknown command 'pointt'",
    "test.kls:4: missing field: expected LON",
    "test.kls:5: bad number 'abc' for LAT",
    "test.kls:6: bad time 'inf': seconds since the reference year, or -1 for a static value",
    "test.kls:7: unknown entity id 9",
    "test.kls:8: duplicate id 1",
    "test.kls:9: unterminated quote",
    "test.kls:10: not UTF-8 text",
    "test.kls:12: unknown beam type 'sideways'",
    "test.kls:13: entity 1 is a platform, not a beam",
  };
  EXPECT_EQ(expected, report.errors);
  ASSERT_EQ(1u, store.list(PI_PLATFORM_TYPE).size());
  EXPECT_EQ(1u, store.entity(store.list(PI_PLATFORM_TYPE)[0])->platformPoints.size()) << "the good line loaded";
}

TEST(ScenarioFile, ATimeBeforeTheReferenceYearIsKept)
{
  // A clock that begins before the year lets commands add points there; a save must keep them.
  ScenarioStore store;
  const ReadReport report = readInto(store, "kelvor-scenario 1\nplatform 1 \"A\"\npoint 1 -10 0 0 0\npoint 1 -1 0 0 0\n");
  ASSERT_TRUE(report.ok());
  const Entity& a = *store.entity(store.list(PI_PLATFORM_TYPE)[0]);
  ASSERT_EQ(2u, a.platformPoints.size());
  EXPECT_EQ(-10.0, a.platformPoints.front().time);
  EXPECT_EQ(-1.0, a.platformPoints.back().time) << "-1 itself is the static time";
}

TEST(ScenarioFile, RefusedFilesLeaveTheLoadedScenarioAlone)
{
  ScenarioStore store;
  ASSERT_TRUE(readInto(store, EVERY_COMMAND).ok());
  const std::string before = writeToText(store);

  const ReadReport strict = readInto(store, "kelvor-scenario 1\nplatform 1 \"X\"\nbogus\n", true);
  EXPECT_FALSE(strict.loaded);
  EXPECT_EQ(1u, strict.errors.size());

  const ReadReport empty = readInto(store, "");
  EXPECT_FALSE(empty.loaded);
  EXPECT_EQ(std::vector<std::string>{"test.kls:1: empty file: no 'kelvor-scenario 1' line"}, empty.errors);

  const ReadReport garbage = readInto(store, std::string("\x7f" "ELF\x02\x01\x01\0\0\0", 10));
  EXPECT_FALSE(garbage.loaded);
  ASSERT_EQ(1u, garbage.errors.size());

  const ReadReport otherFormat = readInto(store, "time,lat,lon,alt\n0,1,2,3\n");
  EXPECT_FALSE(otherFormat.loaded);
  EXPECT_EQ("test.kls:1: not a scenario file: the first line must be 'kelvor-scenario 1'", otherFormat.errors.at(0));

  const ReadReport newer = readInto(store, "kelvor-scenario 2\n");
  EXPECT_FALSE(newer.loaded);
  EXPECT_EQ(before, writeToText(store)) << "nothing of the loaded scenario was lost";
}

TEST(ScenarioFile, SavingReplacesTheFileWholeOrNotAtAll)
{
  QTemporaryDir dir;
  const std::string path = dir.filePath("scenario.kls").toStdString();
  ScenarioStore store;
  ASSERT_TRUE(readInto(store, EVERY_COMMAND).ok());
  std::string error;
  ASSERT_TRUE(ScenarioWriter(store).writeFile(path, error)) << error;
  ASSERT_TRUE(ScenarioWriter(store).writeFile(path, error)) << error;
  EXPECT_FALSE(std::ifstream(path + ".saving").good()) << "no temporary file is left behind";

  ScenarioStore back;
  EXPECT_TRUE(ScenarioReader(back).readFile(path).ok());
  EXPECT_EQ(writeToText(store), writeToText(back));

  const std::string blocked = dir.filePath("blocked").toStdString();
  ASSERT_TRUE(QDir(dir.path()).mkdir("blocked"));
  EXPECT_FALSE(ScenarioWriter(store).writeFile(blocked, error)) << "a folder cannot be replaced by a file";
  EXPECT_NE(std::string::npos, error.find("blocked"));
  EXPECT_FALSE(std::ifstream(blocked + ".saving").good());

  ScenarioStore untouched;
  const ReadReport missing = ScenarioReader(untouched).readFile(dir.filePath("none.kls").toStdString());
  EXPECT_FALSE(missing.loaded);
  EXPECT_NE(std::string::npos, missing.errors.at(0).find("cannot open"));
}

} // namespace
