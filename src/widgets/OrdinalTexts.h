#pragma once

#include "widgets/CalendarTexts.h"

namespace kelQt
{

/**
 * A time as the day of the year from 001, the year and the time of day: "DDD YYYY HH:MM:SS.sss".
 * The day carries into the year, so day 365 of 2023 and one day is day 001 of 2024, and 2024
 * has a day 366.
 */
class OrdinalTexts : public CalendarTexts
{
public:
  OrdinalTexts();

protected:
  int addDate_() override;
  bool combineDate_(const QStringList& tokens, int year, int hour, int minute, double seconds,
                    kelCore::TimeStamp& local) const override;
  void splitDate_(const kelCore::TimeFields& fields) override;

private:
  int day_ = -1;
};

} // namespace kelQt
