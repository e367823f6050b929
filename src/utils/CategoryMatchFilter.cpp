#include "utils/CategoryMatchFilter.h"

#include "host/PIDataCategories.h"
#include "host/PIDataClock.h"
#include "host/Notify.h"

#include <sstream>

namespace PUCategoryFilter
{

namespace
{

const char* const UNLISTED_TEXT = "\x01Unlisted";
const char* const NO_VALUE_TEXT = "\x01NoValue";
/// The number given to a value the manager does not know: never an entry, so the unlisted entry decides.
constexpr int UNKNOWN_VALUE = -100;

std::vector<std::string> split(const std::string& text, char separator)
{
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator))
    parts.push_back(part);
  return parts;
}

/// @return whether an entry lets the entity pass; a missing entry does not
bool passes(const std::map<int, bool>& values, int entry)
{
  const auto found = values.find(entry);
  return found != values.end() && found->second;
}

} // namespace

bool CategoryDataMatch(const mCategoryValuesCheck* checks, const std::map<int, int>& values)
{
  if (!checks)
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected NULL\n";
    return false;
  }
  for (const auto& [category, check] : *checks)
  {
    if (category == RESERVED_CATEGORY || check.values.empty() || !check.checked)
      continue; // not filtered on
    const auto value = values.find(category);
    if (value == values.end())
    {
      if (!passes(check.values, NO_VALUE))
        return false;
      continue;
    }
    const auto entry = check.values.find(value->second);
    const bool ok = entry != check.values.end() ? entry->second : passes(check.values, UNLISTED_VALUE);
    if (!ok)
      return false;
  }
  return true;
}

void InsertUnlistedAndNoValueItems(mCategoryValuesCheck& checks, bool unlisted, bool noValue)
{
  for (auto& [category, check] : checks)
  {
    check.values.emplace(UNLISTED_VALUE, unlisted);
    check.values.emplace(NO_VALUE, noValue);
  }
}

std::string GetCategoryChecksString(const mCategoryValuesCheck& checks, const CategoryManager& manager,
                                    char categorySeparator, char valueSeparator)
{
  std::string text;
  for (const auto& [category, check] : checks)
  {
    if (category == RESERVED_CATEGORY)
      continue;
    const std::string name = manager.getCategoryNameString(category);
    if (name.empty())
    {
      // Checks of a category the manager does not know cannot be named, so are not kept.
      PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected value.\n";
      continue;
    }
    if (!text.empty())
      text += categorySeparator;
    text += name + valueSeparator + (check.checked ? "1" : "0");
    for (const auto& [value, on] : check.values)
    {
      const std::string name = value == UNLISTED_VALUE ? UNLISTED_TEXT
                               : value == NO_VALUE     ? NO_VALUE_TEXT
                                                       : manager.getCategoryValueString(category, value);
      text += valueSeparator + name + valueSeparator + (on ? "1" : "0");
    }
  }
  return text;
}

void AddCategoryChecksFromString(const std::string& text, mCategoryValuesCheck& checks, CategoryManager& manager,
                                 char categorySeparator, char valueSeparator)
{
  for (const std::string& part : split(text, categorySeparator))
  {
    const std::vector<std::string> fields = split(part, valueSeparator);
    if (fields.size() < 2)
      continue;
    const int category = manager.addAndGetCategoryName(fields[0]);
    CategoryCheck& check = checks[category];
    check.checked = fields[1] == "1";
    for (std::size_t i = 2; i + 1 < fields.size(); i += 2)
    {
      const int value = fields[i] == UNLISTED_TEXT ? UNLISTED_VALUE
                        : fields[i] == NO_VALUE_TEXT ? NO_VALUE
                                                     : manager.addAndGetCategoryValue(category, fields[i]);
      check.values[value] = fields[i + 1] == "1";
    }
  }
}

CategoryMatchFilter::CategoryMatchFilter(CategoryManager& manager, bool reservedEntries)
  : manager_(manager), reservedEntries_(reservedEntries)
{
}

CategoryCheck& CategoryMatchFilter::category_(int category)
{
  CategoryCheck& check = checks_[category];
  if (!check.checked)
  {
    // A category not filtered on let every value pass: it starts filtering with each checked.
    const auto strings = manager_.categories().find(category);
    if (strings != manager_.categories().end())
    {
      for (int value : strings->second.values())
        check.values.emplace(value, true);
    }
  }
  check.checked = true;
  if (reservedEntries_)
  {
    check.values.emplace(UNLISTED_VALUE, true);
    check.values.emplace(NO_VALUE, true);
  }
  return check;
}

void CategoryMatchFilter::checkAll(bool on)
{
  for (const auto& [category, strings] : manager_.categories())
  {
    CategoryCheck& check = category_(category);
    for (int value : strings.values())
      check.values[value] = on;
    for (auto& [value, state] : check.values)
      state = on;
  }
}

void CategoryMatchFilter::checkCategory(const std::string& name, bool on)
{
  if (name.empty())
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected empty string.\n";
    return;
  }
  const int category = manager_.findCategory(name);
  if (category < 0)
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected failure to find item\n";
    return;
  }
  CategoryCheck& check = category_(category);
  for (int value : manager_.categories().at(category).values())
    check.values[value] = on;
  for (auto& [value, state] : check.values)
    state = on;
}

void CategoryMatchFilter::checkValue(const std::string& name, const std::string& value, bool on)
{
  if (name.empty())
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected empty string.\n";
    return;
  }
  int category = -1;
  int number = -1;
  manager_.addAndGetCategoryNameAndValue(name, value, category, number);
  category_(category).values[number] = on;
}

void CategoryMatchFilter::checkReserved(const std::string& name, int entry, bool on)
{
  const int category = manager_.findCategory(name);
  if (category >= 0 && (entry == UNLISTED_VALUE || entry == NO_VALUE))
    category_(category).values[entry] = on;
}

std::string CategoryMatchFilter::saveToString() const
{
  return GetCategoryChecksString(checks_, manager_, '\x1E', '\x1F');
}

void CategoryMatchFilter::loadFromString(const std::string& text)
{
  checks_.clear();
  AddCategoryChecksFromString(text, checks_, manager_, '\x1E', '\x1F');
}

bool CategoryMatchFilter::doesCategoryMatch(const std::map<std::string, std::string>& values) const
{
  std::map<int, int> numbered;
  for (const auto& [name, text] : values)
  {
    const int category = manager_.findCategory(name);
    if (category < 0)
      continue;
    // A value unknown to the manager is unlisted.
    const int value = manager_.categories().at(category).findValue(text);
    numbered[category] = value >= 0 ? value : UNKNOWN_VALUE;
  }
  return CategoryDataMatch(&checks_, numbered);
}

bool CategoryMatchFilter::doesPlatformMatch(unsigned long id) const
{
  std::vector<PIData::PICategoryDataPoint> current;
  PIData::retrieveCurrentCategoryData(id, PIData::clockGetTime(), &current);
  std::map<std::string, std::string> values;
  for (const auto& item : current)
    values[item.name] = item.value;
  return doesCategoryMatch(values);
}

} // namespace PUCategoryFilter
