#include "store/ScenarioStore.h"
#include "store/StoreListener.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace kelvor;

namespace
{

struct Point
{
  double time;
  int value;
};

/// Walks the series against a sorted map of the same items.
void expectSameItems(const TimeSeries<Point>& series, const std::map<double, int>& expected)
{
  auto walk = series.begin();
  for (const auto& [time, value] : expected)
  {
    ASSERT_EQ(time, walk->time);
    ASSERT_EQ(value, (walk++)->value);
  }
  EXPECT_TRUE(walk == series.end());
}

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

// A series several chunks long, filled in an order that splits chunks everywhere, answers
// every query as a plain map of the same items does.
TEST(TimeSeries, InsertsAnywhereInALongSeriesAnswerAsASortedMap)
{
  TimeSeries<Point> series;
  std::map<double, int> expected;
  std::mt19937 random(7);
  std::uniform_int_distribution<int> times(0, 20000);
  for (int i = 0; i < 8000; ++i)
  {
    const double time = times(random) * 0.5;
    Point replaced{-1, -1};
    const auto placed = series.insert({time, i}, &replaced);
    const auto held = expected.find(time);
    ASSERT_EQ(held != expected.end(), placed.replaced) << time;
    if (placed.replaced)
    {
      ASSERT_EQ(held->second, replaced.value);
    }
    expected[time] = i;
    ASSERT_EQ(static_cast<std::size_t>(std::distance(expected.begin(), expected.find(time))), placed.index);
  }
  ASSERT_EQ(expected.size(), series.size());
  ASSERT_GT(series.size(), 4 * TimeSeries<Point>::CHUNK) << "the test must span many chunks";

  expectSameItems(series, expected);

  for (double from : {-5.0, 0.0, 17.25, 3000.0, 9999.5, 10000.0, 12000.0})
  {
    const double to = from + 2345.5;
    const auto first = expected.lower_bound(from), last = expected.upper_bound(to);
    const std::vector<Point> got = series.range(from, to);
    ASSERT_EQ(static_cast<std::size_t>(std::distance(first, last)), got.size()) << from;
    ASSERT_EQ(got.size(), series.countRange(from, to));
    if (!got.empty())
    {
      EXPECT_EQ(first->first, got.front().time);
      EXPECT_EQ(std::prev(last)->first, got.back().time);
    }
    std::size_t visited = 0;
    series.forRange(from, to, [&](const Point&) { ++visited; });
    EXPECT_EQ(got.size(), visited);
    const auto before = expected.upper_bound(from);
    if (before == expected.begin())
      EXPECT_EQ(nullptr, series.atOrBefore(from));
    else
      EXPECT_EQ(std::prev(before)->first, series.atOrBefore(from)->time);
    const auto after = expected.lower_bound(from);
    if (after == expected.end())
      EXPECT_EQ(nullptr, series.atOrAfter(from));
    else
      EXPECT_EQ(after->first, series.atOrAfter(from)->time);
  }
  EXPECT_TRUE(series.range(10, 5).empty());
  EXPECT_EQ(0u, series.countRange(10, 5));

  // Emptying whole chunks by erasing leaves a series that still answers.
  const std::vector<std::pair<double, int>> all(expected.begin(), expected.end());
  for (std::size_t i = 0; i < all.size() / 2; ++i)
  {
    ASSERT_TRUE(series.erase(all[i].first));
    expected.erase(all[i].first);
  }
  EXPECT_EQ(expected.size(), series.size());
  EXPECT_EQ(expected.begin()->first, series.front().time);
  EXPECT_EQ(expected.begin()->first, series.atOrAfter(-1)->time);
  series.insertMany({{-3, 1}, {all[1].first, 2}, {1e6, 3}});
  EXPECT_EQ(-3, series.front().time);
  EXPECT_EQ(2, series.atOrAfter(all[1].first)->value) << "merged back between the held items";
  EXPECT_EQ(expected.size() + 3, series.size());
}

// Bulk adds into the middle of a long series touch only their span: short runs inside one
// chunk, runs across chunk ends, runs into a bulk-added chunk, runs that replace held items and
// runs in the gap between two chunks all leave what a sorted map holds.
TEST(TimeSeries, BulkAddsIntoTheMiddleAnswerAsASortedMap)
{
  TimeSeries<Point> series;
  std::map<double, int> expected;
  std::vector<Point> first;
  for (int i = 0; i < 5000; ++i)
  {
    first.push_back({4.0 * i, i});
    expected[4.0 * i] = i;
  }
  series.insertMany(first); // one long chunk
  std::mt19937 random(11);
  std::uniform_int_distribution<int> starts(-10, 20010), lengths(1, 700), steps(1, 8);
  for (int round = 0; round < 300; ++round)
  {
    std::vector<Point> run;
    double time = starts(random) * 1.0;
    const int length = round % 10 == 0 ? lengths(random) * 4 : lengths(random) % 40 + 1;
    for (int k = 0; k < length; ++k, time += steps(random) * 0.5)
      run.push_back({time, round * 10000 + k});
    if (round % 7 == 0)
      std::reverse(run.begin(), run.end()); // out of order: sorted first
    series.insertMany(run);
    for (const Point& p : run)
      expected[p.time] = p.value;
    ASSERT_EQ(expected.size(), series.size()) << round;
  }
  expectSameItems(series, expected);
  EXPECT_EQ(std::next(expected.begin(), 1234)->first, series.range(-1e9, 1e9).at(1234).time);
  // One item after all bulk adds still lands in order.
  const auto placed = series.insert({1.25, -7});
  expected[1.25] = -7;
  EXPECT_EQ(static_cast<std::size_t>(std::distance(expected.begin(), expected.find(1.25))), placed.index);
}

// A bulk add keeps its items as they came; items inserted and erased inside them afterwards
// land where a sorted map puts them.
TEST(TimeSeries, ItemsInsertedIntoABulkAddLandInOrder)
{
  TimeSeries<Point> series;
  std::map<double, int> expected;
  std::vector<Point> bulk;
  for (int i = 0; i < 3000; ++i)
  {
    bulk.push_back({2.0 * i, i});
    expected[2.0 * i] = i;
  }
  series.insertMany(bulk);
  for (double time : {2999.0, 1.0, 5999.0, 3000.0, 0.5})
  {
    series.insert({time, -1});
    expected[time] = -1;
  }
  ASSERT_TRUE(series.erase(4000.0));
  expected.erase(4000.0);
  EXPECT_FALSE(series.erase(4001.0));
  ASSERT_EQ(expected.size(), series.size());
  auto walk = series.begin();
  for (const auto& [time, value] : expected)
  {
    ASSERT_EQ(time, walk->time);
    ASSERT_EQ(value, (walk++)->value);
  }
  EXPECT_EQ(static_cast<std::size_t>(std::distance(expected.lower_bound(2990.0), expected.upper_bound(3010.0))),
            series.range(2990.0, 3010.0).size());
  EXPECT_EQ(2999.0, series.atOrBefore(2999.5)->time);
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
