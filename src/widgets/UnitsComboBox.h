#pragma once

#include <QComboBox>

#include <string>

namespace kelQt
{

/**
 * A combo box of display choices: formats carry their enumeration value as item data, units
 * carry their kelCore::Units name.
 */
class UnitsComboBox : public QComboBox
{
  Q_OBJECT
public:
  explicit UnitsComboBox(QWidget* parent = nullptr);

  /// Adds the coordinate systems a position can be shown in (data: kelCore::CoordinateSystem).
  void addCoordinateSystems();
  /// Adds the forms of a moment (data: kelCore::TimeFormat).
  void addTimeFormats();
  /// Adds the forms of a span of time: seconds, minutes, hours (data: kelCore::TimeFormat).
  void addDurationFormats();
  /// Adds the forms of a latitude or longitude (data: kelCore::GeodeticFormat).
  void addGeodeticFormats();
  /// Adds the length units, for altitudes.
  void addAltitudeUnits();
  /// Adds the length units, for distances.
  void addDistanceUnits();
  /// Adds the speed units.
  void addSpeedUnits();
  /// Adds the angle units.
  void addAngleUnits();

  /// Selects the item whose data is value. @return false, changing nothing, when no item has it
  bool setCurrentData(const QVariant& value);

private:
  void addUnitsOfFamily(const std::string& family);
};

} // namespace kelQt
