#include "actions/DeleteScenarioAction.h"

#include "actions/CreateScenario.h"

namespace QtSep
{

DeleteScenarioAction::DeleteScenarioAction(QWidget* parent)
  : CommandAction(parent, "Delete Scenario...", std::string(), WEIGHT, false)
{
}

int DeleteScenarioAction::run_()
{
  // A scenario is deleted only by putting a new one in its place.
  return createScenario(parentWidget());
}

} // namespace QtSep
