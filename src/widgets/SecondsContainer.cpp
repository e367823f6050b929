#include "widgets/SecondsContainer.h"

#include "widgets/SecondsTexts.h"

namespace kelQt
{

SecondsContainer::SecondsContainer(QWidget* parent)
  : TimeFormatContainer(std::make_unique<SecondsTexts>(), tr("Seconds"),
                        tr("Seconds since the start of the scenario's reference year, as 3725.500."), parent)
{
}

} // namespace kelQt
