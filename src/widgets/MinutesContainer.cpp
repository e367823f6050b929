#include "widgets/MinutesContainer.h"

#include "widgets/MinutesTexts.h"

namespace kelQt
{

MinutesContainer::MinutesContainer(QWidget* parent)
  : TimeFormatContainer(std::make_unique<MinutesTexts>(), tr("Minutes"),
                        tr("Minutes and seconds since the start of the scenario's reference year, as 62:05.500."),
                        parent)
{
}

} // namespace kelQt
