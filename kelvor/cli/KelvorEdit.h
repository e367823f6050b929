#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kelvor
{

class EditSession;

/**
 * @brief The batch command line of KELVOR Lite. Each command reads a scenario or CSV file
 * into a store that the plug-in's code is bound to, as in the application, and runs the
 * editor's own processing, merge and validation code on it.
 *
 * Exit status: 0 for success, 1 for failure, 2 for bad usage. No exception leaves run: one
 * that a command lets escape is reported as a failure.
 */
class KelvorEdit
{
public:
  /**
   * Runs one command line. @param arguments the words after the program name
   * @param progress true to show a progress line on err during work longer than a second
   * @return the exit status
   */
  int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, bool progress = false);

  /// Hears of each command's session, as a caller that journals what a command changes would.
  class SessionObserver
  {
  public:
    virtual ~SessionObserver() = default;
    /// The command's session is made; nothing is read yet.
    virtual void started(EditSession& session) = 0;
    /// The command answered status; its session is still there.
    virtual void finished(EditSession& session, int status) = 0;
  };
  /// @param observer hears of the sessions of the commands run from here on; null for none. Not owned.
  void setSessionObserver(SessionObserver* observer) { observer_ = observer; }

  static constexpr int SUCCESS = 0;
  static constexpr int FAILURE = 1;
  static constexpr int USAGE = 2;

private:
  static void usage_(std::ostream& out);

  SessionObserver* observer_ = nullptr;
};

} // namespace kelvor
