// Any bytes given to the GDAL track reader as a GPX, GeoJSON or KML file (the first byte
// chooses) are reported or loaded, never a crash. The file lies in GDAL's memory file system;
// only the driver of its format may open it, so that each input reaches the reader it aims at.
#include "files/GdalTrackReader.h"

#include <cpl_vsi.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  if (size == 0)
    return 0;
  struct Format
  {
    const char* path;
    std::vector<std::string> drivers;
  };
  static const Format formats[] = {
    {"/vsimem/fuzz.gpx", {"GPX"}}, {"/vsimem/fuzz.geojson", {"GeoJSON"}}, {"/vsimem/fuzz.kml", {"KML", "LIBKML"}}};
  const Format& format = formats[data[0] % 3];
  // The memory file borrows the bytes: nothing is copied, and GDAL does not free them.
  VSIFCloseL(VSIFileFromMemBuffer(format.path, const_cast<GByte*>(data + 1), size - 1, FALSE));
  kelvor::ScenarioStore store;
  kelvor::GdalTrackReader::Options options;
  options.drivers = format.drivers;
  kelvor::GdalTrackReader(store, options).readFile(format.path);
  VSIUnlink(format.path);
  return 0;
}
