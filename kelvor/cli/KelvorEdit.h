#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief The batch command line of KELVOR Lite. Each command reads a scenario or CSV file
 * into a store that the plug-in's code is bound to, as in the application.
 *
 * Exit status: 0 for success, 1 for failure, 2 for bad usage.
 */
class KelvorEdit
{
public:
  /// Runs one command line. @param arguments the words after the program name @return the exit status
  int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

  static constexpr int SUCCESS = 0;
  static constexpr int FAILURE = 1;
  static constexpr int USAGE = 2;

private:
  int info_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
  int convert_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
  int check_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
  int removeDuplicates_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
  int validate_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
  static void usage_(std::ostream& out);
};

} // namespace kelvor
