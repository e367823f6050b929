#include "store/ScenarioClock.h"

#include <algorithm>

namespace kelvor
{

void ScenarioClock::setSpan(double begin, double end)
{
  begin_ = std::min(begin, end);
  end_ = std::max(begin, end);
  time_ = std::clamp(time_, begin_, end_);
}

void ScenarioClock::setTime(double time, double rate)
{
  time_ = std::clamp(time, begin_, end_);
  if (rate != 0.0)
    rate_ = rate;
}

} // namespace kelvor
