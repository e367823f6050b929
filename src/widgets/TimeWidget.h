#pragma once

#include "widgets/TimeMetaTypes.h"
#include "widgets/TimeZone.h"

#include <QWidget>

#include <vector>

class QAction;
class QActionGroup;
class QLabel;
class QStackedWidget;

namespace kelQt
{

class TimeFormatContainer;

/**
 * Reads and edits a kelCore::TimeStamp in one of five formats: seconds, minutes or hours since
 * the start of the scenario's reference year, day of year, or month, day and year. A label may
 * stand before it. A right-click offers the formats and the colour coding of times outside the
 * range.
 *
 * Every format has its own box; every setter reaches all of them and an edit in one reaches
 * the others, so a change of format shows the same time, range, precision and zone.
 */
class TimeWidget : public QWidget
{
  Q_OBJECT
  Q_PROPERTY(kelCore::TimeStamp timeStamp READ timeStamp WRITE setTimeStamp NOTIFY timeChanged)
  Q_PROPERTY(kelCore::TimeFormat timeFormat READ timeFormat WRITE setTimeFormat)
  Q_PROPERTY(int precision READ precision WRITE setPrecision)
  Q_PROPERTY(kelQt::TimeZone timeZone READ timeZone WRITE setTimeZone)
  Q_PROPERTY(
      int scenarioReferenceYear READ scenarioReferenceYear WRITE setScenarioReferenceYear NOTIFY timeRangeChanged)
  Q_PROPERTY(kelCore::TimeStamp timeRangeStart READ timeRangeStart NOTIFY timeRangeChanged)
  Q_PROPERTY(kelCore::TimeStamp timeRangeEnd READ timeRangeEnd NOTIFY timeRangeChanged)
  Q_PROPERTY(bool timeEnabled READ timeEnabled WRITE setTimeEnabled)
  Q_PROPERTY(bool colorCodeText READ colorCodeText WRITE setColorCodeText)
  Q_PROPERTY(QString label READ label WRITE setLabel)
  Q_PROPERTY(QString labelToolTip READ labelToolTip WRITE setLabelToolTip)

public:
  /// Shows January 1 1970 in the ordinal format, with three decimals, in UTC.
  explicit TimeWidget(QWidget* parent = nullptr);
  ~TimeWidget() override;

  /// @return the time shown, as last set or edited.
  kelCore::TimeStamp timeStamp() const;
  /// @return the format shown.
  kelCore::TimeFormat timeFormat() const;
  /// @return decimals of the seconds shown.
  int precision() const;
  /// @return the zone of the calendar formats.
  TimeZone timeZone() const;
  /// @return the year the seconds, minutes and hours formats count from.
  int scenarioReferenceYear() const;
  /// @return the earliest time of the range.
  kelCore::TimeStamp timeRangeStart() const;
  /// @return the latest time of the range.
  kelCore::TimeStamp timeRangeEnd() const;
  /// @return false when the time cannot be edited.
  bool timeEnabled() const { return timeEnabled_; }
  /// @return true when a time outside the range shows in red.
  bool colorCodeText() const;
  /// @param low receives whether edits stop at the start of the range @param high the same for the end
  void getEnforceLimits(bool& low, bool& high) const;

  /// @return the text of the label before the time.
  QString label() const;
  /// @param text the label before the time; empty hides the label
  void setLabel(const QString& text);
  QString labelToolTip() const;
  void setLabelToolTip(const QString& toolTip);

  /// @return the box of a format, or null for a format the widget does not offer.
  TimeFormatContainer* container(kelCore::TimeFormat format) const;

public slots:
  /// Shows stamp in every format; emits timeChanged() when it differs.
  void setTimeStamp(const kelCore::TimeStamp& stamp);
  /// Shows the time in format; formats other than the five offered are ignored.
  void setTimeFormat(kelCore::TimeFormat format);
  /// @param digits decimals of the seconds, 0 to 9
  void setPrecision(int digits);
  /// @param zone the zone of the calendar formats; the time stays, its text follows the zone
  void setTimeZone(kelQt::TimeZone zone);
  /// @param year the year the seconds, minutes and hours formats count from; the range stays
  void setScenarioReferenceYear(int year);
  /**
   * Emits timeRangeChanged() when anything differs.
   * @param referenceYear the year the seconds, minutes and hours formats count from
   * @param start the earliest time of the range @param end the latest time of the range
   */
  void setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end);
  /// @param low true to keep edits at or after the start @param high the same for the end
  void setEnforceLimits(bool low, bool high);
  /// @param enabled false to show the time without letting the user edit it
  void setTimeEnabled(bool enabled);
  /// @param on true to show a time outside the range in red
  void setColorCodeText(bool on);
  /// Removes the tool tips of the boxes of all formats.
  void disableControlToolTips();

signals:
  /// The user changed the time.
  void timeEdited(const kelCore::TimeStamp& stamp);
  /// The time changed, by the user or by setTimeStamp().
  void timeChanged(const kelCore::TimeStamp& stamp);
  /// The reference year or the range changed.
  void timeRangeChanged();

private:
  /// A format offered, and its item in the right-click menu.
  struct Format
  {
    TimeFormatContainer* container;
    QAction* action;
  };

  void addContainer_(TimeFormatContainer* container, const QString& name, void (TimeWidget::*slot)());
  TimeFormatContainer* current_() const;
  void containerEdited_(const TimeFormatContainer* source, const kelCore::TimeStamp& stamp);
  void showRightMouseClickMenu_(const QPoint& position);
  void setSeconds_();
  void setMinutes_();
  void setHours_();
  void setOrdinal_();
  void setMonth_();
  void setColorCode_();

  QLabel* label_;
  QStackedWidget* stack_;
  QActionGroup* formatGroup_;
  QAction* colorCodeAction_;
  std::vector<Format> formats_;
  bool timeEnabled_ = true;
};

} // namespace kelQt
