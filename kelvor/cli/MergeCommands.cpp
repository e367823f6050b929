// kelvor-edit commands that join tracks: merge, auto-merge, manual-merge, dropouts. They run
// the Merge command's, the Auto Merge tab's, the Manual Merge tab's and the dropout detection's
// own code.
#include "cli/Commands.h"

#include "files/NumberText.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "merge/AutoMerge.h"
#include "merge/CommonMerge.h"
#include "merge/ManualMerge.h"
#include "merge/ManualMergeWidget.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>
#include <set>

namespace kelvor::commands
{

int merge(CommandContext& context)
{
  if (!context.args().has("--entity"))
    return context.usage("--entity is needed: the platform merged into, then the others");
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  if (ids.size() < 2)
    return context.fail("merge needs two platforms or more, and the names give one; nothing written");
  std::vector<std::string> merged;
  for (std::size_t i = 1; i < ids.size(); ++i)
    merged.push_back(context.label(ids[i]));
  context.progress().step("merging into " + context.label(ids.front()));
  QtSep::AutoMerge().mergeAndRemove(ids);
  context.relayNotifications();
  if (!context.writeScenario(out))
    return 1;
  for (const std::string& source : merged)
    context.out() << "merged " << source << " into " << context.label(ids.front()) << '\n';
  context.out() << "wrote " << out << ": " << context.label(ids.front()) << " holds "
                << PIData::getNumberDataPoints(ids.front()) << " points\n";
  return 0;
}

int autoMerge(CommandContext& context)
{
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  // Detect, then Accept with every group ticked, as in the Auto Merge tab.
  context.progress().step("detecting platforms of one name");
  QtSep::AutoMerge autoMerge;
  const auto groups = autoMerge.detectGroups(!context.args().has("--no-original-id"));
  std::size_t removed = 0;
  for (std::size_t g = 0; g < groups.size(); ++g)
  {
    const QtSep::MergeInfo& group = *groups[g];
    context.progress().step("merging " + group.name + " (" + std::to_string(g + 1) + " of " +
                            std::to_string(groups.size()) + ")");
    if (!autoMerge.mergeAndRemove(group.ids))
      continue;
    removed += group.ids.size() - 1;
    context.out() << group.name << " (id " << group.originalId << "): " << group.ids.size()
                  << " platforms merged into the earliest\n";
  }
  context.relayNotifications();
  if (!context.writeScenario(out))
    return 1;
  context.out() << "wrote " << out << ": "
                << (groups.empty() ? std::string("no platforms of one name to merge")
                                   : std::to_string(groups.size()) + (groups.size() == 1 ? " group" : " groups") +
                                       " merged, " + std::to_string(removed) + " platforms removed")
                << '\n';
  return 0;
}

namespace
{

/// Reads the time slice options, the scenario's span where one is not given. @return false, with error set, for a bad one
bool readSlice(const CommandArguments& args, double& start, double& end, std::string& error)
{
  const double largest = std::numeric_limits<double>::max();
  if (!args.number("--start", start, -1.0, largest, error) || !args.number("--end", end, -1.0, largest, error))
    return false;
  if (!args.has("--start"))
    start = PIData::clockGetBegin();
  if (!args.has("--end"))
    end = PIData::clockGetEnd();
  if (end < start)
    error = "--end " + NumberText::format(end) + " is before --start " + NumberText::format(start);
  return error.empty();
}

/// Reads the stretches to leave out, numbered from 1. @return false, with error set, for a bad number
bool readSkipped(const CommandArguments& args, std::set<std::size_t>& skipped, std::string& error)
{
  for (const std::string& text : args.values("--skip"))
  {
    std::size_t used = 0;
    unsigned long long number = 0;
    try
    {
      number = std::stoull(text, &used);
    }
    catch (const std::exception&)
    {
      used = 0;
    }
    if (used != text.size() || number == 0 || text.front() == '-')
    {
      error = "--skip " + text + " is no stretch number: 1 or more";
      return false;
    }
    skipped.insert(static_cast<std::size_t>(number));
  }
  return true;
}

} // namespace

int manualMerge(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string error;
  std::int64_t gap = 15;
  if (args.values("--entity").size() < 2)
    return context.usage("--entity is needed twice or more: the primary, then the others by priority");
  if (!args.integer("--gap", gap, 1, 120, error))
    return context.usage(error);
  std::set<std::size_t> skipped;
  if (!readSkipped(args, skipped, error))
    return context.usage(error);
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  double start = 0.0, end = 0.0;
  if (!readSlice(args, start, end, error))
    return context.usage(error);

  // Detect, untick as asked, then Merge, as in the Manual Merge tab.
  context.progress().step("detecting the dropouts of " + context.label(ids.front()));
  std::vector<QtSep::DropOut> stretches;
  if (!QtSep::ManualMerge::detect(ids, start, end, static_cast<double>(gap), QtSep::ManualMergeWidget::DEFAULT_COLORS,
                                  stretches))
    return context.fail(context.label(ids.front()) + " has no points between " + NumberText::format(start) +
                        " and " + NumberText::format(end) + "; nothing written");
  if (!skipped.empty() && *skipped.rbegin() > stretches.size())
    return context.usage("--skip " + std::to_string(*skipped.rbegin()) + ": there are " +
                         std::to_string(stretches.size()) + " stretches");
  const bool includeNoOriginalId = args.has("--include-no-original-id");
  std::vector<bool> used;
  for (std::size_t k = 0; k < stretches.size(); ++k)
    used.push_back((stretches[k].originalId != 0 || includeNoOriginalId) && !skipped.count(k + 1));
  context.progress().step("merging into a new platform");
  const UniqueID_t merged = QtSep::ManualMerge::merge(ids, start, end, stretches, used);
  context.progress().clear();
  if (merged == 0)
    return context.fail("the merged platform could not be made; nothing written");
  context.relayNotifications();
  if (!context.writeScenario(context.outFile()))
    return 1;
  if (args.has("--json"))
  {
    // The stretches as the tab lists them; "fill" names the platform filling one, N/A for none.
    QJsonArray list;
    for (const QtSep::DropOut& d : stretches)
      list.append(QJsonObject{{"start", d.startTime}, {"end", d.endTime},
                              {"fill", QString::fromStdString(d.sourceName)}});
    context.printJson(QJsonObject{{"dropouts", list}});
    return 0;
  }
  for (std::size_t k = 0; k < stretches.size(); ++k)
  {
    const QtSep::DropOut& d = stretches[k];
    context.out() << k + 1 << ". " << NumberText::format(d.startTime) << ' ' << NumberText::format(d.endTime) << ' '
                  << (d.sourceId ? context.label(d.sourceId) + ", " + std::to_string(d.numberOfPoints) +
                                     (d.numberOfPoints == 1 ? " point" : " points")
                                 : std::string("no source"))
                  << (used[k] ? "" : ", left out") << '\n';
  }
  context.out() << "wrote " << context.outFile() << ": " << context.label(merged) << " holds "
                << PIData::getNumberDataPoints(merged) << " points\n";
  return 0;
}

int dropouts(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string error;
  const double largest = std::numeric_limits<double>::max();
  double gap = 0.0;
  if (args.values("--entity").size() != 1)
    return context.usage("--entity is needed once: the platform to look at");
  if (!args.has("--gap"))
    return context.usage("--gap is needed: the seconds without points that make a dropout");
  if (!args.number("--gap", gap, 0.0, largest, error))
    return context.usage(error);
  if (!(gap > 0.0))
    return context.usage("--gap " + args.value("--gap") + " is out of range: more than 0");
  if (const int status = context.start(1, "one FILE", false))
    return status;
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  if (ids.size() != 1)
    return context.fail("'" + args.value("--entity") + "' names " + std::to_string(ids.size()) +
                        " platforms; dropouts looks at one");
  // The time slice of the Manual Merge tab: the scenario's span unless given.
  double start = 0.0, end = 0.0;
  if (!readSlice(args, start, end, error))
    return context.usage(error);

  std::vector<QtSep::DropOut> found;
  CommonMerge::GenerateDropOuts(ids.front(), start, end, gap, found);
  context.relayNotifications();
  if (args.has("--json"))
  {
    // Written here rather than by QJsonObject, which orders keys by name: start reads before end.
    context.out() << "{\"dropouts\": [";
    for (std::size_t i = 0; i < found.size(); ++i)
      context.out() << (i ? ", " : "") << "{\"start\": " << NumberText::format(found[i].startTime)
                    << ", \"end\": " << NumberText::format(found[i].endTime) << '}';
    context.out() << "]}\n";
  }
  else
  {
    for (const QtSep::DropOut& d : found)
      context.out() << NumberText::format(d.startTime) << ' ' << NumberText::format(d.endTime) << '\n';
  }
  return context.report().errors.empty() ? 0 : 1;
}

} // namespace kelvor::commands
