#pragma once

#include "host/PIApplication_v1_0.h"
#include "host/PIMouseEvent.h"

/// Adds mouse events from the host's views.
class PIApplication_v1_2 : public PIApplication_v1_0
{
public:
  /**
   * A mouse event in a host view, offered to the plug-in before the host acts on it.
   * @param type what the mouse did @param event where, in view pixels, and with which button
   * @return non-zero when the plug-in consumed the event; 0 by default
   */
  virtual int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event);

  static int s_HandleMouseEvent(void* object, PIFunctionParams_t* params);
};
