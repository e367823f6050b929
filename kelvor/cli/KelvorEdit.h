#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kelvor
{

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

  static constexpr int SUCCESS = 0;
  static constexpr int FAILURE = 1;
  static constexpr int USAGE = 2;

private:
  static void usage_(std::ostream& out);
};

} // namespace kelvor
