#pragma once

namespace PIGUI
{

/// Kind of a mouse event that the host hands to plug-ins.
enum PIMouseEventType_t : int
{
  PI_MOUSE_PRESS = 0,        ///< a button went down
  PI_MOUSE_RELEASE = 1,      ///< a button came up
  PI_MOUSE_DOUBLE_CLICK = 2, ///< a double click
  PI_MOUSE_WHEEL = 3,        ///< the wheel turned
  PI_MOUSE_ENTER = 4,        ///< the pointer entered the view
  PI_MOUSE_LEAVE = 5,        ///< the pointer left the view
  PI_MOUSE_MOVE = 6          ///< the pointer moved
};

/// One mouse event in a host view.
struct PIMouseEvent
{
  int x = 0;          ///< pointer x, pixels from the view's left
  int y = 0;          ///< pointer y, pixels from the view's top
  int button = 0;     ///< button: 0 none, 1 left, 2 middle, 3 right
  int modifiers = 0;  ///< keyboard modifiers: bit 0 shift, bit 1 control, bit 2 alt
  int wheelDelta = 0; ///< wheel turn, eighths of a degree
};

} // namespace PIGUI
