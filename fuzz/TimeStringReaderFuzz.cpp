// Any text given to the time reader is read or refused with kelCore::TimeException, never a
// crash, and a text it reads has the layout getTimeMatch names.
#include "utils/TimeString.h"

#include "kelCore/Exception.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const std::string text(reinterpret_cast<const char*>(data), size);
  const UTILS::TimeFormatMatch_t match = UTILS::getTimeMatch(text);
  int year = 2026;
  try
  {
    UTILS::parseTimeString(text, year);
    if (match == UTILS::MATCH_NONE)
      std::abort();
  }
  catch (const kelCore::TimeException&)
  {
  }
  return 0;
}
