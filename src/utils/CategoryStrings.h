#pragma once

#include <string>
#include <vector>

/// One category: its name and the texts of its values, numbered by their place in the list.
class CategoryStrings
{
public:
  explicit CategoryStrings(const std::string& name = std::string()) : name_(name) {}

  const std::string& name() const { return name_; }
  void setName(const std::string& name) { name_ = name; }
  /// @return the text of a value number; "Unlisted Value" for an unknown one
  std::string getCategoryValueString(int value) const;
  /// @return the number of a value text, -1 when not listed
  int findValue(const std::string& text) const;
  /// Lists a value text. @return its number
  int appendValueString(const std::string& text);
  /// Forgets a value; its number is not reused. @return false for an unknown number
  bool removeCategoryValue(int value);
  /// @return false for an unknown number
  bool renameCategoryValue(int value, const std::string& text);
  /// @return the numbers of the listed values, in order
  std::vector<int> values() const;

private:
  std::string name_;
  std::vector<std::string> values_;
  std::vector<bool> removed_;
};
