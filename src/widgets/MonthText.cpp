#include "widgets/MonthText.h"

#include "kelCore/Calendar.h"

namespace kelQt
{

MonthText::MonthText() : NumberText(3, 0, 11, Padding::NONE) {}

long long MonthText::valueOf(const QString& token) const { return kelCore::monthFromName(token.toStdString()); }

QString MonthText::text() const { return QString::fromStdString(kelCore::monthName(static_cast<int>(value()))); }

int MonthText::scan(const QString& text, int from) const
{
  int at = from;
  while (at < text.size() && text[at].isLetter())
    ++at;
  return at - from;
}

QValidator::State MonthText::check(const QString& token) const
{
  if (token.size() > width())
    return QValidator::Invalid;
  if (token.size() == width())
    return valueOf(token) >= 0 ? QValidator::Acceptable : QValidator::Invalid;
  for (int month = 0; month < 12; ++month)
    if (QString::fromStdString(kelCore::monthName(month)).startsWith(token, Qt::CaseInsensitive))
      return QValidator::Intermediate;
  return QValidator::Invalid;
}

} // namespace kelQt
