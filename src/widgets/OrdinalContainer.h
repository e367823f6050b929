#pragma once

#include "widgets/TimeFormatContainer.h"

namespace kelQt
{

/// The day of year format of a TimeWidget.
class OrdinalContainer : public TimeFormatContainer
{
  Q_OBJECT
public:
  explicit OrdinalContainer(QWidget* parent = nullptr);
};

} // namespace kelQt
