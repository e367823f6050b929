#include "widgets/HoursContainer.h"

#include "widgets/HoursTexts.h"

namespace kelQt
{

HoursContainer::HoursContainer(QWidget* parent)
  : TimeFormatContainer(
        std::make_unique<HoursTexts>(), tr("Hours"),
        tr("Hours, minutes and seconds since the start of the scenario's reference year, as 1:02:05.500."), parent)
{
}

} // namespace kelQt
