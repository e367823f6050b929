#pragma once

#include "widgets/TimeFormatContainer.h"

namespace kelQt
{

/// The month, day and year format of a TimeWidget.
class MonthContainer : public TimeFormatContainer
{
  Q_OBJECT
public:
  explicit MonthContainer(QWidget* parent = nullptr);
};

} // namespace kelQt
