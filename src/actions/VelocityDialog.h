#pragma once

#include "units/Units.h"

#include <QDialog>

#include <string>

class QCheckBox;
class QSpinBox;

namespace kelQt
{
class UnitsSelectorComboBox;
}

namespace QtSep
{

/**
 * "Velocity Filter": the speed bounds of the velocity filter, each in units of the user's
 * choice, and whether speeds are computed from positions rather than read from the points.
 */
class VelocityDialog : public QDialog
{
  Q_OBJECT
public:
  explicit VelocityDialog(QWidget* parent = nullptr);

  /// @return the minimum in m/s
  double minVelocityMs() const;
  /// @return the maximum in m/s
  double maxVelocityMs() const;
  /// Shows a minimum given in m/s in the minimum's units, truncated.
  void setMinVelocityMs(double metersPerSecond);
  /// Shows a maximum given in m/s in the maximum's units, truncated.
  void setMaxVelocityMs(double metersPerSecond);
  /// @return the abbreviation of the minimum's units
  std::string minUnits() const;
  std::string maxUnits() const;
  /// Chooses the minimum's units by abbreviation; anything but a known speed unit is ignored.
  void setMinUnits(const std::string& abbreviation);
  void setMaxUnits(const std::string& abbreviation);
  /// @return true to compute speeds from positions
  bool usePlatformPosition() const;
  void setUsePlatformPosition(bool use);

  /// Reads the last accepted values from the host's settings.
  void loadSettings();
  /// Writes the values to the host's settings.
  void saveSettings() const;

  static const char* const UNITS_MIN_KEY;
  static const char* const UNITS_KEY;
  static const char* const VELOCITY_MIN_KEY;
  static const char* const VELOCITY_KEY;
  static const char* const USE_POSITION_KEY;

private:
  /// A spin box whose value follows its combo's units.
  struct SpeedField
  {
    QSpinBox* spin = nullptr;
    kelQt::UnitsSelectorComboBox* units = nullptr;
    kelCore::Units shown; ///< the units the spin box's value is in
  };

  void makeField_(SpeedField& field, const char* spinName, const char* unitsName, int minimum, int initial);
  static double toMs_(const SpeedField& field);
  static void setFromMs_(SpeedField& field, double metersPerSecond);
  static void setUnits_(SpeedField& field, const std::string& abbreviation);

  SpeedField min_;
  SpeedField max_;
  QCheckBox* platformPosition_;
};

} // namespace QtSep
