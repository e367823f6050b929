#pragma once

#include "host/PIApplication_v1_24.h"

#include <string>
#include <vector>

/**
 * A plug-in object of the newest generation that overrides every operation, logs each call
 * with its arguments, and answers the results a test sets.
 */
class RecordingApplication : public PIApp::PIApplication_v1_24
{
public:
  /// @param destroyed set true by the destructor, so a test can see the object go
  explicit RecordingApplication(bool* destroyed = nullptr) : destroyed_(destroyed) {}
  ~RecordingApplication() override
  {
    if (destroyed_)
      *destroyed_ = true;
  }

  std::vector<std::string> calls; ///< "Operation(arguments)" for each call, in order
  int intResult = 7;              ///< what every integer operation answers
  std::string textResult = "text"; ///< what every string operation answers

  std::string Name() override { return log_("Name()"), textResult + "-name"; }
  int StartUp() override { return logInt_("StartUp()"); }
  int StartUp(std::vector<std::string>* arguments) override
  {
    return logInt_("StartUp(vector:" + std::to_string(arguments ? arguments->size() : 0) + ")");
  }
  int StartUp(const PIApp::CommandLineArguments& arguments) override
  {
    return logInt_("StartUp(arguments:" + std::to_string(arguments.arguments().size()) + ")");
  }
  int Callback() override { return logInt_("Callback()"); }
  int Close() override { return logInt_("Close()"); }
  void closeLocation() override { log_("closeLocation()"); }
  void openLocation(std::string location, int port, PINetworkProtocol_t protocol) override
  {
    log_("openLocation(" + location + "," + std::to_string(port) + "," + std::to_string(protocol) + ")");
  }
  void findNetworkLocation(std::string location, int port, PINetworkProtocol_t protocol) override
  {
    log_("findNetworkLocation(" + location + "," + std::to_string(port) + "," + std::to_string(protocol) + ")");
  }
  void handleConfigOption(std::string key, std::string value) override
  {
    log_("handleConfigOption(" + key + "," + value + ")");
  }
  void saveConfigOptions(ConfigOptions& options) override
  {
    log_("saveConfigOptions()");
    options.add("key", "value");
  }
  void listenToEvents(PIApplicationEvents_t event, void* data) override
  {
    log_("listenToEvents(" + std::to_string(event) + "," + (data ? "data" : "null") + ")");
  }
  void drawOnRefresh(int a, int b) override { log_("drawOnRefresh(" + std::to_string(a) + "," + std::to_string(b) + ")"); }
  int LoadInKELVOR() override { return logInt_("LoadInKELVOR()"); }
  int LoadInCurveBench() override { return logInt_("LoadInCurveBench()"); }
  int LoadInScriptPad() override { return logInt_("LoadInScriptPad()"); }
  int LoadInPluginLogger() override { return logInt_("LoadInPluginLogger()"); }
  void preDrawOnRefresh(int a, int b) override
  {
    log_("preDrawOnRefresh(" + std::to_string(a) + "," + std::to_string(b) + ")");
  }
  int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) override
  {
    return logInt_("handleMouseEvent(" + std::to_string(type) + "," + std::to_string(event.x) + ")");
  }
  int initializeTerrainRasterSet(void* p) override { return logInt_("initializeTerrainRasterSet(" + ptr_(p) + ")"); }
  int getTerrainRasterSetInfo(void* p) override { return logInt_("getTerrainRasterSetInfo(" + ptr_(p) + ")"); }
  int parseTerrainRasterSetToken(void* p) override { return logInt_("parseTerrainRasterSetToken(" + ptr_(p) + ")"); }
  std::string getTerrainRasterSetTokenString(void* p) override
  {
    return log_("getTerrainRasterSetTokenString(" + ptr_(p) + ")"), textResult + "-token";
  }
  int getTerrainRasterNode(void* p) override { return logInt_("getTerrainRasterNode(" + ptr_(p) + ")"); }
  void dereferenceTerrainRasterSet(void* p) override { log_("dereferenceTerrainRasterSet(" + ptr_(p) + ")"); }
  std::string Description() const override { return textResult + "-description"; }
  std::string Author() const override { return textResult + "-author"; }
  std::string Version() const override { return textResult + "-version"; }
  std::string URL() const override { return textResult + "-url"; }
  std::string ContactInfo() const override { return textResult + "-contact"; }
  int LoadInKELVOR10() override { return logInt_("LoadInKELVOR10()"); }
  int ConfigureCommandLine(PIApp::CommandLineRegistration& registration) const override
  {
    registration.addOption("--recorded", "added by the recording application");
    return intResult;
  }
  int LoadInCurveBench10() override { return logInt_("LoadInCurveBench10()"); }

private:
  void log_(const std::string& call) { calls.push_back(call); }
  int logInt_(const std::string& call)
  {
    log_(call);
    return intResult;
  }
  static std::string ptr_(void* p) { return p ? "ptr" : "null"; }

  bool* destroyed_;
};
