#pragma once

#include "widgets/SegmentedTexts.h"

namespace kelQt
{

/**
 * A span since the start of the reference year, as seconds ("3725.500"), minutes and seconds
 * ("62:05.500") or hours, minutes and seconds ("1:02:05.500"). The leading count has no fixed
 * width; a moment before the reference year shows a leading minus sign, as kelCore writes it.
 *
 * A step moves the whole span by the weight of the field (a minute for the minutes), so that
 * carries and the crossing of zero behave alike: the sign and the digits of a span do not
 * carry field by field across zero ("-0:00.500" plus one second is "0:00.500").
 */
class ElapsedTexts : public SegmentedTexts
{
protected:
  /// @param format SECONDS, MINUTES or HOURS
  explicit ElapsedTexts(kelCore::TimeFormat format);

  void addSegments_() override;
  bool combine_(const QStringList& tokens, kelCore::TimeStamp& stamp) const override;
  void split_(const kelCore::TimeStamp& stamp) override;
  bool stepSegment_(int index, int steps) override;

private:
  /// @return the signed span of tokens, in units of 10^-precision() seconds
  long long units_(const QStringList& tokens) const;
  /// Shows a signed span in units of 10^-precision() seconds.
  void showUnits_(long long units);
  /// @return seconds in one unit of the leading count.
  long long leadSeconds_() const;

  int fields_;
  int lead_ = -1;
  int minute_ = -1;
  int second_ = -1;
  int fraction_ = -1;
};

} // namespace kelQt
