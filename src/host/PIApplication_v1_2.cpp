#include "host/PIApplication_v1_2.h"

int PIApplication_v1_2::handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) { return 0; }

int PIApplication_v1_2::s_HandleMouseEvent(void* object, PIFunctionParams_t* params)
{
  if (!object || !params)
    return 0;
  const auto* event = static_cast<const PIGUI::PIMouseEvent*>(params->pointer(PIPN_EVENT_DATA));
  if (!event)
  {
    setIntegerResult(*params, 0);
    return 0;
  }
  setIntegerResult(*params, applicationFrom<PIApplication_v1_2>(object)->handleMouseEvent(
                                static_cast<PIGUI::PIMouseEventType_t>(intArgument(*params, PIPN_EVENT)), *event));
  return 0;
}
