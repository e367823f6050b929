#pragma once

#include "widgets/ElapsedTexts.h"

namespace kelQt
{

/// A time as hours, minutes and seconds since the start of the reference year, "1:02:05.500".
class HoursTexts : public ElapsedTexts
{
public:
  HoursTexts() : ElapsedTexts(kelCore::TimeFormat::HOURS) {}
};

} // namespace kelQt
