#include "merge/CommonMerge.h"

#include "host/GenericDataTags.h"
#include "host/Notify.h"
#include "host/PIDataCategories.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "kelNotify/Notify.h"
#include "utils/ColorUtils.h"
#include "utils/StringUtils.h"

#include <algorithm>
#include <cmath>

namespace CommonMerge
{

namespace
{

const char* const NO_SOURCE = "_No_Source";
const char* const TEMP_SUFFIX = "_ScenarioEditor_Temp";
const char* const NOT_AVAILABLE = "N/A";
constexpr std::uint32_t DEFAULT_COLOR = 0xFF00FF;
/// Positions closer than this in every component count as the same place.
constexpr double STATIONARY_TOLERANCE = 1e-6;

std::vector<PIData::PIPlatformPoint> pointsOf(UniqueID_t id, double start, double end)
{
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(id, start, end, &points, PIData::PICoordReferenceFrame());
  // A static platform's one point answers every range, but it has no time: it fills no hole,
  // and no stretch is coloured around it.
  if (points.size() == 1 && points.front().time == -1.0)
    points.clear();
  return points;
}

bool moved(const PIData::PIPlatformPoint& a, const PIData::PIPlatformPoint& b)
{
  return std::fabs(a.position.x - b.position.x) >= STATIONARY_TOLERANCE ||
         std::fabs(a.position.y - b.position.y) >= STATIONARY_TOLERANCE ||
         std::fabs(a.position.z - b.position.z) >= STATIONARY_TOLERANCE;
}

QtSep::DropOut gapRecord(double start, double end)
{
  QtSep::DropOut gap;
  gap.startTime = start;
  gap.endTime = end;
  return gap;
}

/// Colours a copied stretch and returns the track to its earlier colour just after it.
void colorStretch(UniqueID_t target, double colorAt, double first, double last, std::uint32_t color)
{
  const std::uint32_t old = GetColorFromGeneric(target, colorAt);
  SetColor(target, first - TIME_EPSILON, old);
  SetColor(target, first, color);
  SetColor(target, last, color);
  SetColor(target, last + TIME_EPSILON, old);
}

std::size_t colorIndexFor(std::size_t source, std::size_t colorCount)
{
  return source < colorCount || colorCount == 0 ? source : colorCount - 1;
}

/// @return colour index of colors; the default colour for a list that is, wrongly, empty
std::uint32_t colorAt(const std::vector<std::uint32_t>& colors, std::size_t index)
{
  return index < colors.size() ? colors[index] : DEFAULT_COLOR;
}

/// Walks the holes of target in [start, end] around its existing points, calling fill for each.
template <typename Fill>
void forEachHole(UniqueID_t target, double start, double end, Fill fill)
{
  const std::vector<PIData::PIPlatformPoint> existing = pointsOf(target, start, end);
  if (existing.empty())
  {
    fill(start, end);
    return;
  }
  fill(start, existing.front().time - TIME_EPSILON);
  for (std::size_t i = 1; i < existing.size(); ++i)
    fill(existing[i - 1].time + TIME_EPSILON, existing[i].time - TIME_EPSILON);
  fill(existing.back().time + TIME_EPSILON, end);
}

void markGap(QtSep::DropOut& record, const QtSep::DropOut& gap, std::uint64_t colorIndex)
{
  record.gapStart = gap.startTime;
  record.gapDuration = gap.endTime - gap.startTime;
  record.colorIndex = colorIndex;
}

} // namespace

UniqueID_t CreateEmptyPlatform(UniqueID_t id, const std::string& name)
{
  PIData::PIPlatformPoint seed;
  seed.position = {PIData::getLatitudeOrigin(), PIData::getLongitudeOrigin(), PIData::getAltitudeOrigin()};
  seed.time = PIData::clockGetBegin();
  PIData::getScenarioCoordReferenceFrame(&seed.frame);
  seed.frame.coordinateSystem = PI_COORDSYS_LLA;

  PIData::PIPlatformHeader header;
  UniqueID_t created = 0;
  if (PIData::getHeader(id, &header) == 0)
  {
    header.name = name;
    created = PIData::createPlatform(&header, &seed);
  }
  // The seed point only made the platform; it starts empty.
  PIData::flushEntityData(created, PIData::FLUSH_ALL);
  return created;
}

int ReplaceDataPoints(UniqueID_t id, const std::vector<PIData::PIPlatformPoint>& points, bool refreshClock)
{
  if (PIData::flushEntityData(id, PIData::FLUSH_POINTS) != 0)
    return 1;
  if (!points.empty() && PIData::addDataPoints(id, &points) != 0)
    return 2;
  if (refreshClock)
  {
    PIData::clockAutoConfigureBeginEnd();
    if (!PIData::clockIsPlaying())
      PIData::clockSetTime(PIData::clockGetTime(), 0.0);
  }
  return 0;
}

std::string GetPlatformCallSign(UniqueID_t id)
{
  PIData::PIPlatformHeader header;
  return PIData::getHeader(id, &header) == 0 ? header.name : NOT_AVAILABLE;
}

int SetPlatformCallSign(UniqueID_t id, const std::string& name)
{
  PIData::PIPlatformHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return 1;
  header.name = name;
  return PIData::updateHeader(id, &header);
}

void SetColor(UniqueID_t id, double time, std::uint32_t color)
{
  PIData::PIGenericDataPoint item;
  item.time = time;
  item.expiration = -1.0;
  item.tag = KELVOR_GD_TRACKCOLOR;
  item.value = UTILS::stringConvertToString(color);
  PIData::createGenericData(id, &item);
}

std::uint32_t GetColorFromGeneric(UniqueID_t id, double time)
{
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(id, time, &items);
  for (const PIData::PIGenericDataPoint& item : items)
  {
    if (item.tag == KELVOR_GD_TRACKCOLOR)
      return UTILS::colorGetColorInt(item.value, true);
  }
  return DEFAULT_COLOR;
}

bool FillTrack(UniqueID_t& outId, UniqueID_t source, double start, double end, std::uint32_t color, bool extend)
{
  std::vector<PIData::PIPlatformPoint> points = pointsOf(source, start, end);
  if (points.empty())
    return false;
  const UniqueID_t temporary = CreateEmptyPlatform(source, GetPlatformCallSign(source) + TEMP_SUFFIX);
  if (temporary == 0)
    return false;
  outId = temporary;
  if (extend && end > points.back().time)
  {
    PIData::PIPlatformPoint last = points.back();
    last.time = end;
    points.push_back(last);
  }
  for (const PIData::PIPlatformPoint& point : points)
    PIData::addDataPoint(outId, &point);
  SetColor(outId, points.front().time, color);
  SetColor(outId, points.back().time, color);
  return true;
}

bool BackFillPartial(UniqueID_t target, UniqueID_t source, double start, double end, bool colorize, std::uint32_t color)
{
  const std::vector<PIData::PIPlatformPoint> points = pointsOf(source, start, end);
  if (points.empty())
    return false;
  PIData::addDataPoints(target, &points);
  if (colorize)
    colorStretch(target, start, points.front().time, points.back().time, color);
  return true;
}

void BackFillSegment(UniqueID_t target, UniqueID_t source, double start, double end, bool colorize, std::uint32_t color)
{
  forEachHole(target, start, end,
              [&](double from, double to) { BackFillPartial(target, source, from, to, colorize, color); });
}

std::uint32_t BackFillTrack(UniqueID_t target, const std::vector<UniqueID_t>& sources, double gap, bool colorize,
                            const std::vector<std::uint32_t>& colors)
{
  const double begin = PIData::clockGetBegin();
  const double end = PIData::clockGetEnd();
  if (sources.empty())
    return 0;
  if (sources.size() == 1)
  {
    std::vector<QtSep::DropOut> holes;
    GenerateDropOuts(target, begin, end, gap, holes);
    return static_cast<std::uint32_t>(holes.size());
  }
  std::uint32_t total = 0;
  for (std::size_t k = 1; k < sources.size(); ++k)
  {
    std::vector<QtSep::DropOut> holes;
    GenerateDropOuts(target, begin, end, gap, holes);
    total += static_cast<std::uint32_t>(holes.size());
    if (holes.empty())
      break;
    const std::uint32_t color = colorAt(colors, colorIndexFor(k, colors.size()));
    for (const QtSep::DropOut& hole : holes)
      BackFillSegment(target, sources[k], hole.startTime, hole.endTime, colorize, color);
  }
  return total;
}

bool GenerateDropOuts(UniqueID_t id, double start, double end, double gap, std::vector<QtSep::DropOut>& out)
{
  const std::vector<PIData::PIPlatformPoint> points = pointsOf(id, start, end);
  if (points.empty())
  {
    if (end - start > gap)
      out.push_back(gapRecord(start, end));
    return false;
  }
  if (points.front().time - gap > start)
    out.push_back(gapRecord(start, points.front().time - TIME_EPSILON));
  for (std::size_t i = 1; i < points.size(); ++i)
  {
    if (points[i].time - points[i - 1].time <= gap)
      continue;
    if (moved(points[i - 1], points[i]))
      out.push_back(gapRecord(points[i - 1].time + TIME_EPSILON, points[i].time - TIME_EPSILON));
    else if (kelNotify::isNotifyEnabled(kelNotify::NOTIFY_WARN))
      PICommon::Notify(PICommon::NOTIFY_WARN) << "Dropped a drop out because it was stationary";
  }
  if (points.back().time + gap < end)
    out.push_back(gapRecord(points.back().time + TIME_EPSILON, end));
  return true;
}

bool CalculateBackFillPartial(UniqueID_t target, UniqueID_t source, double start, double end, double gap,
                              std::vector<QtSep::DropOut>& dropouts, bool colorize, std::uint32_t color)
{
  const std::vector<PIData::PIPlatformPoint> points = pointsOf(source, start, end);
  if (points.empty())
    return false;
  std::size_t first = 0;
  for (std::size_t i = 0; i < points.size(); ++i)
  {
    PIData::addDataPoint(target, &points[i]);
    if (i + 1 < points.size() && points[i + 1].time - points[i].time <= gap)
      continue;
    // The piece from first to i ends here, at a hole of the source or at the slice's end.
    PIData::PIPlatformHeader header;
    PIData::getHeader(source, &header);
    QtSep::DropOut piece;
    piece.sourceName = header.name;
    piece.sourceId = source;
    piece.originalId = header.originalId;
    piece.startTime = points[first].time;
    piece.endTime = points[i].time;
    piece.numberOfPoints = static_cast<std::int32_t>(i - first + 1);
    dropouts.push_back(piece);
    if (colorize)
      colorStretch(target, start, piece.startTime, piece.endTime, color);
    first = i + 1;
  }
  return true;
}

void CalculateBackFillSegment(UniqueID_t target, UniqueID_t source, double start, double end, double gap,
                              std::vector<QtSep::DropOut>& dropouts, bool colorize, std::uint32_t color)
{
  forEachHole(target, start, end, [&](double from, double to) {
    CalculateBackFillPartial(target, source, from, to, gap, dropouts, colorize, color);
  });
}

void CalculateBackFillTrack(UniqueID_t target, const std::vector<UniqueID_t>& sources, double start, double end,
                            double gap, std::vector<QtSep::DropOut>& dropouts, bool colorize,
                            const std::vector<std::uint32_t>& colors)
{
  std::vector<QtSep::DropOut> result;
  if (!sources.empty())
  {
    std::vector<QtSep::DropOut> gaps;
    GenerateDropOuts(target, start, end, gap, gaps);
    std::size_t done = 0;
    for (QtSep::DropOut& g : gaps)
    {
      const std::size_t before = result.size();
      // A lower source only sees what every higher one left open.
      for (std::size_t k = 1; k < sources.size(); ++k)
      {
        std::vector<QtSep::DropOut> open;
        GenerateDropOuts(target, g.startTime, g.endTime, gap, open);
        if (open.empty())
          break;
        const std::size_t index = colorIndexFor(k, colors.size());
        for (const QtSep::DropOut& o : open)
          CalculateBackFillSegment(target, sources[k], o.startTime, o.endTime, gap, result, colorize,
                                   colorAt(colors, index));
        for (std::size_t r = done; r < result.size(); ++r)
          markGap(result[r], g, index);
        done = result.size();
      }
      if (result.size() == before)
      {
        // Nothing could fill this gap: it stays listed, unfilled.
        markGap(g, g, 0);
        result.push_back(g);
        done = result.size();
      }
    }
    std::sort(result.begin(), result.end());
  }
  MergeContiguousDropOuts(target, result, dropouts, start, end);
}

void MergeContiguousDropOuts(UniqueID_t id, std::vector<QtSep::DropOut>& in, std::vector<QtSep::DropOut>& out,
                             double start, double end)
{
  const std::vector<PIData::PIPlatformPoint> points = pointsOf(id, start, end);
  std::size_t p = 0;
  std::size_t i = 0;
  while (i < in.size())
  {
    QtSep::DropOut& cur = in[i];
    std::size_t next = i + 1;
    while (p < points.size() && points[p].time < cur.startTime)
      ++p;
    p += static_cast<std::size_t>(std::max(0, cur.numberOfPoints));
    // Joined only while the track's next point lies at or behind the end of the following
    // stretch: kept as the merge view has always counted.
    while (p < points.size() && next < in.size() && in[next].sourceId == cur.sourceId &&
           !(in[next].endTime > points[p].time))
    {
      cur.endTime = in[next].endTime;
      cur.numberOfPoints += in[next].numberOfPoints;
      ++next;
      if (next < in.size())
        p += static_cast<std::size_t>(std::max(0, in[next].numberOfPoints));
    }
    out.push_back(cur);
    i = next;
  }
}

void MergePlatformSourceCategoryData(UniqueID_t target, UniqueID_t source, double time)
{
  PIData::PIPlatformHeader header;
  if (PIData::getHeader(source, &header) != 0)
    return;
  std::vector<PIData::PICategoryDataPoint> categories;
  PIData::retrieveAllCategoryData(source, &categories);
  std::string sources;
  for (const PIData::PICategoryDataPoint& item : categories)
  {
    if (item.name == SourceCategoryName)
      sources += "_" + item.value;
  }
  if (sources.empty())
    sources = NO_SOURCE;
  PIData::PICategoryDataPoint entry;
  entry.time = time;
  entry.name = MergeSourceCategoryName;
  entry.value = header.name + sources + "_" + std::to_string(header.originalId);
  PIData::addCategoryData(target, &entry);
}

} // namespace CommonMerge
