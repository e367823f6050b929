#pragma once

#include "widgets/TimeFormatContainer.h"

namespace kelQt
{

/// The hours, minutes and seconds format of a TimeWidget.
class HoursContainer : public TimeFormatContainer
{
  Q_OBJECT
public:
  explicit HoursContainer(QWidget* parent = nullptr);
};

} // namespace kelQt
