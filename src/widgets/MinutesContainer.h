#pragma once

#include "widgets/TimeFormatContainer.h"

namespace kelQt
{

/// The minutes and seconds format of a TimeWidget.
class MinutesContainer : public TimeFormatContainer
{
  Q_OBJECT
public:
  explicit MinutesContainer(QWidget* parent = nullptr);
};

} // namespace kelQt
