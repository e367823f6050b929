#include "widgets/OrdinalContainer.h"

#include "widgets/OrdinalTexts.h"

namespace kelQt
{

OrdinalContainer::OrdinalContainer(QWidget* parent)
  : TimeFormatContainer(std::make_unique<OrdinalTexts>(), tr("Ordinal"),
                        tr("Day of the year from 001, year and time of day, as 032 2024 13:05:00.000."), parent)
{
}

} // namespace kelQt
