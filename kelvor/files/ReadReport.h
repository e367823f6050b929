#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kelvor
{

/// What a read of a scenario or track file did.
struct ReadReport
{
  std::vector<std::string> errors;   ///< "file:line: reason", one for each line that could not be read
  std::vector<std::string> warnings; ///< "file:line: replaces ...", one for each record that replaced a different one
  bool loaded = false;               ///< true when the store now holds what was read
  std::size_t lines = 0;             ///< lines read
  std::size_t entities = 0;          ///< entities made
  std::size_t replaced = 0;          ///< records that replaced a different record of their series and time
  std::size_t repeats = 0;           ///< records equal to the one they replaced: counted, not listed

  /// @return true when the file was loaded and every line could be read; warnings do not count.
  bool ok() const { return loaded && errors.empty(); }

  /**
   * Notes a record that took the place of an earlier one of its series and time: a warning
   * when it differs, a count when it repeats the earlier one.
   * @param file the file's name @param line the record's line @param earlierLine the replaced record's line
   * @param what the item replaced, as "the point" @param time seconds since the reference year
   * @param identical true when the record holds what the replaced one held
   */
  void noteReplacement(const std::string& file, std::size_t line, std::size_t earlierLine, const std::string& what,
                       double time, bool identical);
  /// Adds the one warning that counts the identical repeats, if there were any; called at the end of a read.
  void noteRepeats(const std::string& file);
  /// @return e.g. "2 records replaced earlier ones, 5 identical repeated records ignored"; empty when none did.
  std::string replacementSummary() const;

  /// The report of a file that could not be opened.
  static ReadReport unopened(const std::string& path)
  {
    ReadReport report;
    report.errors.push_back(path + ":0: cannot open the file");
    return report;
  }
};

} // namespace kelvor
