#include "files/SeriesLines.h"

#include <iterator>

namespace kelvor
{

std::size_t SeriesLines::place(std::size_t index, bool replaced, std::size_t line)
{
  const auto stored = static_cast<std::uint32_t>(line);
  if (replaced && index < lines_.size())
  {
    const std::size_t earlier = lines_[index];
    lines_[index] = stored;
    return earlier;
  }
  if (index >= lines_.size())
    lines_.push_back(stored);
  else
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), stored);
  return 0;
}

} // namespace kelvor
