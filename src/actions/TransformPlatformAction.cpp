#include "actions/TransformPlatformAction.h"

#include "host/PICommon.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "plugin/ActionUtilities.h"
#include "processing/AdjustScenarioTimes.h"
#include "utils/PUCoordConvert.h"
#include "widgets/GuardedDialog.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace QtSep
{

namespace
{

constexpr double STATIC_TIME = -1.0;
constexpr double RADIANS_PER_DEGREE = M_PI / 180.0;
constexpr double SECONDS_PER_DAY = 86400.0;

using Row = TransformPlatformDialog::Coefficients;

double apply(const Row& row, double value, double additionScale = 1.0)
{
  return value * row.multiplication + row.addition * additionScale;
}

double& component(PIPoint& p, int index) { return index == 0 ? p.x : (index == 1 ? p.y : p.z); }

/// Applies the enabled rows to one point of the chosen system.
void transformPoint(PIData::PIPlatformPoint& point, const TransformPlatformAction::Coefficients& rows,
                    kelCore::CoordinateSystem system)
{
  using C = TransformPlatformDialog::Component;
  if (rows[C::TIME].enabled && point.time != STATIC_TIME)
  {
    point.time = apply(rows[C::TIME], point.time);
    point.frame.eciReferenceTime = TransformPlatformAction::fixReferenceTimeEci_(point.time);
  }
  for (int i = 0; i < 3; ++i)
  {
    // Latitude and longitude additions are typed in degrees; other positions in metres.
    const bool degrees = system == kelCore::CoordinateSystem::LLA && i < 2;
    if (rows[C::X + i].enabled)
      component(point.position, i) = apply(rows[C::X + i], component(point.position, i), degrees ? RADIANS_PER_DEGREE : 1.0);
    if (rows[C::YAW + i].enabled && point.orientation != PI_INVALID_POINT)
      component(point.orientation, i) = apply(rows[C::YAW + i], component(point.orientation, i), RADIANS_PER_DEGREE);
    if (rows[C::X_VELOCITY + i].enabled && point.velocity != PI_INVALID_POINT)
      component(point.velocity, i) = apply(rows[C::X_VELOCITY + i], component(point.velocity, i));
  }
}

} // namespace

TransformPlatformAction::TransformPlatformAction(QWidget* parent)
  : CommandAction(parent, "Transform Platform...", std::string(), WEIGHT, false)
{
}

bool TransformPlatformAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

void TransformPlatformAction::transformPlatform_() { runCommand_(); }

int TransformPlatformAction::run_()
{
  kelQt::GuardedDialog<TransformPlatformDialog> dialog(parentWidget());
  if (dialog.exec() != QDialog::Accepted)
    return 0;
  transform(selection(), dialog->getCoefficients(), dialog->coordinateSystem());
  return 0;
}

double TransformPlatformAction::fixReferenceTimeEci_(double time)
{
  const double day = std::fmod(time, SECONDS_PER_DAY);
  return day < 0.0 ? day + SECONDS_PER_DAY : day;
}

std::vector<unsigned long> TransformPlatformAction::transform(const std::vector<EntityInfo>& platforms,
                                                              const Coefficients& coefficients,
                                                              kelCore::CoordinateSystem system)
{
  const Row& time = coefficients[TransformPlatformDialog::TIME];
  PICommon::beginWaitCursor();
  const double now = PIData::clockGetTime();
  std::vector<unsigned long> ids;
  for (const EntityInfo& platform : platforms)
  {
    const double earliest = PIData::getEarliestTime(platform.id);
    if (earliest != STATIC_TIME && time.enabled &&
        (isBadTime_(apply(time, earliest)) || isBadTime_(apply(time, PIData::getLatestTime(platform.id)))))
      continue;
    PIData::PICoordReferenceFrame frame;
    frame.coordinateSystem = PUCoordConvert::convertPICoordSystem(system);
    std::vector<PIData::PIPlatformPoint> points;
    if (PIData::getDataPoints(platform.id, -DBL_MAX, DBL_MAX, &points, frame) != 0)
      continue;
    for (PIData::PIPlatformPoint& point : points)
      transformPoint(point, coefficients, system);
    PIData::flushEntityData(platform.id, PIData::FLUSH_POINTS);
    PIData::addDataPoints(platform.id, &points);
    if (time.enabled)
      updateChildrenTimes_(platform.id, time.multiplication, time.addition, ids);
    ids.push_back(platform.id);
  }
  fireChangeCallback(ids);
  if (time.enabled)
  {
    PIData::clockAutoConfigureBeginEnd();
    PIData::clockSetTime(std::clamp(now, PIData::clockGetBegin(), PIData::clockGetEnd()), 0.0);
  }
  PICommon::endWaitCursor();
  return ids;
}

void TransformPlatformAction::updateChildrenTimes_(unsigned long id, double multiplication, double addition,
                                                   std::vector<unsigned long>& ids)
{
  std::vector<UniqueID_t> children;
  std::vector<UniqueID_t> found;
  PIData::getBeamList(id, &found);
  for (UniqueID_t beam : found)
  {
    children.push_back(beam);
    std::vector<UniqueID_t> below;
    PIData::getGateList(beam, &below);
    PIData::getProjectorList(beam, &below);
    PIData::getCustomRenderingList(beam, &below);
    children.insert(children.end(), below.begin(), below.end());
  }
  using ChildList = void (*)(UniqueID_t, std::vector<UniqueID_t>*);
  for (ChildList list : {static_cast<ChildList>(&PIData::getGateList), static_cast<ChildList>(&PIData::getProjectorList),
                         static_cast<ChildList>(&PIData::getLaserList),
                         static_cast<ChildList>(&PIData::getCustomRenderingList)})
  {
    found.clear();
    list(id, &found);
    children.insert(children.end(), found.begin(), found.end());
  }
  found.clear();
  PIData::getLobList(id, &found);
  for (UniqueID_t lob : found)
  {
    children.push_back(lob);
    std::vector<UniqueID_t> below;
    PIData::getProjectorList(lob, &below);
    children.insert(children.end(), below.begin(), below.end());
  }
  for (UniqueID_t child : children)
  {
    AdjustScenarioTimes::adjustEntityTime(child, multiplication, addition);
    ids.push_back(child);
  }
}

} // namespace QtSep
