#include "cli/KelvorEdit.h"

#include "cli/EditSession.h"
#include "files/ScenarioVocabulary.h"
#include "files/ScenarioWriter.h"
#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"
#include "processing/RemoveDuplicatePoints.h"
#include "validation/ValidateScenario.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <map>
#include <sstream>

namespace kelvor
{

namespace
{

// Errors and warnings go to standard error, each as file:line: text.
void printProblems(const ReadReport& report, std::ostream& err)
{
  for (const std::string& e : report.errors)
    err << e << '\n';
  for (const std::string& w : report.warnings)
    err << w << '\n';
}

/// @return "; " and the report's count of replaced records, or nothing when none was replaced.
std::string replacements(const ReadReport& report)
{
  const std::string summary = report.replacementSummary();
  return summary.empty() ? summary : "; " + summary;
}

std::string degrees(double radians, char positive, char negative)
{
  std::ostringstream text;
  text << std::fixed << std::setprecision(6) << std::fabs(radians * 180.0 / M_PI) << ' '
       << (radians < 0 ? negative : positive);
  return text.str();
}

/// @return the entities a --entity value names: the entity of that id, else every entity of that name.
std::vector<UniqueID_t> entitiesNamed(const std::string& nameOrId)
{
  std::vector<UniqueID_t> all;
  PIData::getObjectList(&all);
  const bool digits = !nameOrId.empty() && std::all_of(nameOrId.begin(), nameOrId.end(), ::isdigit);
  if (digits)
  {
    const UniqueID_t id = std::stoull(nameOrId);
    if (std::find(all.begin(), all.end(), id) != all.end())
      return {id};
  }
  std::vector<UniqueID_t> named;
  for (UniqueID_t id : all)
  {
    if (QtSep::getEntityHeaderName(id) == nameOrId)
      named.push_back(id);
  }
  return named;
}

/// @return true when args name exactly one file; otherwise says how the command is used
bool takesOneFile(const std::vector<std::string>& args, const char* command, std::ostream& err)
{
  if (args.size() == 1)
    return true;
  err << "kelvor-edit: " << command << " takes one FILE\n";
  return false;
}

/// Reads a file, reporting every line that cannot be read.
ReadReport openReporting(EditSession& session, const std::string& path, std::ostream& err)
{
  const ReadReport report = session.open(path);
  printProblems(report, err);
  return report;
}

/// Opens a file for a command that writes it again. @param report receives what the read did
/// @return false, after saying why, when any line cannot be read
bool openWhole(EditSession& session, const std::string& path, std::ostream& err, ReadReport& report)
{
  report = openReporting(session, path, err);
  if (report.ok())
    return true;
  // Writing would drop the lines that could not be read.
  err << "kelvor-edit: " << path << " has lines that cannot be read; nothing written\n";
  return false;
}

bool writeScenario(const ScenarioStore& store, const std::string& path, kelCore::CoordinateSystem positions,
                   std::ostream& err)
{
  std::string error;
  if (ScenarioWriter(store, {positions}).writeFile(path, error))
    return true;
  err << "kelvor-edit: " << error << '\n';
  return false;
}

} // namespace

int KelvorEdit::run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
  if (arguments.empty())
  {
    usage_(err);
    return USAGE;
  }
  const std::string& command = arguments[0];
  const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
  if (command == "--help" || command == "-h" || command == "help")
  {
    usage_(out);
    return SUCCESS;
  }
  if (command == "info")
    return info_(rest, out, err);
  if (command == "convert")
    return convert_(rest, out, err);
  if (command == "check")
    return check_(rest, out, err);
  if (command == "remove-duplicates")
    return removeDuplicates_(rest, out, err);
  if (command == "validate")
    return validate_(rest, out, err);
  err << "kelvor-edit: unknown command '" << command << "'\n";
  usage_(err);
  return USAGE;
}

void KelvorEdit::usage_(std::ostream& out)
{
  out << "Usage: kelvor-edit COMMAND ARGUMENTS\n"
         "Batch edits of KELVOR Lite scenario files (.kls) and CSV tracks (.csv).\n"
         "\n"
         "Commands:\n"
         "  info FILE                       entities by kind, points, time span, reference year, origin\n"
         "  convert IN OUT [--positions S]  read IN and write OUT as a scenario file, positions in\n"
         "                                  S: LLA (the default), ECEF, NED, NWU, ENU, XEAST or GTP\n"
         "  check FILE                      report every line that cannot be read, and every record that\n"
         "                                  replaces an earlier one of its series and time\n"
         "  remove-duplicates IN OUT [--entity NAME_OR_ID]...\n"
         "                                  of each run of three or more points equal but for their\n"
         "                                  time keep the first and last; the named entities and their\n"
         "                                  children, or the whole scenario when none is named\n"
         "  validate FILE                   the common errors that make a scenario play wrongly, one a line\n"
         "  --help                          this text\n"
         "\n"
         "Exit status: 0 success, 1 failure, 2 bad usage. Errors go to standard error as file:line: reason.\n";
}

int KelvorEdit::info_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
  if (!takesOneFile(args, "info", err))
    return USAGE;
  EditSession session;
  const ReadReport report = openReporting(session, args[0], err);
  if (!report.loaded)
    return FAILURE;
  const ScenarioStore& store = session.store();
  std::map<std::string, std::size_t> kinds;
  for (UniqueID_t id : store.list(PI_ALL_TYPES))
    ++kinds[ScenarioVocabulary::kindName(store.entity(id)->kind)];
  const ScenarioProperties& p = store.properties();
  out << "file: " << args[0] << '\n';
  out << "entities: " << store.entityCount() << '\n';
  for (const auto& [kind, count] : kinds)
    out << "  " << kind << ": " << count << '\n';
  out << "points: " << store.pointCount()
      << " (each entity's own: platform positions; beam, gate, laser and LOB pointings; projector fields of view;"
         " custom rendering states)\n";
  const double begin = store.earliestTime(0), end = store.latestTime(0);
  if (begin < 0)
    out << "time span: none (no timed data)\n";
  else
    out << "time span: " << begin << " to " << end << " s (" << (end - begin) << " s)\n";
  out << "reference year: " << p.referenceYear << '\n';
  out << "origin: " << degrees(p.latOrigin, 'N', 'S') << ", " << degrees(p.lonOrigin, 'E', 'W') << ", " << p.altOrigin
      << " m\n";
  return report.errors.empty() ? SUCCESS : FAILURE;
}

int KelvorEdit::convert_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
  std::vector<std::string> files;
  kelCore::CoordinateSystem positions = kelCore::CoordinateSystem::LLA;
  for (std::size_t i = 0; i < args.size(); ++i)
  {
    if (args[i] == "--positions")
    {
      if (i + 1 >= args.size() || !ScenarioVocabulary::positionSystem(args[i + 1], positions))
      {
        err << "kelvor-edit: --positions takes LLA, ECEF, NED, NWU, ENU, XEAST or GTP\n";
        return USAGE;
      }
      ++i;
    }
    else
      files.push_back(args[i]);
  }
  if (files.size() != 2)
  {
    err << "kelvor-edit: convert takes IN and OUT\n";
    return USAGE;
  }
  EditSession session;
  ReadReport report;
  if (!openWhole(session, files[0], err, report))
    return FAILURE;
  if (!writeScenario(session.store(), files[1], positions, err))
    return FAILURE;
  out << "wrote " << files[1] << " (" << session.store().entityCount() << " entities, positions "
      << ScenarioVocabulary::positionSystemName(positions) << replacements(report) << ")\n";
  return SUCCESS;
}

int KelvorEdit::check_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
  if (!takesOneFile(args, "check", err))
    return USAGE;
  EditSession session;
  const ReadReport report = openReporting(session, args[0], err);
  // A replaced record is a warning, not an error: the file still reads whole.
  if (report.errors.empty())
  {
    out << args[0] << ": " << report.lines << " lines, all readable" << replacements(report) << '\n';
    return SUCCESS;
  }
  out << args[0] << ": " << report.errors.size() << " of " << report.lines << " lines cannot be read"
      << replacements(report) << '\n';
  return FAILURE;
}

int KelvorEdit::removeDuplicates_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
  std::vector<std::string> files;
  std::vector<std::string> named;
  for (std::size_t i = 0; i < args.size(); ++i)
  {
    if (args[i] == "--entity")
    {
      if (i + 1 >= args.size())
      {
        err << "kelvor-edit: --entity takes a NAME or ID\n";
        return USAGE;
      }
      named.push_back(args[++i]);
    }
    else
      files.push_back(args[i]);
  }
  if (files.size() != 2)
  {
    err << "kelvor-edit: remove-duplicates takes IN and OUT\n";
    return USAGE;
  }
  EditSession session;
  ReadReport report;
  if (!openWhole(session, files[0], err, report))
    return FAILURE;

  std::vector<UniqueID_t> ids;
  for (const std::string& name : named)
  {
    const std::vector<UniqueID_t> found = entitiesNamed(name);
    if (found.empty())
    {
      err << "kelvor-edit: no entity named '" << name << "' in " << files[0] << "; nothing written\n";
      return FAILURE;
    }
    ids.insert(ids.end(), found.begin(), found.end());
  }
  if (named.empty())
    PIData::getObjectList(&ids);

  const ScenarioStore& store = session.store();
  std::map<UniqueID_t, std::size_t> before;
  for (UniqueID_t id : store.list(PI_ALL_TYPES))
    before[id] = store.entity(id)->pointCount();
  const std::vector<UniqueID_t> reduced = QtSep::RemoveDuplicatePoints().remove(ids);
  if (!writeScenario(store, files[1], kelCore::CoordinateSystem::LLA, err))
    return FAILURE;

  std::size_t removed = 0;
  for (UniqueID_t id : reduced)
  {
    const std::size_t lost = before[id] - store.entity(id)->pointCount();
    removed += lost;
    out << QtSep::getEntityHeaderName(id) << " (id " << id << "): " << lost << " of " << before[id]
        << " points removed\n";
  }
  out << "wrote " << files[1] << ": " << removed << " duplicate points removed from " << reduced.size()
      << (reduced.size() == 1 ? " entity\n" : " entities\n");
  return SUCCESS;
}

int KelvorEdit::validate_(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
  if (!takesOneFile(args, "validate", err))
    return USAGE;
  EditSession session;
  const ReadReport report = openReporting(session, args[0], err);
  if (!report.loaded)
    return FAILURE;
  QtSep::ValidateScenario checker;
  checker.validate();
  std::vector<QtSep::ValidateScenario::Issue*> issues;
  checker.getIssues(issues);
  for (const auto* issue : issues)
    out << issue->description() << '\n';
  out << args[0] << ": " << (issues.empty() ? std::string("no issues found") : std::to_string(issues.size()) + " issues")
      << '\n';
  return issues.empty() && report.errors.empty() ? SUCCESS : FAILURE;
}

} // namespace kelvor
