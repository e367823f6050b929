#pragma once

#include <memory>
#include <string>
#include <vector>

class FunctorTwoParams__;

namespace kelvor
{

/**
 * @brief A right-click menu as plug-ins build it: items, sub-menus and separators with
 * weights. The window shows it sorted by weight, lower first; equal weights keep their order.
 */
class ContextMenu
{
public:
  struct Entry
  {
    enum Kind
    {
      ITEM,
      SUB_MENU,
      SEPARATOR
    };
    Kind kind = ITEM;
    std::string text;
    int weight = 0;
    FunctorTwoParams__* functor = nullptr; ///< the item's command, owned by its plug-in
    long icon = 0;                         ///< icon handle, 0 for none
    bool enabled = true;
    std::unique_ptr<ContextMenu> subMenu;  ///< for SUB_MENU
  };

  /// Adds an item. @param functor runs when the item is chosen
  void addItem(const std::string& text, FunctorTwoParams__* functor, int weight, long icon, bool enabled);
  /// Adds a sub-menu. @return the sub-menu, owned by this menu
  ContextMenu* addSubMenu(const std::string& text, int weight);
  void addSeparator(int weight);

  /// @return the entries in the order they were added.
  const std::vector<std::unique_ptr<Entry>>& entries() const { return entries_; }
  /// @return the entries sorted by weight, equal weights in the order added.
  std::vector<const Entry*> sorted() const;
  /// @return the first item with that text, looking into sub-menus; null when none.
  const Entry* findItem(const std::string& text) const;
  /// @return true when the menu, sub-menus included, holds no item.
  bool empty() const;
  /// Runs an item's command. @return the command's result, 0 without one
  static int activate(const Entry& item);

private:
  std::vector<std::unique_ptr<Entry>> entries_;
};

} // namespace kelvor
