#include "widgets/ElapsedTexts.h"

#include "widgets/NumberText.h"

#include <algorithm>
#include <cmath>

namespace kelQt
{

namespace
{

// The largest span in units of 10^-precision seconds: a little under the largest long long, so
// that no sum of fields overflows. At 9 decimals that is 285 years, at 3 decimals 285 million.
constexpr long long MAXIMUM_UNITS = 9'000'000'000'000'000'000LL;

int fieldCount(kelCore::TimeFormat format)
{
  return format == kelCore::TimeFormat::HOURS ? 3 : (format == kelCore::TimeFormat::MINUTES ? 2 : 1);
}

} // namespace

ElapsedTexts::ElapsedTexts(kelCore::TimeFormat format) : SegmentedTexts(format), fields_(fieldCount(format))
{
  buildSegments();
}

long long ElapsedTexts::leadSeconds_() const { return fields_ == 3 ? 3600 : (fields_ == 2 ? 60 : 1); }

void ElapsedTexts::addSegments_()
{
  const long long leadMaximum = MAXIMUM_UNITS / precisionScale_() / leadSeconds_();
  auto lead =
      std::make_unique<NumberText>(QString::number(leadMaximum).size(), 0, leadMaximum, NumberText::Padding::NONE);
  lead->setSigned(true);
  lead_ = addSegment_(std::move(lead), -1);
  minute_ = fields_ == 3 ? addSexagesimal_(lead_) : -1;
  second_ = fields_ == 1 ? lead_ : addSexagesimal_(std::max(minute_, lead_));
  fraction_ = addFraction_(second_);
}

long long ElapsedTexts::units_(const QStringList& tokens) const
{
  const auto field = [&](int index) { return index < 0 ? 0LL : number_(index).valueOf(tokens[index]); };
  const long long scale = precisionScale_();
  long long units = field(lead_) * leadSeconds_() * scale + field(fraction_);
  if (minute_ >= 0)
    units += field(minute_) * 60 * scale;
  if (second_ != lead_)
    units += field(second_) * scale;
  return tokens[lead_].startsWith(QLatin1Char('-')) ? -units : units;
}

void ElapsedTexts::showUnits_(long long units)
{
  const long long scale = precisionScale_();
  long long rest = units < 0 ? -units : units;
  if (fraction_ >= 0)
    number_(fraction_).setValue(rest % scale);
  rest /= scale;
  if (second_ != lead_)
  {
    number_(second_).setValue(rest % 60);
    rest /= 60;
  }
  if (minute_ >= 0)
  {
    number_(minute_).setValue(rest % 60);
    rest /= 60;
  }
  number_(lead_).setValue(rest);
  number_(lead_).setNegative(units < 0);
}

bool ElapsedTexts::combine_(const QStringList& tokens, kelCore::TimeStamp& stamp) const
{
  stamp = kelCore::TimeStamp(referenceYear(), static_cast<double>(units_(tokens)) / precisionScale_());
  return true;
}

void ElapsedTexts::split_(const kelCore::TimeStamp& stamp)
{
  const double limit = static_cast<double>(MAXIMUM_UNITS);
  const double units = stamp.secondsSinceRefYear(referenceYear()).Double() * precisionScale_();
  showUnits_(std::llround(std::clamp(units, -limit, limit)));
}

bool ElapsedTexts::stepSegment_(int index, int steps)
{
  const long long scale = precisionScale_();
  long long weight = scale;
  if (index == fraction_)
    weight = 1;
  else if (index == minute_)
    weight = 60 * scale;
  else if (index == lead_)
    weight = leadSeconds_() * scale;
  const long long before = units_(tokens_());
  const long long after = std::clamp(before + steps * weight, -MAXIMUM_UNITS, MAXIMUM_UNITS);
  showUnits_(after);
  return after != before;
}

} // namespace kelQt
