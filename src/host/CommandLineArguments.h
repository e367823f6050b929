#pragma once

#include <string>
#include <vector>

namespace PIApp
{

/// The host's command line, as handed to a plug-in at start-up.
class CommandLineArguments
{
public:
  CommandLineArguments() = default;
  /// @param arguments the words of the command line, program name first
  explicit CommandLineArguments(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}

  /// @return the words of the command line, program name first.
  const std::vector<std::string>& arguments() const { return arguments_; }
  /// @return true when option (such as "--scenario") is one of the words.
  bool has(const std::string& option) const;
  /// @return the word after option, or empty when option is absent or last.
  std::string value(const std::string& option) const;

private:
  std::vector<std::string> arguments_;
};

} // namespace PIApp
