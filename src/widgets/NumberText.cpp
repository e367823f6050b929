#include "widgets/NumberText.h"

#include <algorithm>

namespace kelQt
{

namespace
{

bool isAsciiDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

} // namespace

NumberText::NumberText(int width, long long minimum, long long maximum, Padding padding)
  : width_(width), minimum_(minimum), maximum_(maximum), padding_(padding), value_(minimum)
{
}

long long NumberText::value() const { return std::clamp(value_, minimum_, std::max(minimum_, maximum())); }

void NumberText::setValue(long long value) { value_ = std::clamp(value, minimum_, maximum_); }

long long NumberText::maximum() const { return currentMaximum_ ? std::min(currentMaximum_(), maximum_) : maximum_; }

long long NumberText::valueOf(const QString& token) const
{
  QString digits = token.startsWith(QLatin1Char('-')) ? token.mid(1) : token;
  if (padding_ == Padding::TRAILING_ZEROS)
    digits = digits.leftJustified(width_, QLatin1Char('0'), true);
  return digits.toLongLong();
}

QString NumberText::text() const
{
  QString digits = QString::number(value());
  if (padding_ != Padding::NONE)
    digits = digits.rightJustified(width_, QLatin1Char('0'));
  return negative_ ? QLatin1Char('-') + digits : digits;
}

int NumberText::spaceLeft() const { return width_ - numberOfCharacters() + (negative_ ? 1 : 0); }

bool NumberText::stepBy(int steps)
{
  const int unit = steps > 0 ? 1 : -1;
  bool moved = false;
  for (int done = 0; done != steps; done += unit)
  {
    const long long current = value();
    if (unit > 0 && current < maximum())
      value_ = current + 1;
    else if (unit < 0 && current > minimum_)
      value_ = current - 1;
    else if (carry_(unit))
      value_ = unit > 0 ? minimum_ : maximum(); // read after the carry: the range may have changed with it
    else
      break;
    moved = true;
  }
  return moved;
}

int NumberText::scan(const QString& text, int from) const
{
  int at = from;
  if (signed_ && at < text.size() && text[at] == QLatin1Char('-'))
    ++at;
  while (at < text.size() && isAsciiDigit(text[at]))
    ++at;
  return at - from;
}

QValidator::State NumberText::check(const QString& token) const
{
  const bool sign = signed_ && token.startsWith(QLatin1Char('-'));
  const QStringRef digits = token.midRef(sign ? 1 : 0);
  if (digits.isEmpty())
    return QValidator::Intermediate;
  if (digits.size() > width_ || !std::all_of(digits.begin(), digits.end(), isAsciiDigit))
    return QValidator::Invalid;
  const long long number = valueOf(token);
  if (number > maximum_)
    return QValidator::Invalid;
  // A day of "0" may still become "05"; at full width it can only be wrong.
  if (number < minimum_)
    return digits.size() < width_ ? QValidator::Intermediate : QValidator::Invalid;
  return QValidator::Acceptable;
}

bool NumberText::setText(const QString& token)
{
  if (check(token) != QValidator::Acceptable)
    return false;
  negative_ = signed_ && token.startsWith(QLatin1Char('-'));
  value_ = valueOf(token);
  return true;
}

} // namespace kelQt
