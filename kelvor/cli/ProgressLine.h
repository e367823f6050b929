#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace kelvor
{

/**
 * @brief One line on standard error that tells what a long command is doing, for a person
 * watching a terminal: it appears only once the command has run for longer than the delay,
 * is redrawn in place at each step, and is erased when the command ends, so that what the
 * command prints afterwards starts on a clean line. Off, it writes nothing at all: scripts and
 * logs see only the command's own output.
 */
class ProgressLine
{
public:
  /// @param err where the line goes @param enabled false to write nothing @param delay how long a command runs unseen
  ProgressLine(std::ostream& err, bool enabled, std::chrono::milliseconds delay = std::chrono::milliseconds(1000));
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Says what the command does now, as "reading track.csv" or "decimating Eagle (2 of 5)".
  void step(const std::string& what);
  /// Erases the line, if it is shown; called before the command prints anything else.
  void clear();

  /// @return true when standard error is a terminal.
  static bool standardErrorIsTerminal();

private:
  std::ostream& err_;
  bool enabled_;
  std::chrono::milliseconds delay_;
  std::chrono::steady_clock::time_point start_;
  bool shown_ = false;
};

} // namespace kelvor
