#pragma once

#include "host/UniqueID.h"
#include "utils/CategoryManager.h"

#include <map>
#include <string>

namespace PUCategoryFilter
{

/// The check state of one category: whether it filters at all, and which values pass.
struct CategoryCheck
{
  bool checked = false;
  std::map<int, bool> values;
};

/// Check states by category number, in number order.
using mCategoryValuesCheck = std::map<int, CategoryCheck>;

/// Value entry for any value the check state does not list.
constexpr int UNLISTED_VALUE = -3;
/// Value entry for an entity without a value of the category.
constexpr int NO_VALUE = -2;
/// A category number that is never matched.
constexpr int RESERVED_CATEGORY = -1;

/**
 * @return whether an entity with these values (category number to value number) passes; false
 * for null checks, true for empty ones
 */
bool CategoryDataMatch(const mCategoryValuesCheck* checks, const std::map<int, int>& values);
/// Adds the unlisted and no-value entries, checked as given, to every category lacking them.
void InsertUnlistedAndNoValueItems(mCategoryValuesCheck& checks, bool unlisted, bool noValue);
/**
 * @return the check state as one text: categories apart by categorySeparator, and within one the
 * name, its checked flag and each value with its flag apart by valueSeparator
 */
std::string GetCategoryChecksString(const mCategoryValuesCheck& checks, const CategoryManager& manager,
                                    char categorySeparator, char valueSeparator);
/// Reads what GetCategoryChecksString wrote into checks, numbering unknown names and values anew.
void AddCategoryChecksFromString(const std::string& text, mCategoryValuesCheck& checks, CategoryManager& manager,
                                 char categorySeparator, char valueSeparator);

/// Decides whether a platform's current category values are among the checked ones.
class CategoryMatchFilter
{
public:
  /// @param manager numbers the texts; outlives the filter @param reservedEntries true to give every touched category the unlisted and no-value entries
  CategoryMatchFilter(CategoryManager& manager, bool reservedEntries);

  /// Checks or unchecks every value of every category.
  void checkAll(bool on);
  void checkCategory(const std::string& name, bool on);
  void checkValue(const std::string& name, const std::string& value, bool on);
  /// Checks or unchecks the unlisted (-3) or no-value (-2) entry of a category.
  void checkReserved(const std::string& name, int entry, bool on);

  std::string saveToString() const;
  void loadFromString(const std::string& text);
  /// @param values category name to value text
  bool doesCategoryMatch(const std::map<std::string, std::string>& values) const;
  /// @return whether the platform's values in force at the clock's time pass
  bool doesPlatformMatch(unsigned long id) const;

  const mCategoryValuesCheck& checks() const { return checks_; }
  CategoryManager& manager() const { return manager_; }

private:
  CategoryCheck& category_(int category);

  CategoryManager& manager_;
  bool reservedEntries_;
  mCategoryValuesCheck checks_;
};

} // namespace PUCategoryFilter
