// The store's journal: every change a plug-in makes through the call path undoes to the very
// file the scenario was before, and redoes to the file of the change.
#include "support/ScenarioChecks.h"
#include "host/PIData.h"
#include "host/PIDataCategories.h"
#include "host/PIDataTableCreateHelper.h"
#include "store/StoreListener.h"
#include "support/RandomScenario.h"
#include "support/ServerFixture.h"

#include <sstream>

namespace
{

class StoreJournal : public ServerFixture
{
protected:
  std::string file() const { return ScenarioChecks::scenarioText(store); }

  /// A scenario of every kind, journalled from here on.
  void makeScenario(unsigned seed)
  {
    store.keepJournal(false);
    SeededRandom random(seed);
    RandomScenario scenario;
    scenario.mostPlatforms = 6;
    scenario.make(random);
    store.keepJournal(true);
  }

  static std::vector<UniqueID_t> platforms()
  {
    std::vector<UniqueID_t> ids;
    PIData::getPlatformList(&ids);
    return ids;
  }

  /// Rewrites a platform whole, as the thinning commands do: flush, then the kept points again.
  static void rewriteEveryOtherPoint(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e12, 1e12, &points);
    std::vector<PIData::PIPlatformPoint> kept;
    for (std::size_t i = 0; i < points.size(); i += 2)
      kept.push_back(points[i]);
    PIData::flushEntityData(id, PIData::FLUSH_POINTS);
    PIData::addDataPoints(id, &kept);
  }

  /// Changes of every kind the store keeps, through the plug-in's call path.
  void changeEverything()
  {
    const std::vector<UniqueID_t> ids = platforms();
    ASSERT_GE(ids.size(), 3u);
    rewriteEveryOtherPoint(ids[0]);
    PIData::removeEntity(ids[1], false);
    PIData::flushEntityData(ids[2], PIData::FLUSH_ALL);
    PIData::setColor(ids[2], 0x11223344, 5.0);
    PIData::PIPlatformHeader header;
    header.name = "Pasted";
    PIData::PIPlatformPoint point;
    point.time = 3.0;
    point.position = {0.5, -2.0, 10.0};
    const UniqueID_t made = PIData::createPlatform(&header, &point);
    PIData::PIBeamHeader beamHeader;
    beamHeader.name = "Radar";
    const PIData::PIBeamPoint beamPoint{0.1, 0.1, 100.0, 3.0};
    PIData::createBeam(made, &beamHeader, &beamPoint, true);
    PIData::PICategoryDataPoint category{4.0, "Side", "Red"};
    PIData::addCategoryData(ids[0], &category);
    PIData::PIGenericDataPoint generic{4.0, -1.0, "Note", "edited"};
    PIData::createGenericData(made, &generic);
    PIData::PIDataTableCreateHelper helper;
    helper.addColumn("Fuel", UTILS::VT_DOUBLE);
    long table = -1;
    helper.create(made, "Telemetry", &table);
    std::vector<long> columns;
    PIData::getDataTableColumns(table, &columns);
    PIData::DataTableRowT row(3.0);
    PIData::DataTableRowT::setCellValueT(row, columns.front(), 0.75);
    PIData::addDataTableRow(table, row);
    std::vector<long> tables;
    PIData::getAllDataTableIDs(ids[0], &tables);
    for (long each : tables)
      PIData::removeDataTable(each);
    PIData::setDescription("Edited scenario");
    PIData::setReferenceYear(PIData::getReferenceYear() + 1);
    PIData::setOriginLLA(0.1, 0.2, 30.0);
    header.name = "Renamed";
    PIData::updateHeader(ids[0], &header);
  }
};

/// Notes the store's events, in order, as "added 5", "removing 5", "changed 3 4" and "reset".
class EventLog : public kelvor::StoreListener
{
public:
  std::vector<std::string> events;

  void entityAdded(UniqueID_t id, int) override { events.push_back("added " + std::to_string(id)); }
  void entityRemoving(UniqueID_t id) override { events.push_back("removing " + std::to_string(id)); }
  void dataChanged(const std::set<UniqueID_t>& ids) override
  {
    std::string line = "changed";
    for (UniqueID_t id : ids)
      line += " " + std::to_string(id);
    events.push_back(line);
  }
  void scenarioReset() override { events.push_back("reset"); }
  void scenarioClosing() override { events.push_back("closing"); }
  void referenceYearChanged() override { events.push_back("year"); }
  void clockModeChanged() override {}
  void timeChanged() override {}
};

/// Makes named steps of one change each.
struct StoreJournalSteps
{
  kelvor::ScenarioStore& store;
  int made = 0;

  void thin(UniqueID_t id)
  {
    store.journal()->beginStep("Thin " + std::to_string(++made));
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e12, 1e12, &points);
    points.resize(points.size() / 2 + 1);
    PIData::flushEntityData(id, PIData::FLUSH_POINTS);
    PIData::addDataPoints(id, &points);
    store.journal()->endStep();
  }
};

} // namespace

TEST_F(StoreJournal, AStepOfEveryKindOfChangeUndoesToTheFileBeforeAndRedoesToTheFileAfter)
{
  for (unsigned seed : {1u, 7u, 19u})
  {
    makeScenario(seed);
    const std::string before = file();
    store.journal()->beginStep("Edit by test");
    changeEverything();
    store.journal()->endStep();
    const std::string after = file();
    ASSERT_NE(before, after);
    ASSERT_EQ(1u, store.journal()->undoSteps().size());
    EXPECT_EQ("Edit by test", store.journal()->undoSteps().back()->name);

    ASSERT_TRUE(store.undo());
    EXPECT_EQ(before, file()) << "seed " << seed;
    ASSERT_TRUE(store.redo());
    EXPECT_EQ(after, file()) << "seed " << seed;
    ASSERT_TRUE(store.undo());
    EXPECT_EQ(before, file()) << "seed " << seed;
    EXPECT_FALSE(store.undo()) << "nothing more to undo";
  }
}

TEST_F(StoreJournal, StepsUndoOneByOneAndANewChangeDropsWhatWasUndone)
{
  makeScenario(3);
  std::vector<std::string> files{file()};
  const std::vector<UniqueID_t> ids = platforms();
  for (std::size_t step = 0; step < 3; ++step)
  {
    store.journal()->beginStep("Step " + std::to_string(step + 1));
    rewriteEveryOtherPoint(ids[step]);
    store.journal()->endStep();
    files.push_back(file());
  }
  ASSERT_EQ(3u, store.journal()->undoSteps().size());
  for (std::size_t step = 3; step > 0; --step)
  {
    ASSERT_TRUE(store.undo());
    EXPECT_EQ(files[step - 1], file()) << "after undoing step " << step;
  }
  ASSERT_TRUE(store.redo());
  EXPECT_EQ(files[1], file());
  EXPECT_EQ(2u, store.journal()->redoSteps().size());

  // A change after an undo: the undone steps cannot come back.
  PIData::setDescription("another way");
  store.journal()->endStep();
  EXPECT_TRUE(store.journal()->redoSteps().empty());
  EXPECT_FALSE(store.redo());
  EXPECT_EQ("Edit", store.journal()->undoSteps().back()->name) << "a change outside a named step";
}

TEST_F(StoreJournal, ReadingChangesNothingAndLeavesNoStep)
{
  makeScenario(5);
  const std::vector<UniqueID_t> ids = platforms();
  store.journal()->beginStep("Reading");
  for (UniqueID_t id : ids)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e12, 1e12, &points);
    std::vector<PIData::PICategoryDataPoint> categories;
    PIData::retrieveAllCategoryData(id, &categories);
    std::vector<long> tables;
    PIData::getAllDataTableIDs(id, &tables);
    for (long table : tables)
    {
      std::vector<long> columns;
      PIData::getDataTableColumns(table, &columns);
      PIData::getDataTableName(table);
    }
    PIData::getEarliestTime(id);
    PIData::getLatestTime(id);
  }
  PIData::getReferenceYear();
  PIData::getDescription();
  PIData::PICoordReferenceFrame frame;
  PIData::getScenarioCoordReferenceFrame(&frame);
  store.journal()->endStep();
  EXPECT_TRUE(store.journal()->undoSteps().empty());
}

TEST_F(StoreJournal, AFlushHandsItsSeriesToTheJournalAndAStepHoldsOnlyWhatItTouched)
{
  makeScenario(9);
  std::vector<UniqueID_t> ids = platforms();
  const auto longest = std::max_element(ids.begin(), ids.end(), [this](UniqueID_t a, UniqueID_t b) {
    return store.entity(a)->platformPoints.size() < store.entity(b)->platformPoints.size();
  });
  std::iter_swap(ids.begin(), longest);
  const std::size_t points = store.entity(ids[0])->platformPoints.size();
  ASSERT_GE(points, 10u);
  store.journal()->beginStep("Thin");
  rewriteEveryOtherPoint(ids[0]);
  store.journal()->endStep();
  const auto& step = *store.journal()->undoSteps().back();
  ASSERT_EQ(1u, step.entities.size()) << "one platform touched, one pre-image";
  EXPECT_EQ(points, step.entities.at(ids[0])->platformPoints.size()) << "a track rewritten whole is kept whole";
  EXPECT_TRUE(step.tables.empty());
  EXPECT_FALSE(step.hasScenario);
}

TEST_F(StoreJournal, OpeningAnotherScenarioForgetsTheSteps)
{
  makeScenario(11);
  PIData::setDescription("changed");
  store.journal()->endStep();
  ASSERT_EQ(1u, store.journal()->undoSteps().size());
  PIData::initializeScenario();
  EXPECT_TRUE(store.journal()->undoSteps().empty());
  EXPECT_FALSE(store.undo());
}

TEST_F(StoreJournal, TheOldestStepsGoWhenTheJournalOutgrowsItsBudget)
{
  makeScenario(13);
  const std::vector<UniqueID_t> ids = platforms();
  const std::string first = file();
  std::size_t stepBytes = 0;
  for (std::size_t step = 0; step < 4; ++step)
  {
    store.journal()->beginStep("Thin " + std::to_string(step + 1));
    rewriteEveryOtherPoint(ids[step % ids.size()]);
    store.journal()->endStep();
    stepBytes = std::max(stepBytes, store.journal()->undoSteps().back()->bytes);
  }
  ASSERT_EQ(4u, store.journal()->undoSteps().size());
  EXPECT_FALSE(store.journal()->cut());
  EXPECT_GT(store.journal()->bytes(), 0u);

  // Room for about two steps: the two oldest go, and the history says it was cut.
  store.journal()->setBudget(2 * stepBytes + stepBytes / 2);
  EXPECT_LE(store.journal()->undoSteps().size(), 3u);
  EXPECT_GE(store.journal()->undoSteps().size(), 1u);
  EXPECT_TRUE(store.journal()->cut());
  EXPECT_EQ("Thin 4", store.journal()->undoSteps().back()->name);
  EXPECT_LE(store.journal()->bytes(), store.journal()->budget());
  while (store.undo())
  {
  }
  EXPECT_NE(first, file()) << "what was cut cannot be undone";

  // However small the budget, the last step stays.
  store.journal()->setBudget(1);
  store.journal()->beginStep("Last");
  rewriteEveryOtherPoint(ids[0]);
  store.journal()->endStep();
  EXPECT_EQ(1u, store.journal()->undoSteps().size() + store.journal()->redoSteps().size());
  const std::string changed = file();
  ASSERT_TRUE(store.undo());
  ASSERT_TRUE(store.redo());
  EXPECT_TRUE(changed == file());

  // Once a step is undone, the steps on either side of the present stay: the one just undone
  // can be made again even when the budget shrinks below it.
  store.journal()->setBudget(std::size_t(1) << 30);
  store.journal()->beginStep("Later");
  rewriteEveryOtherPoint(ids[1]);
  store.journal()->endStep();
  ASSERT_TRUE(store.undo());
  store.journal()->setBudget(1);
  EXPECT_EQ(1u, store.journal()->undoSteps().size());
  ASSERT_EQ(1u, store.journal()->redoSteps().size());
  EXPECT_EQ("Later", store.journal()->redoSteps().back()->name);
}

TEST_F(StoreJournal, TheSavedStateIsCleanAgainWhenUndoOrRedoComesBackToIt)
{
  makeScenario(17);
  const std::vector<UniqueID_t> ids = platforms();
  StoreJournalSteps steps{store};
  EXPECT_TRUE(store.journal()->isClean()) << "as opened";
  steps.thin(ids[0]);
  EXPECT_FALSE(store.journal()->isClean());
  store.journal()->markClean();
  steps.thin(ids[1]);
  EXPECT_FALSE(store.journal()->isClean());
  ASSERT_TRUE(store.undo());
  EXPECT_TRUE(store.journal()->isClean()) << "back to the save";
  ASSERT_TRUE(store.undo());
  EXPECT_FALSE(store.journal()->isClean()) << "before the save";
  ASSERT_TRUE(store.redo());
  EXPECT_TRUE(store.journal()->isClean());
  // A change after undoing past the save: the saved state can never come back.
  ASSERT_TRUE(store.undo());
  steps.thin(ids[2]);
  ASSERT_TRUE(store.undo());
  EXPECT_FALSE(store.journal()->isClean());

  // A scenario no file holds (an import) is unsaved, however far undo goes back.
  store.journal()->markClean();
  store.journal()->markUnsaved();
  EXPECT_FALSE(store.journal()->isClean());
  steps.thin(ids[0]);
  ASSERT_TRUE(store.undo());
  EXPECT_FALSE(store.journal()->isClean());
  store.journal()->markClean();
  EXPECT_TRUE(store.journal()->isClean()) << "until it is saved";
}

// Undo and redo tell the views what they remove (children first, while still there), add (hosts
// first) and change, rather than that everything changed.
TEST_F(StoreJournal, UndoAndRedoTellWhichEntitiesTheyAddRemoveAndChange)
{
  store.keepJournal(true);
  const SampleEntities sample = createSampleEntities();
  const UniqueID_t other = createTrack("Other", 7, {1.0, 2.0, 3.0});
  store.journal()->endStep();
  EventLog log;
  store.setListener(&log);

  store.journal()->beginStep("Mixed");
  PIData::removeEntity(sample.platform, false);
  PIData::PIPlatformHeader header;
  header.name = "Made";
  PIData::PIPlatformPoint point;
  point.time = 3.0;
  const UniqueID_t made = PIData::createPlatform(&header, &point);
  PIData::PIBeamHeader beamHeader;
  const PIData::PIBeamPoint beamPoint{0.1, 0.1, 100.0, 3.0};
  const UniqueID_t madeBeam = PIData::createBeam(made, &beamHeader, &beamPoint, true);
  PIData::flushEntityData(other, PIData::FLUSH_POINTS);
  store.journal()->endStep();
  const auto id = [](UniqueID_t each) { return std::to_string(each); };

  log.events.clear();
  ASSERT_TRUE(store.undo());
  EXPECT_EQ((std::vector<std::string>{"removing " + id(madeBeam), "removing " + id(made), "added " + id(sample.platform),
                                      "added " + id(sample.beam), "added " + id(sample.gate), "changed " + id(other)}),
            log.events);
  log.events.clear();
  ASSERT_TRUE(store.redo());
  EXPECT_EQ((std::vector<std::string>{"removing " + id(sample.gate), "removing " + id(sample.beam),
                                      "removing " + id(sample.platform), "added " + id(made), "added " + id(madeBeam),
                                      "changed " + id(other)}),
            log.events);

  store.journal()->beginStep("Year");
  PIData::setReferenceYear(PIData::getReferenceYear() + 1);
  store.journal()->endStep();
  log.events.clear();
  ASSERT_TRUE(store.undo());
  EXPECT_EQ((std::vector<std::string>{"year", "reset"}), log.events) << "the settings have no event of their own";
  store.setListener(nullptr);
}

// A step keeps what it replaced: one point moved in a long track, or one inserted, keeps about
// that point, not the track; undo and redo still give the files before and after.
TEST_F(StoreJournal, ASmallEditOfALongTrackKeepsOnlyWhatItReplaced)
{
  store.keepJournal(true);
  std::vector<double> times;
  for (int i = 0; i < 20000; ++i)
    times.push_back(i);
  const UniqueID_t track = createTrack("Long", 1, times);
  PIData::setColor(track, 0x11223344, 5.0);
  store.journal()->endStep();
  const std::size_t trackBytes = kelvor::StoreJournal::approximateBytes(*store.entity(track));
  const std::string before = file();

  for (const double time : {7000.0, 7000.5, 0.0, 19999.0, 25000.0})
  {
    store.journal()->beginStep("Move one");
    PIData::PIPlatformPoint point;
    point.time = time;
    point.position = {0.4, -2.1, 55.0};
    PIData::addDataPoint(track, &point);
    store.journal()->endStep();
    EXPECT_LT(store.journal()->undoSteps().back()->bytes, trackBytes / 100) << "at " << time;
  }
  const std::string after = file();
  for (int step = 0; step < 5; ++step)
    ASSERT_TRUE(store.undo());
  EXPECT_TRUE(before == file()) << "undone to another file";
  while (store.redo())
  {
  }
  EXPECT_TRUE(after == file()) << "redone to another file";
}
