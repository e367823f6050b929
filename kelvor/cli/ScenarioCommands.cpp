// kelvor-edit commands that repair a scenario as a whole: make-stationary and shift-times. They
// run the Make Stationary tab's and the Edit Times dialog's own code.
#include "cli/Commands.h"

#include "files/NumberText.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataScenario.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "processing/AdjustScenarioTimes.h"
#include "processing/MakeStationary.h"

#include <QJsonArray>
#include <QJsonObject>

namespace kelvor::commands
{

namespace
{

/// One criterion of make-stationary: its option and the widest delta the tab offers.
struct Criterion
{
  const char* option;
  std::int64_t most;
  void (QtSep::MakeStationary::*set)(bool, int);
};

const Criterion CRITERIA[] = {{"--distance", 10000, &QtSep::MakeStationary::setDistance},
                              {"--yaw", 180, &QtSep::MakeStationary::setYaw},
                              {"--pitch", 90, &QtSep::MakeStationary::setPitch},
                              {"--roll", 90, &QtSep::MakeStationary::setRoll}};

/// The deltas given, one per criterion: whether it is on, and its value.
using Deltas = std::vector<std::pair<bool, int>>;

/// Reads the deltas. @return false, with error set, for a bad value or none given
bool readDeltas(const CommandArguments& args, Deltas& deltas, std::string& error)
{
  bool any = false;
  for (const Criterion& c : CRITERIA)
  {
    std::int64_t value = 0;
    if (!args.integer(c.option, value, 0, c.most, error))
      return false;
    deltas.emplace_back(args.has(c.option), static_cast<int>(value));
    any = any || args.has(c.option);
  }
  // With no delta every platform with points would qualify: the command asks for one.
  if (!any)
    error = "give at least one delta: --distance M, --yaw DEG, --pitch DEG or --roll DEG";
  return error.empty();
}

} // namespace

int makeStationary(CommandContext& context)
{
  const CommandArguments& args = context.args();
  Deltas deltas;
  std::string error;
  if (!readDeltas(args, deltas, error))
    return context.usage(error);
  const bool detectOnly = args.has("--detect-only");
  if (!detectOnly && args.has("--json"))
    return context.usage("--json goes with --detect-only");
  if (detectOnly && args.has("--keep-life-span"))
    return context.usage("--keep-life-span applies when platforms are converted, not with --detect-only");
  if (const int status = detectOnly ? context.start(1, "one FILE with --detect-only", false)
                                    : context.start(2, "IN and OUT", true))
    return status;
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  // Made once the file is read: it looks at the points within the clock's span.
  QtSep::MakeStationary stationary;
  for (std::size_t k = 0; k < deltas.size(); ++k)
    (stationary.*CRITERIA[k].set)(deltas[k].first, deltas[k].second);
  std::vector<UniqueID_t> found;
  context.progress().step("detecting stationary platforms");
  for (UniqueID_t id : ids)
    if (stationary.isStationary(id))
      found.push_back(id);
  context.progress().clear();

  if (detectOnly)
  {
    if (args.has("--json"))
    {
      QJsonArray platforms;
      for (UniqueID_t id : found)
        platforms.append(context.entityJson(id));
      context.printJson(QJsonObject{{"stationary", platforms}});
    }
    else
      for (UniqueID_t id : found)
        context.out() << context.label(id) << '\n';
    return 0;
  }
  const bool keepLifeSpan = args.has("--keep-life-span");
  for (UniqueID_t id : found)
  {
    stationary.execute(id, keepLifeSpan);
    context.out() << "made stationary: " << context.label(id) << '\n';
  }
  context.relayNotifications();
  if (!context.writeScenario(context.outFile()))
    return 1;
  context.out() << "wrote " << context.outFile() << ": " << found.size() << " of " << ids.size()
                << (ids.size() == 1 ? " platform" : " platforms") << " made stationary\n";
  return 0;
}

int shiftTimes(CommandContext& context)
{
  const CommandArguments& args = context.args();
  if (!args.has("--start"))
    return context.usage("--start is needed: the new start of the scenario, as a time in any of the editor's formats");
  std::int64_t year = 0;
  std::string error;
  if (!args.integer("--year", year, 1970, 9999, error))
    return context.usage(error);
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const int newYear = args.has("--year") ? static_cast<int>(year) : PIData::getReferenceYear();
  kelCore::TimeStamp stamp;
  if (kelCore::TimeFormatterRegistry().fromString(args.value("--start"), stamp, newYear) != 0)
    return context.usage("--start '" + args.value("--start") + "' is no time the editor reads");
  const double startSeconds = static_cast<double>(stamp.secondsSinceRefYear(newYear));
  if (startSeconds < 0.0)
    return context.usage("--start lies before " + std::to_string(newYear) + " began");
  const double oldBegin = PIData::clockGetBegin();
  context.progress().step("moving the scenario's times");
  const std::vector<std::uint64_t> moved = QtSep::AdjustScenarioTimes().execute(newYear, startSeconds);
  context.progress().clear();
  context.relayNotifications();
  if (!context.writeScenario(context.outFile()))
    return 1;
  context.out() << "wrote " << context.outFile() << ": reference year " << newYear << ", start "
                << NumberText::format(startSeconds) << " s (was " << NumberText::format(oldBegin) << " s), "
                << moved.size() << (moved.size() == 1 ? " entity" : " entities") << " moved\n";
  return 0;
}

} // namespace kelvor::commands
