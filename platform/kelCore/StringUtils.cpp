#include "kelCore/StringUtils.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <sstream>
#include <strings.h>

namespace kelCore
{

namespace
{

// The number part of text, or false when strict reading refuses its blanks or sign.
bool numberPart(const std::string& text, bool permissive, std::string& number)
{
  number = permissive ? trim(text) : text;
  if (number.empty() || std::isspace(static_cast<unsigned char>(number.front())) ||
      std::isspace(static_cast<unsigned char>(number.back())))
    return false;
  if (number.front() == '+')
  {
    if (!permissive)
      return false;
    number.erase(0, 1);
    if (number.empty() || number.front() == '+' || number.front() == '-')
      return false;
  }
  // strtod would take hexadecimal, "inf" and "nan"; none of them is a number here.
  for (char c : number)
    if (!std::isdigit(static_cast<unsigned char>(c)) && c != '.' && c != '-' && c != '+' && c != 'e' && c != 'E')
      return false;
  return true;
}

template <typename T>
bool readSigned(const std::string& text, T& value, bool permissive)
{
  std::string number;
  if (!numberPart(text, permissive, number) || number.find_first_of(".eE") != std::string::npos)
    return false;
  errno = 0;
  char* end = nullptr;
  const long long parsed = std::strtoll(number.c_str(), &end, 10);
  if (errno == ERANGE || *end != '\0' || end == number.c_str() || parsed < std::numeric_limits<T>::min() ||
      parsed > std::numeric_limits<T>::max())
    return false;
  value = static_cast<T>(parsed);
  return true;
}

template <typename T>
bool readUnsigned(const std::string& text, T& value, bool permissive)
{
  std::string number;
  if (!numberPart(text, permissive, number) || number.find_first_of(".eE-") != std::string::npos)
    return false;
  errno = 0;
  char* end = nullptr;
  const unsigned long long parsed = std::strtoull(number.c_str(), &end, 10);
  if (errno == ERANGE || *end != '\0' || end == number.c_str() || parsed > std::numeric_limits<T>::max())
    return false;
  value = static_cast<T>(parsed);
  return true;
}

} // namespace

std::string trim(const std::string& text)
{
  const auto first = text.find_first_not_of(" \t\r\n\f\v");
  if (first == std::string::npos)
    return std::string();
  const auto last = text.find_last_not_of(" \t\r\n\f\v");
  return text.substr(first, last - first + 1);
}

std::string buildString(const std::string& prefix, double value, std::size_t width, int precision,
                        const std::string& suffix, bool padZeros)
{
  std::ostringstream out;
  out << std::fixed << std::setprecision(precision < 0 ? 0 : precision);
  if (padZeros)
    out << std::setfill('0') << std::internal;
  out << std::setw(static_cast<int>(width)) << value;
  return prefix + out.str() + suffix;
}

bool isValidNumber(const std::string& text, double& value, bool permissive)
{
  std::string number;
  if (!numberPart(text, permissive, number))
    return false;
  errno = 0;
  char* end = nullptr;
  const double parsed = std::strtod(number.c_str(), &end);
  if (*end != '\0' || end == number.c_str() || !std::isfinite(parsed) || (errno == ERANGE && parsed != 0.0))
    return false;
  value = parsed;
  return true;
}

bool isValidNumber(const std::string& text, float& value, bool permissive)
{
  double parsed = 0.0;
  if (!isValidNumber(text, parsed, permissive) || std::fabs(parsed) > std::numeric_limits<float>::max())
    return false;
  value = static_cast<float>(parsed);
  return true;
}

bool isValidNumber(const std::string& t, std::int8_t& v, bool p) { return readSigned(t, v, p); }
bool isValidNumber(const std::string& t, std::uint8_t& v, bool p) { return readUnsigned(t, v, p); }
bool isValidNumber(const std::string& t, std::int16_t& v, bool p) { return readSigned(t, v, p); }
bool isValidNumber(const std::string& t, std::uint16_t& v, bool p) { return readUnsigned(t, v, p); }
bool isValidNumber(const std::string& t, std::int32_t& v, bool p) { return readSigned(t, v, p); }
bool isValidNumber(const std::string& t, std::uint32_t& v, bool p) { return readUnsigned(t, v, p); }
bool isValidNumber(const std::string& t, std::int64_t& v, bool p) { return readSigned(t, v, p); }
bool isValidNumber(const std::string& t, std::uint64_t& v, bool p) { return readUnsigned(t, v, p); }

int caseCompare(const std::string& a, const std::string& b) { return strcasecmp(a.c_str(), b.c_str()); }

bool stringIsTrue(const std::string& text)
{
  const std::string word = trim(text);
  for (const char* yes : {"true", "yes", "on", "t"})
    if (caseCompare(word, yes) == 0)
      return true;
  double number = 0.0;
  return isValidNumber(word, number) && number != 0.0;
}

} // namespace kelCore
