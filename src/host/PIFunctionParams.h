#pragma once

#include "host/PIParameterName.h"

#include <cstdint>
#include <map>
#include <string>

/**
 * @brief The argument and result bag of one client message.
 *
 * An absent key reads as 0, null or an empty string.
 */
struct PIFunctionParams_t
{
  std::map<PIParameterName_t, std::string> strings;         ///< text arguments and results
  std::map<PIParameterName_t, std::uint64_t> integers;      ///< integer arguments and results
  std::map<PIParameterName_t, double> numbers;              ///< not read by this plug-in
  std::map<PIParameterName_t, void*> pointers;              ///< pointer arguments

  /// @return the integer under key, 0 when absent.
  std::uint64_t integer(PIParameterName_t key) const
  {
    auto it = integers.find(key);
    return it == integers.end() ? 0 : it->second;
  }

  /// @return the pointer under key, null when absent.
  void* pointer(PIParameterName_t key) const
  {
    auto it = pointers.find(key);
    return it == pointers.end() ? nullptr : it->second;
  }

  /// @return the text under key, empty when absent.
  std::string text(PIParameterName_t key) const
  {
    auto it = strings.find(key);
    return it == strings.end() ? std::string() : it->second;
  }

  /// Swaps value into the string map under key, creating the key if needed.
  void swapText(PIParameterName_t key, std::string& value) { strings[key].swap(value); }
};
