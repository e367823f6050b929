#include "utils/ColorUtils.h"

#include <cerrno>
#include <cstdlib>

namespace UTILS
{

unsigned int colorGetColorInt(const std::string& text, bool rgba)
{
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const unsigned long long value = std::strtoull(begin, &end, 0);
  if (end == begin || *end != '\0' || errno != 0 || value > 0xFFFFFFFFull || text.find('-') != std::string::npos)
    return 0;
  const auto color = static_cast<unsigned int>(value);
  if (rgba)
    return color;
  return ((color & 0xFFu) << 24) | ((color & 0xFF00u) << 8) | ((color >> 8) & 0xFF00u) | (color >> 24);
}

} // namespace UTILS
