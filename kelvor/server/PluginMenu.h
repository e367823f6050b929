#pragma once

#include <string>
#include <vector>

class FunctorTwoParams__;

namespace kelvor
{

/// The items plug-ins add to the host's plug-in menu.
class PluginMenu
{
public:
  struct Item
  {
    long handle = 0;                       ///< the host's handle, from 1
    std::string text;                      ///< the label; after two tabs, the status-bar help
    FunctorTwoParams__* functor = nullptr; ///< the command, owned by the plug-in
    long icon = 0;                         ///< icon handle, 0 for none
    bool enabled = true;
  };

  /// @return the new item's handle.
  long add(const std::string& text, FunctorTwoParams__* functor);
  /// @return false for an unknown handle
  bool remove(long handle);
  Item* item(long handle);
  const std::vector<Item>& items() const { return items_; }
  /// @return the label before the two tabs.
  static std::string label(const Item& item);
  /// @return the status-bar help after the two tabs, empty when none.
  static std::string help(const Item& item);
  /// Runs an item's command. @return the command's result, 0 without one
  static int activate(const Item& item);

private:
  std::vector<Item> items_;
  long nextHandle_ = 1;
};

} // namespace kelvor
