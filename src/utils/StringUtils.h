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

/**
 * Reads hexadecimal text, with or without a leading "0x", as a colour or other 32-bit value.
 * \returns the value; 0 for text that holds no hexadecimal number (the digits it begins with
 * count otherwise, as strtoul reads them)
 */
unsigned int stringConvertHexToUInt(const std::string& text);

} // namespace UTILS
