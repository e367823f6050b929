#include "server/PluginMenu.h"

#include "host/FunctorTwoParams__.h"

#include <algorithm>

namespace kelvor
{

long PluginMenu::add(const std::string& text, FunctorTwoParams__* functor)
{
  items_.push_back(Item{nextHandle_, text, functor, 0, true});
  return nextHandle_++;
}

bool PluginMenu::remove(long handle)
{
  auto it = std::find_if(items_.begin(), items_.end(), [handle](const Item& i) { return i.handle == handle; });
  if (it == items_.end())
    return false;
  items_.erase(it);
  return true;
}

PluginMenu::Item* PluginMenu::item(long handle)
{
  auto it = std::find_if(items_.begin(), items_.end(), [handle](const Item& i) { return i.handle == handle; });
  return it == items_.end() ? nullptr : &*it;
}

std::string PluginMenu::label(const Item& item)
{
  const auto tabs = item.text.find("\t\t");
  return tabs == std::string::npos ? item.text : item.text.substr(0, tabs);
}

std::string PluginMenu::help(const Item& item)
{
  const auto tabs = item.text.find("\t\t");
  return tabs == std::string::npos ? std::string() : item.text.substr(tabs + 2);
}

int PluginMenu::activate(const Item& item) { return item.functor ? (*item.functor)(nullptr, nullptr) : 0; }

} // namespace kelvor
