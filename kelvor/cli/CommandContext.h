#pragma once

#include "cli/CommandArguments.h"
#include "cli/EditSession.h"
#include "cli/ProgressLine.h"
#include "kelCore/CoordinateSystem.h"

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

class QJsonObject;

namespace kelvor
{

/**
 * @brief What one run of a command works with: its arguments, the session the plug-in's code
 * runs in, the two output streams and the progress line; and the steps every command shares,
 * each of which says what went wrong before it answers false. Files are read whole, OUT is
 * written atomically and only when all went well, and every message goes to standard error
 * as "kelvor-edit: ...".
 */
class CommandContext
{
public:
  /// @param command the command's name, for messages
  CommandContext(const std::string& command, const CommandArguments& arguments, std::ostream& out, std::ostream& err,
                 ProgressLine& progress);

  const std::string& command() const { return command_; }
  const CommandArguments& args() const { return args_; }
  std::ostream& out() { return out_; }
  std::ostream& err() { return err_; }
  ProgressLine& progress() { return progress_; }
  EditSession& session() { return session_; }

  /// Says what is wrong with the command line. @return the status of bad usage
  int usage(const std::string& message);
  /// Says why the command failed. @return the status of failure
  int fail(const std::string& message);

  /**
   * The start every command shares, once its own options are read: exactly count files (named
   * as in the text, as "IN and OUT"), a --reference-year that fits them, and the first file
   * read, whole when the command writes a scenario from it.
   * @return 0 to go on; else the exit status, after saying why
   */
  int start(std::size_t count, const std::string& names, bool whole);
  /// @param reads false for a command that gives --reference-year a meaning of its own
  void setReadsReferenceYear(bool reads) { readsReferenceYear_ = reads; }
  /// @return the file read (IN or FILE).
  const std::string& inFile() const { return args_.files().at(0); }
  /// @return the file written (OUT).
  const std::string& outFile() const { return args_.files().at(1); }
  /// @return what the last read did.
  const ReadReport& report() const { return report_; }

  /**
   * The platforms the command works on: those the --entity options name, or every platform
   * when none is named. @return false, after saying why, for a name no entity has or one that
   * names no platform
   */
  bool platforms(std::vector<UniqueID_t>& ids);
  /// @return "NAME (id N)", N being the id the file shows (the original id), as NAME_OR_ID takes it.
  std::string label(UniqueID_t id);

  /// @return {"name": NAME, "id": N}, N being the id the file shows, as label gives them.
  QJsonObject entityJson(UniqueID_t id);

  /// Writes the scenario to path atomically. @return false, after saying why, when it could not
  bool writeScenario(const std::string& path, kelCore::CoordinateSystem positions = kelCore::CoordinateSystem::LLA);
  /// Writes text produced by write to path atomically. @return false, after saying why, when it could not
  template <typename Write>
  bool writeText(const std::string& path, Write write);

  /// @return each entity's points, by id, to tell afterwards how many went.
  std::map<UniqueID_t, std::size_t> pointCounts(const std::vector<UniqueID_t>& ids) const;
  /// Prints "NAME (id N): K of M points removed" for each entity. @return the points removed in all
  std::size_t reportRemoved(const std::vector<UniqueID_t>& ids, const std::map<UniqueID_t, std::size_t>& before);

  /// Passes on, to standard error, what the plug-in told the notification stream.
  void relayNotifications();
  /// Prints a JSON object to standard output, indented.
  void printJson(const QJsonObject& object);

private:
  /// @return whether a path names a track file of another tool's format, which a scenario must not replace
  static bool writesTrackFormat_(const std::string& path);
  /// Reads a file, printing every line that cannot be read. @return false when it could not be loaded
  bool open_(const std::string& path);
  bool writeAtomically_(const std::string& path, const std::function<void(std::ostream&)>& write);

  std::string command_;
  const CommandArguments& args_;
  std::ostream& out_;
  std::ostream& err_;
  ProgressLine& progress_;
  EditSession session_;
  ReadReport report_;
  bool readsReferenceYear_ = true;
};

template <typename Write>
bool CommandContext::writeText(const std::string& path, Write write)
{
  return writeAtomically_(path, std::function<void(std::ostream&)>(write));
}

} // namespace kelvor
