#include "widgets/MonthContainer.h"

#include "widgets/MonthDayYearTexts.h"

namespace kelQt
{

MonthContainer::MonthContainer(QWidget* parent)
  : TimeFormatContainer(std::make_unique<MonthDayYearTexts>(), tr("Month Day Year"),
                        tr("Month, day, year and time of day, as Feb 01 2024 13:05:00.000."), parent)
{
}

} // namespace kelQt
