#pragma once

class QWidget;

namespace QtSep
{

class ScenarioPropertiesDialog;

/**
 * Asks for the properties of a new scenario and makes it, replacing any scenario open.
 * @param parent owner of the dialog
 * @return 0 when a scenario was made, 1 when the user cancelled (the old scenario stays)
 */
int createScenario(QWidget* parent);

/// Writes the dialog's year, origin, tangent plane, texts and wind to the open scenario.
void applyScenarioProperties(const ScenarioPropertiesDialog& dialog);

} // namespace QtSep
