// Any bytes given to the GOG reader are reported or read, never a crash.
#include "files/GogReader.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  std::vector<std::string> errors;
  kelvor::GogReader::read(in, "fuzz.gog", errors);
  return 0;
}
