#pragma once

#include "widgets/ElapsedTexts.h"

namespace kelQt
{

/// A time as seconds since the start of the reference year, "3725.500".
class SecondsTexts : public ElapsedTexts
{
public:
  SecondsTexts() : ElapsedTexts(kelCore::TimeFormat::SECONDS) {}
};

} // namespace kelQt
