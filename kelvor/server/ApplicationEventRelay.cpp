#include "server/ApplicationEventRelay.h"

#include "host/PIApplicationEvents.h"
#include "host/PIScenarioObjectType.h"

namespace kelvor
{

int ApplicationEventRelay::additionEvent(int kind)
{
  switch (kind)
  {
  case PI_PLATFORM_TYPE: return PI_EVENT_PLATFORM_ADDED;
  case PI_BEAM_TYPE: return PI_EVENT_BEAM_ADDED;
  case PI_GATE_TYPE: return PI_EVENT_GATE_ADDED;
  case PI_LASER_TYPE: return PI_EVENT_LASER_ADDED;
  case PI_LOB_GROUP_TYPE: return PI_EVENT_LOB_GROUP_ADDED;
  case PI_PROJECTOR_TYPE: return PI_EVENT_PROJECTOR_ADDED;
  case PI_CUSTOM_RENDERING_TYPE: return PI_EVENT_CUSTOM_RENDERING_ADDED;
  default: return -1;
  }
}

void ApplicationEventRelay::entityAdded(UniqueID_t id, int kind)
{
  const int event = additionEvent(kind);
  if (event >= 0)
    sink_(event, &id);
}

void ApplicationEventRelay::entityRemoving(UniqueID_t id) { sink_(PI_EVENT_ENTITY_REMOVED, &id); }

void ApplicationEventRelay::dataChanged(const std::set<UniqueID_t>& ids)
{
  std::set<UniqueID_t> copy = ids;
  sink_(PI_EVENT_ENTITY_DATA_CHANGED, &copy);
}

void ApplicationEventRelay::scenarioReset() { sink_(PI_EVENT_SCENARIO_RESET, nullptr); }
void ApplicationEventRelay::scenarioClosing() { sink_(PI_EVENT_SCENARIO_CLOSING, nullptr); }
void ApplicationEventRelay::referenceYearChanged() { sink_(PI_EVENT_REFERENCE_YEAR_CHANGED, nullptr); }
void ApplicationEventRelay::clockModeChanged() { sink_(PI_EVENT_CLOCK_MODE_CHANGED, nullptr); }
void ApplicationEventRelay::timeChanged() { sink_(PI_EVENT_TIME_CHANGED, nullptr); }

} // namespace kelvor
