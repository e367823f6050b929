#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace kelvor
{

/**
 * @brief Writes a file so that it is either the whole new text or what it was before: the
 * text goes to a temporary file beside it ("PATH.saving"), reaches the disk, and is renamed
 * over the file. A failure removes the temporary file and leaves the file alone, so a path may
 * be both what was read and what is written.
 */
class AtomicFile
{
public:
  /**
   * @param write writes the file's text to the stream it is given, through a 1 MiB buffer
   * @param error receives "cannot write ..." or "cannot replace ..." with the system's reason
   * @return false when the file could not be written; then it is unchanged
   */
  static bool write(const std::string& path, const std::function<void(std::ostream&)>& write, std::string& error);
};

} // namespace kelvor
