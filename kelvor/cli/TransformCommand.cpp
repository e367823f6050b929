// kelvor-edit transform: Transform Platform... on files, through the command's own code.
#include "cli/Commands.h"

#include "actions/TransformPlatformAction.h"
#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kelvor::commands
{

namespace
{

using Component = QtSep::TransformPlatformDialog::Component;

/// The options of the dialog's rows, in its order.
const std::vector<std::pair<const char*, Component>> ROWS = {
  {"--time", Component::TIME},          {"--x", Component::X},
  {"--y", Component::Y},                {"--z", Component::Z},
  {"--yaw", Component::YAW},            {"--pitch", Component::PITCH},
  {"--roll", Component::ROLL},          {"--vx", Component::X_VELOCITY},
  {"--vy", Component::Y_VELOCITY},      {"--vz", Component::Z_VELOCITY}};

const std::vector<std::pair<std::string, kelCore::CoordinateSystem>> SYSTEMS = {
  {"LLA", kelCore::CoordinateSystem::LLA},     {"ECEF", kelCore::CoordinateSystem::ECEF},
  {"ECI", kelCore::CoordinateSystem::ECI},     {"NED", kelCore::CoordinateSystem::NED},
  {"NWU", kelCore::CoordinateSystem::NWU},     {"ENU", kelCore::CoordinateSystem::ENU},
  {"XEAST", kelCore::CoordinateSystem::XEAST}, {"GTP", kelCore::CoordinateSystem::GTP}};

/// Reads one finite number that fills text. @return false for anything else
bool finiteNumber(const std::string& text, double& value)
{
  if (text.empty() || std::isspace(static_cast<unsigned char>(text.front())))
    return false;
  char* end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size() && std::isfinite(value);
}

/// Reads "M,A" into a row. @return false, with error set, for anything else
bool readRow(const std::string& option, const std::string& text, QtSep::TransformPlatformDialog::Coefficients& row,
             std::string& error)
{
  const auto comma = text.find(',');
  if (comma == std::string::npos || !finiteNumber(text.substr(0, comma), row.multiplication) ||
      !finiteNumber(text.substr(comma + 1), row.addition))
  {
    error = option + " takes MULTIPLICATION,ADDITION, as 1,100, not '" + text + "'";
    return false;
  }
  row.enabled = true;
  return true;
}

} // namespace

int transform(CommandContext& context)
{
  const CommandArguments& args = context.args();
  std::string error, systemName = "LLA";
  std::vector<std::string> names;
  for (const auto& [name, system] : SYSTEMS)
    names.push_back(name);
  if (!args.choice("--system", names, systemName, error))
    return context.usage(error);
  QtSep::TransformPlatformAction::Coefficients rows;
  bool any = false;
  for (const auto& [option, component] : ROWS)
  {
    if (!args.has(option))
      continue;
    if (!readRow(option, args.value(option), rows[component], error))
      return context.usage(error);
    any = true;
  }
  if (!any)
    return context.usage("give at least one row: --time, --x, --y, --z, --yaw, --pitch, --roll, --vx, --vy or --vz");
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  const auto system = std::find_if(SYSTEMS.begin(), SYSTEMS.end(), [&](const auto& s) { return s.first == systemName; });
  std::vector<QtSep::EntityInfo> platforms;
  for (UniqueID_t id : ids)
    platforms.push_back({static_cast<unsigned long>(id), PI_PLATFORM_TYPE, QtSep::getEntityName(id)});
  context.progress().step("transforming in " + systemName);
  const std::vector<unsigned long> changed = QtSep::TransformPlatformAction::transform(platforms, rows, system->second);
  context.progress().clear();
  context.relayNotifications();
  std::size_t transformed = 0;
  for (UniqueID_t id : ids)
  {
    // A platform whose times would fall before the reference year is left as it was.
    if (std::find(changed.begin(), changed.end(), id) == changed.end())
    {
      context.err() << "kelvor-edit: " << context.label(id) << " left as it was: a time would fall before the "
                    << "reference year\n";
      continue;
    }
    ++transformed;
    context.out() << "transformed " << context.label(id) << '\n';
  }
  if (transformed == 0 && !ids.empty() && args.has("--entity"))
    return context.fail("no named platform could be transformed; nothing written");
  if (!context.writeScenario(context.outFile()))
    return 1;
  context.out() << "wrote " << context.outFile() << ": " << transformed << " of " << ids.size()
                << (ids.size() == 1 ? " platform" : " platforms") << " transformed in " << systemName << '\n';
  return 0;
}

} // namespace kelvor::commands
