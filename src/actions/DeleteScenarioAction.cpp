#include "actions/DeleteScenarioAction.h"

#include "actions/CreateScenario.h"
#include "plugin/ActionUtilities.h"

namespace QtSep
{

DeleteScenarioAction::DeleteScenarioAction(QWidget* parent)
  : CommandAction(parent, "Delete Scenario...", std::string(), WEIGHT, false)
{
}

int DeleteScenarioAction::run_()
{
  // A scenario is deleted only by putting a new one in its place.
  const int status = createScenario(parentWidget());
  if (status == 0)
    fireChangeCallback(0UL);
  return status;
}

} // namespace QtSep
