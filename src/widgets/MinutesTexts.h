#pragma once

#include "widgets/ElapsedTexts.h"

namespace kelQt
{

/// A time as minutes and seconds since the start of the reference year, "62:05.500".
class MinutesTexts : public ElapsedTexts
{
public:
  MinutesTexts() : ElapsedTexts(kelCore::TimeFormat::MINUTES) {}
};

} // namespace kelQt
