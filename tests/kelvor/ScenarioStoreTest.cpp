#include "store/ScenarioStore.h"
#include "store/StoreListener.h"

#include <gtest/gtest.h>

using namespace kelvor;

namespace
{

struct Point
{
  double time;
  int value;
};

TEST(TimeSeries, BulkAddsMergeInTimeOrderAndReplaceEqualTimes)
{
  TimeSeries<Point> series;
  series.insertMany({{3, 3}, {1, 1}, {2, 2}});
  series.insertMany({{2, 20}, {5, 5}, {0, 0}, {5, 50}});
  ASSERT_EQ(5u, series.size());
  std::vector<double> times;
  for (const Point& p : series)
    times.push_back(p.time);
  EXPECT_EQ((std::vector<double>{0, 1, 2, 3, 5}), times);
  EXPECT_EQ(20, series.atOrAfter(2)->value) << "an added item replaces the held one";
  EXPECT_EQ(50, series.back().value) << "of equal times in one batch the later wins";
  EXPECT_EQ(3, series.atOrBefore(4.9)->value);
  EXPECT_EQ(nullptr, series.atOrBefore(-1));
  EXPECT_EQ(nullptr, series.atOrAfter(5.1));
  EXPECT_EQ(3u, series.range(1, 3).size());
  EXPECT_TRUE(series.erase(1));
  EXPECT_FALSE(series.erase(1));
}

class Recorder : public StoreListener
{
public:
  explicit Recorder(const ScenarioStore& store) : store_(store) {}
  void entityAdded(UniqueID_t id, int) override { events.push_back("added " + std::to_string(id)); }
  void entityRemoving(UniqueID_t id) override
  {
    events.push_back("removing " + std::to_string(id) + (store_.entity(id) ? " (still there)" : ""));
  }
  void dataChanged(const std::set<UniqueID_t>&) override {}
  void scenarioReset() override { events.push_back("reset"); }
  void scenarioClosing() override { events.push_back("closing"); }
  void referenceYearChanged() override {}
  void clockModeChanged() override {}
  void timeChanged() override {}
  std::vector<std::string> events;

private:
  const ScenarioStore& store_;
};

TEST(ScenarioStore, ChildrenGoFirstAndEveryRemovalIsToldBeforeItHappens)
{
  ScenarioStore store;
  Recorder recorder(store);
  store.setListener(&recorder);
  const UniqueID_t platform = store.createEntity(PIData::PIPlatformHeader(), 0);
  const UniqueID_t beam = store.createEntity(PIData::PIBeamHeader(), platform);
  const UniqueID_t gate = store.createEntity(PIData::PIGateHeader(), beam);
  EXPECT_EQ(0u, store.createEntity(PIData::PIBeamHeader(), gate)) << "a beam cannot hang on a gate";
  EXPECT_EQ(0u, store.createEntity(PIData::PIPlatformHeader(), platform)) << "a platform has no host";
  const long table = store.addTable(beam, "T");

  EXPECT_TRUE(store.removeEntity(beam));
  EXPECT_EQ((std::vector<std::string>{"added 1", "added 2", "added 3", "removing 3 (still there)",
                                      "removing 2 (still there)"}),
            recorder.events);
  EXPECT_EQ(nullptr, store.table(table)) << "tables go with their entity";
  EXPECT_TRUE(store.entity(platform)->children.empty());
  EXPECT_FALSE(store.removeEntity(beam));

  store.reset();
  EXPECT_EQ("closing", recorder.events.back());
  EXPECT_EQ(0u, store.entityCount());
}

} // namespace
