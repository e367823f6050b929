#pragma once

#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QDoubleSpinBox;
class QSpinBox;
class QStackedWidget;

namespace QtSep
{

/**
 * "Decimate": the choice of thinning method and its parameter. Methods by number: 0 by point,
 * 1 by time, 2 by angle, 3 by distance, 4 by area.
 */
class DecimateDialog : public QDialog
{
  Q_OBJECT
public:
  explicit DecimateDialog(QWidget* parent = nullptr);

  /// @return the chosen method, 0 to 4
  int type() const;
  /// Chooses a method; a number out of range changes nothing.
  void setType(int type);
  bool keepLastPoint() const;
  void setKeepLastPoint(bool keep);
  /// @return true to give the new platform the source's name and rename the source
  bool appendSuffix() const;
  void setAppendSuffix(bool append);
  int everyNPoint() const;
  void setEveryNPoint(int every);
  bool interpolate() const;
  void setInterpolate(bool interpolate);
  /// @return seconds between kept points
  int timeInterval() const;
  void setTimeInterval(int seconds);
  /// @return the tolerance in degrees
  double angle() const;
  void setAngle(double degrees);
  /// @return metres, a whole number
  double distance() const;
  /// @param metres truncated to a whole number
  void setDistance(double metres);
  /// @return the share of points to drop, a fraction
  double percentage() const;
  /// @param fraction shown as a percentage
  void setPercentage(double fraction);

private:
  QWidget* addPage_(QWidget* page);

  QButtonGroup* methods_;
  QStackedWidget* pages_;
  QCheckBox* alwaysKeep_;
  QCheckBox* appendSuffix_;
  QSpinBox* everyNPoint_;
  QCheckBox* interpolate_;
  QSpinBox* time_;
  QDoubleSpinBox* angle_;
  QSpinBox* distance_;
  QDoubleSpinBox* percentage_;
};

} // namespace QtSep
