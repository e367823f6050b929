// Any bytes given to the CSV track reader are reported or loaded, never a crash.
#include "files/CsvTrackReader.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  kelvor::ScenarioStore store;
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  kelvor::CsvTrackReader(store).read(in, "fuzz.csv");
  return 0;
}
