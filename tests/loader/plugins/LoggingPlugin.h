#pragma once

#include "host/PIApplication_v1_24.h"
#include "host/PICommon.h"

/// A test plug-in that tells the host, as notifications, every message it receives.
class LoggingPlugin : public PIApp::PIApplication_v1_24
{
public:
  explicit LoggingPlugin(std::string name) : name_(std::move(name)) {}

  std::string Name() override { return name_; }
  std::string Description() const override { return name_ + " for loader tests"; }
  std::string Version() const override { return "0.1"; }
  int ConfigureCommandLine(PIApp::CommandLineRegistration& registration) const override
  {
    registration.addOption("--" + name_, "a test option");
    log_("ConfigureCommandLine");
    return 0;
  }
  int LoadInKELVOR10() override
  {
    log_("LoadInKELVOR10");
    return 1;
  }
  int StartUp(const PIApp::CommandLineArguments& arguments) override
  {
    log_("StartUp " + std::to_string(arguments.arguments().size()));
    return startResult;
  }
  int Close() override
  {
    log_("Close");
    return 0;
  }
  void listenToEvents(PIApplicationEvents_t event, void*) override { log_("Event " + std::to_string(event)); }
  int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent&) override
  {
    log_("Mouse " + std::to_string(type));
    return type == PIGUI::PI_MOUSE_PRESS ? 1 : 0;
  }

  int startResult = 0;

protected:
  void log_(const std::string& what) const { PICommon::notify(name_ + ": " + what, PICommon::NOTIFY_INFO); }

private:
  std::string name_;
};
