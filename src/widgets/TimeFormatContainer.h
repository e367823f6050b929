#pragma once

#include "widgets/TimeMetaTypes.h"
#include "widgets/TimeZone.h"

#include <QWidget>

#include <memory>

namespace kelQt
{

class SegmentedSpinBox;
class SegmentedTexts;

/**
 * One format of a TimeWidget: a frame around the SegmentedSpinBox that edits the time in that
 * format, which it owns as its child. The box is the focus proxy of the frame, so hasFocus()
 * answers whether the box has the focus. Derived classes choose the format and the tool tip.
 */
class TimeFormatContainer : public QWidget
{
  Q_OBJECT
public:
  ~TimeFormatContainer() override;

  /// @return the format of the box.
  kelCore::TimeFormat timeFormat() const;
  /// @return the box the user edits.
  SegmentedSpinBox* widget() const { return spinBox_; }

  /// @return the time last set or applied in the box.
  kelCore::TimeStamp timeStamp() const;
  /// Shows stamp, dropping an edit not yet applied.
  void setTimeStamp(const kelCore::TimeStamp& stamp);
  /**
   * @param referenceYear the year the span formats count from
   * @param start the earliest time of the range @param end the latest time of the range
   */
  void setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end);
  /// @param low receives whether edits stop at the start of the range @param high the same for the end
  void getEnforceLimits(bool& low, bool& high) const;
  /// @param low true to keep edits at or after the start @param high the same for the end
  void setEnforceLimits(bool low, bool high);
  /// @return true when a time outside the range shows in red.
  bool colorCode() const;
  void setColorCode(bool on);
  /// @return the zone of the calendar formats.
  TimeZone timeZone() const;
  void setTimeZone(TimeZone zone);
  /// @return decimals of the seconds shown.
  int precision() const;
  /// @param digits decimals of the seconds, 0 to 9
  void setPrecision(int digits);

  /// Removes the tool tip of the box for good.
  void disableToolTip();
  /// @return the rich tool tip that explains the format.
  QString toolTipText() const { return toolTipText_; }

signals:
  /// The user changed the time.
  void timeEdited(const kelCore::TimeStamp& stamp);
  /// The time changed, by the user or by setTimeStamp().
  void timeChanged(const kelCore::TimeStamp& stamp);

protected:
  /**
   * @param texts the segments of the format @param title the name of the format in the tool tip
   * @param description what the format shows, for the tool tip
   */
  TimeFormatContainer(std::unique_ptr<SegmentedTexts> texts, const QString& title, const QString& description,
                      QWidget* parent);

private:
  SegmentedSpinBox* spinBox_;
  QString toolTipText_;
};

} // namespace kelQt
