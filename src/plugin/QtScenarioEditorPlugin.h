#pragma once

#include "host/PIApplication_v1_24.h"

namespace QtSep
{

/**
 * @brief The one object the host talks to: made by SPI_InitializeFunctionMap, deleted by the
 * Close message. Its constructor calls no host operation.
 */
class QtScenarioEditorPlugin : public PIApp::PIApplication_v1_24
{
public:
  QtScenarioEditorPlugin() = default;
  ~QtScenarioEditorPlugin() override = default;
};

} // namespace QtSep
