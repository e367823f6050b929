#include "host/PIData.h"
#include "host/PIDataTableCreateHelper.h"
#include "host/PIDataTables.h"
#include "support/ServerFixture.h"
#include "validation/ValidateScenario.h"
#include "validation/ValidateScenarioWidget.h"

#include <QPushButton>
#include <QTreeWidget>

using QtSep::ValidateScenario;

namespace
{

class Validation : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
  }

  UniqueID_t platform(const std::string& name, const std::vector<double>& times)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, 100.0 + t};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  void category(UniqueID_t id, double time, const std::string& value)
  {
    PIData::PICategoryDataPoint item{time, "Mode", value};
    PIData::addCategoryData(id, &item);
  }

  void generic(UniqueID_t id, double time)
  {
    PIData::PIGenericDataPoint item;
    item.time = time;
    item.tag = "Note";
    item.value = "x";
    PIData::createGenericData(id, &item);
  }

  long table(UniqueID_t id, const std::string& name, const std::vector<double>& times)
  {
    PIData::PIDataTableCreateHelper helper;
    helper.addColumn("Fuel", UTILS::VT_DOUBLE);
    long made = 0;
    helper.create(id, name, &made);
    std::vector<long> columns;
    PIData::getDataTableColumns(made, &columns);
    for (double t : times)
    {
      PIData::DataTableRowT row(t);
      row.setCellValue(static_cast<unsigned long>(columns[0]), t);
      PIData::addDataTableRow(made, row);
    }
    return made;
  }

  std::vector<ValidateScenario::Issue*> issues()
  {
    EXPECT_EQ(0, checker.validate());
    std::vector<ValidateScenario::Issue*> found;
    checker.getIssues(found);
    return found;
  }

  static std::vector<std::string> titles(const ValidateScenario::Issue& issue)
  {
    std::vector<ValidateScenario::Solution*> solutions;
    issue.getSolutions(solutions);
    std::vector<std::string> out;
    for (auto* s : solutions)
      out.push_back(s->title());
    return out;
  }

  ValidateScenario checker;
};

} // namespace

TEST_F(Validation, AScenarioNeedsAMovingPlatform)
{
  auto found = issues();
  ASSERT_EQ(1u, found.size()) << "no platforms";
  EXPECT_EQ("Scenario must contain at least one non-static platform.", found[0]->description());

  const UniqueID_t site = platform("Site", {-1.0});
  const UniqueID_t empty = platform("Empty", {});
  found = issues();
  ASSERT_EQ(2u, found.size());
  EXPECT_EQ(empty, found[0]->uniqueId());
  EXPECT_EQ("Entity Empty must contain points.", found[0]->description());
  EXPECT_EQ(ValidateScenario::NO_NON_STATIC_PLATFORM, found[1]->code()) << "after all the others";
  (void)site;

  PIData::deleteScenario();
  PIData::initializeScenario();
  ValidateScenario uninitialised;
  EXPECT_EQ(0, uninitialised.validate());
}

TEST_F(Validation, OnePointAtARealTimeIsTooFewAndItsChildrenAreNotExamined)
{
  platform("Mover", {0, 100});
  const UniqueID_t lone = platform("Lone", {50});
  PIData::PIBeamHeader beamHeader;
  PIData::createBeam(lone, &beamHeader, nullptr, true);
  auto found = issues();
  ASSERT_EQ(1u, found.size());
  EXPECT_EQ("The non-static platform Lone must have at least two TSPI points.", found[0]->description());
  EXPECT_EQ(std::vector<std::string>{"Duplicate Point"}, titles(*found[0]));

  std::vector<ValidateScenario::Solution*> solutions;
  found[0]->getSolutions(solutions);
  EXPECT_EQ(0, solutions[0]->apply());
  EXPECT_EQ(100.0, PIData::getLatestTime(lone)) << "held to the scenario's end";
  EXPECT_FALSE(found[0]->canApplyASolution());
  EXPECT_FALSE(checker.anySolutionsAvaiable());
}

TEST_F(Validation, OutOfRangeDataJoinsOneLineThatExpandsOrTrims)
{
  const UniqueID_t hawk = platform("Hawk", {10, 20});
  category(hawk, -1.0, "Static");
  category(hawk, 5, "Early");
  category(hawk, 30, "Late");
  generic(hawk, 15);
  generic(hawk, 25);
  auto found = issues();
  ASSERT_EQ(1u, found.size()) << "category and generic trouble on one platform: one line";
  EXPECT_EQ("Data outside the time range of the host entity Hawk.", found[0]->description());
  EXPECT_EQ((std::vector<std::string>{"Expand", "Trim Points"}), titles(*found[0]));
  std::vector<ValidateScenario::Solution*> solutions;
  found[0]->getSolutions(solutions);
  EXPECT_EQ("Remove points until the points are within the time range of the host entity.\n"
            "Applies to the following: Category Data, Generic Data",
            solutions[1]->toolTip());

  ASSERT_EQ(0, solutions[1]->apply());
  std::vector<PIData::PICategoryDataPoint> left;
  PIData::retrieveAllCategoryData(hawk, &left);
  EXPECT_EQ(1u, left.size()) << "the static entry stays, the early and late go";
  std::vector<PIData::PIGenericDataPoint> notes;
  PIData::getDataPoints(hawk, &notes);
  EXPECT_EQ(1u, notes.size()) << "the tag is deleted and its point inside the range written again";
  EXPECT_TRUE(issues().empty());

  category(hawk, 5, "Early");
  category(hawk, 40, "Later");
  found = issues();
  found[0]->getSolutions(solutions = {});
  ASSERT_EQ(0, solutions[0]->apply());
  EXPECT_EQ(5.0, PIData::getEarliestTime(hawk));
  EXPECT_EQ(40.0, PIData::getLatestTime(hawk)) << "Expand covers both";
}

TEST_F(Validation, TablesAreCheckedButTheHostsOwnAreNot)
{
  const UniqueID_t hawk = platform("Hawk", {10, 20});
  table(hawk, "__Internal_Cache", {0, 50});
  const long empty = table(hawk, "Empty", {});
  const long wide = table(hawk, "Telemetry", {5, 15, 25});
  auto found = issues();
  ASSERT_EQ(2u, found.size());
  EXPECT_EQ("The non-static platform Hawk must have at least two TSPI points.", found[0]->description())
      << "an empty table keeps the platform wording";
  EXPECT_EQ(std::vector<std::string>{"Remove"}, titles(*found[0]));
  std::vector<ValidateScenario::Solution*> solutions;
  found[0]->getSolutions(solutions);
  EXPECT_EQ(0, solutions[0]->apply());
  long missing = 0;
  EXPECT_EQ(0, PIData::findDataTable(hawk, "Empty", &missing));
  (void)empty;

  solutions.clear();
  found[1]->getSolutions(solutions);
  ASSERT_EQ(0, solutions[1]->apply()) << "trim";
  long remade = 0;
  ASSERT_EQ(1, PIData::findDataTable(hawk, "Telemetry", &remade));
  PIData::TableColumnIterator fuel;
  std::vector<long> columns;
  PIData::getDataTableColumns(remade, &columns);
  PIData::getDataTableColumnValueIterator(remade, columns[0], 0.0, &fuel);
  EXPECT_EQ(15.0, fuel.getTime()) << "only the row inside the range stays";
  fuel.next();
  EXPECT_FALSE(fuel.isValid());
  (void)wide;
}

TEST_F(Validation, ChildrenAreJudgedByTheirHostsSpan)
{
  const UniqueID_t hawk = platform("Hawk", {10, 20});
  PIData::PIBeamHeader beamHeader;
  beamHeader.name = "Radar";
  const UniqueID_t radar = PIData::createBeam(hawk, &beamHeader, nullptr, true);
  for (double t : {12.0, 25.0})
  {
    PIData::PIBeamPoint point{0, 0, 1, t};
    PIData::addDataPoint(radar, &point);
  }
  PIData::setColor(radar, 0xFFFFFFFF, 12);
  beamHeader.name = "Tracker";
  beamHeader.beamType = PIData::PI_BEAM_TARGET;
  PIData::createBeam(hawk, &beamHeader, nullptr, true); // a target beam may have no points
  std::vector<std::string> texts;
  for (auto* issue : issues())
    texts.push_back(issue->description());
  EXPECT_EQ((std::vector<std::string>{"Data for entity Radar outside the time range of the host entity Hawk.",
                                      "Must define a state for entity Radar."}),
            texts);
}

namespace
{

QPushButton* solutionButton(QTreeWidget& tree, int row, int solution)
{
  return qobject_cast<QPushButton*>(tree.itemWidget(tree.topLevelItem(row), solution));
}

} // namespace

TEST_F(Validation, TheViewOffersEachRepairOnceAndValidateAgainOnlyAfterOne)
{
  QtSep::ValidateScenarioWidget view;
  auto* validate = view.findChild<QPushButton*>("validatePushButton");
  auto* fixAll = view.findChild<QPushButton*>("fixAllPushButton");
  auto* tree = view.findChild<QTreeWidget*>("issuesTreeWidget");
  EXPECT_TRUE(validate->isEnabled());
  EXPECT_FALSE(fixAll->isEnabled()) << "before the first pass";

  platform("Hawk", {10, 20});
  validate->click();
  ASSERT_EQ(1, tree->topLevelItemCount());
  EXPECT_EQ("No issues found.", tree->topLevelItem(0)->text(0));
  EXPECT_FALSE(validate->isEnabled());
  EXPECT_FALSE(fixAll->isEnabled());

  const UniqueID_t heron = platform("Heron", {10, 20});
  category(heron, 30, "Late");
  const UniqueID_t kite = platform("Kite", {10, 20});
  category(kite, 40, "Later");
  view.validate();
  ASSERT_EQ(2, tree->topLevelItemCount());
  EXPECT_EQ(3, tree->columnCount());
  EXPECT_EQ("Solution 2", tree->headerItem()->text(2));
  EXPECT_TRUE(fixAll->isEnabled());

  // Heron is gone before its repair: Expand fails and only its own button goes grey.
  PIData::removeEntity(heron, false);
  solutionButton(*tree, 0, 1)->click();
  EXPECT_FALSE(solutionButton(*tree, 0, 1)->isEnabled());
  EXPECT_TRUE(solutionButton(*tree, 0, 2)->isEnabled());
  EXPECT_FALSE(validate->isEnabled()) << "nothing repaired yet";

  fixAll->click();
  EXPECT_EQ(40.0, PIData::getLatestTime(kite)) << "Kite expanded by its first repair";
  std::vector<PIData::PICategoryDataPoint> left;
  PIData::retrieveAllCategoryData(kite, &left);
  EXPECT_EQ(1u, left.size()) << "and not trimmed as well";
  EXPECT_FALSE(solutionButton(*tree, 1, 2)->isEnabled());
  EXPECT_TRUE(validate->isEnabled()) << "a repair makes a new pass worth running";
}

TEST_F(Validation, ATableOutOfRangeAfterCategoryDataIsTrimmedByTheJoinedLine)
{
  // Category data are examined before tables, so the line begins with a trim of no table.
  const UniqueID_t hawk = platform("Hawk", {10, 20});
  category(hawk, 5, "Early");
  table(hawk, "Telemetry", {5, 15, 25});
  auto found = issues();
  ASSERT_EQ(1u, found.size());
  std::vector<ValidateScenario::Solution*> solutions;
  found[0]->getSolutions(solutions);
  ASSERT_EQ(2u, solutions.size());
  EXPECT_EQ("Remove points until the points are within the time range of the host entity.\n"
            "Applies to the following: Category Data, Data Table",
            solutions[1]->toolTip());
  ASSERT_EQ(0, solutions[1]->apply());
  long remade = 0;
  ASSERT_EQ(1, PIData::findDataTable(hawk, "Telemetry", &remade));
  std::vector<long> columns;
  PIData::getDataTableColumns(remade, &columns);
  PIData::TableColumnIterator rows;
  PIData::getDataTableColumnValueIterator(remade, columns[0], 0.0, &rows);
  ASSERT_TRUE(rows.isValid());
  EXPECT_EQ(15.0, rows.getTime()) << "the rows outside the platform's span went";
  rows.next();
  EXPECT_FALSE(rows.isValid());
  EXPECT_TRUE(issues().empty());
}
