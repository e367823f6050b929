#include "server/ContextMenu.h"

#include "host/FunctorTwoParams__.h"

#include <algorithm>

namespace kelvor
{

void ContextMenu::addItem(const std::string& text, FunctorTwoParams__* functor, int weight, long icon, bool enabled)
{
  auto entry = std::make_unique<Entry>();
  entry->kind = Entry::ITEM;
  entry->text = text;
  entry->functor = functor;
  entry->weight = weight;
  entry->icon = icon;
  entry->enabled = enabled;
  entries_.push_back(std::move(entry));
}

ContextMenu* ContextMenu::addSubMenu(const std::string& text, int weight)
{
  auto entry = std::make_unique<Entry>();
  entry->kind = Entry::SUB_MENU;
  entry->text = text;
  entry->weight = weight;
  entry->subMenu = std::make_unique<ContextMenu>();
  ContextMenu* sub = entry->subMenu.get();
  entries_.push_back(std::move(entry));
  return sub;
}

void ContextMenu::addSeparator(int weight)
{
  auto entry = std::make_unique<Entry>();
  entry->kind = Entry::SEPARATOR;
  entry->weight = weight;
  entries_.push_back(std::move(entry));
}

std::vector<const ContextMenu::Entry*> ContextMenu::sorted() const
{
  std::vector<const Entry*> result;
  for (const auto& e : entries_)
    result.push_back(e.get());
  std::stable_sort(result.begin(), result.end(), [](const Entry* a, const Entry* b) { return a->weight < b->weight; });
  return result;
}

const ContextMenu::Entry* ContextMenu::findItem(const std::string& text) const
{
  for (const auto& e : entries_)
  {
    if (e->kind == Entry::ITEM && e->text == text)
      return e.get();
    if (e->kind == Entry::SUB_MENU)
      if (const Entry* found = e->subMenu->findItem(text))
        return found;
  }
  return nullptr;
}

bool ContextMenu::empty() const
{
  return std::none_of(entries_.begin(), entries_.end(), [](const auto& e) {
    return e->kind == Entry::ITEM || (e->kind == Entry::SUB_MENU && !e->subMenu->empty());
  });
}

int ContextMenu::activate(const Entry& item)
{
  return item.functor ? (*item.functor)(nullptr, nullptr) : 0;
}

} // namespace kelvor
