#include "host/PIClientMessageTable.h"
#include "host/PIApplication_v1_24.h"

#include <gtest/gtest.h>

namespace
{

// Overrides only the oldest start-up, as most plug-ins do.
class OldestStartUp : public PIApp::PIApplication_v1_24
{
public:
  int StartUp() override
  {
    ++calls;
    return result;
  }
  int calls = 0;
  int result = 0;
};

// Overrides only the start-up that takes the argument vector.
class VectorStartUp : public PIApp::PIApplication_v1_24
{
public:
  using PIApp::PIApplication_v1_24::StartUp;
  int StartUp(std::vector<std::string>* arguments) override
  {
    received = arguments;
    words = arguments ? *arguments : std::vector<std::string>{"<null>"};
    return 0;
  }
  std::vector<std::string>* received = nullptr;
  std::vector<std::string> words;
};

std::uint64_t startUp(PIApplication_v0_5_0* app, PIFunctionParams_t& params)
{
  PIClientMessageMap map;
  PIClientMessageTable::install(map, app);
  PIClientMessageTable::dispatch(map, PICF_STARTUP, &params);
  return params.integers[PIPN_RESULT];
}

TEST(StartUpChain, ArgumentsObjectReachesTheOldestStartUpThroughTheChain)
{
  OldestStartUp app;
  app.result = 3;
  PIApp::CommandLineArguments arguments({"kelvor", "--scenario", "demo.kls"});
  PIFunctionParams_t params;
  params.pointers[PIPN_COMMAND_LINE_ARGUMENTS] = &arguments;
  EXPECT_EQ(3u, startUp(&app, params));
  EXPECT_EQ(1, app.calls);
}

TEST(StartUpChain, ArgumentsObjectIsPreferredAndItsWordsArePassedOn)
{
  VectorStartUp app;
  PIApp::CommandLineArguments arguments({"kelvor", "-v"});
  std::vector<std::string> legacy{"legacy"};
  PIFunctionParams_t params;
  params.pointers[PIPN_COMMAND_LINE_ARGUMENTS] = &arguments;
  params.pointers[PIPN_ARGUMENT_VECTOR] = &legacy;
  startUp(&app, params);
  EXPECT_EQ((std::vector<std::string>{"kelvor", "-v"}), app.words);
  EXPECT_NE(&legacy, app.received);
}

TEST(StartUpChain, OlderHostWithOnlyTheVectorGetsThatVector)
{
  VectorStartUp app;
  std::vector<std::string> legacy{"kelvor9"};
  PIFunctionParams_t params;
  params.pointers[PIPN_ARGUMENT_VECTOR] = &legacy;
  startUp(&app, params);
  EXPECT_EQ(&legacy, app.received);
}

TEST(StartUpChain, NeitherArgumentStillStartsWithANullVector)
{
  VectorStartUp app;
  PIFunctionParams_t params;
  startUp(&app, params);
  EXPECT_EQ(nullptr, app.received);
}

TEST(StartUpChain, ADecliningResultIsWidenedWithItsSign)
{
  OldestStartUp app;
  app.result = -1;
  PIFunctionParams_t params;
  EXPECT_EQ(0xFFFFFFFFFFFFFFFFull, startUp(&app, params));
}

} // namespace
