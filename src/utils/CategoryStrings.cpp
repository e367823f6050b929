#include "utils/CategoryStrings.h"

std::string CategoryStrings::getCategoryValueString(int value) const
{
  if (value < 0 || value >= static_cast<int>(values_.size()) || removed_[value])
    return "Unlisted Value";
  return values_[value];
}

int CategoryStrings::findValue(const std::string& text) const
{
  for (std::size_t i = 0; i < values_.size(); ++i)
  {
    if (!removed_[i] && values_[i] == text)
      return static_cast<int>(i);
  }
  return -1;
}

int CategoryStrings::appendValueString(const std::string& text)
{
  values_.push_back(text);
  removed_.push_back(false);
  return static_cast<int>(values_.size()) - 1;
}

bool CategoryStrings::removeCategoryValue(int value)
{
  if (value < 0 || value >= static_cast<int>(values_.size()) || removed_[value])
    return false;
  removed_[value] = true;
  return true;
}

bool CategoryStrings::renameCategoryValue(int value, const std::string& text)
{
  if (value < 0 || value >= static_cast<int>(values_.size()) || removed_[value])
    return false;
  values_[value] = text;
  return true;
}

std::vector<int> CategoryStrings::values() const
{
  std::vector<int> out;
  for (std::size_t i = 0; i < values_.size(); ++i)
  {
    if (!removed_[i])
      out.push_back(static_cast<int>(i));
  }
  return out;
}
