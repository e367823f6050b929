#include "kelCore/TextScanner.h"

#include "kelCore/StringUtils.h"

#include <cctype>

namespace kelCore
{

std::size_t TextScanner::countDigits_(std::size_t from) const
{
  std::size_t end = from;
  while (end < text_.size() && std::isdigit(static_cast<unsigned char>(text_[end])))
    ++end;
  return end - from;
}

bool TextScanner::digits(int minCount, int maxCount, long long& value)
{
  const std::size_t count = countDigits_(position_);
  if (count < static_cast<std::size_t>(minCount) || count == 0)
    return false;
  const std::size_t taken = count < static_cast<std::size_t>(maxCount) ? count : static_cast<std::size_t>(maxCount);
  long long result = 0;
  for (std::size_t i = 0; i < taken; ++i)
    result = result * 10 + (text_[position_ + i] - '0');
  position_ += taken;
  value = result;
  return true;
}

bool TextScanner::digits(int minCount, int maxCount, int& value)
{
  long long wide = 0;
  if (maxCount > 9 || !digits(minCount, maxCount, wide))
    return false;
  value = static_cast<int>(wide);
  return true;
}

bool TextScanner::decimal(double& value)
{
  const std::size_t start = position_;
  std::size_t end = start + countDigits_(start);
  const bool wholePart = end > start;
  if (end < text_.size() && text_[end] == '.')
  {
    const std::size_t fraction = countDigits_(end + 1);
    if (!wholePart && fraction == 0)
      return false;
    end += 1 + fraction;
  }
  else if (!wholePart)
    return false;
  double parsed = 0.0;
  if (!isValidNumber(text_.substr(start, end - start), parsed, false))
    return false;
  position_ = end;
  value = parsed;
  return true;
}

bool TextScanner::seconds(double& value)
{
  const std::size_t start = position_;
  const std::size_t whole = countDigits_(start);
  double parsed = 0.0;
  if (whole < 1 || whole > 2 || !decimal(parsed))
    return false;
  if (parsed >= 60.0)
  {
    position_ = start;
    return false;
  }
  value = parsed;
  return true;
}

bool TextScanner::letters(int count, std::string& value)
{
  if (position_ + static_cast<std::size_t>(count) > text_.size())
    return false;
  for (int i = 0; i < count; ++i)
    if (!std::isalpha(static_cast<unsigned char>(text_[position_ + i])))
      return false;
  value = text_.substr(position_, static_cast<std::size_t>(count));
  position_ += static_cast<std::size_t>(count);
  return true;
}

bool TextScanner::literal(char c, bool ignoreCase)
{
  if (position_ >= text_.size())
    return false;
  const char next = text_[position_];
  const bool same = ignoreCase ? std::toupper(static_cast<unsigned char>(next)) == std::toupper(static_cast<unsigned char>(c))
                               : next == c;
  if (!same)
    return false;
  ++position_;
  return true;
}

bool TextScanner::blanks()
{
  const std::size_t start = position_;
  while (position_ < text_.size() && (text_[position_] == ' ' || text_[position_] == '\t'))
    ++position_;
  return position_ > start;
}

} // namespace kelCore
