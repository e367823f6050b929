#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QSlider;

namespace kelCore
{
class TimeStamp;
}
namespace kelQt
{
class TimeWidget;
}

namespace QtSep
{

/**
 * @brief Picks a slice of a scenario's time by its start, end and duration, each with a time
 * entry and a slider. The sliders run 0 to 10000 over the scenario: start and end over its
 * span, the duration over 0 to its length. A duration that runs past the scenario's end pulls
 * the start back, never past the scenario's begin. OK needs a start before the end.
 */
class TimeSliceDialog : public QDialog
{
  Q_OBJECT
public:
  /// @param referenceYear the year the times count from
  TimeSliceDialog(int referenceYear, QWidget* parent = nullptr);

  /// @param begin,end the scenario's span, seconds since the reference year
  void setScenarioTimeRange(double begin, double end);
  /// @param begin,end the slice, seconds since the reference year
  void setTimeSliceRange(double begin, double end);
  /// @param begin,end receive the slice, seconds since the reference year
  void getTimeSliceRange(double& begin, double& end) const;

  /// Slider positions, 0 to 10000.
  static constexpr int SLIDER_STEPS = 10000;

private slots:
  void updateStartViaWidget_(const kelCore::TimeStamp& stamp);
  void updateEndViaWidget_(const kelCore::TimeStamp& stamp);
  void updateDurationViaWidget_(const kelCore::TimeStamp& stamp);
  void updateStartViaSlider_(int position);
  void updateEndViaSlider_(int position);
  void updateDurationViaSlider_(int position);

private:
  void updateDurationControls_();
  void updateStartAndEndByDuration_(double duration);
  void updateEnables_();
  /// Puts a widget and slider at a time, with their signals held back.
  void show_(kelQt::TimeWidget* widget, QSlider* slider, double seconds, double first, double length);
  double secondsOf_(const kelCore::TimeStamp& stamp) const;

  int referenceYear_;
  double scenarioBegin_ = 0.0;
  double scenarioEnd_ = 0.0;
  double start_ = 0.0;
  double end_ = 0.0;
  kelQt::TimeWidget* startTimeWidget_;
  kelQt::TimeWidget* endTimeWidget_;
  kelQt::TimeWidget* durationTimeWidget_;
  QLabel* startScenarioLabel_;
  QLabel* endScenarioLabel_;
  QLabel* durationScenarioLabel_;
  QSlider* startSlider_;
  QSlider* endSlider_;
  QSlider* durationSlider_;
  QPushButton* ok_;
};

} // namespace QtSep
