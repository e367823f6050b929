#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kelvor
{

/// What a read of a scenario or track file did.
struct ReadReport
{
  std::vector<std::string> errors; ///< "file:line: reason", one for each line that could not be read
  bool loaded = false;             ///< true when the store now holds what was read
  std::size_t lines = 0;           ///< lines read
  std::size_t entities = 0;        ///< entities made

  bool ok() const { return loaded && errors.empty(); }

  /// The report of a file that could not be opened.
  static ReadReport unopened(const std::string& path)
  {
    ReadReport report;
    report.errors.push_back(path + ":0: cannot open the file");
    return report;
  }
};

} // namespace kelvor
