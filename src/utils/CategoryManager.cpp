#include "utils/CategoryManager.h"

CategoryManager::CategoryManager()
{
  const int type = addAndGetCategoryName("Platform Type");
  for (const char* value : {"Unknown", "Surface Ship", "Submarine", "Aircraft", "Satellite", "Helicopter", "Missile",
                            "Decoy", "Buoy", "Reference Site", "Land Vehicle", "Land Site", "Torpedo", "Contact"})
    addAndGetCategoryValue(type, value);
}

std::string CategoryManager::getCategoryNameString(int category) const
{
  const auto found = categories_.find(category);
  return found == categories_.end() ? std::string() : found->second.name();
}

std::string CategoryManager::getCategoryValueString(int category, int value) const
{
  const auto found = categories_.find(category);
  return found == categories_.end() ? std::string("Unlisted Value") : found->second.getCategoryValueString(value);
}

bool CategoryManager::getCategoryNameAndValue(int category, int value, std::string& name, std::string& text) const
{
  const auto found = categories_.find(category);
  if (found == categories_.end())
    return false;
  name = found->second.name();
  text = found->second.getCategoryValueString(value);
  return true;
}

int CategoryManager::findCategory(const std::string& name) const
{
  for (const auto& [number, strings] : categories_)
  {
    if (strings.name() == name)
      return number;
  }
  return -1;
}

int CategoryManager::addAndGetCategoryName(const std::string& name)
{
  const int found = findCategory(name);
  if (found >= 0)
    return found;
  categories_.emplace(next_, CategoryStrings(name));
  return next_++;
}

int CategoryManager::addAndGetCategoryValue(int category, const std::string& text)
{
  const auto found = categories_.find(category);
  if (found == categories_.end())
    return -1;
  const int value = found->second.findValue(text);
  return value >= 0 ? value : found->second.appendValueString(text);
}

void CategoryManager::addAndGetCategoryNameAndValue(const std::string& name, const std::string& text, int& category,
                                                   int& value)
{
  category = addAndGetCategoryName(name);
  value = addAndGetCategoryValue(category, text);
}

bool CategoryManager::removeCategory(int category)
{
  return categories_.erase(category) > 0;
}

bool CategoryManager::removeCategoryValue(int category, int value)
{
  const auto found = categories_.find(category);
  return found != categories_.end() && found->second.removeCategoryValue(value);
}

bool CategoryManager::renameCategory(int category, const std::string& name)
{
  const auto found = categories_.find(category);
  if (found == categories_.end())
    return false;
  found->second.setName(name);
  return true;
}

bool CategoryManager::renameCategoryValue(int category, int value, const std::string& text)
{
  const auto found = categories_.find(category);
  return found != categories_.end() && found->second.renameCategoryValue(value, text);
}

void CategoryManager::clear()
{
  categories_.clear();
  next_ = 0;
}
