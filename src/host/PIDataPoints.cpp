#include "host/PIDataPoints.h"

#include "host/PIScenarioObjectType.h"
#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

int readSeries(int selector, UniqueID_t id, double begin, double end, void* out, const void* frame = nullptr)
{
  if (!out)
    return 1;
  auto r = PIRequest::catchAll(selector, {static_cast<std::int64_t>(id)});
  r.doubles = {begin, end};
  r.pointers = {out, const_cast<void*>(frame)};
  return PIRequest::send(PISF_GET_DATA_POINTS, r);
}

int readOne(int kind, UniqueID_t id, double time, void* point, PIDataRetrievalMethod_t method,
            const void* frame = nullptr)
{
  if (!point)
    return 1;
  auto r = PIRequest::entity(id, kind);
  r.time = time;
  r.status = method;
  r.pointer1 = const_cast<void*>(frame);
  r.pointer2 = point;
  return PIRequest::send(PISF_GET_DATA_POINT, r);
}

int addOne(int kind, UniqueID_t id, const void* point)
{
  if (!point)
    return 1;
  auto r = PIRequest::entity(id, kind);
  r.pointer2 = const_cast<void*>(point);
  // The host overwrites the preset failure with its answer.
  r.status = 2;
  handle(PISF_ADD_DATA_POINT, &r);
  return r.status;
}

int readCommands(PIServerFunctions_t family, UniqueID_t id, double begin, double end, void* out)
{
  if (!out)
    return 1;
  auto r = PIRequest::entity(id);
  r.double1 = begin;
  r.double2 = end;
  r.pointer2 = out;
  return PIRequest::send(family, r);
}

int addCommand(PIServerFunctions_t family, UniqueID_t id, double time, std::uint32_t value, UniqueID_t second = 0)
{
  auto r = PIRequest::entity(id);
  r.time = time;
  r.value = value;
  r.secondId = second;
  return PIRequest::send(family, r);
}

int laser(int selector, UniqueID_t id, double time, double value, int width, const void* record)
{
  auto r = PIRequest::catchAll(selector, {static_cast<std::int64_t>(id), width});
  r.doubles = {time, value};
  r.pointers = {const_cast<void*>(record)};
  return PIRequest::send(PISF_LASER_DATA, r);
}

int projector(int selector, UniqueID_t id, double time, double fieldOfView, bool on)
{
  auto r = PIRequest::catchAll(selector, {static_cast<std::int64_t>(id), on ? 1 : 0});
  r.doubles = {time, fieldOfView};
  return PIRequest::send(PISF_PROJECTOR_DATA, r);
}

double timeBound(PIServerFunctions_t family, UniqueID_t id)
{
  auto r = PIRequest::entity(id);
  r.time = PI_INVALID_DOUBLE;
  handle(family, &r);
  return r.time;
}

} // namespace

int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PIPlatformPoint>* points,
                  PICoordReferenceFrame frame)
{
  return readSeries(PISelector::POINTS_PLATFORM, id, begin, end, points, &frame);
}
int getDataPoints(UniqueID_t id, double b, double e, std::vector<PIBeamPoint>* p)
{
  return readSeries(PISelector::POINTS_BEAM, id, b, e, p);
}
int getDataPoints(UniqueID_t id, double b, double e, std::vector<PIGatePoint>* p)
{
  return readSeries(PISelector::POINTS_GATE, id, b, e, p);
}
int getDataPoints(UniqueID_t id, double b, double e, std::vector<PILaserPoint>* p)
{
  return readSeries(PISelector::POINTS_LASER, id, b, e, p);
}
int getDataPoints(UniqueID_t id, double b, double e, std::vector<PILobPoint>* p)
{
  return readSeries(PISelector::POINTS_LOB, id, b, e, p);
}
int getDataPoints(UniqueID_t id, double b, double e, std::vector<PIProjectorPoint>* p)
{
  return readSeries(PISelector::POINTS_PROJECTOR, id, b, e, p);
}
int getLaserWidths(UniqueID_t id, double b, double e, std::vector<std::pair<double, int>>* w)
{
  return readSeries(PISelector::POINTS_LASER_WIDTHS, id, b, e, w);
}
int getLaserMaxRange(UniqueID_t id, double b, double e, std::vector<std::pair<double, double>>* r)
{
  return readSeries(PISelector::POINTS_LASER_MAX_RANGE, id, b, e, r);
}
int getLaserOffsets(UniqueID_t id, double b, double e, std::vector<PILaserOffset>* o)
{
  return readSeries(PISelector::POINTS_LASER_OFFSETS, id, b, e, o);
}
int getLobDrawStyles(UniqueID_t id, double b, double e, std::vector<PILobDrawStyle>* s)
{
  return readSeries(PISelector::POINTS_LOB_DRAW_STYLES, id, b, e, s);
}
int getProjectorOnOff(UniqueID_t id, double b, double e, std::vector<std::pair<double, int>>* s)
{
  return readSeries(PISelector::POINTS_PROJECTOR_ON_OFF, id, b, e, s);
}

int getDataPoint(UniqueID_t id, double time, PIPlatformPoint* point, PIDataRetrievalMethod_t method,
                 PICoordReferenceFrame frame)
{
  return readOne(PI_PLATFORM_TYPE, id, time, point, method, &frame);
}
int getDataPoint(UniqueID_t id, double t, PIBeamPoint* p, PIDataRetrievalMethod_t m) { return readOne(PI_BEAM_TYPE, id, t, p, m); }
int getDataPoint(UniqueID_t id, double t, PIGatePoint* p, PIDataRetrievalMethod_t m) { return readOne(PI_GATE_TYPE, id, t, p, m); }
int getDataPoint(UniqueID_t id, double t, PILaserPoint* p, PIDataRetrievalMethod_t m)
{
  return readOne(PI_LASER_TYPE, id, t, p, m);
}
int getDataPoint(UniqueID_t id, double t, PILobPoint* p, PIDataRetrievalMethod_t m)
{
  return readOne(PI_LOB_GROUP_TYPE, id, t, p, m);
}
int getDataPoint(UniqueID_t id, double t, PIProjectorPoint* p, PIDataRetrievalMethod_t m)
{
  return readOne(PI_PROJECTOR_TYPE, id, t, p, m);
}

int getDataPoints(UniqueID_t id, std::vector<PIGenericDataPoint>* items)
{
  return readOne(PI_GENERIC_DATA_TYPE, id, 0.0, items, static_cast<PIDataRetrievalMethod_t>(-1));
}
int getDataPoints(UniqueID_t id, double time, std::vector<PIGenericDataPoint>* items)
{
  return readOne(PI_GENERIC_DATA_TYPE, id, time, items, PI_RETRIEVE_AT_OR_BEFORE);
}

int getTargets(UniqueID_t id, double b, double e, std::vector<std::pair<double, UniqueID_t>>* t)
{
  return readCommands(PISF_GET_TARGETS, id, b, e, t);
}
int getStates(UniqueID_t id, double b, double e, std::vector<std::pair<double, int>>* s)
{
  return readCommands(PISF_GET_STATES, id, b, e, s);
}
int getColors(UniqueID_t id, double b, double e, std::vector<std::pair<double, unsigned int>>* c)
{
  return readCommands(PISF_GET_COLORS, id, b, e, c);
}

int addDataPoint(UniqueID_t id, const PIPlatformPoint* p) { return addOne(PI_PLATFORM_TYPE, id, p); }
int addDataPoint(UniqueID_t id, const PIBeamPoint* p) { return addOne(PI_BEAM_TYPE, id, p); }
int addDataPoint(UniqueID_t id, const PIGatePoint* p) { return addOne(PI_GATE_TYPE, id, p); }
int addDataPoint(UniqueID_t id, const PILobPoint* p) { return addOne(PI_LOB_GROUP_TYPE, id, p); }

int addDataPoints(UniqueID_t id, const std::vector<PIPlatformPoint>* points)
{
  if (!points)
    return 1;
  auto r = PIRequest::entity(id, PI_PLATFORM_TYPE);
  r.pointer2 = const_cast<std::vector<PIPlatformPoint>*>(points);
  return PIRequest::send(PISF_ADD_DATA_POINTS, r);
}

int addLaserOriDataPoint(UniqueID_t id, const PILaserPoint* p)
{
  return p ? laser(PISelector::LASER_ORIENTATION, id, p->time, 0.0, 0, p) : 1;
}
int addLaserMaxRangeDataPoint(UniqueID_t id, double time, double range)
{
  return laser(PISelector::LASER_MAX_RANGE, id, time, range, 0, nullptr);
}
int addLaserWidthDataPoint(UniqueID_t id, double time, int width)
{
  return laser(PISelector::LASER_WIDTH, id, time, 0.0, width, nullptr);
}
int addLaserOffsetDataPoint(UniqueID_t id, const PILaserOffset* o)
{
  return o ? laser(PISelector::LASER_OFFSET, id, o->time, 0.0, 0, o) : 1;
}
int addLobDrawStyle(UniqueID_t id, const PILobDrawStyle* style)
{
  if (!style)
    return 1;
  auto r = PIRequest::entity(id);
  r.pointer2 = const_cast<PILobDrawStyle*>(style);
  return PIRequest::send(PISF_ADD_LOB_DRAW_STYLE, r);
}
int addProjectorFOV(UniqueID_t id, double time, double fov) { return projector(PISelector::PROJECTOR_FOV, id, time, fov, false); }
int addProjectorOnOff(UniqueID_t id, double time, bool on) { return projector(PISelector::PROJECTOR_ON_OFF, id, time, 0.0, on); }

int setStatus(UniqueID_t id, PIVisibilityStatus_t status, double time)
{
  return addCommand(PISF_SET_STATUS, id, time, static_cast<std::uint32_t>(status));
}
int setColor(UniqueID_t id, unsigned int color, double time) { return addCommand(PISF_SET_COLOR, id, time, color); }
int setTarget(UniqueID_t id, UniqueID_t target, double time) { return addCommand(PISF_SET_TARGET, id, time, 0, target); }

int flushEntityData(UniqueID_t id, FlushType type)
{
  auto r = PIRequest::catchAll(PISelector::FLUSH, {static_cast<std::int64_t>(type)});
  r.pointers = {&id};
  return PIRequest::send(PISF_FLUSH_ENTITY_DATA, r);
}

double getEarliestTime(UniqueID_t id) { return timeBound(PISF_GET_EARLIEST_TIME, id); }
double getLatestTime(UniqueID_t id) { return timeBound(PISF_GET_LATEST_TIME, id); }

} // namespace PIData
