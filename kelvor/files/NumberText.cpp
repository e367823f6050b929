#include "files/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace kelvor
{

std::string NumberText::format(double value)
{
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
  return std::string(buffer, result.ptr);
}

bool NumberText::parse(std::string_view text, double& value, bool allowNonFinite)
{
  if (text.empty())
    return false;
  std::string_view body = text;
  if (body.front() == '+')
    body.remove_prefix(1);
  double parsed = 0.0;
  const auto result = std::from_chars(body.data(), body.data() + body.size(), parsed);
  if (result.ec != std::errc() || result.ptr != body.data() + body.size())
    return false;
  if (!allowNonFinite && !std::isfinite(parsed))
    return false;
  value = parsed;
  return true;
}

bool NumberText::parse(std::string_view text, std::int64_t& value)
{
  std::int64_t parsed = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
    return false;
  value = parsed;
  return true;
}

bool NumberText::parse(std::string_view text, std::uint64_t& value)
{
  std::uint64_t parsed = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size())
    return false;
  value = parsed;
  return true;
}

bool NumberText::parseColor(std::string_view text, unsigned int& value)
{
  int base = 10;
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
  {
    text.remove_prefix(2);
    base = 16;
  }
  std::uint64_t parsed = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed, base);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size() || parsed > 0xFFFFFFFFull)
    return false;
  value = static_cast<unsigned int>(parsed);
  return true;
}

std::string NumberText::formatColor(unsigned int color)
{
  char buffer[16];
  std::snprintf(buffer, sizeof(buffer), "0x%08X", color);
  return buffer;
}

} // namespace kelvor
