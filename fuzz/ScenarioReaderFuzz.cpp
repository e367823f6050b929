// Any bytes given to the scenario reader are reported or loaded, never a crash.
#include "files/ScenarioReader.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  kelvor::ScenarioStore store;
  kelvor::ScenarioReader(store).readText(std::string(reinterpret_cast<const char*>(data), size), "fuzz.kls");
  return 0;
}
