#pragma once

#include <string>
#include <vector>

namespace PIApp
{

/// Collects the command-line options that plug-ins add to the host's own.
class CommandLineRegistration
{
public:
  /// One option a plug-in understands.
  struct Option
  {
    std::string name;        ///< the option word, such as "--scenario"
    std::string help;        ///< one line of help text
    bool takesValue = false; ///< true when the next word is its value
  };

  /// Adds an option. @param name option word @param help help text @param takesValue whether a value follows
  void addOption(const std::string& name, const std::string& help, bool takesValue = false)
  {
    options_.push_back(Option{name, help, takesValue});
  }

  /// @return the options in the order they were added.
  const std::vector<Option>& options() const { return options_; }

private:
  std::vector<Option> options_;
};

} // namespace PIApp
