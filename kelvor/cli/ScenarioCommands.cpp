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
#include "plugin/Action.h"

#include <QJsonArray>
#include <QJsonObject>

#include <iterator>

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

/// Reads the deltas; with none given no criterion is on. @return false, with error set, for a bad value
bool readDeltas(const CommandArguments& args, Deltas& deltas, std::string& error)
{
  for (const Criterion& c : CRITERIA)
  {
    std::int64_t value = 0;
    if (!args.integer(c.option, value, 0, c.most, error))
      return false;
    deltas.emplace_back(args.has(c.option), static_cast<int>(value));
  }
  return true;
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
  if (detectOnly && args.has("--maintain-life-span"))
    return context.usage("--maintain-life-span applies when platforms are converted, not with --detect-only");
  if (const int status = detectOnly ? context.start(1, "one FILE with --detect-only", false)
                                    : context.start(2, "IN and OUT", true))
    return status;
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  // Made once the file is read: it looks at the points within the clock's span.
  QtSep::MakeStationary stationary;
  // readDeltas gives one delta for each criterion, in their order.
  for (std::size_t k = 0; k < std::size(CRITERIA) && k < deltas.size(); ++k)
  {
    const auto set = CRITERIA[k].set;
    (stationary.*set)(deltas[k].first, deltas[k].second);
  }
  // Named platforms are converted as the command converts them; otherwise the tab's candidates.
  const bool named = args.has("--entity");
  std::vector<UniqueID_t> chosen;
  context.progress().step("detecting stationary platforms");
  for (UniqueID_t id : ids)
    if ((named && !detectOnly) || stationary.isStationary(id))
      chosen.push_back(id);
  context.progress().clear();

  if (detectOnly)
  {
    if (args.has("--json"))
    {
      QJsonArray candidates;
      for (UniqueID_t id : chosen)
        candidates.append(context.entityJson(id));
      context.printJson(QJsonObject{{"candidates", candidates}});
    }
    else
      for (UniqueID_t id : chosen)
        context.out() << context.label(id) << '\n';
    return 0;
  }
  const bool maintainLifeSpan = args.has("--maintain-life-span");
  for (UniqueID_t id : chosen)
  {
    if (stationary.execute(id, maintainLifeSpan) != 0)
      return context.fail(context.label(id) + " has no point to keep; nothing written");
    if (named)
      QtSep::Action::addAudit(id, "Made stationary");
    context.out() << "made stationary: " << context.label(id) << '\n';
  }
  context.relayNotifications();
  if (!context.writeScenario(context.outFile()))
    return 1;
  context.out() << "wrote " << context.outFile() << ": " << chosen.size() << " of " << ids.size()
                << (ids.size() == 1 ? " platform" : " platforms") << " made stationary\n";
  return 0;
}

int shiftTimes(CommandContext& context)
{
  const CommandArguments& args = context.args();
  if (!args.has("--start") && !args.has("--reference-year"))
    return context.usage("give --start, --reference-year or both: the scenario would not move");
  std::int64_t year = 0;
  std::string error;
  if (!args.integer("--reference-year", year, 1970, 9999, error))
    return context.usage(error);
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const int newYear = args.has("--reference-year") ? static_cast<int>(year) : PIData::getReferenceYear();
  const double oldBegin = PIData::clockGetBegin();
  // The year alone relabels: every value keeps its seconds, as the dialog does.
  double startSeconds = oldBegin;
  if (args.has("--start"))
  {
    kelCore::TimeStamp stamp;
    if (kelCore::TimeFormatterRegistry().fromString(args.value("--start"), stamp, newYear) != 0)
      return context.usage("--start '" + args.value("--start") + "' is no time the editor reads");
    startSeconds = static_cast<double>(stamp.secondsSinceRefYear(newYear));
    if (startSeconds < 0.0)
      return context.usage("--start lies before " + std::to_string(newYear) + " began");
  }
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
