#pragma once

#include "widgets/CalendarTexts.h"

namespace kelQt
{

/**
 * A time as the month's name, the day of the month, the year and the time of day:
 * "Mon DD YYYY HH:MM:SS.sss". The day carries into the month and the month into the year;
 * a day past the end of a shorter month shows as that month's last day.
 */
class MonthDayYearTexts : public CalendarTexts
{
public:
  MonthDayYearTexts();

protected:
  int addDate_() override;
  bool combineDate_(const QStringList& tokens, int year, int hour, int minute, double seconds,
                    kelCore::TimeStamp& local) const override;
  void splitDate_(const kelCore::TimeFields& fields) override;

private:
  int month_ = -1;
  int day_ = -1;
};

} // namespace kelQt
