#pragma once

#include "widgets/TimeFormatContainer.h"

namespace kelQt
{

/// The seconds format of a TimeWidget.
class SecondsContainer : public TimeFormatContainer
{
  Q_OBJECT
public:
  explicit SecondsContainer(QWidget* parent = nullptr);
};

} // namespace kelQt
