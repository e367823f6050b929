#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kelvor
{

/// One option of a command: "--name" alone, or "--name VALUE"; repeatable options collect every value.
struct OptionRule
{
  std::string name;        ///< with its dashes, as "--every"
  bool takesValue = false;
  bool repeatable = false;
};

/**
 * @brief The words of one command after its name, read against the command's options: the
 * files in the order given and the options by name. Reading never throws; every refusal comes
 * with the sentence that tells the user what is wrong, and the command then exits with the
 * status of bad usage.
 */
class CommandArguments
{
public:
  /**
   * @param words the words after the command's name
   * @return false, with error set, for an unknown option, an option without its value, or an
   * option given twice that is not repeatable
   */
  bool parse(const std::vector<std::string>& words, const std::vector<OptionRule>& options, std::string& error);

  /// @return the words that are no options, in order: the files.
  const std::vector<std::string>& files() const { return files_; }
  /// @return true when the option was given.
  bool has(const std::string& name) const { return values_.count(name) != 0; }
  /// @return the option's value, empty when it was not given.
  std::string value(const std::string& name) const;
  /// @return every value of a repeatable option, in order.
  std::vector<std::string> values(const std::string& name) const;

  /**
   * Reads a number option. @param value left alone when the option was not given
   * @return false, with error set, for text that is no finite number or a number outside [least, most]
   */
  bool number(const std::string& name, double& value, double least, double most, std::string& error) const;
  /// As number, for a whole number.
  bool integer(const std::string& name, std::int64_t& value, std::int64_t least, std::int64_t most,
               std::string& error) const;
  /// Reads an option that names one of choices. @return false, with error set, for any other word
  bool choice(const std::string& name, const std::vector<std::string>& choices, std::string& value,
              std::string& error) const;
  /// @return false, with error set, when the option was given: it does not apply, for the reason given.
  bool absent(const std::string& name, const std::string& reason, std::string& error) const;

private:
  std::vector<std::string> files_;
  std::map<std::string, std::vector<std::string>> values_;
};

} // namespace kelvor
