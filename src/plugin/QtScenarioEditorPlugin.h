#pragma once

#include "host/PIApplication_v1_24.h"

namespace QtSep
{

/**
 * @brief The one object the host talks to: made by SPI_InitializeFunctionMap, deleted by the
 * Close message. Its constructor calls no host operation.
 *
 * It tells the host who it is and asks to be loaded only in the current generation of the
 * 3-D host.
 */
class QtScenarioEditorPlugin : public PIApp::PIApplication_v1_24
{
public:
  QtScenarioEditorPlugin() = default;
  ~QtScenarioEditorPlugin() override = default;

  /// @return "ScenarioEditor_Plugin"
  std::string Name() override;
  std::string Description() const override;
  /// @return the maker's name
  std::string Author() const override;
  /// @return the version and build time
  std::string Version() const override;
  std::string URL() const override;
  std::string ContactInfo() const override;
  /// @return 0: not for the older generation of the host
  int LoadInKELVOR() override;
  /// @return 0
  int LoadInCurveBench() override;
  /// @return 0
  int LoadInCurveBench10() override;
  /// @return 1
  int LoadInKELVOR10() override;
};

} // namespace QtSep
