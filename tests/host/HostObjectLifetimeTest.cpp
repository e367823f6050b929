#include "host/CustomCallbackFunctor.h"
#include "host/PIObject.h"
#include "support/PluginGlobalsFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

std::vector<std::string> events;

class Window : public PIObject
{
public:
  explicit Window(std::string name) : name_(std::move(name)) {}
  ~Window() override { events.push_back("delete " + name_); }

private:
  std::string name_;
};

class Command
{
public:
  int run(PIObject* sender, void* data)
  {
    lastSender = sender;
    lastData = data;
    return ++runs;
  }
  int runs = 0;
  PIObject* lastSender = nullptr;
  void* lastData = nullptr;
};

// A functor that notes whether the window collector was already gone when it was deleted.
class OrderWitness : public FunctorTwoParams__
{
public:
  ~OrderWitness() override { events.push_back(g_PI_GarbageCollector ? "functor before collector" : "functor"); }
  int operator()(PIObject*, void*) override { return 0; }
  int Call(PIObject*, void*) override { return 0; }
};

class HostObjectLifetime : public PluginGlobalsFixture
{
protected:
  void SetUp() override
  {
    PluginGlobalsFixture::SetUp();
    events.clear();
    bindMap(&identity);
  }
  int identity = 0;
};

TEST_F(HostObjectLifetime, HostDecidesWhetherThePluginCollectsAWrapper)
{
  host.garbageStatus = 0;
  auto* kept = new Window("kept");
  EXPECT_EQ(nullptr, g_PI_GarbageCollector) << "no collector is made for a wrapper the host keeps";

  host.garbageStatus = 1;
  Window collected("collected");
  ASSERT_NE(nullptr, g_PI_GarbageCollector);
  EXPECT_EQ(std::vector<PIObject*>{&collected}, g_PI_GarbageCollector->objects());

  auto adds = host.ofFamily(PISF_SERVER_GARBAGE);
  ASSERT_EQ(2u, adds.size());
  EXPECT_EQ(0, adds[0].selector);
  EXPECT_EQ(kept, adds[0].pointer0);
  delete kept;
}

TEST_F(HostObjectLifetime, DestructorDestroysTheCounterpartOnlyWhenTheHostOwnsOne)
{
  int counterpart = 0;
  {
    Window owned("owned");
    owned.setHostHandle(&counterpart);
    Window unfilled("unfilled");
    Window released("released");
    released.setHostHandle(&counterpart);
    released.setHostOwnsCounterpart(false);
  }
  auto destroys = host.ofFamily(PISF_DESTROY_WINDOW);
  ASSERT_EQ(1u, destroys.size());
  EXPECT_EQ(&counterpart, destroys[0].record);
  int removals = 0;
  for (const auto& r : host.ofFamily(PISF_SERVER_GARBAGE))
    removals += r.selector == 1 ? 1 : 0;
  EXPECT_EQ(3, removals) << "each leaves the host's garbage list";
}

TEST_F(HostObjectLifetime, ADeletedWrapperLeavesTheCollector)
{
  host.garbageStatus = 1;
  Window first("first");
  {
    Window second("second");
    EXPECT_EQ(2u, g_PI_GarbageCollector->objects().size());
  }
  EXPECT_EQ(std::vector<PIObject*>{&first}, g_PI_GarbageCollector->objects());
  // first is a stack object: hand it back before clean-up would delete it.
  g_PI_GarbageCollector->remove(&first);
}

TEST_F(HostObjectLifetime, CleanUpDeletesWindowsLastFirstWithoutDestroyRequestsThenFunctors)
{
  host.garbageStatus = 1;
  int counterpart = 0;
  (new Window("a"))->setHostHandle(&counterpart);
  new Window("b");
  g_PI_GarbageCollector->add(nullptr);
  new Window("c");
  g_FunctorList.push_back(new OrderWitness());
  g_FunctorList.push_back(nullptr);
  g_FunctorList.push_back(new OrderWitness());
  g_FunctorList.reserve(16);
  const auto capacity = g_FunctorList.capacity();

  SPI_CleanUpPlugin();

  EXPECT_EQ((std::vector<std::string>{"delete c", "delete b", "delete a", "functor", "functor"}), events);
  EXPECT_TRUE(host.ofFamily(PISF_DESTROY_WINDOW).empty());
  EXPECT_EQ(nullptr, g_PI_GarbageCollector);
  EXPECT_TRUE(g_FunctorList.empty());
  EXPECT_EQ(capacity, g_FunctorList.capacity()) << "the list keeps its storage";
}

TEST_F(HostObjectLifetime, CleanUpOfAPluginThatMadeNothingDoesNothing)
{
  SPI_CleanUpPlugin();
  SPI_CleanUpPlugin();
  EXPECT_TRUE(host.requests.empty());
}

TEST_F(HostObjectLifetime, CommandFunctorsCallTheirMemberAndBelongToTheList)
{
  Command command;
  auto* functor = CustomCallbackFunctor<Command>::create(&command, &Command::run);
  ASSERT_EQ(std::vector<FunctorTwoParams__*>{functor}, g_FunctorList);

  host.garbageStatus = 0;
  Window sender("sender");
  int data = 0;
  EXPECT_EQ(1, (*functor)(&sender, &data));
  EXPECT_EQ(2, functor->Call(nullptr, nullptr));
  EXPECT_EQ(nullptr, command.lastSender);
  EXPECT_EQ(2, command.runs);
}

} // namespace
