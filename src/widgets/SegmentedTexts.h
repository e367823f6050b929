#pragma once

#include "widgets/TimeZone.h"

#include "kelCore/TimeFormat.h"
#include "kelCore/TimeStamp.h"

#include <QStringList>
#include <QValidator>

#include <memory>
#include <vector>

namespace kelQt
{

class NumberText;
class SegmentedText;

/**
 * A time as a line of segments in one text format: the fields and the separators between
 * them, in order. The line reads and writes a kelCore::TimeStamp, steps one field at a time,
 * judges typed text, and knows the time range that limits and colours it.
 *
 * The stamp given to setTimeStamp() is kept exactly: until a field changes, timeStamp()
 * answers it and not its text, which is rounded to precision() decimals of a second.
 *
 * Derived classes lay out the segments of their format and convert between fields and stamps.
 */
class SegmentedTexts
{
public:
  virtual ~SegmentedTexts();

  /// @return the format the segments are laid out in.
  kelCore::TimeFormat format() const { return format_; }
  /// @return the whole line: every segment's text in order.
  QString text() const;

  /// @return the number of segments, separators included.
  int segmentCount() const { return static_cast<int>(segments_.size()); }
  /// @return the segment at index, 0 to segmentCount() - 1.
  const SegmentedText& segment(int index) const { return *segments_[index]; }
  /**
   * @param position a cursor position in text(), 0 to its length
   * @return the index of the segment the position falls in, -1 when there is none. A position
   * at the end of a field belongs to that field, not to the separator after it.
   */
  int locatePart(int position) const { return locatePart(tokens_(), position); }
  /// As locatePart(int), in a line split by tokenize(), which may differ from text() while it is typed.
  int locatePart(const QStringList& tokens, int position) const;
  /// @return the position in text() of the first character of the segment at index.
  int getFirstCharacterLocation(int index) const { return getFirstCharacterLocation(tokens_(), index); }
  /// @return the position of the first character of the token at index in the line they make.
  static int getFirstCharacterLocation(const QStringList& tokens, int index);
  /**
   * Splits a line into one token per segment, each as long as its segment reads.
   * @return false when the line does not have the layout of the segments
   */
  bool tokenize(const QString& text, QStringList& tokens) const;

  /**
   * Steps the field at index, carrying into the more significant fields, then brings the time
   * back into the range where its limits are enforced.
   * @return false when nothing changed: a separator, or a field at the end of what it can show
   */
  bool stepBy(int index, int steps);

  /// @return the time the fields show; the stamp last set while they are unchanged.
  kelCore::TimeStamp timeStamp() const;
  /// Shows stamp, rounded to precision(); stamps outside the range are shown as they are.
  void setTimeStamp(const kelCore::TimeStamp& stamp);

  /**
   * Judges a text typed in place of text(): Invalid when it breaks the layout or a field can no
   * longer become valid, Intermediate when a field is empty or unfinished or the date does not
   * exist (Feb 30), Acceptable when it reads as a time. The range does not enter.
   */
  QValidator::State validate(const QString& text) const;
  /// Takes typed text as the fields. @return false, changing nothing, unless validate() accepts it
  bool setText(const QString& text);

  /**
   * @param referenceYear the year the span formats (seconds, minutes, hours) count from
   * @param start the earliest time of the range @param end the latest time of the range
   */
  void setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end);
  /// @return the year the span formats count from.
  int referenceYear() const { return referenceYear_; }
  /// @return the earliest time of the range.
  kelCore::TimeStamp timeRangeStart() const { return start_; }
  /// @return the latest time of the range.
  kelCore::TimeStamp timeRangeEnd() const { return end_; }
  /// @param low receives whether steps and edits stop at the start @param high the same for the end
  void getEnforceLimits(bool& low, bool& high) const;
  /// @param low true to keep steps at or after the start @param high the same for the end
  void setEnforceLimits(bool low, bool high);
  /// @return true when stamp lies within the range, ends included, whether or not limits are enforced.
  bool inRange(const kelCore::TimeStamp& stamp) const;
  /// @return stamp moved to the nearest end of the range that it passes and that is enforced.
  kelCore::TimeStamp limited(const kelCore::TimeStamp& stamp) const;

  /// @return decimals of the seconds shown, 0 to 9.
  int precision() const { return precision_; }
  /// @param digits decimals of the seconds, clamped to 0 to 9; the time shown is kept
  void setPrecision(int digits);
  /// @return the zone of the calendar formats; the span formats ignore it.
  TimeZone timeZone() const { return timeZone_; }
  /// @param zone the zone of the calendar formats; the time stays, its text follows the zone
  void setTimeZone(TimeZone zone);

protected:
  /// Derived constructors call buildSegments() once their own members are ready.
  explicit SegmentedTexts(kelCore::TimeFormat format);

  /// Lays out the segments afresh for the current precision and shows the time again.
  void buildSegments();

  /// Adds the segments of the format in order, through the add functions below.
  virtual void addSegments_() = 0;
  /**
   * @param tokens the text of each segment, aligned with the segments, each checked by its segment
   * @param stamp receives the time they give @return false when the fields name no real time
   */
  virtual bool combine_(const QStringList& tokens, kelCore::TimeStamp& stamp) const = 0;
  /// Sets the fields to show stamp.
  virtual void split_(const kelCore::TimeStamp& stamp) = 0;
  /// Steps the field at index, a field that canStep(). @return true when a field changed
  virtual bool stepSegment_(int index, int steps);

  /// @return the index of a new separator showing text
  int addSeparator_(const QString& text);
  /**
   * Adds a zero-padded field. @param carryInto index of the field its carry goes to, -1 for none
   * @return the index of the new field
   */
  int addNumber_(int width, long long minimum, long long maximum, int carryInto);
  /// Adds a field made by the caller. @return its index
  int addSegment_(std::unique_ptr<NumberText> field, int carryInto);
  /// Makes the field at from carry into the segment at into, for a field that comes before the one it carries into.
  void link_(int from, int into);
  /// Adds ":" and a field of 00 to 59 that carries into carryInto. @return the index of the field
  int addSexagesimal_(int carryInto);
  /// Adds "." and the decimals of the second, when precision() is above 0. @return the field's index, or -1
  int addFraction_(int carryInto);

  /// @return the field at index, which must be a NumberText
  NumberText& number_(int index) const;
  /// @return the decimals of the fraction field as seconds, 0 when there is none
  double fractionSeconds_(const QStringList& tokens, int fractionIndex) const;
  /// @return 10 to the power precision().
  long long precisionScale_() const;
  /// @return the text of each segment as shown, in order.
  QStringList tokens_() const;

private:
  /// Shows now again after a change of how it is shown, keeping whether it was edited.
  void redisplay_(const kelCore::TimeStamp& now);

  kelCore::TimeFormat format_;
  std::vector<std::unique_ptr<SegmentedText>> segments_;
  kelCore::TimeStamp stamp_{1970, 0.0};
  bool edited_ = false;
  int referenceYear_ = 1970;
  kelCore::TimeStamp start_;
  kelCore::TimeStamp end_;
  bool enforceLow_ = true;
  bool enforceHigh_ = true;
  int precision_ = 3;
  TimeZone timeZone_ = TimeZone::UTC;
};

} // namespace kelQt
