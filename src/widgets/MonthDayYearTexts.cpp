#include "widgets/MonthDayYearTexts.h"

#include "widgets/MonthText.h"

#include "kelCore/Calendar.h"
#include "kelCore/TimeTextParts.h"

namespace kelQt
{

MonthDayYearTexts::MonthDayYearTexts() : CalendarTexts(kelCore::TimeFormat::MONTHDAY) { buildSegments(); }

int MonthDayYearTexts::addDate_()
{
  month_ = addSegment_(std::make_unique<MonthText>(), -1);
  addSeparator_(QStringLiteral(" "));
  day_ = addNumber_(2, 1, 31, month_);
  addSeparator_(QStringLiteral(" "));
  const int year = addYear_();
  addSeparator_(QStringLiteral(" "));
  link_(month_, year);
  const NumberText& yearField = number_(year);
  const NumberText& monthField = number_(month_);
  number_(day_).setCurrentMaximum([&yearField, &monthField] {
    return kelCore::daysInMonth(static_cast<int>(yearField.value()), static_cast<int>(monthField.value()));
  });
  return day_;
}

bool MonthDayYearTexts::combineDate_(const QStringList& tokens, int year, int hour, int minute, double seconds,
                                     kelCore::TimeStamp& local) const
{
  const int month = static_cast<int>(number_(month_).valueOf(tokens[month_]));
  const int day = static_cast<int>(number_(day_).valueOf(tokens[day_]));
  return kelCore::makeCalendarStamp(year, month, day, hour, minute, seconds, local);
}

void MonthDayYearTexts::splitDate_(const kelCore::TimeFields& fields)
{
  number_(month_).setValue(fields.month);
  number_(day_).setValue(fields.dayOfMonth);
}

} // namespace kelQt
