#pragma once

#include "server/ContextMenu.h"

#include <functional>

class QMenu;

namespace kelvor
{

/// Turns a right-click menu the plug-ins built into a QMenu: sorted by weight, sub-menus and rules kept.
class ContextMenuRenderer
{
public:
  /// Icon bytes (PNG) of an icon id; empty for none.
  using IconSource = std::function<std::string(long)>;

  /// Fills target from menu. The actions run the items' commands; menu must outlive target.
  static void render(const ContextMenu& menu, QMenu& target, const IconSource& icons);
};

} // namespace kelvor
