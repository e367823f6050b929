#include "widgets/OrdinalTexts.h"

#include "widgets/NumberText.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

namespace kelQt
{

OrdinalTexts::OrdinalTexts() : CalendarTexts(kelCore::TimeFormat::ORDINAL) { buildSegments(); }

int OrdinalTexts::addDate_()
{
  day_ = addNumber_(3, 1, 366, -1);
  addSeparator_(QStringLiteral(" "));
  const int year = addYear_();
  addSeparator_(QStringLiteral(" "));
  link_(day_, year);
  const NumberText& yearField = number_(year);
  number_(day_).setCurrentMaximum([&yearField] { return kelCore::daysInYear(static_cast<int>(yearField.value())); });
  return day_;
}

bool OrdinalTexts::combineDate_(const QStringList& tokens, int year, int hour, int minute, double seconds,
                                kelCore::TimeStamp& local) const
{
  const int day = static_cast<int>(number_(day_).valueOf(tokens[day_]));
  return kelCore::makeOrdinalStamp(year, day, hour, minute, seconds, local);
}

void OrdinalTexts::splitDate_(const kelCore::TimeFields& fields) { number_(day_).setValue(fields.dayOfYear + 1); }

} // namespace kelQt
