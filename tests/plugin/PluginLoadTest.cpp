#include "host/PIClientFuncAndData.h"
#include "host/PISupportFunctionMap.h"
#include "support/RecordingSupportMap.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <vector>

namespace
{

// Loads the built plug-in as a host does: by path, with its own copy of every global.
class PluginLoad : public ::testing::Test
{
protected:
  void SetUp() override
  {
    library = dlopen(QTSCENARIOEDITOR_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, library) << dlerror();
  }
  void TearDown() override
  {
    if (library)
      dlclose(library);
  }

  template <typename T>
  T symbol(const char* name)
  {
    void* found = dlsym(library, name);
    EXPECT_NE(nullptr, found) << name;
    return reinterpret_cast<T>(found);
  }

  void* library = nullptr;
};

constexpr int ourCompiler()
{
#if defined(__clang__)
  return __clang_major__ * 100 + __clang_minor__ * 10 + __clang_patchlevel__;
#else
  return __GNUC__ * 100 + __GNUC_MINOR__ * 10 + __GNUC_PATCHLEVEL__;
#endif
}

TEST_F(PluginLoad, AdmissionExportsAnswerTheirConstants)
{
  EXPECT_EQ(64, symbol<int (*)()>("SPI_GetBitWidth")());
  EXPECT_EQ(ourCompiler(), symbol<int (*)()>("SPI_GetCompilerVersion")());
  EXPECT_EQ(0, symbol<int (*)()>("SPI_IsDebugMode")()) << "tests run a release build";
  EXPECT_EQ(1.9022, symbol<double (*)()>("SPI_VersionInfo")());
  auto versionEx = symbol<int (*)(int)>("SPI_VersionInfoEx");
  EXPECT_EQ(1, versionEx(0));
  EXPECT_EQ(22, versionEx(1));
  EXPECT_EQ(0, versionEx(2));
  EXPECT_EQ(1, versionEx(3));
  EXPECT_EQ(1, versionEx(-1));
  EXPECT_EQ(12200, symbol<int (*)()>("SPI_MinimumVersion")());
}

TEST_F(PluginLoad, GlobalsAreExportedAndEmptyBeforeInitialisation)
{
  EXPECT_EQ(nullptr, *symbol<PISupportFunctionMap**>("g_FunctionMap"));
  EXPECT_EQ(nullptr, *symbol<void**>("g_This"));
  EXPECT_TRUE(symbol<PIClientMessageMap*>("g_ClientMessageMap")->empty());
  EXPECT_TRUE(symbol<std::vector<void*>*>("g_FunctorList")->empty());
  EXPECT_EQ(nullptr, *symbol<void**>("g_PI_GarbageCollector"));
}

TEST_F(PluginLoad, AHostDrivesTheWholeLifecycle)
{
  RecordingSupportMap host;
  int identity = 0;
  symbol<void (*)(PISupportFunctionMap*, void*)>("SPI_InitializeFunctionMap")(&host, &identity);
  EXPECT_EQ(&host, *symbol<PISupportFunctionMap**>("g_FunctionMap"));
  EXPECT_EQ(&identity, *symbol<void**>("g_This"));
  EXPECT_TRUE(host.requests.empty()) << "creating the plug-in object calls no host operation";

  const auto* messages = symbol<PIClientMessageMap*>("g_ClientMessageMap");
  ASSERT_EQ(31u, messages->size());
  void* plugin = messages->begin()->second.data;
  for (const auto& entry : *messages)
    EXPECT_EQ(plugin, entry.second.data);

  auto dispatch = symbol<int (*)(int, PIFunctionParams_t*)>("SPI_PluginDispatchFunction");
  PIFunctionParams_t load;
  EXPECT_EQ(0, dispatch(PICF_LOAD_IN_KELVOR10, &load));
  EXPECT_EQ(1u, load.integers[PIPN_RESULT]) << "it runs in the current generation of the host";
  for (int older : {PICF_LOAD_IN_KELVOR, PICF_LOAD_IN_CURVEBENCH, PICF_LOAD_IN_CURVEBENCH10})
  {
    PIFunctionParams_t answer;
    dispatch(older, &answer);
    EXPECT_EQ(0u, answer.integers[PIPN_RESULT]) << older;
  }
  PIFunctionParams_t name, description;
  dispatch(PICF_NAME, &name);
  dispatch(PICF_DESCRIPTION, &description);
  EXPECT_EQ("ScenarioEditor_Plugin", name.strings[PIPN_RESULT]);
  EXPECT_EQ("Adds right-click platform editing to supported KELVOR windows like Data Browser.",
            description.strings[PIPN_DESCRIPTIVE_STRING]);
  PIFunctionParams_t start;
  dispatch(PICF_STARTUP, &start);
  EXPECT_EQ(0u, start.integers.at(PIPN_RESULT));
  EXPECT_EQ(0, dispatch(31, &start));
  EXPECT_EQ(0, dispatch(-5, nullptr));

  PIFunctionParams_t close;
  dispatch(PICF_CLOSE, &close);
  EXPECT_EQ(0u, close.integers.at(PIPN_RESULT));
  symbol<void (*)()>("SPI_CleanUpPlugin")();
  EXPECT_EQ(&host, *symbol<PISupportFunctionMap**>("g_FunctionMap")) << "the plug-in never clears the map";
}

} // namespace
