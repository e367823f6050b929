#pragma once

#include <QString>
#include <QValidator>

namespace kelQt
{

/**
 * One segment of a segmented time text: a field such as the hour, or the fixed text between
 * fields. A segment can be linked to the next more significant segment, which takes its carry
 * when a step runs past the end of its range (the seconds carry into the minutes).
 */
class SegmentedText
{
public:
  virtual ~SegmentedText() = default;

  /// @return the text of the segment as shown.
  virtual QString text() const = 0;
  /// @return the length of text().
  int numberOfCharacters() const { return text().size(); }
  /// @return how many more characters a user can type into the segment before typing must overwrite.
  virtual int spaceLeft() const = 0;
  /// @return false for a segment that never changes, such as a separator.
  virtual bool canStep() const { return true; }

  /**
   * Moves the segment by steps, one unit at a time; a unit past either end of the range wraps
   * and carries into the next segment, or holds at the end when there is none or it cannot move.
   * @return true when the segment or one of those it carries into changed
   */
  virtual bool stepBy(int steps) = 0;

  /**
   * @param text a whole line of segments @param from where this segment would begin in it
   * @return the number of characters this segment reads from that position (0 for an empty field),
   * or -1 when the text at that position cannot belong to this segment
   */
  virtual int scan(const QString& text, int from) const = 0;
  /// @return how far token is from being a valid text of this segment.
  virtual QValidator::State check(const QString& token) const = 0;
  /// Takes token as the segment's text. @return false, changing nothing, unless check() accepts it
  virtual bool setText(const QString& token) = 0;

  /// @param next the segment that takes the carry of this one; null for none. Not owned.
  void setNextSegment(SegmentedText* next) { next_ = next; }
  /// @return the segment that takes the carry of this one, or null.
  SegmentedText* nextSegment() const { return next_; }

protected:
  /// @return true when the next segment took the carry and moved
  bool carry_(int steps) { return next_ != nullptr && next_->stepBy(steps); }

private:
  SegmentedText* next_ = nullptr;
};

} // namespace kelQt
