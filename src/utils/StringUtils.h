#pragma once

#include <sstream>
#include <string>

namespace UTILS
{

/// @return value as the standard stream writes it (a colour in decimal, for instance).
template <typename T>
std::string stringConvertToString(const T& value)
{
  std::ostringstream text;
  text << value;
  return text.str();
}

} // namespace UTILS
