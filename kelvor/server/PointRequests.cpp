#include "server/PointRequests.h"

#include "host/FlushType.h"
#include "host/PIDataRetrievalMethod.h"
#include "host/PIServerSelectors.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/PI_DATA_STRUCT.h"
#include "server/PlatformPointFrame.h"
#include "server/ServerState.h"
#include "store/ScenarioStore.h"

#include <algorithm>
#include <utility>
#include <optional>
#include <set>

namespace kelvor
{

using PIData::PI_DATA_STRUCT;

namespace
{

std::int64_t done(PI_DATA_STRUCT& r, bool ok)
{
  r.status = ok ? 0 : 1;
  return r.status;
}

std::int64_t done(PI_DATA_CATCHALL& r, bool ok)
{
  if (r.integers.size() > 1)
    r.integers[1] = ok ? 0 : 1;
  return ok ? 0 : 1;
}

// One item by retrieval method: 5 first at or after, 6 last at or before; others exact,
// first (1) or last (2).
template <typename T>
const T* pick(const TimeSeries<T>& series, double time, int method)
{
  if (series.empty())
    return nullptr;
  switch (method)
  {
  case PI_RETRIEVE_AT_OR_AFTER: return series.atOrAfter(time);
  case PI_RETRIEVE_AT_OR_BEFORE: return series.atOrBefore(time);
  case PI_RETRIEVE_FIRST: return &series.front();
  case PI_RETRIEVE_LAST: return &series.back();
  case PI_RETRIEVE_BEFORE: {
    const T* at = series.atOrBefore(time);
    return at && at->time == time ? series.atOrBefore(std::nextafter(time, -1e308)) : at;
  }
  case PI_RETRIEVE_AFTER: {
    const T* at = series.atOrAfter(time);
    return at && at->time == time ? series.atOrAfter(std::nextafter(time, 1e308)) : at;
  }
  default: {
    const T* at = series.atOrAfter(time);
    return at && at->time == time ? at : nullptr;
  }
  }
}

template <typename T>
bool copyOne(const TimeSeries<T>& series, double time, int method, void* out)
{
  const T* found = pick(series, time, method);
  if (!found || !out)
    return false;
  *static_cast<T*>(out) = *found;
  return true;
}

template <typename T>
void copyRange(const TimeSeries<T>& series, double begin, double end, void* out)
{
  *static_cast<std::vector<T>*>(out) = series.range(begin, end);
}

template <typename V, typename Out>
void copyPairs(const TimeSeries<TimedValue<V>>& series, double begin, double end, void* out)
{
  auto& pairs = *static_cast<std::vector<std::pair<double, Out>>*>(out);
  pairs.clear();
  for (const auto& item : series.range(begin, end))
    pairs.emplace_back(item.time, static_cast<Out>(item.value));
}

} // namespace

bool PointRequests::serves(PIServerFunctions_t family)
{
  switch (family)
  {
  case PISF_GET_EARLIEST_TIME:
  case PISF_GET_LATEST_TIME:
  case PISF_SET_STATUS:
  case PISF_SET_COLOR:
  case PISF_SET_TARGET:
  case PISF_ADD_DATA_POINT:
  case PISF_GET_DATA_POINT:
  case PISF_PROJECTOR_DATA:
  case PISF_ADD_DATA_POINTS:
  case PISF_GET_TARGETS:
  case PISF_GET_STATES:
  case PISF_GET_COLORS:
  case PISF_GET_DATA_POINTS:
  case PISF_LASER_DATA:
  case PISF_FLUSH_ENTITY_DATA:
  case PISF_ADD_LOB_DRAW_STYLE:
    return true;
  default:
    return false;
  }
}

std::int64_t PointRequests::serve(PIServerFunctions_t family, void* record)
{
  if (!record)
    return 1;
  switch (family)
  {
  case PISF_GET_DATA_POINTS: return getPoints_(record);
  case PISF_LASER_DATA: return laser_(record);
  case PISF_PROJECTOR_DATA: return projector_(record);
  case PISF_FLUSH_ENTITY_DATA: return flush_(record);
  case PISF_ADD_DATA_POINT: return addPoint_(record);
  case PISF_ADD_DATA_POINTS: return addPoints_(record);
  case PISF_GET_DATA_POINT: return getPoint_(record);
  case PISF_GET_TARGETS:
  case PISF_GET_STATES:
  case PISF_GET_COLORS: return getCommands_(family, record);
  default: break;
  }
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  ScenarioStore& store = state_.store;
  // Reads look through the store's const side: taking an entity to change it journals it.
  const bool exists = store.entity(r.entityId) != nullptr;
  switch (family)
  {
  case PISF_GET_EARLIEST_TIME:
    r.time = store.earliestTime(r.entityId);
    return done(r, r.entityId == 0 || exists);
  case PISF_GET_LATEST_TIME:
    r.time = store.latestTime(r.entityId);
    return done(r, r.entityId == 0 || exists);
  default:
    break;
  }
  Entity* e = exists ? store.editEntity(r.entityId) : nullptr;
  if (!e)
    return done(r, false);
  switch (family)
  {
  case PISF_SET_STATUS: e->states.insert({r.time, static_cast<int>(r.value)}); break;
  case PISF_SET_COLOR: e->colors.insert({r.time, r.value}); break;
  case PISF_SET_TARGET: e->targets.insert({r.time, r.secondId}); break;
  case PISF_ADD_LOB_DRAW_STYLE:
    if (!r.pointer2)
      return done(r, false);
    e->lobDrawStyles.insert(*static_cast<const PIData::PILobDrawStyle*>(r.pointer2));
    break;
  default:
    return done(r, false);
  }
  store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t PointRequests::addPoint_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  Entity* e = state_.store.editEntity(r.entityId);
  if (!e || e->kind != r.objectType || !r.pointer2)
    return done(r, false);
  switch (e->kind)
  {
  case PI_PLATFORM_TYPE:
    e->platformPoints.insert(PlatformPointFrame::fromRecord(*static_cast<const PIData::PIPlatformPoint*>(r.pointer2),
                                                            state_.store.properties()));
    break;
  case PI_BEAM_TYPE: e->beamPoints.insert(*static_cast<const PIData::PIBeamPoint*>(r.pointer2)); break;
  case PI_GATE_TYPE: e->gatePoints.insert(*static_cast<const PIData::PIGatePoint*>(r.pointer2)); break;
  case PI_LOB_GROUP_TYPE: e->lobPoints.insert(*static_cast<const PIData::PILobPoint*>(r.pointer2)); break;
  default: return done(r, false);
  }
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t PointRequests::addPoints_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  Entity* e = state_.store.editEntity(r.entityId);
  const auto* points = static_cast<const std::vector<PIData::PIPlatformPoint>*>(r.pointer2);
  if (!e || e->kind != PI_PLATFORM_TYPE || !points)
    return done(r, false);
  std::vector<StoredPlatformPoint> stored;
  stored.reserve(points->size());
  // The points of one request nearly always share a frame: it is set up once for each run of them.
  std::optional<PlatformPointFrame> frame;
  PIData::PICoordReferenceFrame frameOfRun;
  for (const auto& p : *points)
  {
    if (!frame || !(p.frame == frameOfRun))
    {
      frame.emplace(p.frame, state_.store.properties());
      frameOfRun = p.frame;
    }
    stored.push_back(frame->fromRecordInFrame(p));
  }
  e->platformPoints.insertMany(std::move(stored));
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t PointRequests::getPoint_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  if (r.objectType == PI_GENERIC_DATA_TYPE)
    return getGeneric_(record);
  const Entity* e = state_.store.entity(r.entityId);
  if (!e || e->kind != r.objectType || !r.pointer2)
    return done(r, false);
  const int method = r.status;
  switch (e->kind)
  {
  case PI_PLATFORM_TYPE: {
    const StoredPlatformPoint* found = pick(e->platformPoints, r.time, method);
    if (!found)
      return done(r, false);
    const PIData::PICoordReferenceFrame frame =
        r.pointer1 ? *static_cast<const PIData::PICoordReferenceFrame*>(r.pointer1) : PIData::PICoordReferenceFrame();
    *static_cast<PIData::PIPlatformPoint*>(r.pointer2) =
        PlatformPointFrame(frame, state_.store.properties()).toRecord(*found);
    return done(r, true);
  }
  case PI_BEAM_TYPE: return done(r, copyOne(e->beamPoints, r.time, method, r.pointer2));
  case PI_GATE_TYPE: return done(r, copyOne(e->gatePoints, r.time, method, r.pointer2));
  case PI_LASER_TYPE: return done(r, copyOne(e->laserPoints, r.time, method, r.pointer2));
  case PI_LOB_GROUP_TYPE: return done(r, copyOne(e->lobPoints, r.time, method, r.pointer2));
  case PI_PROJECTOR_TYPE: return done(r, copyOne(e->projectorFov, r.time, method, r.pointer2));
  default: return done(r, false);
  }
}

std::int64_t PointRequests::getGeneric_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  const Entity* e = state_.store.entity(r.entityId);
  auto* out = static_cast<std::vector<PIData::PIGenericDataPoint>*>(r.pointer2);
  if (!e || !out)
    return done(r, false);
  out->clear();
  if (r.status == -1)
  {
    out->assign(e->generic.begin(), e->generic.end());
    return done(r, true);
  }
  // In force: begun at or before the time (a static item always), not yet expired, and not
  // superseded by a later item of the same tag. Walked from the latest so the first of a tag wins.
  std::set<std::string> tags;
  for (auto it = e->generic.rbegin(); it != e->generic.rend(); ++it)
  {
    const auto& item = *it;
    const bool begun = item.time == -1.0 || item.time <= r.time;
    const bool expired = item.expiration >= 0.0 && item.time >= 0.0 && r.time > item.time + item.expiration;
    if (begun && !expired && tags.insert(item.tag).second)
      out->push_back(item);
  }
  std::reverse(out->begin(), out->end());
  return done(r, true);
}

std::int64_t PointRequests::getPoints_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  const Entity* e = state_.store.entity(static_cast<UniqueID_t>(r.integerAt(2)));
  void* out = r.pointerAt(0);
  if (!e || !out)
    return done(r, false);
  const double begin = r.doubleAt(0);
  const double end = r.doubleAt(1);
  switch (r.integerAt(0))
  {
  case PISelector::POINTS_PLATFORM: {
    const auto* frameArg = static_cast<const PIData::PICoordReferenceFrame*>(r.pointerAt(1));
    const PlatformPointFrame frame(frameArg ? *frameArg : PIData::PICoordReferenceFrame(), state_.store.properties());
    auto& points = *static_cast<std::vector<PIData::PIPlatformPoint>*>(out);
    points.clear();
    // A static platform stands at its one point at every time: any range finds it.
    if (e->platformPoints.size() == 1 && e->platformPoints.front().time == -1.0)
    {
      points.push_back(frame.toRecord(e->platformPoints.front()));
      return done(r, true);
    }
    points.reserve(e->platformPoints.countRange(begin, end));
    e->platformPoints.forRange(begin, end, [&](const StoredPlatformPoint& s) { points.push_back(frame.toRecord(s)); });
    return done(r, true);
  }
  case PISelector::POINTS_BEAM: copyRange(e->beamPoints, begin, end, out); break;
  case PISelector::POINTS_GATE: copyRange(e->gatePoints, begin, end, out); break;
  case PISelector::POINTS_LASER: copyRange(e->laserPoints, begin, end, out); break;
  case PISelector::POINTS_LASER_WIDTHS: copyPairs<int, int>(e->laserWidths, begin, end, out); break;
  case PISelector::POINTS_LASER_MAX_RANGE: copyPairs<double, double>(e->laserMaxRange, begin, end, out); break;
  case PISelector::POINTS_LASER_OFFSETS: copyRange(e->laserOffsets, begin, end, out); break;
  case PISelector::POINTS_LOB: copyRange(e->lobPoints, begin, end, out); break;
  case PISelector::POINTS_LOB_DRAW_STYLES: copyRange(e->lobDrawStyles, begin, end, out); break;
  case PISelector::POINTS_PROJECTOR: copyRange(e->projectorFov, begin, end, out); break;
  case PISelector::POINTS_PROJECTOR_ON_OFF: copyPairs<int, int>(e->projectorOnOff, begin, end, out); break;
  default: return done(r, false);
  }
  return done(r, true);
}

std::int64_t PointRequests::getCommands_(PIServerFunctions_t family, void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  const Entity* e = state_.store.entity(r.entityId);
  if (!e || !r.pointer2)
    return done(r, false);
  if (family == PISF_GET_TARGETS)
    copyPairs<UniqueID_t, UniqueID_t>(e->targets, r.double1, r.double2, r.pointer2);
  else if (family == PISF_GET_STATES)
    copyPairs<int, int>(e->states, r.double1, r.double2, r.pointer2);
  else
    copyPairs<unsigned int, unsigned int>(e->colors, r.double1, r.double2, r.pointer2);
  return done(r, true);
}

std::int64_t PointRequests::laser_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  Entity* e = state_.store.editEntity(static_cast<UniqueID_t>(r.integerAt(2)));
  if (!e || e->kind != PI_LASER_TYPE)
    return done(r, false);
  const double time = r.doubleAt(0);
  switch (r.integerAt(0))
  {
  case PISelector::LASER_ORIENTATION:
    if (!r.pointerAt(0))
      return done(r, false);
    e->laserPoints.insert(*static_cast<const PIData::PILaserPoint*>(r.pointerAt(0)));
    break;
  case PISelector::LASER_MAX_RANGE: e->laserMaxRange.insert({time, r.doubleAt(1)}); break;
  case PISelector::LASER_WIDTH: e->laserWidths.insert({time, static_cast<int>(r.integerAt(3))}); break;
  case PISelector::LASER_OFFSET:
    if (!r.pointerAt(0))
      return done(r, false);
    e->laserOffsets.insert(*static_cast<const PIData::PILaserOffset*>(r.pointerAt(0)));
    break;
  default: return done(r, false);
  }
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t PointRequests::projector_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  Entity* e = state_.store.editEntity(static_cast<UniqueID_t>(r.integerAt(2)));
  if (!e || e->kind != PI_PROJECTOR_TYPE)
    return done(r, false);
  if (r.integerAt(0) == PISelector::PROJECTOR_FOV)
    e->projectorFov.insert({r.doubleAt(0), r.doubleAt(1)});
  else if (r.integerAt(0) == PISelector::PROJECTOR_ON_OFF)
    e->projectorOnOff.insert({r.doubleAt(0), r.integerAt(3) != 0 ? 1 : 0});
  else
    return done(r, false);
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t PointRequests::flush_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  const auto* id = static_cast<const UniqueID_t*>(r.pointerAt(0));
  const std::int64_t type = r.integerAt(2);
  if (r.integerAt(0) != PISelector::FLUSH || !id || type < 0 || type > 2)
    return done(r, false);
  const bool ok = state_.store.flush(*id, static_cast<PIData::FlushType>(type));
  if (ok)
    state_.store.dataChanged({*id});
  return done(r, ok);
}

} // namespace kelvor
