#pragma once

#include "kelCore/TimeFormat.h"
#include "kelCore/TimeStamp.h"

#include <QDialog>

#include <memory>

class QLabel;
class QSpinBox;

namespace kelCore
{
class UnitContextAdapter;
class UnitContextFormatter;
}
namespace kelQt
{
class TimeWidget;
}

namespace QtSep
{

/**
 * @brief The editor of a scenario's reference year and start time ("Edit Times..."): the new
 * values, the end time they make with the duration kept, and the scenario's current values.
 * On OK the caller moves the scenario with AdjustScenarioTimes.
 */
class ScenarioTimesDialog : public QDialog
{
  Q_OBJECT
public:
  /// Reads the scenario's reference year and clock span.
  explicit ScenarioTimesDialog(QWidget* parent = nullptr);
  ~ScenarioTimesDialog() override;

  /// Shows moments in format with precision decimals of the seconds.
  void setTimeFormat(kelCore::TimeFormat format, int precision);
  /// Shows the duration in format (seconds, minutes or hours) with precision decimals.
  void setDurationFormat(kelCore::TimeFormat format, int precision);

  /// @return the reference year chosen
  int referenceYear() const;
  /// @return the start chosen, seconds since the start of the chosen reference year
  double startSeconds() const;
  kelQt::TimeWidget& startTimeWidget() const { return *startTime_; }
  QSpinBox& referenceYearSpinBox() const { return *year_; }

private slots:
  void setReferenceYear_(int year);
  void setStartTime_(const kelCore::TimeStamp& stamp);

private:
  void updateEndTime_();
  void updateCurrentValues_();

  std::unique_ptr<kelCore::UnitContextAdapter> units_;
  std::unique_ptr<kelCore::UnitContextFormatter> formatter_;
  kelCore::TimeStamp begin_;
  double duration_;
  QSpinBox* year_;
  kelQt::TimeWidget* startTime_;
  QLabel* endTime_;
  QLabel* currentStart_;
  QLabel* currentEnd_;
  QLabel* currentDuration_;
};

} // namespace QtSep
