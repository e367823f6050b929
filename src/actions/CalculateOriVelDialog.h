#pragma once

#include <QDialog>

class QCheckBox;
class QRadioButton;
class QSpinBox;

namespace QtSep
{

/// "Calculate Orientation/Velocity": the method and what it recalculates.
class CalculateOriVelDialog : public QDialog
{
  Q_OBJECT
public:
  enum Type
  {
    LAGRANGIAN = 0,
    DELTA = 1
  };

  explicit CalculateOriVelDialog(QWidget* parent = nullptr);

  Type type() const;
  void setType(int type);
  /// @return the Lagrangian window, in points
  int lagrangianPoints() const;
  void setLagrangianPoints(int points);
  bool lagrangianOrientation() const;
  void setLagrangianOrientation(bool on);
  bool lagrangianVelocity() const;
  void setLagrangianVelocity(bool on);
  bool deltaOrientation() const;
  void setDeltaOrientation(bool on);
  bool deltaVelocity() const;
  void setDeltaVelocity(bool on);

  /// Reads the last accepted choices from the host's settings.
  void loadSettings();
  /// Writes the choices to the host's settings.
  void saveSettings() const;

private:
  QRadioButton* lagrangian_;
  QRadioButton* delta_;
  QSpinBox* points_;
  QCheckBox* lagrangianOrientation_;
  QCheckBox* lagrangianVelocity_;
  QCheckBox* deltaOrientation_;
  QCheckBox* deltaVelocity_;
};

} // namespace QtSep
