#pragma once

#include "units/Units.h"

#include <QComboBox>
#include <QMetaType>

Q_DECLARE_METATYPE(kelCore::Units)

namespace kelQt
{

/// A choice of units of one family; each item holds its kelCore::Units as data.
class UnitsSelectorComboBox : public QComboBox
{
  Q_OBJECT
public:
  explicit UnitsSelectorComboBox(QWidget* parent = nullptr);

  /// Offers the units of a family, in the registry's order. @param family such as kelCore::Units::SPEED_FAMILY
  void setUnitsFamily(const std::string& family);
  /// @return the chosen units; the invalid units when the current item holds none
  kelCore::Units units() const;
  /// Chooses units. @return false, changing nothing, when they are not offered
  bool setUnits(const kelCore::Units& units);

signals:
  /// The user or the program chose other units.
  void unitsChanged(const kelCore::Units& units);
};

} // namespace kelQt
