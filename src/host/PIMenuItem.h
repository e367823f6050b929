#pragma once

#include "host/PIWindow.h"

#include <string>

class FunctorTwoParams__;

namespace PIGUI
{

class PIIcon;

/// An item of a host menu; a null menu is the host's plug-in menu.
class PIMenuItem : public PIWindow
{
public:
  /**
   * @param menu the host menu, null for the plug-in menu
   * @param text the label; after two tabs, the status-bar help
   * @param functor runs when chosen; owned by the plug-in
   */
  PIMenuItem(PIMenu* menu, const std::string& text, FunctorTwoParams__* functor);
  /// Shows icon beside the label. @return 0 for success
  int setIcon(PIIcon* icon);
};

} // namespace PIGUI
