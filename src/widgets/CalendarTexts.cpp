#include "widgets/CalendarTexts.h"

#include "widgets/NumberText.h"

#include "kelCore/Calendar.h"

#include <QDateTime>

#include <cmath>

namespace kelQt
{

CalendarTexts::CalendarTexts(kelCore::TimeFormat format) : SegmentedTexts(format) {}

int CalendarTexts::addYear_()
{
  year_ = addNumber_(4, 1, 9999, -1);
  return year_;
}

void CalendarTexts::addSegments_()
{
  const int day = addDate_();
  hour_ = addNumber_(2, 0, 23, day);
  minute_ = addSexagesimal_(hour_);
  second_ = addSexagesimal_(minute_);
  fraction_ = addFraction_(second_);
}

int CalendarTexts::zoneOffset_(const kelCore::TimeStamp& utc) const
{
  if (timeZone() == TimeZone::UTC)
    return 0;
  const double sinceEpoch = std::floor(utc.secondsSinceRefYear(1970).Double());
  return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(sinceEpoch), Qt::LocalTime).offsetFromUtc();
}

bool CalendarTexts::combine_(const QStringList& tokens, kelCore::TimeStamp& stamp) const
{
  const auto field = [&](int index) { return static_cast<int>(number_(index).valueOf(tokens[index])); };
  kelCore::TimeStamp local;
  if (!combineDate_(tokens, field(year_), field(hour_), field(minute_),
                    field(second_) + fractionSeconds_(tokens, fraction_), local))
    return false;
  // The offset belongs to the UTC moment, which is not known yet: guess it from the local
  // time read as UTC, and correct the guess once; that settles all but the skipped hour of a
  // change to daylight saving time.
  const kelCore::TimeStamp guess = local - kelCore::Seconds(zoneOffset_(local));
  stamp = local - kelCore::Seconds(zoneOffset_(guess));
  return true;
}

void CalendarTexts::split_(const kelCore::TimeStamp& stamp)
{
  const kelCore::TimeStamp shown = stamp + kelCore::Seconds(zoneOffset_(stamp));
  const kelCore::TimeFields fields =
      kelCore::splitTimeOfYear(shown.referenceYear(), shown.secondsSinceRefYear().Double(), precision());
  number_(year_).setValue(fields.year);
  number_(hour_).setValue(fields.hour);
  number_(minute_).setValue(fields.minute);
  number_(second_).setValue(fields.second);
  if (fraction_ >= 0)
    number_(fraction_).setValue(fields.fraction);
  splitDate_(fields);
}

} // namespace kelQt
