#include "cli/CommandArguments.h"

#include "files/NumberText.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace kelvor
{

namespace
{

std::string shortest(double value)
{
  return NumberText::format(value);
}

} // namespace

bool CommandArguments::parse(const std::vector<std::string>& words, const std::vector<OptionRule>& options,
                             std::string& error)
{
  files_.clear();
  values_.clear();
  for (std::size_t i = 0; i < words.size(); ++i)
  {
    const std::string& word = words[i];
    // A lone "-" and negative numbers are words, not options.
    if (word.size() < 2 || word[0] != '-' || (word[1] != '-' && !std::isalpha(static_cast<unsigned char>(word[1]))))
    {
      files_.push_back(word);
      continue;
    }
    const auto rule = std::find_if(options.begin(), options.end(), [&](const OptionRule& o) { return o.name == word; });
    if (rule == options.end())
    {
      error = "unknown option '" + word + "'";
      return false;
    }
    if (has(word) && !rule->repeatable)
    {
      error = word + " is given twice";
      return false;
    }
    std::vector<std::string>& values = values_[word];
    if (!rule->takesValue)
      continue;
    if (i + 1 >= words.size())
    {
      error = word + " needs a value";
      return false;
    }
    values.push_back(words[++i]);
  }
  return true;
}

std::string CommandArguments::value(const std::string& name) const
{
  const auto found = values_.find(name);
  return found == values_.end() || found->second.empty() ? std::string() : found->second.back();
}

std::vector<std::string> CommandArguments::values(const std::string& name) const
{
  const auto found = values_.find(name);
  return found == values_.end() ? std::vector<std::string>() : found->second;
}

bool CommandArguments::number(const std::string& name, double& value, double least, double most,
                              std::string& error) const
{
  if (!has(name))
    return true;
  const std::string text = this->value(name);
  double read = 0.0;
  if (!NumberText::parse(text, read))
  {
    error = name + " takes a number, not '" + text + "'";
    return false;
  }
  if (read < least || read > most)
  {
    error = name + " " + text + " is out of range: " + shortest(least) + " to " + shortest(most);
    return false;
  }
  value = read;
  return true;
}

bool CommandArguments::integer(const std::string& name, std::int64_t& value, std::int64_t least, std::int64_t most,
                               std::string& error) const
{
  if (!has(name))
    return true;
  const std::string text = this->value(name);
  std::int64_t read = 0;
  const bool plus = !text.empty() && text.front() == '+';
  if (!NumberText::parse(std::string_view(text).substr(plus ? 1 : 0), read))
  {
    error = name + " takes a whole number, not '" + text + "'";
    return false;
  }
  if (read < least || read > most)
  {
    std::ostringstream range;
    range << least << " to " << most;
    error = name + " " + text + " is out of range: " + range.str();
    return false;
  }
  value = read;
  return true;
}

bool CommandArguments::choice(const std::string& name, const std::vector<std::string>& choices, std::string& value,
                              std::string& error) const
{
  if (!has(name))
    return true;
  const std::string text = this->value(name);
  if (std::find(choices.begin(), choices.end(), text) != choices.end())
  {
    value = text;
    return true;
  }
  error = name + " takes ";
  for (std::size_t i = 0; i < choices.size(); ++i)
    error += (i == 0 ? "" : i + 1 == choices.size() ? " or " : ", ") + choices[i];
  error += ", not '" + text + "'";
  return false;
}

bool CommandArguments::absent(const std::string& name, const std::string& reason, std::string& error) const
{
  if (!has(name))
    return true;
  error = name + " " + reason;
  return false;
}

} // namespace kelvor
