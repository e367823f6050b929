#pragma once

#include "kelCore/TimeFormat.h"

#include <QWidget>

#include <string>

class QComboBox;
class QSpinBox;

namespace kelQt
{
class UnitsComboBox;
}

namespace QtSep
{

/**
 * The units that apply to all tabs: a combo box and a precision for each kind of value, kept
 * in the host's registry.
 */
class UnitsWidget : public QWidget
{
  Q_OBJECT
public:
  /// Registry keys of the rows.
  static const char* const COORDINATE_SYSTEM_KEY;
  static const char* const TIME_FORMAT_KEY;
  static const char* const TIME_PRECISION_KEY;
  static const char* const DURATION_FORMAT_KEY;
  static const char* const DURATION_PRECISION_KEY;
  static const char* const GEODETIC_FORMAT_KEY;
  static const char* const GEODETIC_PRECISION_KEY;
  static const char* const ALTITUDE_UNITS_KEY;
  static const char* const ALTITUDE_PRECISION_KEY;
  static const char* const DISTANCE_UNITS_KEY;
  static const char* const DISTANCE_PRECISION_KEY;
  static const char* const SPEED_UNITS_KEY;
  static const char* const SPEED_PRECISION_KEY;
  static const char* const ANGLE_UNITS_KEY;
  static const char* const ANGLE_PRECISION_KEY;
  static const char* const GENERIC_PRECISION_KEY;

  /// What a time or a duration shows in before the user chooses.
  static constexpr kelCore::TimeFormat TIME_FORMAT_DEFAULT = kelCore::TimeFormat::ORDINAL;
  static constexpr int TIME_PRECISION_DEFAULT = 3;
  static constexpr kelCore::TimeFormat DURATION_FORMAT_DEFAULT = kelCore::TimeFormat::SECONDS;
  static constexpr int DURATION_PRECISION_DEFAULT = 3;

  /// @return the stored format of times, the default where none is stored
  static kelCore::TimeFormat timeFormat();
  /// @return the stored decimals of the seconds of times, 0 to 9
  static int timePrecision();
  /// @return the stored format of durations, the default where none is stored
  static kelCore::TimeFormat durationFormat();
  /// @return the stored decimals of the seconds of durations, 0 to 9
  static int durationPrecision();

  /// Builds the rows and shows the stored choices.
  explicit UnitsWidget(QWidget* parent = nullptr);

  /// Shows the choices stored in the registry, or the defaults where none is stored.
  void loadSettings();
  /// Stores every row's choice in the registry.
  void saveSettings();

private:
  kelQt::UnitsComboBox* addComboRow_(const QString& label, const char* comboName, const char* precisionName,
    QSpinBox** precision);
  void loadEnumComboBox_(kelQt::UnitsComboBox* combo, const char* key, int fallback);
  void loadUnitComboBox_(kelQt::UnitsComboBox* combo, const char* key, const std::string& fallback);
  void saveEnumComboBox_(const QComboBox* combo, const char* key);
  void saveUnitComboBox_(const QComboBox* combo, const char* key);
  void saveSpinBox_(const QSpinBox* spin, const char* key);

  kelQt::UnitsComboBox* coordCombo_ = nullptr;
  kelQt::UnitsComboBox* timeCombo_ = nullptr;
  QSpinBox* timePrecision_ = nullptr;
  kelQt::UnitsComboBox* durationCombo_ = nullptr;
  QSpinBox* durationPrecision_ = nullptr;
  kelQt::UnitsComboBox* geodeticCombo_ = nullptr;
  QSpinBox* geodeticPrecision_ = nullptr;
  kelQt::UnitsComboBox* altitudeCombo_ = nullptr;
  QSpinBox* altitudePrecision_ = nullptr;
  kelQt::UnitsComboBox* distanceCombo_ = nullptr;
  QSpinBox* distancePrecision_ = nullptr;
  kelQt::UnitsComboBox* speedCombo_ = nullptr;
  QSpinBox* speedPrecision_ = nullptr;
  kelQt::UnitsComboBox* angleCombo_ = nullptr;
  QSpinBox* anglePrecision_ = nullptr;
  QSpinBox* genericPrecision_ = nullptr;
};

} // namespace QtSep
