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

  /// Runs an item's command, given the item's text; by default the command simply runs.
  using CommandRunner = std::function<void(const std::string& text, const std::function<void()>& command)>;

  /// Fills target from menu. The actions run the items' commands through run; menu must outlive target.
  static void render(const ContextMenu& menu, QMenu& target, const IconSource& icons, const CommandRunner& run = {});
};

} // namespace kelvor
