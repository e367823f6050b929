#pragma once

#include "utils/CategoryStrings.h"

#include <map>
#include <string>

/**
 * Numbers category names and values, so that filters compare small integers. A new manager
 * knows the category "Platform Type" with its fourteen values.
 */
class CategoryManager
{
public:
  CategoryManager();

  /// @return the name of a category number, empty for an unknown one
  std::string getCategoryNameString(int category) const;
  /// @return the text of a value of a category; "Unlisted Value" for an unknown one
  std::string getCategoryValueString(int category, int value) const;
  /// @return false for an unknown category
  bool getCategoryNameAndValue(int category, int value, std::string& name, std::string& text) const;
  /// @return the number of a category name, adding it when new
  int addAndGetCategoryName(const std::string& name);
  /// @return the number of a value of a category, adding it when new; -1 for an unknown category
  int addAndGetCategoryValue(int category, const std::string& text);
  /// Numbers both. @param category receives the category number @param value receives the value number
  void addAndGetCategoryNameAndValue(const std::string& name, const std::string& text, int& category, int& value);
  /// @return the number of a category name, -1 when not known
  int findCategory(const std::string& name) const;
  bool removeCategory(int category);
  bool removeCategoryValue(int category, int value);
  bool renameCategory(int category, const std::string& name);
  bool renameCategoryValue(int category, int value, const std::string& text);
  /// Forgets every category, the built-in one included.
  void clear();
  /// @return the categories by number
  const std::map<int, CategoryStrings>& categories() const { return categories_; }

private:
  std::map<int, CategoryStrings> categories_;
  int next_ = 0;
};
