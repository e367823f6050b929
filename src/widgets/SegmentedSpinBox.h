#pragma once

#include "widgets/TimeMetaTypes.h"
#include "widgets/TimeZone.h"

#include <QSpinBox>

#include <memory>

class QTimer;

namespace kelQt
{

class SegmentedTexts;

/**
 * A spin box that edits a kelCore::TimeStamp as a line of segments. The arrow keys, the wheel
 * and the buttons step the field under the cursor, carrying into the fields beside it, and keep
 * that field selected so repeated steps act on it. Typing edits the fields in place; a full
 * field is overwritten.
 *
 * Edits are applied once the user pauses: each step or accepted change (re)starts a single-shot
 * timer of applyInterval() ms, each key restarts it, and when it fires the time shown becomes
 * timeStamp() and timeEdited() is emitted if it changed. Return, Enter, losing the focus and
 * being hidden apply at once. Where limits are enforced, applied times stay within the range.
 *
 * The integer value of the QSpinBox is unused and stays 0.
 */
class SegmentedSpinBox : public QSpinBox
{
  Q_OBJECT
public:
  /// @param texts the segments of the format to show, owned by the box
  explicit SegmentedSpinBox(std::unique_ptr<SegmentedTexts> texts, QWidget* parent = nullptr);
  ~SegmentedSpinBox() override;

  /// @return the segments as they are shown, including edits not yet applied.
  const SegmentedTexts& texts() const { return *texts_; }

  /// @return the time last set or applied.
  kelCore::TimeStamp timeStamp() const { return timeStamp_; }
  /// Shows stamp, dropping an edit not yet applied; emits timeChanged() when it differs.
  void setTimeStamp(const kelCore::TimeStamp& stamp);

  /**
   * @param referenceYear the year the span formats count from
   * @param start the earliest time of the range @param end the latest time of the range
   */
  void setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end);
  /// @param low receives whether steps and edits stop at the start @param high the same for the end
  void getEnforceLimits(bool& low, bool& high) const;
  /// @param low true to keep steps and edits at or after the start @param high the same for the end
  void setEnforceLimits(bool low, bool high);

  /// @return true when a time outside the range shows in red.
  bool colorCode() const { return colorCode_; }
  /// @param on true to show a time outside the range in red
  void setColorCode(bool on);

  /// @return the zone of the calendar formats.
  TimeZone timeZone() const;
  /// @param zone the zone of the calendar formats; the time stays, its text follows the zone
  void setTimeZone(TimeZone zone);
  /// @return decimals of the seconds shown.
  int precision() const;
  /// @param digits decimals of the seconds, 0 to 9
  void setPrecision(int digits);

  /// @return ms of pause after an edit before it is applied.
  int applyInterval() const;
  /// @param milliseconds pause after an edit before it is applied
  void setApplyInterval(int milliseconds);

  /// Steps the field under the cursor and keeps it selected.
  void stepBy(int steps) override;

signals:
  /// The user changed the time; stamp is the time applied.
  void timeEdited(const kelCore::TimeStamp& stamp);
  /// The time changed, by the user or by setTimeStamp().
  void timeChanged(const kelCore::TimeStamp& stamp);

protected:
  QValidator::State validate(QString& text, int& position) const override;
  QString textFromValue(int value) const override;
  int valueFromText(const QString& text) const override;
  StepEnabled stepEnabled() const override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

private:
  void queueApplyTimestamp_();
  void applyTimestamp_();
  /// Restarts the apply timer when it runs, so that it waits for a pause in the keys.
  void holdApply_();
  /// Takes text the user typed into the fields when it reads as a time.
  void readTypedText_(const QString& text);
  /// Before typed is typed where it does not fit, as into a full field, selects what it should replace.
  void prepareOverwrite_(const QString& typed);
  /// Shows the fields' text, keeping the cursor and the selection.
  void refreshText_();
  void updateColor_();

  std::unique_ptr<SegmentedTexts> texts_;
  QTimer* applyTimer_;
  kelCore::TimeStamp timeStamp_{1970, 0.0};
  bool colorCode_ = true;
};

} // namespace kelQt
