#pragma once

#include <string>

namespace PIGUI
{

/// The host's registry of settings: keyed strings, no groups.
class PIRegistry
{
public:
  /// Stores value under key.
  static void setValue(const std::string& key, const std::string& value);
  /// @return the text under key, empty when absent.
  static std::string getValue(const std::string& key);
};

} // namespace PIGUI
