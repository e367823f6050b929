#include "widgets/SeparatorText.h"

namespace kelQt
{

int SeparatorText::scan(const QString& text, int from) const
{
  return text.midRef(from, text_.size()) == text_ ? text_.size() : -1;
}

QValidator::State SeparatorText::check(const QString& token) const
{
  return token == text_ ? QValidator::Acceptable : QValidator::Invalid;
}

} // namespace kelQt
