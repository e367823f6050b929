#include "cli/CommandContext.h"

#include "files/AtomicFile.h"
#include "files/GdalTrackWriter.h"
#include "files/ScenarioWriter.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace kelvor
{

namespace
{

/// Lines of one kind printed in full before the rest are only counted.
constexpr std::size_t LISTED = 20;

/**
 * Prints a read's problems, each as file:line: reason. When most lines of a file have one, the
 * first twenty are printed and the rest counted, so that a file of the wrong kind gives a
 * screenful and not a million lines.
 */
void printLines(const std::vector<std::string>& lines, std::size_t fileLines, const std::string& path,
                const char* rest, std::ostream& err)
{
  const bool most = lines.size() > LISTED && lines.size() * 2 > fileLines;
  const std::size_t shown = most ? LISTED : lines.size();
  for (std::size_t i = 0; i < shown; ++i)
    err << lines[i] << '\n';
  if (shown < lines.size())
    err << path << ": " << lines.size() - shown << " more " << rest << '\n';
}

} // namespace

CommandContext::CommandContext(const std::string& command, const CommandArguments& arguments, std::ostream& out,
                               std::ostream& err, ProgressLine& progress)
  : command_(command), args_(arguments), out_(out), err_(err), progress_(progress)
{
  // The plug-in's own progress dialogs step the line, as they step the window's.
  session_.services().progressStepped = [this](const HeadlessHostServices::Progress& p) {
    progress_.step(p.label + " " + std::to_string(p.value + 1) + " of " + std::to_string(p.maximum));
  };
}

int CommandContext::usage(const std::string& message)
{
  progress_.clear();
  err_ << "kelvor-edit: " << command_ << ": " << message << "\n"
       << "Try 'kelvor-edit " << command_ << " --help'.\n";
  return 2;
}

int CommandContext::fail(const std::string& message)
{
  progress_.clear();
  err_ << "kelvor-edit: " << message << '\n';
  return 1;
}

int CommandContext::start(std::size_t count, const std::string& names, bool whole)
{
  if (args_.files().size() != count)
    return usage("takes " + names);
  std::int64_t year = 0;
  std::string error;
  if (readsReferenceYear_ && !args_.integer("--reference-year", year, 1, 9999, error))
    return usage(error);
  if (readsReferenceYear_ && args_.has("--reference-year") && EditSession::isScenario(inFile()))
    return usage("--reference-year applies to CSV tracks and the other track files; a scenario file holds its own");
  if (!open_(inFile()))
    return 1;
  // Writing a scenario from a file with lines that could not be read would drop them.
  if (whole && !report_.ok())
    return fail(inFile() + " has lines that cannot be read; nothing written");
  return 0;
}

bool CommandContext::open_(const std::string& path)
{
  std::int64_t year = 0;
  std::string ignored;
  if (readsReferenceYear_)
    args_.integer("--reference-year", year, 1, 9999, ignored);
  progress_.step("reading " + path);
  report_ = session_.open(path, static_cast<int>(year));
  progress_.clear();
  printLines(report_.errors, report_.lines, path, "lines that cannot be read", err_);
  printLines(report_.warnings, report_.lines, path, "records that replace earlier ones", err_);
  return report_.loaded;
}

std::string CommandContext::label(UniqueID_t id)
{
  const Entity* e = session_.store().entity(id);
  return e ? nameOfHeader(e->header) + " (id " + std::to_string(originalIdOfHeader(e->header)) + ")"
           : "entity " + std::to_string(id) + " (gone)";
}

QJsonObject CommandContext::entityJson(UniqueID_t id)
{
  const Entity* e = session_.store().entity(id);
  return QJsonObject{{"name", QString::fromStdString(e ? nameOfHeader(e->header) : std::string())},
                     {"id", static_cast<qint64>(e ? originalIdOfHeader(e->header) : 0)}};
}

bool CommandContext::platforms(std::vector<UniqueID_t>& ids)
{
  ids.clear();
  const std::vector<std::string> named = args_.values("--entity");
  if (named.empty())
  {
    ids = session_.store().list(PI_PLATFORM_TYPE);
    return true;
  }
  for (const std::string& name : named)
  {
    const std::vector<UniqueID_t> found = session_.entitiesNamed(name);
    if (found.empty())
    {
      fail("no entity named '" + name + "' in " + inFile() + "; nothing written");
      return false;
    }
    std::size_t platforms = 0;
    for (UniqueID_t id : found)
    {
      if (session_.store().entity(id)->kind != PI_PLATFORM_TYPE)
        continue;
      ++platforms;
      if (std::find(ids.begin(), ids.end(), id) == ids.end())
        ids.push_back(id);
    }
    if (platforms == 0)
    {
      fail("'" + name + "' is no platform; " + command_ + " works on platforms; nothing written");
      return false;
    }
  }
  return true;
}

std::map<UniqueID_t, std::size_t> CommandContext::pointCounts(const std::vector<UniqueID_t>& ids) const
{
  std::map<UniqueID_t, std::size_t> counts;
  for (UniqueID_t id : ids)
    counts[id] = session_.store().entity(id)->pointCount();
  return counts;
}

std::size_t CommandContext::reportRemoved(const std::vector<UniqueID_t>& ids,
                                          const std::map<UniqueID_t, std::size_t>& before)
{
  std::size_t removed = 0;
  for (UniqueID_t id : ids)
  {
    const std::size_t had = before.at(id);
    const std::size_t lost = had - session_.store().entity(id)->pointCount();
    removed += lost;
    out_ << label(id) << ": " << lost << " of " << had << " points removed\n";
  }
  return removed;
}

bool CommandContext::writesTrackFormat_(const std::string& path)
{
  // A scenario's text under a track file's name would replace the track file with what no tool reads.
  return !GdalTrackWriter::driverFor(path).empty();
}

bool CommandContext::writeScenario(const std::string& path, kelCore::CoordinateSystem positions)
{
  if (writesTrackFormat_(path))
  {
    fail(path + ": a scenario (.kls) is written here; export writes GPX, KML, GeoJSON and GeoPackage");
    return false;
  }
  progress_.step("writing " + path);
  std::string error;
  const bool written = ScenarioWriter(session_.store(), {positions}).writeFile(path, error);
  progress_.clear();
  if (!written)
    fail(error);
  return written;
}

bool CommandContext::writeAtomically_(const std::string& path, const std::function<void(std::ostream&)>& write)
{
  progress_.step("writing " + path);
  std::string error;
  const bool written = AtomicFile::write(path, write, error);
  progress_.clear();
  if (!written)
    fail(error);
  return written;
}

void CommandContext::relayNotifications()
{
  progress_.clear();
  for (const std::string& line : session_.takeNotifications())
    err_ << "kelvor-edit: " << line << '\n';
}

void CommandContext::printJson(const QJsonObject& object)
{
  progress_.clear();
  out_ << QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

} // namespace kelvor
