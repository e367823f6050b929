#include "actions/DecimateAction.h"

#include "actions/DecimateDialog.h"
#include "host/PICommon.h"
#include "host/PIDataPoints.h"
#include "host/PIProgressDialog.h"
#include "host/PURegistry.h"
#include "plugin/ActionUtilities.h"
#include "processing/ByPointDecimation.h"
#include "processing/ByTimeDecimation.h"
#include "processing/CullAngleDecimation.h"
#include "processing/DistanceDecimation.h"
#include "processing/VisvalingamDecimation.h"

#include <algorithm>
#include <functional>

namespace QtSep
{

namespace
{

const char* const TYPE_KEY = "Decimate Type";
const char* const KEEP_LAST_KEY = "Keep Last Point";
const char* const APPEND_KEY = "Append Suffix";
const char* const EVERY_N_KEY = "Every N Point";
const char* const INTERPOLATE_KEY = "Interpolate";
const char* const TIME_KEY = "Time Interval";
const char* const ANGLE_KEY = "Angle";
const char* const DISTANCE_KEY = "Distance";
const char* const PERCENTAGE_KEY = "Percentage";

constexpr double RADIANS_PER_DEGREE = 0.017453292519943295;

enum Method
{
  BY_POINT = 0,
  BY_TIME,
  BY_ANGLE,
  BY_DISTANCE,
  BY_AREA
};

/**
 * Runs thin on each platform's index, in order, under the "Decimating" progress dialog: static
 * platforms are passed over with a notice (no step, no cancel check), and a cancel stops the
 * run between two platforms.
 */
void overPlatforms(const std::vector<EntityInfo>& platforms, const std::function<void(std::size_t)>& thin)
{
  const int count = static_cast<int>(platforms.size());
  PIGUI::PIProgressDialog progress(nullptr, "Decimating", "Decimating platforms...", 1, count);
  progress.setMaximum(count);
  progress.show();
  for (int index = 0; index < count; ++index)
  {
    const EntityInfo& platform = platforms[static_cast<std::size_t>(index)];
    if (PIData::getEarliestTime(platform.id) == -1.0)
    {
      PICommon::notify("Decimation skipping static platform " + platform.name + "\n", PICommon::NOTIFY_WARN);
      continue;
    }
    thin(static_cast<std::size_t>(index));
    progress.setValue(index);
    progress.runWhileEvents();
    if (progress.isCanceled())
      break;
  }
}

} // namespace

DecimateAction::DecimateAction(QWidget* parent) : CommandAction(parent, "Decimate...", std::string(), WEIGHT, true) {}

DecimateAction::~DecimateAction() = default;

bool DecimateAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int DecimateAction::onCmdDecimate(PIObject*, void*)
{
  runCommand_();
  return 1;
}

void DecimateAction::applyDecimate_()
{
  onCmdDecimate(nullptr, nullptr);
}

int DecimateAction::run_()
{
  DecimateDialog dialog(parentWidget());
  loadFromRegistry_(dialog);
  if (dialog.exec() != QDialog::Accepted)
    return 1;
  saveToRegistry_(dialog);
  const std::unique_ptr<DecimateAlgorithm> algorithm = getAlgorithm_(dialog);
  if (algorithm)
    decimatePlatforms(selection(), *algorithm);
  return 1;
}

std::unique_ptr<DecimateAlgorithm> DecimateAction::getAlgorithm_(const DecimateDialog& dialog)
{
  std::unique_ptr<DecimateAlgorithm> algorithm;
  switch (dialog.type())
  {
  case BY_POINT: {
    auto byPoint = std::make_unique<ByPointDecimation>();
    byPoint->setKeepEveryNumPoints(static_cast<std::uint64_t>(dialog.everyNPoint()));
    byPoint->setKeepLastPoint(dialog.keepLastPoint());
    algorithm = std::move(byPoint);
    break;
  }
  case BY_TIME: {
    auto byTime = std::make_unique<ByTimeDecimation>();
    byTime->setMinimumDataInterval(dialog.timeInterval());
    byTime->setInterpolate(dialog.interpolate());
    byTime->setKeepLastPoint(dialog.keepLastPoint());
    algorithm = std::move(byTime);
    break;
  }
  case BY_ANGLE: {
    auto byAngle = std::make_unique<CullAngleDecimation>();
    byAngle->setCullAngle(RADIANS_PER_DEGREE * dialog.angle());
    byAngle->setKeepLastPoint(dialog.keepLastPoint());
    algorithm = std::move(byAngle);
    break;
  }
  case BY_DISTANCE: {
    auto byDistance = std::make_unique<DistanceDecimation>();
    byDistance->setDistance(dialog.distance());
    byDistance->setKeepLastPoint(dialog.keepLastPoint());
    algorithm = std::move(byDistance);
    break;
  }
  case BY_AREA: {
    auto byArea = std::make_unique<VisvalingamDecimation>();
    byArea->setPercentageDrop(dialog.percentage());
    algorithm = std::move(byArea);
    break;
  }
  default:
    return nullptr;
  }
  algorithm->setAppendToSource(dialog.appendSuffix());
  return algorithm;
}

std::vector<std::uint64_t> DecimateAction::decimatePlatforms(const std::vector<EntityInfo>& platforms,
                                                             DecimateAlgorithm& algorithm)
{
  std::vector<std::uint64_t> copies(platforms.size(), 0);
  overPlatforms(platforms, [&](std::size_t i) {
    std::uint64_t copy = 0;
    if (algorithm.execute(platforms[i].id, &copy, false) != 0)
      return;
    Action::addAudit(copy, algorithm.auditText(platforms[i].name));
    copies[i] = copy;
  });
  // The copies, and the sources whose names took a suffix, are news to the trees.
  std::vector<unsigned long> made;
  for (std::uint64_t copy : copies)
  {
    if (copy != 0)
      made.push_back(copy);
  }
  if (!made.empty())
  {
    for (const EntityInfo& platform : platforms)
      made.push_back(platform.id);
    fireChangeCallback(made);
  }
  return copies;
}

std::vector<bool> DecimateAction::thinPlatforms(const std::vector<EntityInfo>& platforms, DecimateAlgorithm& algorithm)
{
  std::vector<bool> thinned(platforms.size(), false);
  std::vector<unsigned long> changed;
  overPlatforms(platforms, [&](std::size_t i) {
    if (algorithm.executeInPlace(platforms[i].id) != 0)
      return;
    Action::addAudit(platforms[i].id, algorithm.auditText(platforms[i].name));
    changed.push_back(platforms[i].id);
    thinned[i] = true;
  });
  if (!changed.empty())
    fireChangeCallback(changed);
  return thinned;
}

void DecimateAction::loadFromRegistry_(DecimateDialog& dialog)
{
  dialog.setType(PURegistry::loadReg(0, TYPE_KEY));
  dialog.setKeepLastPoint(PURegistry::loadReg(true, KEEP_LAST_KEY));
  dialog.setAppendSuffix(PURegistry::loadReg(false, APPEND_KEY));
  dialog.setEveryNPoint(PURegistry::loadReg(10, EVERY_N_KEY));
  dialog.setInterpolate(PURegistry::loadReg(false, INTERPOLATE_KEY));
  dialog.setTimeInterval(PURegistry::loadReg(10, TIME_KEY));
  dialog.setAngle(PURegistry::loadReg(0.1, ANGLE_KEY));
  dialog.setDistance(PURegistry::loadReg(1000.0, DISTANCE_KEY));
  dialog.setPercentage(PURegistry::loadReg(0.75, PERCENTAGE_KEY));
}

void DecimateAction::saveToRegistry_(const DecimateDialog& dialog)
{
  PURegistry::saveReg(TYPE_KEY, dialog.type());
  PURegistry::saveReg(KEEP_LAST_KEY, dialog.keepLastPoint());
  PURegistry::saveReg(APPEND_KEY, dialog.appendSuffix());
  switch (dialog.type())
  {
  case BY_POINT: PURegistry::saveReg(EVERY_N_KEY, dialog.everyNPoint()); break;
  case BY_TIME:
    PURegistry::saveReg(INTERPOLATE_KEY, dialog.interpolate());
    PURegistry::saveReg(TIME_KEY, dialog.timeInterval());
    break;
  case BY_ANGLE: PURegistry::saveReg(ANGLE_KEY, dialog.angle()); break;
  case BY_DISTANCE: PURegistry::saveReg(DISTANCE_KEY, dialog.distance()); break;
  case BY_AREA: PURegistry::saveReg(PERCENTAGE_KEY, dialog.percentage()); break;
  default: break;
  }
}

} // namespace QtSep
