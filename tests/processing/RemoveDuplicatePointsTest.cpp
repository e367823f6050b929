#include "actions/RemoveDuplicatePointsAction.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "processing/RemoveDuplicatePoints.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/ConfirmDialog.h"

#include <QAction>
#include <QApplication>

#include <cmath>

using QtSep::RemoveDuplicatePoints;

namespace
{

/// The values kept of a series in which equal letters stand for points equal but for their time.
std::string keptOf(const std::string& series)
{
  const std::vector<bool> keep =
    RemoveDuplicatePoints::survivors(series.size(), [&series](std::size_t i) { return series[i] == series[i + 1]; });
  std::string kept;
  for (std::size_t i = 0; i < series.size(); ++i)
  {
    if (keep[i])
      kept += series[i];
  }
  return kept;
}

class DuplicatePoints : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Eagle";
    platform = PIData::createPlatform(&header, nullptr);
  }

  /// Adds platform points at times 0, 1, ...: one per letter, equal letters at the same place.
  void addTrack(UniqueID_t id, const std::string& series)
  {
    for (std::size_t i = 0; i < series.size(); ++i)
    {
      PIData::PIPlatformPoint point;
      point.time = static_cast<double>(i);
      point.position = {0.1 * (series[i] - 'A'), -1.0, 100.0};
      PIData::addDataPoint(id, &point);
    }
  }

  /// @return the platform's points as letters, from their latitudes
  std::string track(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e9, 1e9, &points);
    std::string letters;
    for (const auto& point : points)
      letters += static_cast<char>('A' + std::lround(point.position.x * 10));
    return letters;
  }

  static std::vector<double> times(UniqueID_t id) { return pointTimes(id); }

  UniqueID_t addBeam(const std::vector<double>& azimuths)
  {
    PIData::PIBeamHeader header;
    header.name = "Radar";
    const UniqueID_t beam = PIData::createBeam(platform, &header, nullptr, true);
    for (std::size_t i = 0; i < azimuths.size(); ++i)
    {
      PIData::PIBeamPoint point{azimuths[i], 0.0, 1000.0, static_cast<double>(i)};
      PIData::addDataPoint(beam, &point);
    }
    return beam;
  }

  UniqueID_t platform = 0;
};

} // namespace

TEST(DuplicateRuns, CollapseFromTheInsideKeepingTheEndsOfEachRun)
{
  EXPECT_EQ("AA", keptOf("AAA"));
  EXPECT_EQ("AA", keptOf("AAAAAAAAAA"));
  EXPECT_EQ("AA", keptOf("AA"));
  EXPECT_EQ("AABBA", keptOf("AABBBA"));
  EXPECT_EQ("ABCCA", keptOf("ABCCCCA"));
  EXPECT_EQ("", keptOf(""));
  EXPECT_EQ("ABA", keptOf("ABA"));
}

TEST_F(DuplicatePoints, APlatformKeepsTheFirstAndLastOfEachRunAndTheirTimes)
{
  addTrack(platform, "AABBBAC");
  EXPECT_EQ(std::vector<UniqueID_t>{platform}, RemoveDuplicatePoints().remove({platform}));
  EXPECT_EQ("AABBAC", track(platform));
  EXPECT_EQ((std::vector<double>{0, 1, 2, 4, 5, 6}), times(platform)) << "the middle B at 3 went";
}

TEST_F(DuplicatePoints, NaNValuesAndAnyOtherFieldKeepPointsApart)
{
  const double nan = std::nan("");
  for (int i = 0; i < 3; ++i)
  {
    PIData::PIPlatformPoint point;
    point.time = i;
    point.position = {0.1, -1.0, nan};
    PIData::addDataPoint(platform, &point);
  }
  EXPECT_TRUE(RemoveDuplicatePoints().remove({platform}).empty()) << "a NaN equals nothing";
  EXPECT_EQ(3u, times(platform).size());

  PIData::PIPlatformHeader header;
  header.name = "Heron";
  const UniqueID_t heron = PIData::createPlatform(&header, nullptr);
  for (int i = 0; i < 3; ++i)
  {
    PIData::PIPlatformPoint point;
    point.time = i;
    point.position = {0.1, -1.0, 10.0};
    point.orientation = {i == 1 ? 0.5 : 0.0, 0.0, 0.0};
    PIData::addDataPoint(heron, &point);
  }
  EXPECT_TRUE(RemoveDuplicatePoints().remove({heron}).empty()) << "orientation differs in the middle";
}

TEST_F(DuplicatePoints, ChildrenAreReducedOnceAndEvenWhenTheirHostLostNothing)
{
  addTrack(platform, "AB");
  const UniqueID_t beam = addBeam({0.1, 0.2, 0.3});
  PIData::PIGateHeader gateHeader;
  const UniqueID_t gate = PIData::createGate(beam, &gateHeader, nullptr, true);
  for (int i = 0; i < 4; ++i)
  {
    PIData::PIGatePoint point{0.1, 0.2, 0.3, 0.4, 10.0, 20.0, 15.0, static_cast<double>(i)};
    PIData::addDataPoint(gate, &point);
  }
  PIData::PIProjectorHeader projectorHeader;
  const UniqueID_t projector = PIData::createProjector(beam, &projectorHeader);
  for (int i = 0; i < 3; ++i)
    PIData::addProjectorFOV(projector, i, 0.7);
  PIData::PILaserHeader laserHeader;
  const UniqueID_t laser = PIData::createLaser(platform, &laserHeader, 0);
  for (int i = 0; i < 3; ++i)
  {
    PIData::PILaserPoint point{0.3, 0.1, 0.0, static_cast<double>(i)};
    PIData::addLaserOriDataPoint(laser, &point);
  }
  PIData::PILobHeader lobHeader;
  const UniqueID_t lob = PIData::createLob(platform, &lobHeader);
  for (int i = 0; i < 3; ++i)
  {
    PIData::PILobPoint point{0.5, 0.0, 100.0, static_cast<double>(i)};
    PIData::addDataPoint(lob, &point);
  }

  // The platform and its beam lose nothing; their children each lose their middle points, once,
  // though the gate is named again behind its platform.
  const std::vector<UniqueID_t> changed = RemoveDuplicatePoints().remove({platform, gate, beam});
  EXPECT_EQ((std::vector<UniqueID_t>{gate, projector, laser, lob}), changed);
  EXPECT_EQ(2u, PIData::getNumberDataPoints(gate));
  EXPECT_EQ(2u, PIData::getNumberDataPoints(projector));
  EXPECT_EQ(2u, PIData::getNumberDataPoints(laser));
  EXPECT_EQ(2u, PIData::getNumberDataPoints(lob));
  EXPECT_EQ(3u, PIData::getNumberDataPoints(beam));
  std::vector<PIData::PIProjectorPoint> fov;
  PIData::getDataPoints(projector, -1e9, 1e9, &fov);
  ASSERT_EQ(2u, fov.size());
  EXPECT_EQ(2.0, fov[1].time);
  EXPECT_EQ(0.7, fov[1].fieldOfView);

  EXPECT_TRUE(RemoveDuplicatePoints().remove({platform}).empty()) << "a second pass finds nothing";
}

TEST_F(DuplicatePoints, TheActionAsksReducesTellsAndForgetsItsSelection)
{
  addTrack(platform, "AAAA");
  QtSep::RemoveDuplicatePointsAction action(nullptr);
  std::vector<QtSep::MenuInfo*> items;
  action.menuRequested({QtSep::EntityInfo{platform, PI_PLATFORM_TYPE, "Eagle"}}, items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ(227, items[0]->weight());
  EXPECT_EQ("Remove Duplicate Points...", action.action()->text()) << "the command will ask";
  for (auto* item : items)
    delete item;

  {
    const auto declined = answerNext<UTILS::ConfirmDialog>(
      false, [](UTILS::ConfirmDialog& dialog) { EXPECT_EQ("Remove Duplicate Points", dialog.windowTitle()); });
    action.action()->trigger();
  }
  EXPECT_EQ(4u, PIData::getNumberDataPoints(platform)) << "declined: nothing changes";
  EXPECT_TRUE(services.toasts.empty());

  PURegistry::saveReg(QtSep::RemoveDuplicatePointsAction::CONFIRM_KEY, false);
  action.action()->trigger();
  EXPECT_EQ(4u, PIData::getNumberDataPoints(platform)) << "a declined command forgets its selection";

  items.clear();
  action.menuRequested({QtSep::EntityInfo{0, PI_ALL_TYPES, ""}}, items);
  EXPECT_EQ("Remove Duplicate Points", action.action()->text()) << "no question, no ellipsis";
  delete items[0];
  action.action()->trigger();
  EXPECT_EQ(2u, PIData::getNumberDataPoints(platform)) << "the scenario stands for every entity";
  ASSERT_EQ(1u, services.toasts.size());
  EXPECT_EQ("Points Removed", services.toasts[0].first);
  EXPECT_EQ(1, services.waitCursorBegins);
  EXPECT_EQ(0, services.waitCursorDepth);

  items.clear();
  action.menuRequested({QtSep::EntityInfo{platform, PI_PLATFORM_TYPE, "Eagle"}}, items);
  delete items[0];
  action.action()->trigger();
  EXPECT_EQ("No Points Removed", services.toasts.back().first);
}
