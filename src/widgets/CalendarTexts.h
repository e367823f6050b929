#pragma once

#include "widgets/SegmentedTexts.h"

namespace kelCore
{
struct TimeFields;
}

namespace kelQt
{

/**
 * A calendar date and the time of day "HH:MM:SS.sss", in the chosen time zone. Each field
 * carries into the next more significant one: the seconds into the minutes, the hour into the
 * day, the day into the month or the year, so 23:59:59 and one second is the next day and
 * Dec 31 is followed by Jan 01 of the next year. The year holds at 0001 and at 9999.
 *
 * Derived classes lay out the date and read and write its fields.
 */
class CalendarTexts : public SegmentedTexts
{
protected:
  explicit CalendarTexts(kelCore::TimeFormat format);

  void addSegments_() final;
  bool combine_(const QStringList& tokens, kelCore::TimeStamp& stamp) const final;
  void split_(const kelCore::TimeStamp& stamp) final;

  /**
   * Adds the date fields, with addYear_() among them, and the blank that ends the date.
   * @return the index of the field that the hour carries into
   */
  virtual int addDate_() = 0;
  /// Adds the year, 0001 to 9999. @return its index
  int addYear_();
  /// @return the index of the year field.
  int yearIndex_() const { return year_; }
  /**
   * @param tokens the texts of all segments @param year, hour, minute, seconds the fields read already
   * @param local receives the moment in the shown zone @return false for a date that does not exist
   */
  virtual bool combineDate_(const QStringList& tokens, int year, int hour, int minute, double seconds,
                            kelCore::TimeStamp& local) const = 0;
  /// Sets the date fields other than the year from fields.
  virtual void splitDate_(const kelCore::TimeFields& fields) = 0;

private:
  /// @return seconds to add to a UTC moment to get the time shown in the zone.
  int zoneOffset_(const kelCore::TimeStamp& utc) const;

  int year_ = -1;
  int hour_ = -1;
  int minute_ = -1;
  int second_ = -1;
  int fraction_ = -1;
};

} // namespace kelQt
