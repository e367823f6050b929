#include "host/PIClientMessageTable.h"
#include "plugin/QtScenarioEditorPlugin.h"

#include <gtest/gtest.h>

namespace
{

class ApplicationDefaults : public ::testing::Test
{
protected:
  void SetUp() override { PIClientMessageTable::install(map, &app); }

  PIFunctionParams_t send(int number, PIFunctionParams_t params = {})
  {
    PIClientMessageTable::dispatch(map, number, &params);
    return params;
  }

  PIApp::PIApplication_v1_24 app;
  PIClientMessageMap map;
};

TEST_F(ApplicationDefaults, TextsAreEmptyAndTheyStillCreateTheirKey)
{
  EXPECT_EQ(1u, send(PICF_NAME).strings.count(PIPN_RESULT));
  EXPECT_EQ("", send(PICF_NAME).strings[PIPN_RESULT]);
  for (int number : {PICF_DESCRIPTION, PICF_AUTHOR, PICF_VERSION, PICF_URL, PICF_CONTACT_INFO,
                     PICF_GET_TERRAIN_RASTER_SET_TOKEN_STRING})
  {
    auto params = send(number);
    ASSERT_EQ(1u, params.strings.count(PIPN_DESCRIPTIVE_STRING)) << number;
    EXPECT_EQ("", params.strings[PIPN_DESCRIPTIVE_STRING]) << number;
  }
}

TEST_F(ApplicationDefaults, LoadInQueriesAnswerOneAndOperationsAnswerZero)
{
  for (int number : {PICF_LOAD_IN_KELVOR, PICF_LOAD_IN_CURVEBENCH, PICF_LOAD_IN_SCRIPTPAD,
                     PICF_LOAD_IN_PLUGINLOGGER, PICF_LOAD_IN_KELVOR10, PICF_LOAD_IN_CURVEBENCH10})
    EXPECT_EQ(1u, send(number).integers[PIPN_RESULT]) << number;

  PIGUI::PIMouseEvent mouse;
  PIFunctionParams_t withMouse;
  withMouse.pointers[PIPN_EVENT_DATA] = &mouse;
  PIApp::CommandLineRegistration registration;
  PIFunctionParams_t withRegistration;
  withRegistration.pointers[PIPN_COMMAND_LINE_REGISTRATION] = &registration;
  EXPECT_EQ(0u, send(PICF_STARTUP).integers.at(PIPN_RESULT));
  EXPECT_EQ(0u, send(PICF_CALLBACK).integers.at(PIPN_RESULT));
  EXPECT_EQ(0u, send(PICF_HANDLE_MOUSE_EVENT, withMouse).integers.at(PIPN_RESULT));
  EXPECT_EQ(0u, send(PICF_CONFIGURE_COMMAND_LINE, withRegistration).integers.at(PIPN_RESULT));
  EXPECT_TRUE(registration.options().empty());
  for (int number : {PICF_INITIALIZE_TERRAIN_RASTER_SET, PICF_PARSE_TERRAIN_RASTER_SET_TOKEN,
                     PICF_GET_TERRAIN_RASTER_NODE, PICF_GET_TERRAIN_RASTER_SET_INFO})
    EXPECT_EQ(0u, send(number).integers.at(PIPN_RESULT)) << number;
}

TEST_F(ApplicationDefaults, CurveBench10FollowsAnOverriddenCurveBenchAnswer)
{
  struct NoCurveBench : PIApp::PIApplication_v1_24
  {
    int LoadInCurveBench() override { return 0; }
  } declining;
  EXPECT_EQ(0, declining.LoadInCurveBench10());
  EXPECT_EQ(1, declining.LoadInKELVOR10());
}

TEST_F(ApplicationDefaults, LegacySaveConfigOptionsForwardsToTheOptionsForm)
{
  struct Saving : PIApp::PIApplication_v1_24
  {
    void saveConfigOptions(ConfigOptions& options) override
    {
      options.add("Units", "metric");
      options.add("Confirm", "1");
    }
  } saving;
  PIClientMessageMap savingMap;
  PIClientMessageTable::install(savingMap, &saving);
  std::vector<std::string> lines{"kept"};
  PIFunctionParams_t params;
  params.pointers[PIPN_CONFIG_OPTIONS] = &lines;
  PIClientMessageTable::dispatch(savingMap, PICF_SAVE_CONFIG_OPTIONS, &params);
  EXPECT_EQ((std::vector<std::string>{"kept", "Units", "metric", "Confirm", "1"}), lines);

  send(PICF_SAVE_CONFIG_OPTIONS, params);
  EXPECT_EQ(5u, lines.size()) << "the base saves nothing";
}

TEST_F(ApplicationDefaults, ThePluginObjectServesEveryMessageWithoutAHost)
{
  auto* plugin = new QtSep::QtScenarioEditorPlugin();
  PIClientMessageMap pluginMap;
  PIClientMessageTable::install(pluginMap, plugin);
  for (int number = 0; number < PICF_COUNT; ++number)
  {
    if (number == PICF_CLOSE)
      continue;
    PIFunctionParams_t params;
    EXPECT_EQ(0, PIClientMessageTable::dispatch(pluginMap, number, &params)) << number;
  }
  PIFunctionParams_t close;
  PIClientMessageTable::dispatch(pluginMap, PICF_CLOSE, &close);
  EXPECT_EQ(0u, close.integers[PIPN_RESULT]);
}

} // namespace
