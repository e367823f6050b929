#include "widgets/UnitsSelectorComboBox.h"

#include "units/UnitsRegistry.h"

namespace kelQt
{

UnitsSelectorComboBox::UnitsSelectorComboBox(QWidget* parent) : QComboBox(parent)
{
  connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { emit unitsChanged(units()); });
}

void UnitsSelectorComboBox::setUnitsFamily(const std::string& family)
{
  static const kelCore::UnitsRegistry registry = [] {
    kelCore::UnitsRegistry all;
    all.registerDefaultUnits();
    return all;
  }();
  clear();
  for (const kelCore::Units& units : registry.units(family))
    addItem(QString::fromStdString(units.abbreviation()), QVariant::fromValue(units));
}

kelCore::Units UnitsSelectorComboBox::units() const
{
  const QVariant data = currentData();
  return data.canConvert<kelCore::Units>() ? data.value<kelCore::Units>() : kelCore::Units();
}

bool UnitsSelectorComboBox::setUnits(const kelCore::Units& units)
{
  for (int i = 0; i < count(); ++i)
  {
    if (itemData(i).value<kelCore::Units>() == units)
    {
      setCurrentIndex(i);
      return true;
    }
  }
  return false;
}

} // namespace kelQt
