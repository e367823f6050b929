#include "host/PIData.h"
#include "merge/CommonMerge.h"
#include "support/ServerFixture.h"

#include <algorithm>

using QtSep::DropOut;

namespace
{

constexpr double EPS = CommonMerge::TIME_EPSILON;

class Merge : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
  }

  /// A platform with a point at each time, moving 0.001 rad of latitude a second unless still.
  UniqueID_t platform(const std::string& name, const std::vector<double>& times, bool still = false,
                      UniqueID_t originalId = 0)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    header.originalId = originalId;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5 + (still ? 0.0 : 0.001 * t), -2.0, 1000.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  static std::vector<double> times(UniqueID_t id) { return pointTimes(id); }

  static std::vector<std::pair<double, double>> spans(const std::vector<DropOut>& dropouts)
  {
    std::vector<std::pair<double, double>> out;
    for (const DropOut& d : dropouts)
      out.emplace_back(d.startTime, d.endTime);
    return out;
  }
};

} // namespace

TEST_F(Merge, DropOutsAreHolesLongerThanTheGapWithTheirEdgesInsideTheHole)
{
  const UniqueID_t id = platform("A", {10, 20, 22, 40});
  std::vector<DropOut> found;
  EXPECT_TRUE(CommonMerge::GenerateDropOuts(id, 0, 50, 5, found));
  const std::vector<std::pair<double, double>> expected = {
    {0, 10 - EPS}, {10 + EPS, 20 - EPS}, {22 + EPS, 40 - EPS}, {40 + EPS, 50}};
  EXPECT_EQ(expected, spans(found));
  EXPECT_EQ("N/A", found[1].sourceName);
  EXPECT_EQ(0u, found[1].sourceId);

  found.clear();
  EXPECT_TRUE(CommonMerge::GenerateDropOuts(id, 5, 45, 10, found));
  EXPECT_EQ((std::vector<std::pair<double, double>>{{22 + EPS, 40 - EPS}}), spans(found))
      << "holes of exactly the gap are none, at the edges or inside";

  found.clear();
  EXPECT_FALSE(CommonMerge::GenerateDropOuts(id, 100, 104, 5, found)) << "no points in the slice";
  EXPECT_TRUE(found.empty()) << "and the slice is no longer than the gap";
  EXPECT_FALSE(CommonMerge::GenerateDropOuts(id, 100, 110, 5, found));
  EXPECT_EQ((std::vector<std::pair<double, double>>{{100, 110}}), spans(found));

  found.clear();
  EXPECT_TRUE(CommonMerge::GenerateDropOuts(id, 15, 30, 1, found)) << "one point in the slice: 20";
  EXPECT_EQ(3u, found.size()) << "leading, between 20 and 22, trailing";
}

TEST_F(Merge, AHoleTheTrackDidNotMoveAcrossIsNoDropOutButTheEdgesStay)
{
  const UniqueID_t still = platform("Still", {10, 30}, true);
  std::vector<DropOut> found;
  CommonMerge::GenerateDropOuts(still, 0, 40, 5, found);
  EXPECT_EQ((std::vector<std::pair<double, double>>{{0, 10 - EPS}, {30 + EPS, 40}}), spans(found));
  ASSERT_FALSE(services.notifications.empty());
  EXPECT_EQ("Dropped a drop out because it was stationary", services.notifications.back().first);
}

TEST_F(Merge, TrackColoursDefaultToMagentaAndChangeAtTheirTimes)
{
  const UniqueID_t id = platform("A", {0, 10});
  EXPECT_EQ(0xFF00FFu, CommonMerge::GetColorFromGeneric(id, 5));
  CommonMerge::SetColor(id, 4, 0x11223344);
  EXPECT_EQ(0xFF00FFu, CommonMerge::GetColorFromGeneric(id, 3));
  EXPECT_EQ(0x11223344u, CommonMerge::GetColorFromGeneric(id, 5));
}

TEST_F(Merge, BackFillCopiesIntoTheHolesAroundTheTargetsOwnPointsAndColoursTheCopies)
{
  const UniqueID_t target = platform("Target", {0, 10, 20});
  const UniqueID_t source = platform("Source", {5, 10, 15, 25});
  CommonMerge::SetColor(target, 0, 0xAAAAAAFF);
  CommonMerge::BackFillSegment(target, source, 0, 30, true, 0x00FF00FF);
  EXPECT_EQ((std::vector<double>{0, 5, 10, 15, 20, 25}), times(target)) << "the source's point at 10 loses";
  EXPECT_EQ(0x00FF00FFu, CommonMerge::GetColorFromGeneric(target, 5));
  EXPECT_EQ(0xAAAAAAFFu, CommonMerge::GetColorFromGeneric(target, 5 + 2 * EPS)) << "back to the old colour";
  EXPECT_EQ(0xAAAAAAFFu, CommonMerge::GetColorFromGeneric(target, 5 - 2 * EPS));

  EXPECT_FALSE(CommonMerge::BackFillPartial(target, source, 26, 30, false, 0)) << "nothing to copy";
}

TEST_F(Merge, PriorityDecidesWhoFillsAndWhatStaysOpen)
{
  const UniqueID_t primary = platform("Primary", {0, 1, 2, 10, 11, 12, 30});
  const UniqueID_t second = platform("Second", {4, 5, 6}, false, 22);
  const UniqueID_t third = platform("Third", {3, 7, 8, 9});
  const UniqueID_t target = CommonMerge::CreateEmptyPlatform(primary, "Primary_Merge");
  ASSERT_NE(0u, target);
  EXPECT_EQ("Primary_Merge", CommonMerge::GetPlatformCallSign(target));
  EXPECT_TRUE(times(target).empty()) << "made empty";
  std::vector<PIData::PIPlatformPoint> slice;
  PIData::getDataPoints(primary, 0, 30, &slice);
  ASSERT_EQ(0, CommonMerge::ReplaceDataPoints(target, slice, false));

  std::vector<DropOut> result;
  CommonMerge::CalculateBackFillTrack(target, {primary, second, third}, 0, 30, 1.5, result, false,
                                      {0xFF0000FF, 0x00FF00FF});
  // Second fills 4..6 first; third gets 3 and 7..9 around it; 12..30 stays open.
  ASSERT_EQ(4u, result.size());
  EXPECT_EQ("Third", result[0].sourceName);
  EXPECT_EQ(3.0, result[0].startTime);
  EXPECT_EQ("Second", result[1].sourceName);
  EXPECT_EQ(22u, result[1].originalId);
  EXPECT_EQ(3, result[1].numberOfPoints);
  EXPECT_EQ(1u, result[1].colorIndex);
  EXPECT_EQ(1u, result[0].colorIndex) << "with two colours every lower source takes the last";
  EXPECT_EQ(2 + EPS, result[1].gapStart);
  EXPECT_EQ("Third", result[2].sourceName);
  EXPECT_EQ(7.0, result[2].startTime);
  EXPECT_EQ(9.0, result[2].endTime);
  EXPECT_EQ("N/A", result[3].sourceName) << "no source reaches 12..30";
  EXPECT_EQ(12 + EPS, result[3].startTime);
  EXPECT_EQ(0u, result[3].colorIndex);

  std::vector<DropOut> alone;
  const UniqueID_t copy = CommonMerge::CreateEmptyPlatform(primary, "Alone");
  CommonMerge::ReplaceDataPoints(copy, slice, false);
  CommonMerge::CalculateBackFillTrack(copy, {primary}, 0, 30, 1.5, alone, false, {0xFF0000FF});
  ASSERT_EQ(2u, alone.size()) << "one source: one unfilled record per gap";
  EXPECT_TRUE(std::all_of(alone.begin(), alone.end(), [](const DropOut& d) {
    return d.sourceId == 0 && d.colorIndex == 0 && d.gapDuration == d.endTime - d.startTime;
  }));
}

TEST_F(Merge, BackFillTrackCountsTheGapsOfEveryPass)
{
  PIData::clockSetBegin(0);
  PIData::clockSetEnd(20);
  const UniqueID_t target = platform("Target", {0, 1, 10, 20});
  const UniqueID_t second = platform("Second", {5});
  const UniqueID_t third = platform("Third", {3, 4, 6, 7});
  EXPECT_EQ(2u, CommonMerge::BackFillTrack(target, {target}, 2, false, {1})) << "one source: counted, not filled";
  // Pass one sees 1..10 and 10..20, second fills 5; pass two sees three holes.
  EXPECT_EQ(5u, CommonMerge::BackFillTrack(target, {target, second, third}, 2, false, {1}));
  EXPECT_EQ((std::vector<double>{0, 1, 3, 4, 5, 6, 7, 10, 20}), times(target));
}

TEST_F(Merge, TheMergeSourceNamesThePlatformItsSourcesAndItsOriginalId)
{
  const UniqueID_t target = platform("Merged", {0});
  const UniqueID_t alpha = platform("Alpha", {0}, false, 7);
  const UniqueID_t bare = platform("Bare", {0}, false, 9);
  PIData::PICategoryDataPoint source{5.0, CommonMerge::SourceCategoryName, "A"};
  PIData::addCategoryData(alpha, &source);
  source.time = 6.0;
  source.value = "B";
  PIData::addCategoryData(alpha, &source);
  CommonMerge::MergePlatformSourceCategoryData(target, alpha, 1.0);
  CommonMerge::MergePlatformSourceCategoryData(target, bare, 2.0);
  CommonMerge::MergePlatformSourceCategoryData(target, 9999, 3.0); // unknown: nothing
  std::vector<PIData::PICategoryDataPoint> written;
  PIData::retrieveAllCategoryData(target, &written);
  ASSERT_EQ(2u, written.size());
  EXPECT_EQ("Merge_Source", written[0].name);
  EXPECT_EQ("Alpha_A_B_7", written[0].value);
  EXPECT_EQ("Bare_No_Source_9", written[1].value);
}

TEST_F(Merge, FillTrackMakesAColouredTemporaryCopyAndCanHoldTheLastPoint)
{
  const UniqueID_t source = platform("Hawk", {0, 5, 10});
  UniqueID_t temporary = 0;
  EXPECT_FALSE(CommonMerge::FillTrack(temporary, source, 20, 30, 0x123456FF, true));
  EXPECT_EQ(0u, temporary);
  ASSERT_TRUE(CommonMerge::FillTrack(temporary, source, 4, 15, 0x123456FF, true));
  EXPECT_EQ("Hawk_ScenarioEditor_Temp", CommonMerge::GetPlatformCallSign(temporary));
  EXPECT_EQ((std::vector<double>{5, 10, 15}), times(temporary));
  EXPECT_EQ(0x123456FFu, CommonMerge::GetColorFromGeneric(temporary, 12));
}

TEST_F(Merge, AStaticPlatformFillsNoHoleSoNothingIsColouredAroundTimeMinusOne)
{
  // A static platform's one point answers any range of times, the holes of a track included.
  const UniqueID_t site = createStaticPlatform("Site");
  const UniqueID_t target = platform("Target", {0, 100});

  CommonMerge::BackFillSegment(target, site, 0, 100, true, 0x00FF00FF);
  EXPECT_EQ((std::vector<double>{0, 100}), times(target)) << "no static point joins the track";
  std::vector<PIData::PIGenericDataPoint> colours;
  PIData::getDataPoints(target, &colours);
  EXPECT_TRUE(colours.empty()) << "no colour at -1 - epsilon or -1 + epsilon, times no scenario file holds";

  UniqueID_t temporary = 0;
  EXPECT_FALSE(CommonMerge::FillTrack(temporary, site, 0, 100, 0x123456FF, true));
  std::vector<DropOut> found;
  EXPECT_FALSE(CommonMerge::GenerateDropOuts(site, 0, 100, 10, found));
  EXPECT_EQ((std::vector<std::pair<double, double>>{{0, 100}}), spans(found)) << "not from -1 + epsilon";
}

TEST_F(Merge, NeighbouringStretchesOfOneSourceJoinOnlyWhereTheTrackAllowsIt)
{
  const UniqueID_t id = platform("T", {0, 1, 2, 3, 4, 5, 6});
  auto stretch = [](UniqueID_t source, double start, double end, int points) {
    DropOut d;
    d.sourceId = source;
    d.startTime = start;
    d.endTime = end;
    d.numberOfPoints = points;
    return d;
  };
  std::vector<DropOut> in = {stretch(7, 1, 1, 1), stretch(7, 2, 2, 1), stretch(8, 4, 4, 1)};
  std::vector<DropOut> out;
  CommonMerge::MergeContiguousDropOuts(id, in, out, 0, 6);
  ASSERT_EQ(2u, out.size());
  EXPECT_EQ(2.0, out[0].endTime);
  EXPECT_EQ(2, out[0].numberOfPoints);
  EXPECT_EQ(8u, out[1].sourceId);

  DropOut a = stretch(1, 3, 4, 0);
  DropOut b = stretch(1, 3, 5, 0);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a == a);
  EXPECT_FALSE(b < a);
}
