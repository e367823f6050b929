// kelvor-edit commands that process platform tracks: decimate, filter-speed, derive, export-gog.
// Each runs the editor's own command code over the platforms, so the results and the audit
// lines are the editor's.
#include "cli/Commands.h"

#include "actions/CalculateOriVelAction.h"
#include "actions/DecimateAction.h"
#include "actions/GogExportAction.h"
#include "actions/VelocityAction.h"
#include "files/NumberText.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "plugin/ActionUtilities.h"
#include "processing/ByCalculatedSpeed.h"
#include "processing/ByGivenSpeed.h"
#include "processing/ByPointDecimation.h"
#include "processing/ByTimeDecimation.h"
#include "processing/CullAngleDecimation.h"
#include "processing/DistanceDecimation.h"
#include "processing/VisvalingamDecimation.h"
#include "units/Units.h"

#include <QColor>

#include <algorithm>
#include <limits>
#include <map>

namespace kelvor::commands
{

namespace
{

constexpr double LARGEST = std::numeric_limits<double>::max();
constexpr double RADIANS_PER_DEGREE = 0.017453292519943295;

/// The selection the editor's commands take, named as its menus name entities.
std::vector<QtSep::EntityInfo> selectionOf(const std::vector<UniqueID_t>& ids)
{
  std::vector<QtSep::EntityInfo> selection;
  for (UniqueID_t id : ids)
    selection.push_back({static_cast<unsigned long>(id), PI_PLATFORM_TYPE, QtSep::getEntityName(id)});
  return selection;
}

bool isStatic(UniqueID_t id)
{
  return PIData::getEarliestTime(id) == -1.0;
}

/**
 * The platforms a track command works on. Named with --entity, every one must do; taken
 * whole, the platforms without points (and, for commands that cannot work on them, the static
 * ones) are passed over, saying so.
 * @return false, after saying why, when a named platform cannot be worked on
 */
bool workablePlatforms(CommandContext& context, bool staticWorks, std::vector<UniqueID_t>& ids)
{
  std::vector<UniqueID_t> all;
  if (!context.platforms(all))
    return false;
  const bool named = context.args().has("--entity");
  for (UniqueID_t id : all)
  {
    const std::size_t points = context.session().store().entity(id)->pointCount();
    const char* why = points == 0 ? "it has no points" : !staticWorks && isStatic(id) ? "it is static" : nullptr;
    if (!why)
      ids.push_back(id);
    else if (named)
    {
      context.fail(context.label(id) + " cannot be worked on: " + why + "; nothing written");
      return false;
    }
    else
      context.err() << "kelvor-edit: passing over " << context.label(id) << ": " << why << '\n';
  }
  return true;
}

/// @return the platform's points, as the call path counts them.
std::size_t pointsOf(UniqueID_t id)
{
  return PIData::getNumberDataPoints(id);
}

/// Reads a number option that must be more than 0. @return false, with error set, otherwise
bool positive(const CommandArguments& args, const std::string& name, double& value, double most, std::string& error)
{
  if (!args.number(name, value, -LARGEST, most, error))
    return false;
  if (args.has(name) && !(value > 0.0))
    error = name + " " + args.value(name) + " is out of range: more than 0";
  return error.empty();
}

/// The options of decimate that belong to one method only.
const std::map<std::string, std::string> METHOD_OF_OPTION = {
  {"--every", "point"}, {"--interval", "time"}, {"--interpolate", "time"}, {"--angle", "angle"},
  {"--distance", "distance"}, {"--drop", "area"}};
/// The parameter each method cannot go without.
const std::map<std::string, std::string> PARAMETER_OF_METHOD = {
  {"point", "--every"}, {"time", "--interval"}, {"angle", "--angle"}, {"distance", "--distance"}, {"area", "--drop"}};

/// @return the method, told whether to add the last point.
template <typename Method>
std::unique_ptr<QtSep::DecimateAlgorithm> keepingLast(std::unique_ptr<Method> method, bool keepLast)
{
  method->setKeepLastPoint(keepLast);
  return method;
}

/// Builds the thinning the options describe, as the Decimate dialog would. @return null, after saying why, for bad usage
std::unique_ptr<QtSep::DecimateAlgorithm> algorithmOf(CommandContext& context, int& status)
{
  status = 2;
  const CommandArguments& args = context.args();
  std::string method, error;
  if (!args.has("--method"))
  {
    context.usage("--method is needed: point, time, angle, distance or area");
    return nullptr;
  }
  if (!args.choice("--method", {"point", "time", "angle", "distance", "area"}, method, error))
  {
    context.usage(error);
    return nullptr;
  }
  for (const auto& [option, owner] : METHOD_OF_OPTION)
  {
    if (owner != method && !args.absent(option, "applies to --method " + owner, error))
    {
      context.usage(error);
      return nullptr;
    }
  }
  if (!args.has(PARAMETER_OF_METHOD.at(method)))
  {
    context.usage("--method " + method + " needs " + PARAMETER_OF_METHOD.at(method));
    return nullptr;
  }
  if ((method == "area" && !args.absent("--no-keep-last", "does not apply to --method area: it keeps no last point",
                                        error)) ||
      (args.has("--replace") && !args.absent("--append-suffix", "names a copy; --replace makes none", error)))
  {
    context.usage(error);
    return nullptr;
  }
  const bool keepLast = !args.has("--no-keep-last");

  std::unique_ptr<QtSep::DecimateAlgorithm> algorithm;
  std::int64_t every = 0;
  double value = 0.0; // the parameter of the other methods: seconds, degrees or metres
  if ((method == "point" && !args.integer("--every", every, 1, std::numeric_limits<std::int64_t>::max(), error)) ||
      ((method == "time" || method == "angle" || method == "distance") &&
       !positive(args, PARAMETER_OF_METHOD.at(method), value, method == "angle" ? 180.0 : LARGEST, error)))
  {
    context.usage(error);
    return nullptr;
  }
  if (method == "point")
  {
    auto byPoint = std::make_unique<QtSep::ByPointDecimation>();
    byPoint->setKeepEveryNumPoints(static_cast<std::uint64_t>(every));
    algorithm = keepingLast(std::move(byPoint), keepLast);
  }
  else if (method == "time")
  {
    auto byTime = std::make_unique<QtSep::ByTimeDecimation>();
    byTime->setMinimumDataInterval(value);
    byTime->setInterpolate(args.has("--interpolate"));
    algorithm = keepingLast(std::move(byTime), keepLast);
  }
  else if (method == "angle")
  {
    auto byAngle = std::make_unique<QtSep::CullAngleDecimation>();
    byAngle->setCullAngle(RADIANS_PER_DEGREE * value);
    algorithm = keepingLast(std::move(byAngle), keepLast);
  }
  else if (method == "distance")
  {
    auto byDistance = std::make_unique<QtSep::DistanceDecimation>();
    byDistance->setDistance(value);
    algorithm = keepingLast(std::move(byDistance), keepLast);
  }
  else
  {
    double drop = 0.0;
    if (!args.number("--drop", drop, 0.0, 1.0, error) || drop <= 0.0 || drop >= 1.0)
    {
      context.usage(error.empty() ? "--drop " + args.value("--drop") + " is out of range: more than 0 and less than 1"
                                  : error);
      return nullptr;
    }
    auto byArea = std::make_unique<QtSep::VisvalingamDecimation>();
    byArea->setPercentageDrop(drop);
    algorithm = std::move(byArea);
  }
  algorithm->setAppendToSource(args.has("--append-suffix"));
  status = 0;
  return algorithm;
}

/// The units filter-speed reads its limits in, by the word the user gives.
const std::map<std::string, const kelCore::Units*> SPEED_UNITS = {
  {"m/s", &kelCore::Units::METERS_PER_SECOND}, {"kts", &kelCore::Units::KNOTS},
  {"km/h", &kelCore::Units::KILOMETERS_PER_HOUR}, {"mph", &kelCore::Units::MILES_PER_HOUR},
  {"ft/s", &kelCore::Units::FEET_PER_SECOND}};

/// The plot styles of export-gog, by the word the user gives.
const std::map<std::string, QtSep::GogExportDialog::ExportType> PLOTS = {
  {"ground", QtSep::GogExportDialog::LL_PLOT},
  {"trajectory", QtSep::GogExportDialog::LLA_PLOT},
  {"alt-time", QtSep::GogExportDialog::ALTITUDE_VS_TIME},
  {"alt-range", QtSep::GogExportDialog::ALTITUDE_VS_RANGE},
  {"vel-time", QtSep::GogExportDialog::VELOCITY_VS_TIME}};

const std::map<std::string, QtSep::GogExportDialog::LineStyle> LINE_STYLES = {
  {"solid", QtSep::GogExportDialog::SOLID},
  {"dashed", QtSep::GogExportDialog::DASHED},
  {"dotted", QtSep::GogExportDialog::DOTTED}};

template <typename T>
std::vector<std::string> wordsOf(const std::map<std::string, T>& table)
{
  std::vector<std::string> words;
  for (const auto& entry : table)
    words.push_back(entry.first);
  return words;
}

} // namespace

int decimate(CommandContext& context)
{
  int status = 0;
  const std::unique_ptr<QtSep::DecimateAlgorithm> algorithm = algorithmOf(context, status);
  if (!algorithm)
    return status;
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  // A static platform is passed over with the editor's notice, named or not.
  if (!workablePlatforms(context, true, ids))
    return 1;
  const auto before = context.pointCounts(ids);

  const std::vector<QtSep::EntityInfo> selection = selectionOf(ids);
  const bool replace = context.args().has("--replace");
  std::vector<std::uint64_t> copies(ids.size(), 0);
  if (replace)
  {
    const std::vector<bool> thinned = QtSep::DecimateAction::thinPlatforms(selection, *algorithm);
    for (std::size_t i = 0; i < ids.size(); ++i)
      copies[i] = thinned[i] ? ids[i] : 0;
  }
  else
    copies = QtSep::DecimateAction::decimatePlatforms(selection, *algorithm);
  context.relayNotifications();

  std::size_t done = 0;
  for (std::size_t i = 0; i < ids.size(); ++i)
  {
    if (isStatic(ids[i]))
      continue;
    if (copies[i] == 0)
      return context.fail(context.label(ids[i]) + " could not be thinned; nothing written");
    ++done;
  }
  if (!context.writeScenario(out))
    return 1;
  for (std::size_t i = 0; i < ids.size(); ++i)
  {
    if (copies[i] == 0)
      continue;
    context.out() << context.label(ids[i]) << ": " << pointsOf(copies[i]) << " of " << before.at(ids[i])
                  << " points kept";
    if (!replace)
      context.out() << " in " << context.label(copies[i]);
    context.out() << '\n';
  }
  context.out() << "wrote " << out << ": " << done << (done == 1 ? " platform" : " platforms") << " thinned\n";
  return 0;
}

int filterSpeed(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string error, units = "m/s";
  double least = 0.0, most = 0.0;
  if (!args.has("--min") || !args.has("--max"))
    return context.usage("--min and --max are needed");
  if (!args.number("--min", least, 0.0, LARGEST, error) || !args.number("--max", most, 0.0, LARGEST, error) ||
      !args.choice("--units", wordsOf(SPEED_UNITS), units, error))
    return context.usage(error);
  if (least > most)
    return context.usage("--min " + args.value("--min") + " is above --max " + args.value("--max"));
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  if (!workablePlatforms(context, true, ids))
    return 1;

  // The limits in metres per second, as the dialog converts what it shows in the user's units.
  const kelCore::Units& given = *SPEED_UNITS.at(units);
  std::unique_ptr<QtSep::SpeedFilter> filter;
  if (args.has("--calculated"))
    filter = std::make_unique<QtSep::ByCalculatedSpeed>();
  else
    filter = std::make_unique<QtSep::ByGivenSpeed>();
  filter->minVelocityMs = given.convertTo(kelCore::Units::METERS_PER_SECOND, least);
  filter->maxVelocityMs = given.convertTo(kelCore::Units::METERS_PER_SECOND, most);

  const auto before = context.pointCounts(ids);
  context.progress().step("filtering by speed");
  QtSep::VelocityAction::filterPlatforms(selectionOf(ids), *filter);
  context.relayNotifications();
  if (!context.writeScenario(out))
    return 1;
  const std::size_t removed = context.reportRemoved(ids, before);
  context.out() << "wrote " << out << ": " << removed << " points removed from " << ids.size()
                << (ids.size() == 1 ? " platform\n" : " platforms\n");
  return 0;
}

int derive(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string method = "lagrangian", error;
  std::int64_t window = 10;
  if (!args.choice("--method", {"delta", "lagrangian"}, method, error) ||
      (method == "delta" && !args.absent("--window", "applies to --method lagrangian", error)) ||
      !args.integer("--window", window, 5, std::numeric_limits<int>::max(), error))
    return context.usage(error);
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  if (!workablePlatforms(context, false, ids))
    return 1;
  context.progress().step("deriving orientation and velocity");
  const std::vector<unsigned long> failed = QtSep::CalculateOriVelAction::calculate(
      selectionOf(ids), method == "lagrangian", true, true, static_cast<unsigned int>(window));
  // The calculation writes a platform only when it succeeds, so one that failed is as it was:
  // taken with the whole scenario it is passed over, named it fails the command.
  context.relayNotifications();
  if (!failed.empty() && context.args().has("--entity"))
    return context.fail("nothing written");
  if (!context.writeScenario(out))
    return 1;
  std::size_t derived = 0;
  for (UniqueID_t id : ids)
  {
    if (std::find(failed.begin(), failed.end(), id) != failed.end())
      continue;
    ++derived;
    context.out() << context.label(id) << ": orientation and velocity of " << pointsOf(id) << " points\n";
  }
  context.out() << "wrote " << out << ": " << derived << (derived == 1 ? " platform" : " platforms")
                << " derived by the " << method << " method\n";
  return 0;
}

int exportGog(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string plot, style = "solid", error;
  std::int64_t width = 1;
  double offset = 0.0;
  unsigned int rgba = 0xFFFFFFFF;
  if (!args.has("--plot"))
    return context.usage("--plot is needed: ground, trajectory, alt-time, alt-range or vel-time");
  if (!args.choice("--plot", wordsOf(PLOTS), plot, error) || !args.choice("--line-style", wordsOf(LINE_STYLES), style, error) ||
      !args.integer("--line-width", width, 1, 10, error) || !args.number("--x-offset", offset, -LARGEST, LARGEST, error))
    return context.usage(error);
  const QtSep::GogExportDialog::ExportType type = PLOTS.at(plot);
  // As the dialog, the offset only moves the x axis of the x-y plots.
  if (type < QtSep::GogExportDialog::ALTITUDE_VS_TIME &&
      !args.absent("--x-offset", "applies to the x-y plots: alt-time, alt-range and vel-time", error))
    return context.usage(error);
  if (args.has("--color") && !NumberText::parseColor(args.value("--color"), rgba))
    return context.usage("--color takes 0xRRGGBBAA, as scenario files write colours, not '" + args.value("--color") + "'");
  if (const int status = context.start(2, "IN and OUT.gog", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  const QColor colour(static_cast<int>(rgba >> 24), static_cast<int>((rgba >> 16) & 0xFF),
                      static_cast<int>((rgba >> 8) & 0xFF), static_cast<int>(rgba & 0xFF));
  const bool written = context.writeText(out, [&](std::ostream& file) {
    int number = 0;
    for (UniqueID_t id : ids)
      QtSep::GogExportAction::exportToGog_(file, id, ++number, type, LINE_STYLES.at(style), static_cast<int>(width),
                                           colour, offset, args.has("--track-color"), !args.has("--no-depth-buffer"));
  });
  if (!written)
    return 1;
  std::size_t exported = 0;
  for (UniqueID_t id : ids)
    exported += pointsOf(id) > 0;
  context.out() << "wrote " << out << ": " << exported << (exported == 1 ? " platform" : " platforms") << " as "
                << plot << " plots\n";
  return 0;
}

} // namespace kelvor::commands
