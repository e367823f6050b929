#pragma once

#include "widgets/SegmentedText.h"

#include <functional>

namespace kelQt
{

/**
 * A field holding a whole number in a range, such as the minute (00 to 59), the day of the
 * year (001 to 365 or 366), the decimals of a second, or the leading count of a span.
 *
 * The value is kept as typed or stepped; value() clamps it into the current range, so a
 * day of month of 31 reads as 29 once the month is February, and as 31 again in March.
 */
class NumberText : public SegmentedText
{
public:
  /// How a value with fewer digits than the width is written and read.
  enum class Padding
  {
    NONE,          ///< written as it is: 62
    LEADING_ZEROS, ///< written and read as an integer: 05 is 5
    TRAILING_ZEROS ///< decimals of a fraction: written 050 for 50 thousandths, and "5" typed reads as 500
  };

  /**
   * @param width the most digits the field takes; with padding also the digits it always shows
   * @param minimum the smallest value @param maximum the largest value typing accepts
   * @param padding how shorter values are written and read
   */
  NumberText(int width, long long minimum, long long maximum, Padding padding = Padding::LEADING_ZEROS);

  /// @return the value, clamped into minimum() to maximum().
  long long value() const;
  /// @param value stored as it is after clamping to the widest range; value() applies the current one
  void setValue(long long value);
  /// @return the smallest value.
  long long minimum() const { return minimum_; }
  /// @return the largest value now, which may depend on other fields (the days of the month shown).
  long long maximum() const;
  /**
   * @param maximum answers the largest value now, never above the maximum of the constructor;
   * it may read other segments, which must outlive this one
   */
  void setCurrentMaximum(std::function<long long()> maximum) { currentMaximum_ = std::move(maximum); }

  /// Lets the field carry a leading minus sign, kept apart from the value so that "-0" can stand.
  void setSigned(bool allowed) { signed_ = allowed; }
  /// @return true when the field shows a minus sign.
  bool isNegative() const { return negative_; }
  /// @param negative true to show a minus sign; ignored unless the field is signed
  void setNegative(bool negative) { negative_ = signed_ && negative; }

  /// @return the value a token would give this field, without its sign; check() it first.
  virtual long long valueOf(const QString& token) const;

  QString text() const override;
  int spaceLeft() const override;
  bool stepBy(int steps) override;
  int scan(const QString& text, int from) const override;
  QValidator::State check(const QString& token) const override;
  bool setText(const QString& token) override;

protected:
  int width() const { return width_; }

private:
  int width_;
  long long minimum_;
  long long maximum_;
  Padding padding_;
  std::function<long long()> currentMaximum_;
  long long value_;
  bool signed_ = false;
  bool negative_ = false;
};

} // namespace kelQt
