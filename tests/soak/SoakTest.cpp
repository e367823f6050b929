// A seeded random sequence of the editor's commands on a random scenario, through the real
// server, with the store checked after every step: series in time order, numbers finite, every
// child with its host, and the scenario saved and read back unchanged.
//
// SOAK_SEED and SOAK_STEPS choose the run (a short one by default); SOAK_VERBOSE=1 names each
// step before it runs, to find the step of a crash. A failing step prints the command line
// that replays the run up to it.

#include "actions/AddEntityAction.h"
#include "actions/CalculateOriVelAction.h"
#include "actions/CreateScenario.h"
#include "actions/DecimateAction.h"
#include "actions/DeleteAction.h"
#include "actions/DeleteScenarioAction.h"
#include "actions/ExtendLifeAction.h"
#include "actions/MergeAction.h"
#include "actions/RemoveDuplicatePointsAction.h"
#include "actions/RenameAction.h"
#include "actions/ScenarioPropertiesDialog.h"
#include "actions/VelocityAction.h"
#include "files/ScenarioReader.h"
#include "files/ScenarioWriter.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "merge/AutomaticMergeWidget.h"
#include "merge/CommonMerge.h"
#include "merge/PlatformMerge.h"
#include "plugin/ActionUtilities.h"
#include "plugin/MenuInfo.h"
#include "processing/ByCalculatedSpeed.h"
#include "processing/ByGivenSpeed.h"
#include "processing/ByPointDecimation.h"
#include "processing/ByTimeDecimation.h"
#include "processing/CullAngleDecimation.h"
#include "processing/DistanceDecimation.h"
#include "processing/PUCalculation.h"
#include "processing/VisvalingamDecimation.h"
#include "support/RandomScenario.h"
#include "support/ScenarioChecks.h"
#include "support/SeededRandom.h"
#include "support/ServerFixture.h"
#include "validation/ValidateScenario.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "validation/ValidateScenarioWidget.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>

using namespace QtSep;

namespace
{

constexpr std::uint64_t DEFAULT_SEED = 20240611;
constexpr std::uint64_t DEFAULT_STEPS = 100;
// A scenario grown past these, or left with fewer than two platforms, is made anew.
constexpr std::size_t MOST_ENTITIES = 200;
constexpr std::size_t MOST_POINTS = 30000;

std::uint64_t fromEnvironment(const char* name, std::uint64_t fallback)
{
  const char* text = std::getenv(name);
  if (!text || !*text)
    return fallback;
  char* end = nullptr;
  const unsigned long long value = std::strtoull(text, &end, 10);
  return end && *end == '\0' ? value : fallback;
}

/// Runs work, handing the first modal window it opens to answer; work need not open one.
void answeringModal(const std::function<void(QWidget*)>& answer, const std::function<void()>& work)
{
  QTimer timer;
  timer.setSingleShot(true);
  // A zero timer fires at the first turn of the modal window's own event loop, once it is up.
  QObject::connect(&timer, &QTimer::timeout, [&timer, &answer] {
    if (QWidget* modal = QApplication::activeModalWidget())
      answer(modal);
    else
      timer.start(0);
  });
  timer.start(0);
  work();
  timer.stop();
}

std::string number(double value)
{
  std::ostringstream text;
  text.precision(17);
  text << value;
  return text.str();
}

class Soak : public ServerFixture
{
protected:
  /// One command: its name, how often it is drawn against the others, and how it picks its
  /// arguments and runs, telling what it chose.
  struct Command
  {
    const char* name;
    int weight;
    std::string (Soak::*run)();
  };

  /// Every command the soak runs; a new command joins with one line here.
  static const std::vector<Command>& commands()
  {
    static const std::vector<Command> all = {
      {"Remove Duplicate Points", 3, &Soak::removeDuplicatePoints_},
      {"Decimate by point", 1, &Soak::decimateByPoint_},
      {"Decimate by time", 1, &Soak::decimateByTime_},
      {"Decimate by time, resampled", 1, &Soak::decimateByTimeResampled_},
      {"Decimate by angle", 1, &Soak::decimateByAngle_},
      {"Decimate by distance", 1, &Soak::decimateByDistance_},
      {"Decimate by area", 1, &Soak::decimateByArea_},
      {"Velocity Filtering by given speed", 2, &Soak::filterByGivenSpeed_},
      {"Velocity Filtering by calculated speed", 2, &Soak::filterByCalculatedSpeed_},
      {"Calculate Ori / Vel by delta", 2, &Soak::deriveByDelta_},
      {"Calculate Ori / Vel by Lagrangian", 2, &Soak::deriveByLagrangian_},
      {"Merge", 2, &Soak::merge_},
      {"Auto Merge", 1, &Soak::autoMerge_},
      {"Platform merge of a slice", 2, &Soak::mergeSlice_},
      {"Back-fill track", 1, &Soak::backFill_},
      {"Fill track", 1, &Soak::fillTrack_},
      {"Validate, Fix All", 2, &Soak::fixAll_},
      {"Validate, one repair", 2, &Soak::repairOne_},
      {"Extend Life", 2, &Soak::extendLife_},
      {"Rename", 2, &Soak::rename_},
      {"Delete", 1, &Soak::delete_},
      {"Add Entity", 3, &Soak::addEntity_},
      {"Edit scenario properties", 1, &Soak::editScenario_},
      {"Delete Scenario", 1, &Soak::deleteScenario_},
      {"Clock span", 1, &Soak::clockSpan_},
    };
    return all;
  }

  void SetUp() override
  {
    ServerFixture::SetUp();
    // The commands run as a user who told them not to ask.
    for (const char* key : {RemoveDuplicatePointsAction::CONFIRM_KEY, MergeAction::CONFIRM_KEY,
                            DeleteAction::CONFIRM_KEY, ExtendLifeAction::CONFIRM_KEY})
      PURegistry::saveReg(key, false);
  }

  /// Runs steps commands chosen from seed, checking after each. @return the count of runs per command
  std::map<std::string, int> soak(std::uint64_t seed, std::uint64_t steps)
  {
    random_ = SeededRandom(seed);
    // Every command runs once, in a random order, before the draws begin: a short run meets them all.
    std::vector<const Command*> round;
    for (const Command& command : commands())
      round.push_back(&command);
    round = random_.some(round, round.size(), round.size());
    std::size_t next = 0;
    std::map<std::string, int> runs;
    std::vector<std::string> log;
    const bool verbose = fromEnvironment("SOAK_VERBOSE", 0) != 0;
    const std::string file = dir.filePath("soak.kls").toStdString();
    for (std::uint64_t step = 0; step <= steps; ++step)
    {
      // Step 0 makes the first scenario.
      std::string name = "New scenario";
      const Command* command = nullptr;
      if (step > 0 && !needsNewScenario_())
      {
        command = next < round.size() ? round[next++] : &draw_();
        name = command->name;
      }
      if (verbose)
        std::cerr << "[ soak ] step " << step << ": " << name << std::endl;
      const std::string arguments = command ? (this->*(command->run))() : newScenario_();
      log.push_back(std::to_string(step) + ": " + name + (arguments.empty() ? "" : " " + arguments));
      if (verbose)
        std::cerr << "[ soak ] " << log.back() << std::endl;
      ++runs[name];

      std::vector<std::string> problems = hostServiceProblems_();
      if (problems.empty())
        problems = ScenarioChecks::inconsistencies(store);
      if (problems.empty())
        problems = ScenarioChecks::saveAndReadBack(store, file);
      if (!problems.empty())
      {
        ADD_FAILURE() << failure_(seed, step, log, problems);
        break;
      }
    }
    return runs;
  }

private:
  const Command& draw_()
  {
    int total = 0;
    for (const Command& command : commands())
      total += command.weight;
    auto ticket = random_.integer(0, total - 1);
    for (const Command& command : commands())
    {
      ticket -= command.weight;
      if (ticket < 0)
        return command;
    }
    return commands().back();
  }

  bool needsNewScenario_() const
  {
    std::size_t points = 0;
    for (UniqueID_t id : store.list(PI_ALL_TYPES))
      points += store.entity(id)->pointCount();
    return store.list(PI_PLATFORM_TYPE).size() < 2 || store.entityCount() > MOST_ENTITIES || points > MOST_POINTS;
  }

  std::string newScenario_()
  {
    RandomScenario().make(random_);
    return "of " + std::to_string(store.entityCount()) + " entities";
  }

  /// What a command left open in the host: the wait cursor, a progress dialog.
  std::vector<std::string> hostServiceProblems_()
  {
    std::vector<std::string> problems;
    if (services.waitCursorDepth != 0)
      problems.push_back("the wait cursor is left at depth " + std::to_string(services.waitCursorDepth));
    if (!services.progress.empty())
      problems.push_back(std::to_string(services.progress.size()) + " progress dialogs are left open");
    services.notifications.clear();
    services.toasts.clear();
    return problems;
  }

  static std::string failure_(std::uint64_t seed, std::uint64_t step, const std::vector<std::string>& log,
                              const std::vector<std::string>& problems)
  {
    std::ostringstream text;
    text << "The soak of seed " << seed << " failed after step " << step << ":\n";
    for (const std::string& problem : problems)
      text << "  " << problem << "\n";
    text << "Replay: SOAK_SEED=" << seed << " SOAK_STEPS=" << step << " build/bin/soak_tests"
         << " --gtest_filter=Soak.RandomCommandsKeepTheScenarioConsistent\nSteps:\n";
    for (const std::string& line : log)
      text << "  " << line << "\n";
    return text.str();
  }

  // Choosing what a command works on.

  EntityInfo info_(UniqueID_t id) const
  {
    const kelvor::Entity* entity = store.entity(id);
    return EntityInfo{id, entity->kind, kelvor::nameOfHeader(entity->header)};
  }

  std::vector<EntityInfo> some_(int kinds, std::size_t least, std::size_t most)
  {
    std::vector<EntityInfo> chosen;
    for (UniqueID_t id : random_.some(store.list(kinds), least, most))
      chosen.push_back(info_(id));
    return chosen;
  }

  std::vector<EntityInfo> somePlatforms_(std::size_t least, std::size_t most)
  {
    return some_(PI_PLATFORM_TYPE, least, most);
  }

  static std::string text_(const std::vector<EntityInfo>& entities)
  {
    std::string text = "on [";
    for (const EntityInfo& entity : entities)
      text += (text.size() > 4 ? ", " : "") + std::to_string(entity.id) + " \"" + entity.name + "\"";
    return text + "]";
  }

  /// Offers the selection to a command of the editor's menu and chooses it when offered.
  static std::string trigger_(CommandAction& action, const std::vector<EntityInfo>& selection)
  {
    std::vector<MenuInfo*> items;
    action.menuRequested(selection, items);
    const bool offered = !items.empty();
    for (MenuInfo* item : items)
      delete item;
    if (offered)
      action.action()->trigger();
    return text_(selection) + (offered ? "" : " (not offered)");
  }

  double scenarioStart_() const { return std::max(0.0, store.earliestTime(0)); }
  double scenarioEnd_() const { return std::max(scenarioStart_(), store.latestTime(0)); }

  // The commands.

  std::string removeDuplicatePoints_()
  {
    const std::vector<EntityInfo> selection =
      random_.chance(0.2) ? std::vector<EntityInfo>{EntityInfo{0, PI_ALL_TYPES, ""}} : some_(PI_ALL_TYPES, 1, 4);
    return trigger_(removeDuplicatesAction_, selection);
  }

  std::string decimate_(const std::vector<EntityInfo>& selection, DecimateAlgorithm& algorithm,
                        const std::string& parameters)
  {
    const bool append = random_.chance(0.3);
    algorithm.setAppendToSource(append);
    DecimateAction::decimatePlatforms(selection, algorithm);
    return parameters + (append ? ", append to source " : " ") + text_(selection);
  }

  /// @return now and then one of edges, else a value in [low, high)
  double orEdge_(const std::vector<double>& edges, double low, double high)
  {
    return random_.chance(0.2) ? random_.pick(edges) : random_.uniform(low, high);
  }

  /// Chooses whether the algorithm keeps the last point. @return the choice as text
  template <typename Algorithm>
  std::string keepLast_(Algorithm& algorithm)
  {
    algorithm.setKeepLastPoint(random_.chance(0.5));
    return algorithm.keepLastPoint() ? ", keep last" : "";
  }

  std::string decimateByPoint_()
  {
    const auto selection = somePlatforms_(1, 3);
    ByPointDecimation byPoint;
    const auto every = static_cast<std::uint64_t>(orEdge_({0, 1, 2, 1e6}, 2, 41));
    byPoint.setKeepEveryNumPoints(every);
    return decimate_(selection, byPoint, "every " + std::to_string(every) + keepLast_(byPoint));
  }

  std::string decimateByTime_()
  {
    const auto selection = somePlatforms_(1, 3);
    ByTimeDecimation byTime;
    byTime.setMinimumDataInterval(orEdge_({0.0, 1e-3, 1e9}, 0.5, 120.0));
    return decimate_(selection, byTime, number(byTime.minimumDataInterval()) + " s" + keepLast_(byTime));
  }

  std::string decimateByTimeResampled_()
  {
    const auto selection = somePlatforms_(1, 3);
    // A resampling costs the span over the interval: keep it to a track's worth of points.
    double longest = 0.0;
    for (const EntityInfo& platform : selection)
      longest = std::max(longest, store.latestTime(platform.id) - store.earliestTime(platform.id));
    ByTimeDecimation byTime;
    byTime.setInterpolate(true);
    byTime.setMinimumDataInterval(std::max(1e-3, longest / orEdge_({1.0, 1500.0}, 1.0, 1500.0)));
    if (random_.chance(0.05))
      byTime.setMinimumDataInterval(0.0);
    return decimate_(selection, byTime, number(byTime.minimumDataInterval()) + " s" + keepLast_(byTime));
  }

  std::string decimateByAngle_()
  {
    const auto selection = somePlatforms_(1, 3);
    CullAngleDecimation byAngle;
    const double degrees = orEdge_({0.0, 0.01, 180.0}, 0.01, 180.0);
    byAngle.setCullAngle(degrees * M_PI / 180.0);
    return decimate_(selection, byAngle, number(degrees) + " deg" + keepLast_(byAngle));
  }

  std::string decimateByDistance_()
  {
    const auto selection = somePlatforms_(1, 3);
    DistanceDecimation byDistance;
    byDistance.setDistance(std::floor(orEdge_({0.0, 1.0, 1e7}, 1.0, 10000.0)));
    return decimate_(selection, byDistance, number(byDistance.distance()) + " m" + keepLast_(byDistance));
  }

  std::string decimateByArea_()
  {
    const auto selection = somePlatforms_(1, 3);
    VisvalingamDecimation byArea;
    byArea.setPercentageDrop(orEdge_({0.001, 0.5, 0.999}, 0.001, 0.999));
    return decimate_(selection, byArea, "drop " + number(byArea.percentageDrop()));
  }

  std::string filterBySpeed_(SpeedFilter& filter)
  {
    const auto selection = somePlatforms_(1, 3);
    filter.minVelocityMs = random_.chance(0.3) ? 0.0 : random_.uniform(0.0, 200.0);
    // Now and then a minimum over the maximum, which the dialog allows.
    filter.maxVelocityMs = random_.chance(0.1) ? filter.minVelocityMs / 2.0
                                               : filter.minVelocityMs + random_.uniform(0.0, 600.0);
    fireChangeCallback(VelocityAction::filterPlatforms(selection, filter));
    return "[" + number(filter.minVelocityMs) + ", " + number(filter.maxVelocityMs) + "] m/s " + text_(selection);
  }

  std::string filterByGivenSpeed_()
  {
    ByGivenSpeed filter;
    return filterBySpeed_(filter);
  }

  std::string filterByCalculatedSpeed_()
  {
    ByCalculatedSpeed filter;
    return filterBySpeed_(filter);
  }

  std::string deriveByDelta_()
  {
    const auto selection = somePlatforms_(1, 3);
    const bool orientation = random_.chance(0.7);
    const bool velocity = random_.chance(0.7);
    CalculateOriVelAction::calculate(selection, false, orientation, velocity, 10);
    return std::string(orientation ? "orientation " : "") + (velocity ? "velocity " : "") + text_(selection);
  }

  std::string deriveByLagrangian_()
  {
    const auto selection = somePlatforms_(1, 3);
    // Windows up to and past a track's length: a track too short for its window is refused.
    const auto window = static_cast<std::size_t>(
      random_.chance(0.2) ? PUCalculation::MINIMUM_POINTS : random_.integer(PUCalculation::MINIMUM_POINTS, 40));
    const bool orientation = random_.chance(0.7);
    const bool velocity = random_.chance(0.7);
    CalculateOriVelAction::calculate(selection, true, orientation, velocity, static_cast<unsigned int>(window));
    return std::string(orientation ? "orientation " : "") + (velocity ? "velocity " : "") + "window " +
           std::to_string(window) + " " + text_(selection);
  }

  std::string merge_()
  {
    // Mostly platforms of one name, as a user merges a track broken up.
    std::map<std::string, std::vector<UniqueID_t>> byName;
    for (UniqueID_t id : store.list(PI_PLATFORM_TYPE))
      byName[kelvor::nameOfHeader(store.entity(id)->header)].push_back(id);
    std::vector<std::vector<UniqueID_t>> groups;
    for (const auto& [name, ids] : byName)
    {
      if (ids.size() >= 2)
        groups.push_back(ids);
    }
    std::vector<EntityInfo> selection;
    if (!groups.empty() && random_.chance(0.6))
    {
      for (UniqueID_t id : random_.some(random_.pick(groups), 2, 3))
        selection.push_back(info_(id));
    }
    else
      selection = somePlatforms_(2, 3);
    return trigger_(mergeAction_, selection);
  }

  std::string autoMerge_()
  {
    AutomaticMergeWidget tab;
    const bool compare = random_.chance(0.5);
    tab.findChild<QCheckBox*>("compareCheckBox")->setChecked(compare);
    QString warning;
    const auto closeWarning = [&warning](QWidget* modal) {
      if (auto* box = qobject_cast<QMessageBox*>(modal))
      {
        warning = box->text();
        box->accept();
      }
    };
    answeringModal(closeWarning, [&tab] { tab.findChild<QPushButton*>("detectPushButton")->click(); });
    auto* tree = tab.findChild<QTreeWidget*>("treeWidget");
    int unticked = 0;
    for (int row = 0; row < tree->topLevelItemCount(); ++row)
    {
      if (random_.chance(0.25))
      {
        tree->topLevelItem(row)->setCheckState(0, Qt::Unchecked);
        ++unticked;
      }
    }
    const int groups = tree->topLevelItemCount();
    answeringModal(closeWarning, [&tab] { tab.findChild<QPushButton*>("acceptPushButton")->click(); });
    return std::string(compare ? "comparing original IDs: " : "by name: ") + std::to_string(groups) + " groups, " +
           std::to_string(unticked) + " unticked" + (warning.isEmpty() ? "" : " (" + warning.toStdString() + ")");
  }

  std::string mergeSlice_()
  {
    const auto pair = somePlatforms_(2, 2);
    if (pair.size() < 2)
      return "(too few platforms)";
    PlatformMerge merge;
    if (random_.chance(0.5))
      merge.setMergeSuffix("");
    const double start = random_.uniform(scenarioStart_() - 30.0, scenarioEnd_());
    const double end = random_.chance(0.05) ? start - 1.0 : start + random_.uniform(0.0, scenarioEnd_() - start + 30.0);
    merge.mergePlatform(pair[0].id, pair[1].id, start, end);
    fireChangeCallback(pair[0].id);
    return "from " + std::to_string(pair[1].id) + " into " + std::to_string(pair[0].id) + " over [" + number(start) +
           ", " + number(end) + "], suffix \"" + merge.mergeSuffix() + "\"";
  }

  std::vector<std::uint32_t> colours_()
  {
    std::vector<std::uint32_t> colours;
    for (auto count = random_.integer(1, 3); count > 0; --count)
      colours.push_back(static_cast<std::uint32_t>(random_.integer(0, 0xFFFFFFFFLL)));
    return colours;
  }

  std::string backFill_()
  {
    const auto chosen = somePlatforms_(2, 3);
    if (chosen.size() < 2)
      return "(too few platforms)";
    std::vector<UniqueID_t> sources;
    for (const EntityInfo& platform : chosen)
      sources.push_back(platform.id);
    const double gap = random_.uniform(0.5, 120.0);
    const bool colorize = random_.chance(0.5);
    const std::uint32_t holes = CommonMerge::BackFillTrack(sources.front(), sources, gap, colorize, colours_());
    fireChangeCallback(sources.front());
    return "gap " + number(gap) + (colorize ? ", coloured " : " ") + text_(chosen) + ": " + std::to_string(holes) +
           " dropouts";
  }

  std::string fillTrack_()
  {
    const auto source = somePlatforms_(1, 1);
    const double start = random_.uniform(scenarioStart_() - 30.0, scenarioEnd_());
    const double end = start + random_.uniform(0.0, scenarioEnd_() - start + 30.0);
    const bool extend = random_.chance(0.5);
    UniqueID_t made = 0;
    const bool filled = CommonMerge::FillTrack(made, source[0].id, start, end,
                                               static_cast<std::uint32_t>(random_.integer(0, 0xFFFFFFFFLL)), extend);
    return "[" + number(start) + ", " + number(end) + "]" + (extend ? ", extended " : " ") + text_(source) +
           (filled ? " into " + std::to_string(made) : " (nothing)");
  }

  std::string fixAll_()
  {
    ValidateScenarioWidget view;
    view.validate();
    auto* fixAll = view.findChild<QPushButton*>("fixAllPushButton");
    const bool fixable = fixAll->isEnabled();
    fixAll->click();
    return std::to_string(view.findChild<QTreeWidget*>("issuesTreeWidget")->topLevelItemCount()) + " rows" +
           (fixable ? "" : ", nothing to fix");
  }

  std::string repairOne_()
  {
    ValidateScenario checker;
    checker.validate();
    std::vector<ValidateScenario::Issue*> issues;
    checker.getIssues(issues);
    if (issues.empty())
      return "(no issues)";
    // Mostly an issue that offers a repair.
    std::vector<ValidateScenario::Issue*> repairable;
    for (ValidateScenario::Issue* issue : issues)
    {
      if (issue->numberOfSolutions() > 0)
        repairable.push_back(issue);
    }
    const ValidateScenario::Issue& issue =
      *random_.pick(repairable.empty() || random_.chance(0.15) ? issues : repairable);
    std::vector<ValidateScenario::Solution*> solutions;
    issue.getSolutions(solutions);
    if (solutions.empty())
      return "\"" + issue.description() + "\" (no repair)";
    ValidateScenario::Solution& solution = *random_.pick(solutions);
    const int status = solution.apply();
    return "\"" + issue.description() + "\": " + solution.title() + (status == 0 ? "" : " (failed)");
  }

  std::string extendLife_() { return trigger_(extendLifeAction_, somePlatforms_(1, 4)); }

  std::string rename_()
  {
    static const std::vector<std::string> names = {
      "", "Eagle", "Hawk", "Radar", "Eagle \xC3\x9C", "quote \" back\\slash # hash", "  padded  ", "_orig", "Hawk_orig",
      "tab\there", std::string(300, 'x')};
    const auto chosen = some_(PI_ALL_TYPES, 1, 1);
    if (chosen.empty())
      return "(nothing to rename)";
    const std::string& name = random_.pick(names);
    const int status = RenameAction::setName(chosen[0].id, chosen[0].type, name);
    fireChangeCallback(chosen[0].id);
    return text_(chosen) + " to \"" + name + "\"" + (status == 0 ? "" : " (refused)");
  }

  std::string delete_() { return trigger_(deleteAction_, some_(PI_ALL_TYPES, 1, 3)); }

  std::string addEntity_()
  {
    std::vector<EntityInfo> hosts = some_(PI_PLATFORM_TYPE | PI_BEAM_TYPE, 1, 1);
    if (hosts.empty() || random_.chance(0.2))
      hosts = {EntityInfo{0, PI_ALL_TYPES, ""}};
    std::vector<MenuInfo*> items;
    addEntityAction_.menuRequested(hosts, items);
    std::vector<QAction*> entries;
    for (MenuInfo* item : items)
    {
      if (auto* submenu = dynamic_cast<SubmenuInfo*>(item))
      {
        for (MenuInfo* entry : submenu->items())
        {
          if (auto* action = dynamic_cast<ActionInfo*>(entry))
            entries.push_back(action->action());
        }
      }
    }
    std::string text = "(nothing offered)";
    if (!entries.empty())
    {
      QAction* entry = random_.pick(entries);
      const std::string name = random_.pick(std::vector<std::string>{"New", "Radar", "Eagle", "a \"b\" #c"});
      const bool accept = random_.chance(0.9);
      const auto option = random_.integer(0, 7);
      answeringModal(
        [&](QWidget* modal) {
          auto* dialog = qobject_cast<QDialog*>(modal);
          if (!dialog)
            return;
          dialog->findChild<QLineEdit*>("nameLineEdit")->setText(QString::fromStdString(name));
          auto* combo = dialog->findChild<QComboBox*>("optionComboBox");
          if (combo->count() > 0)
            combo->setCurrentIndex(static_cast<int>(option % combo->count()));
          accept ? dialog->accept() : dialog->reject();
        },
        [entry] { entry->trigger(); });
      text = entry->text().toStdString() + " \"" + name + "\", option " + std::to_string(option) +
             (accept ? " " : ", cancelled ") + text_(hosts);
    }
    for (MenuInfo* item : items)
      delete item;
    return text;
  }

  std::string editScenario_()
  {
    // The Miscellaneous tab's "Edit..." applies what its dialog shows.
    ScenarioPropertiesDialog dialog(false);
    Ui_ScenarioPropertiesDialog& ui = dialog.ui();
    ui.referenceYear->setValue(static_cast<int>(random_.integer(1970, 2038)));
    ui.latitude->setValue(random_.uniform(-90.0, 90.0));
    ui.longitude->setValue(random_.uniform(-180.0, 180.0));
    ui.altitude->setValue(random_.uniform(0.0, 5000.0));
    ui.xOffset->setValue(random_.uniform(-1000.0, 1000.0));
    ui.angleOffset->setValue(random_.uniform(-180.0, 180.0));
    const std::vector<std::string> descriptions = {"", "Edited \"#1\"", "\xC3\x9C"};
    ui.description->setText(QString::fromStdString(random_.pick(descriptions)));
    ui.windSpeed->setValue(random_.uniform(0.0, 40.0));
    ui.windDirection->setValue(random_.uniform(0.0, 359.99));
    applyScenarioProperties(dialog);
    fireChangeCallback(0UL);
    return "year " + std::to_string(dialog.referenceYear()) + ", description \"" + dialog.description().toStdString() +
           "\"";
  }

  std::string deleteScenario_()
  {
    const bool accept = random_.chance(0.7);
    std::string text;
    answeringModal(
      [accept](QWidget* modal) {
        if (auto* dialog = qobject_cast<QDialog*>(modal))
          accept ? dialog->accept() : dialog->reject();
      },
      [this, &text] { text = trigger_(deleteScenarioAction_, {EntityInfo{0, PI_ALL_TYPES, ""}}); });
    return text + (accept ? "" : ", cancelled");
  }

  std::string clockSpan_()
  {
    if (random_.chance(0.4))
    {
      PIData::clockAutoConfigureBeginEnd();
      return "fitted to the data";
    }
    // Scenario times run from the start of the reference year.
    const double begin = std::max(0.0, random_.uniform(scenarioStart_() - 60.0, scenarioEnd_()));
    const double end = begin + random_.uniform(0.0, scenarioEnd_() - begin + 60.0);
    PIData::clockSetBegin(begin);
    PIData::clockSetEnd(end);
    return "[" + number(begin) + ", " + number(end) + "]";
  }

  SeededRandom random_{0};
  RemoveDuplicatePointsAction removeDuplicatesAction_{nullptr};
  MergeAction mergeAction_{nullptr};
  ExtendLifeAction extendLifeAction_{nullptr};
  DeleteAction deleteAction_{nullptr};
  AddEntityAction addEntityAction_{nullptr};
  DeleteScenarioAction deleteScenarioAction_{nullptr};
};

} // namespace

TEST_F(Soak, RandomCommandsKeepTheScenarioConsistent)
{
  const std::uint64_t seed = fromEnvironment("SOAK_SEED", DEFAULT_SEED);
  const std::uint64_t steps = fromEnvironment("SOAK_STEPS", DEFAULT_STEPS);
  std::cerr << "[ soak ] SOAK_SEED=" << seed << " SOAK_STEPS=" << steps << std::endl;
  const std::map<std::string, int> runs = soak(seed, steps);
  std::cerr << "[ soak ] runs:";
  for (const auto& [name, count] : runs)
    std::cerr << " " << name << " " << count << ";";
  std::cerr << std::endl;
}

namespace
{

bool mentions(const std::vector<std::string>& findings, const std::string& text)
{
  return std::any_of(findings.begin(), findings.end(),
                     [&text](const std::string& finding) { return finding.find(text) != std::string::npos; });
}

} // namespace

TEST_F(Soak, TheChecksFindWhatTheyLookFor)
{
  SeededRandom random(7);
  RandomScenario().make(random);
  ASSERT_EQ(std::vector<std::string>{}, ScenarioChecks::inconsistencies(store));
  ASSERT_FALSE(store.list(PI_BEAM_TYPE).empty());
  UniqueID_t platform = 0;
  for (UniqueID_t id : store.list(PI_PLATFORM_TYPE))
  {
    if (!platform && store.entity(id)->platformPoints.size() >= 2)
      platform = id;
  }
  ASSERT_NE(0u, platform);
  const UniqueID_t beam = store.list(PI_BEAM_TYPE).front();

  // Two reads of one file are the same scenario; a change of one bit or one reference is not.
  const std::string file = dir.filePath("planted.kls").toStdString();
  std::string error;
  ASSERT_TRUE(kelvor::ScenarioWriter(store).writeFile(file, error)) << error;
  kelvor::ScenarioStore first;
  kelvor::ScenarioStore second;
  ASSERT_TRUE(kelvor::ScenarioReader(first).readFile(file).ok());
  ASSERT_TRUE(kelvor::ScenarioReader(second).readFile(file).ok());
  EXPECT_EQ(std::vector<std::string>{}, ScenarioChecks::differences(first, second));
  const std::vector<UniqueID_t> own = store.list(PI_ALL_TYPES);
  const auto place = static_cast<std::size_t>(std::find(own.begin(), own.end(), platform) - own.begin());
  kelvor::Entity& copy = *second.editEntity(second.list(PI_ALL_TYPES)[place]);
  kelvor::StoredPlatformPoint moved = copy.platformPoints.back();
  moved.lon = std::nextafter(moved.lon, 10.0);
  copy.platformPoints.insert(moved);
  std::get<PIData::PIPlatformHeader>(copy.header).originalId += 1;
  std::vector<std::string> found = ScenarioChecks::differences(first, second);
  EXPECT_TRUE(mentions(found, "lon ")) << ::testing::PrintToString(found);
  EXPECT_TRUE(mentions(found, "header: originalId")) << ::testing::PrintToString(found);

  // The store's own rules: a NaN, a category out of order, a child whose host is gone.
  PIData::PIPlatformPoint unknown;
  unknown.time = store.latestTime(platform) + 1.0;
  unknown.position = {0.5, -2.0, std::nan("")};
  PIData::addDataPoint(platform, &unknown);
  kelvor::Entity& entity = *store.editEntity(platform);
  entity.categories.push_back(PIData::PICategoryDataPoint{1e6, "Side", "Red"});
  entity.categories.push_back(PIData::PICategoryDataPoint{1e6, "Mode", "Blue"}); // before "Side" at one time
  store.editEntity(beam)->host = 999999;
  found = ScenarioChecks::inconsistencies(store);
  EXPECT_TRUE(mentions(found, "point item")) << ::testing::PrintToString(found);
  EXPECT_TRUE(mentions(found, "alt is nan")) << ::testing::PrintToString(found);
  EXPECT_TRUE(mentions(found, "name \"Mode\", value \"Blue\") is not after (time 1e+06, name \"Side\""))
    << ::testing::PrintToString(found);
  EXPECT_TRUE(mentions(found, "its host 999999 is gone")) << ::testing::PrintToString(found);
  EXPECT_TRUE(mentions(found, "names host 999999")) << ::testing::PrintToString(found);
}
