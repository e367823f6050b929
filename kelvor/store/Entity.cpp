#include "store/Entity.h"

#include <algorithm>

namespace kelvor
{

PIScenarioObjectType_t kindOfHeader(const EntityHeader& header)
{
  static const PIScenarioObjectType_t KINDS[] = {PI_PLATFORM_TYPE, PI_BEAM_TYPE,      PI_GATE_TYPE,
                                                 PI_LASER_TYPE,    PI_LOB_GROUP_TYPE, PI_PROJECTOR_TYPE,
                                                 PI_CUSTOM_RENDERING_TYPE};
  return KINDS[header.index()];
}

std::string nameOfHeader(const EntityHeader& header)
{
  return std::visit([](const auto& h) { return h.name; }, header);
}

UniqueID_t originalIdOfHeader(const EntityHeader& header)
{
  return std::visit([](const auto& h) { return h.originalId; }, header);
}

namespace
{

// The first and last time of whichever series holds the entity's points.
template <typename F>
auto withPoints(const Entity& e, F f)
{
  switch (e.kind)
  {
  case PI_PLATFORM_TYPE:
    return f(e.platformPoints);
  case PI_BEAM_TYPE:
    return f(e.beamPoints);
  case PI_GATE_TYPE:
    return f(e.gatePoints);
  case PI_LASER_TYPE:
    return f(e.laserPoints);
  case PI_LOB_GROUP_TYPE:
    return f(e.lobPoints);
  case PI_PROJECTOR_TYPE:
    return f(e.projectorFov);
  default:
    return f(e.states);
  }
}

} // namespace

std::size_t Entity::pointCount() const
{
  return withPoints(*this, [](const auto& series) { return series.size(); });
}

double Entity::earliestTime() const
{
  return withPoints(*this, [](const auto& series) { return series.empty() ? -1.0 : series.front().time; });
}

double Entity::earliestTimedTime() const
{
  return withPoints(*this, [](const auto& series) {
    const auto* first = series.atOrAfter(0.0);
    return first ? first->time : -1.0;
  });
}

double Entity::latestTime() const
{
  return withPoints(*this, [](const auto& series) { return series.empty() ? -1.0 : series.back().time; });
}

void Entity::clearPoints()
{
  platformPoints.clear();
  beamPoints.clear();
  gatePoints.clear();
  laserPoints.clear();
  laserOffsets.clear();
  laserMaxRange.clear();
  laserWidths.clear();
  lobPoints.clear();
  lobDrawStyles.clear();
  projectorFov.clear();
  projectorOnOff.clear();
}

void Entity::clearCommands()
{
  colors.clear();
  states.clear();
  targets.clear();
}

bool Entity::aimsAt(UniqueID_t id) const
{
  for (const auto& target : targets)
  {
    if (target.value == id)
      return true;
  }
  const auto* beam = std::get_if<PIData::PIBeamHeader>(&header);
  return beam && beam->targetId == id;
}

bool Entity::retarget(UniqueID_t gone)
{
  std::vector<double> times;
  for (const auto& target : targets)
  {
    if (target.value == gone)
      times.push_back(target.time);
  }
  for (double time : times)
    targets.insert({time, UniqueID_t(0)});
  bool changed = !times.empty();
  if (auto* beam = std::get_if<PIData::PIBeamHeader>(&header); beam && beam->targetId == gone)
  {
    beam->targetId = 0;
    changed = true;
  }
  return changed;
}

} // namespace kelvor
