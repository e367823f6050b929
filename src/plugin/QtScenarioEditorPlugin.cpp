#include "plugin/QtScenarioEditorPlugin.h"

#include "host/VSI.h"

namespace QtSep
{

std::string QtScenarioEditorPlugin::Name() { return "ScenarioEditor_Plugin"; }

std::string QtScenarioEditorPlugin::Description() const
{
  return "Adds right-click platform editing to supported KELVOR windows like Data Browser.";
}

std::string QtScenarioEditorPlugin::Author() const { return VSI::companyName(); }
std::string QtScenarioEditorPlugin::Version() const { return VSI::compileSWVersionDateTime(); }
std::string QtScenarioEditorPlugin::URL() const { return VSI::companyInfo(); }
std::string QtScenarioEditorPlugin::ContactInfo() const { return VSI::companyContact(); }
int QtScenarioEditorPlugin::LoadInKELVOR() { return 0; }
int QtScenarioEditorPlugin::LoadInCurveBench() { return 0; }
int QtScenarioEditorPlugin::LoadInCurveBench10() { return 0; }
int QtScenarioEditorPlugin::LoadInKELVOR10() { return 1; }

} // namespace QtSep
