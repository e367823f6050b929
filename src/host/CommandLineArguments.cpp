#include "host/CommandLineArguments.h"

#include <algorithm>

namespace PIApp
{

bool CommandLineArguments::has(const std::string& option) const
{
  return std::find(arguments_.begin(), arguments_.end(), option) != arguments_.end();
}

std::string CommandLineArguments::value(const std::string& option) const
{
  auto it = std::find(arguments_.begin(), arguments_.end(), option);
  if (it == arguments_.end() || std::next(it) == arguments_.end())
    return std::string();
  return *std::next(it);
}

} // namespace PIApp
