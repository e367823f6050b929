#include "utils/StringUtils.h"

#include <cstdlib>

namespace UTILS
{

unsigned int stringConvertHexToUInt(const std::string& text)
{
  // strtoull takes the "0x" itself in base 16; only the low 32 bits make a colour.
  return static_cast<unsigned int>(std::strtoull(text.c_str(), nullptr, 16) & 0xFFFFFFFFull);
}

} // namespace UTILS
