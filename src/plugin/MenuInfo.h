#pragma once

#include <memory>
#include <string>
#include <vector>

class QAction;

namespace QtSep
{

/// One entry of the plug-in's own right-click menu, placed by weight.
class MenuInfo
{
public:
  explicit MenuInfo(int weight) : weight_(weight) {}
  virtual ~MenuInfo() = default;
  /// @return the weight; lower stands higher.
  int weight() const { return weight_; }

private:
  int weight_;
};

/// Orders by ascending weight.
inline bool sortByWeight(const MenuInfo* a, const MenuInfo* b) { return a->weight() < b->weight(); }

/// A menu entry that triggers an action it does not own.
class ActionInfo : public MenuInfo
{
public:
  ActionInfo(QAction* action, int weight) : MenuInfo(weight), action_(action) {}
  QAction* action() const { return action_; }

private:
  QAction* action_;
};

/// A sub-menu of entries, which it owns.
class SubmenuInfo : public MenuInfo
{
public:
  SubmenuInfo(const std::string& text, int weight) : MenuInfo(weight), text_(text) {}
  ~SubmenuInfo() override
  {
    for (MenuInfo* item : items_)
      delete item;
  }
  SubmenuInfo(const SubmenuInfo&) = delete;
  SubmenuInfo& operator=(const SubmenuInfo&) = delete;

  const std::string& text() const { return text_; }
  /// The entries; the sub-menu deletes them.
  std::vector<MenuInfo*>& items() { return items_; }

private:
  std::string text_;
  std::vector<MenuInfo*> items_;
};

/// A rule between entries.
class Separator : public MenuInfo
{
public:
  explicit Separator(int weight) : MenuInfo(weight) {}
};

} // namespace QtSep
