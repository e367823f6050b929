// kelvor-edit commands that join tracks: merge, auto-merge, dropouts. They run the Merge
// command's, the Auto Merge tab's and the dropout detection's own code.
#include "cli/Commands.h"

#include "files/NumberText.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "merge/AutoMerge.h"
#include "merge/CommonMerge.h"

#include <limits>

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

int dropouts(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string error;
  const double largest = std::numeric_limits<double>::max();
  double gap = 0.0, start = 0.0, end = 0.0;
  if (args.values("--entity").size() != 1)
    return context.usage("--entity is needed once: the platform to look at");
  if (!args.has("--gap"))
    return context.usage("--gap is needed: the seconds without points that make a dropout");
  if (!args.number("--gap", gap, 0.0, largest, error) || !args.number("--start", start, -1.0, largest, error) ||
      !args.number("--end", end, -1.0, largest, error))
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
  if (!args.has("--start"))
    start = PIData::clockGetBegin();
  if (!args.has("--end"))
    end = PIData::clockGetEnd();
  if (end < start)
    return context.usage("--end " + NumberText::format(end) + " is before --start " + NumberText::format(start));

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
