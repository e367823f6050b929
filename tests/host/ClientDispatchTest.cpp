#include "host/PIClientMessageTable.h"
#include "support/RecordingApplication.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace
{

class ClientDispatch : public ::testing::Test
{
protected:
  void SetUp() override { PIClientMessageTable::install(map, app); }
  void TearDown() override { delete app; }

  int dispatch(int number, PIFunctionParams_t* params) { return PIClientMessageTable::dispatch(map, number, params); }

  RecordingApplication* app = new RecordingApplication();
  PIClientMessageMap map;
};

TEST_F(ClientDispatch, InstallsExactlyThirtyOneMessagesWithThePluginAsData)
{
  ASSERT_EQ(31u, map.size());
  int expected = 0;
  for (const auto& [number, entry] : map)
  {
    EXPECT_EQ(expected++, number);
    EXPECT_NE(nullptr, entry.function);
    EXPECT_EQ(static_cast<PIApplication_v0_5_0*>(app), entry.data);
  }
}

TEST_F(ClientDispatch, InstallOverwritesExistingEntriesAndKeepsOthers)
{
  RecordingApplication other;
  map[static_cast<PIClientFunctions_t>(40)] = PIClientFuncAndData_t{nullptr, nullptr};
  PIClientMessageTable::install(map, &other);
  EXPECT_EQ(32u, map.size());
  EXPECT_EQ(static_cast<PIApplication_v0_5_0*>(&other), map[PICF_NAME].data);
}

TEST_F(ClientDispatch, UnknownAndNegativeNumbersAnswerZeroAndTouchNothing)
{
  for (int number : {31, 32, 1000, -1, -30, INT_MIN, INT_MAX})
  {
    PIFunctionParams_t params;
    params.integers[PIPN_RESULT] = 99;
    EXPECT_EQ(0, dispatch(number, &params)) << number;
    EXPECT_EQ(99u, params.integers[PIPN_RESULT]);
    EXPECT_EQ(1u, params.integers.size());
    EXPECT_TRUE(params.strings.empty());
  }
  EXPECT_TRUE(app->calls.empty());
}

TEST_F(ClientDispatch, AnEntryWithoutFunctionAnswersZero)
{
  map[PICF_CALLBACK].function = nullptr;
  PIFunctionParams_t params;
  EXPECT_EQ(0, dispatch(PICF_CALLBACK, &params));
  EXPECT_TRUE(app->calls.empty());
  EXPECT_TRUE(params.integers.empty());
}

TEST_F(ClientDispatch, EveryStubIgnoresNullParametersAndNullObject)
{
  PIClientMessageMap orphaned;
  PIClientMessageTable::install(orphaned, nullptr);
  for (int number = 0; number < PICF_COUNT; ++number)
  {
    EXPECT_EQ(0, dispatch(number, nullptr)) << number;
    PIFunctionParams_t params;
    EXPECT_EQ(0, PIClientMessageTable::dispatch(orphaned, number, &params)) << number;
    EXPECT_TRUE(params.integers.empty() && params.strings.empty()) << number;
  }
  EXPECT_TRUE(app->calls.empty());
}

struct MessageCase
{
  int number;
  std::function<void(PIFunctionParams_t&)> arrange;
  std::string expectedCall; ///< empty for operations that the recorder does not log
};

TEST_F(ClientDispatch, EachMessageCallsItsOperationWithItsKeys)
{
  static PIGUI::PIMouseEvent mouse;
  mouse.x = 12;
  static int terrain = 0;
  static std::vector<std::string> options;
  const std::vector<MessageCase> cases = {
    {1, {}, "Callback()"},
    {4, {}, "closeLocation()"},
    {5, [](auto& p) { p.strings[PIPN_LOCATION] = "range.example"; p.integers[PIPN_PORT] = 4000; p.integers[PIPN_PROTOCOL] = 2; },
     "openLocation(range.example,4000,2)"},
    {6, [](auto& p) { p.strings[PIPN_LOCATION] = "gw"; p.integers[PIPN_PORT] = 7; p.integers[PIPN_PROTOCOL] = 1; },
     "findNetworkLocation(gw,7,1)"},
    {7, [](auto& p) { p.strings[PIPN_CONFIG_KEY] = "k"; p.strings[PIPN_CONFIG_VALUE] = "v"; }, "handleConfigOption(k,v)"},
    {8, [](auto& p) { p.pointers[PIPN_CONFIG_OPTIONS] = &options; }, "saveConfigOptions()"},
    {9, [](auto& p) { p.integers[PIPN_EVENT] = 17; p.pointers[PIPN_EVENT_DATA] = &terrain; }, "listenToEvents(17,data)"},
    {9, {}, "listenToEvents(0,null)"},
    {10, [](auto& p) { p.integers[PIPN_VIEW_X] = 3; p.integers[PIPN_VIEW_Y] = 4; }, "drawOnRefresh(3,4)"},
    {11, {}, "LoadInKELVOR()"},
    {12, {}, "LoadInCurveBench()"},
    {13, {}, "LoadInScriptPad()"},
    {14, {}, "LoadInPluginLogger()"},
    {15, [](auto& p) { p.integers[PIPN_VIEW_X] = 5; p.integers[PIPN_VIEW_Y] = 6; }, "preDrawOnRefresh(5,6)"},
    {16, [](auto& p) { p.integers[PIPN_EVENT] = 6; p.pointers[PIPN_EVENT_DATA] = &mouse; }, "handleMouseEvent(6,12)"},
    {17, [](auto& p) { p.pointers[PIPN_TERRAIN_INITIALIZE] = &terrain; }, "initializeTerrainRasterSet(ptr)"},
    {18, [](auto& p) { p.pointers[PIPN_TERRAIN_PARSE_TOKEN] = &terrain; }, "parseTerrainRasterSetToken(ptr)"},
    {19, [](auto& p) { p.pointers[PIPN_TERRAIN_TOKEN_STRING] = &terrain; }, "getTerrainRasterSetTokenString(ptr)"},
    {20, [](auto& p) { p.pointers[PIPN_TERRAIN_NODE] = &terrain; }, "getTerrainRasterNode(ptr)"},
    {21, [](auto& p) { p.pointers[PIPN_TERRAIN_DEREFERENCE] = &terrain; }, "dereferenceTerrainRasterSet(ptr)"},
    {22, [](auto& p) { p.pointers[PIPN_TERRAIN_INFO] = &terrain; }, "getTerrainRasterSetInfo(ptr)"},
    {28, {}, "LoadInKELVOR10()"},
    {30, {}, "LoadInCurveBench10()"},
  };
  for (const MessageCase& c : cases)
  {
    app->calls.clear();
    PIFunctionParams_t params;
    if (c.arrange)
      c.arrange(params);
    EXPECT_EQ(0, dispatch(c.number, &params)) << c.number;
    ASSERT_EQ(1u, app->calls.size()) << c.number;
    EXPECT_EQ(c.expectedCall, app->calls[0]) << c.number;
  }
  EXPECT_EQ((std::vector<std::string>{"key", "value"}), options);
}

TEST_F(ClientDispatch, IntegerResultsGoUnderKeyZeroWidenedWithTheirSign)
{
  app->intResult = -2;
  for (int number : {1, 11, 12, 13, 14, 17, 18, 20, 22, 28, 30})
  {
    PIFunctionParams_t params;
    dispatch(number, &params);
    EXPECT_EQ(static_cast<std::uint64_t>(-2LL), params.integers[PIPN_RESULT]) << number;
  }
  PIFunctionParams_t none;
  for (int number : {4, 5, 6, 7, 9, 10, 15, 21})
    dispatch(number, &none);
  EXPECT_TRUE(none.integers.empty()) << "messages without a result write none";
}

TEST_F(ClientDispatch, StringResultsAreSwappedIntoTheirKey)
{
  PIFunctionParams_t params;
  params.strings[PIPN_RESULT] = "old";
  dispatch(PICF_NAME, &params);
  EXPECT_EQ("text-name", params.strings[PIPN_RESULT]);

  const std::vector<std::pair<int, std::string>> descriptive = {
    {23, "text-description"}, {24, "text-author"}, {25, "text-version"},
    {26, "text-url"},         {27, "text-contact"}, {19, "text-token"}};
  for (const auto& [number, text] : descriptive)
  {
    PIFunctionParams_t p;
    dispatch(number, &p);
    EXPECT_EQ(text, p.strings[PIPN_DESCRIPTIVE_STRING]) << number;
    EXPECT_EQ(0u, p.strings.count(PIPN_RESULT)) << number;
  }
}

TEST_F(ClientDispatch, CloseCallsCloseWritesItsResultThenDeletesTheObject)
{
  bool destroyed = false;
  auto* closing = new RecordingApplication(&destroyed);
  closing->intResult = 4;
  PIClientMessageMap closingMap;
  PIClientMessageTable::install(closingMap, closing);
  PIFunctionParams_t params;
  EXPECT_EQ(0, PIClientMessageTable::dispatch(closingMap, PICF_CLOSE, &params));
  EXPECT_TRUE(destroyed);
  EXPECT_EQ(4u, params.integers[PIPN_RESULT]);
}

TEST_F(ClientDispatch, StubsWhoseRequiredPointerIsMissingMakeNoCall)
{
  PIFunctionParams_t mouse;
  mouse.integers[PIPN_RESULT] = 5;
  dispatch(PICF_HANDLE_MOUSE_EVENT, &mouse);
  EXPECT_EQ(0u, mouse.integers[PIPN_RESULT]) << "a mouse message without its event answers 0";

  PIFunctionParams_t configure;
  dispatch(PICF_CONFIGURE_COMMAND_LINE, &configure);
  EXPECT_TRUE(configure.integers.empty());

  PIFunctionParams_t save;
  dispatch(PICF_SAVE_CONFIG_OPTIONS, &save);
  EXPECT_TRUE(app->calls.empty());
}

TEST_F(ClientDispatch, ConfigureCommandLineLetsThePluginAddOptions)
{
  PIApp::CommandLineRegistration registration;
  PIFunctionParams_t params;
  params.pointers[PIPN_COMMAND_LINE_REGISTRATION] = &registration;
  dispatch(PICF_CONFIGURE_COMMAND_LINE, &params);
  ASSERT_EQ(1u, registration.options().size());
  EXPECT_EQ("--recorded", registration.options()[0].name);
  EXPECT_EQ(7u, params.integers[PIPN_RESULT]);
}

} // namespace
