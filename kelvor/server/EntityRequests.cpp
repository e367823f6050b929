#include "server/EntityRequests.h"

#include "host/PIBeamPoint.h"
#include "host/PIGatePoint.h"
#include "host/PIPlatformPoint.h"
#include "host/PIServerSelectors.h"
#include "host/PI_DATA_CATCHALL.h"
#include "host/PI_DATA_STRUCT.h"
#include "server/PlatformPointFrame.h"
#include "server/ServerState.h"
#include "store/ScenarioStore.h"

#include <algorithm>
#include <utility>

namespace kelvor
{

using PIData::PI_DATA_STRUCT;

namespace
{

// The header record behind a request's pointer, for the kind asked.
bool readHeader(int kind, const void* from, EntityHeader& header)
{
  if (!from)
    return false;
  switch (kind)
  {
  case PI_PLATFORM_TYPE: header = *static_cast<const PIData::PIPlatformHeader*>(from); return true;
  case PI_BEAM_TYPE: header = *static_cast<const PIData::PIBeamHeader*>(from); return true;
  case PI_GATE_TYPE: header = *static_cast<const PIData::PIGateHeader*>(from); return true;
  case PI_LASER_TYPE: header = *static_cast<const PIData::PILaserHeader*>(from); return true;
  case PI_LOB_GROUP_TYPE: header = *static_cast<const PIData::PILobHeader*>(from); return true;
  case PI_PROJECTOR_TYPE: header = *static_cast<const PIData::PIProjectorHeader*>(from); return true;
  case PI_CUSTOM_RENDERING_TYPE: header = *static_cast<const PIData::PICustomRenderingHeader*>(from); return true;
  default: return false;
  }
}

void writeHeader(const EntityHeader& header, void* to)
{
  std::visit([to](const auto& h) { *static_cast<std::decay_t<decltype(h)>*>(to) = h; }, header);
}

template <typename Item, typename Less>
void insertReplacing(std::vector<Item>& items, const Item& item, Less less)
{
  auto it = std::lower_bound(items.begin(), items.end(), item, less);
  if (it != items.end() && !less(item, *it))
    *it = item;
  else
    items.insert(it, item);
}

std::int64_t done(PI_DATA_STRUCT& r, bool ok)
{
  r.status = ok ? 0 : 1;
  return r.status;
}

} // namespace

bool EntityRequests::serves(PIServerFunctions_t family)
{
  switch (family)
  {
  case PISF_GET_ENTITY_LIST:
  case PISF_GET_OBJECT_TYPE:
  case PISF_GET_OBJECT_HOST:
  case PISF_FIND_PLATFORM:
  case PISF_GET_ORIGINAL_ID:
  case PISF_GET_NUMBER_DATA_POINTS:
  case PISF_GET_HEADER:
  case PISF_UPDATE_HEADER:
  case PISF_CREATE_ENTITY:
  case PISF_DELETE_SCENARIO:
  case PISF_REMOVE_ENTITY:
  case PISF_DELETE_GENERIC_DATA:
  case PISF_CATEGORY_DATA:
    return true;
  default:
    return false;
  }
}

std::int64_t EntityRequests::serve(PIServerFunctions_t family, void* record)
{
  ScenarioStore& store = state_.store;
  if (family == PISF_DELETE_SCENARIO)
  {
    store.reset();
    store.scenarioReset();
    return 0;
  }
  if (!record)
    return 1;
  if (family == PISF_CATEGORY_DATA)
    return categories_(record);
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  const Entity* e = store.entity(r.entityId);
  switch (family)
  {
  case PISF_GET_ENTITY_LIST:
    return list_(record);
  case PISF_GET_OBJECT_TYPE:
    r.objectType = e ? e->kind : PI_NONE_TYPE;
    return done(r, e != nullptr);
  case PISF_GET_OBJECT_HOST:
    r.secondId = e ? e->host : 0;
    return done(r, e != nullptr);
  case PISF_FIND_PLATFORM:
    r.entityId = store.findPlatform(r.text);
    return done(r, r.entityId != 0);
  case PISF_GET_ORIGINAL_ID:
    if (e)
      r.secondId = originalIdOfHeader(e->header);
    return done(r, e != nullptr);
  case PISF_GET_NUMBER_DATA_POINTS:
    r.secondId = e ? e->pointCount() : 0;
    return done(r, e != nullptr);
  case PISF_GET_HEADER:
    return getHeader_(record);
  case PISF_UPDATE_HEADER:
    return updateHeader_(record);
  case PISF_CREATE_ENTITY:
    return create_(record);
  case PISF_REMOVE_ENTITY:
    return done(r, store.removeEntity(r.entityId));
  case PISF_DELETE_GENERIC_DATA:
    return deleteGeneric_(record);
  default:
    return 1;
  }
}

std::int64_t EntityRequests::list_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  auto* ids = static_cast<std::vector<UniqueID_t>*>(r.pointer2);
  if (!ids)
    return done(r, false);
  *ids = state_.store.list(r.objectType, r.entityId);
  return done(r, true);
}

std::int64_t EntityRequests::getHeader_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  const Entity* e = state_.store.entity(r.entityId);
  if (!e || e->kind != r.objectType || !r.pointer1)
    return done(r, false);
  writeHeader(e->header, r.pointer1);
  return done(r, true);
}

std::int64_t EntityRequests::updateHeader_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  Entity* e = state_.store.editEntity(r.entityId);
  EntityHeader header;
  if (!e || e->kind != r.objectType || !readHeader(r.objectType, r.pointer1, header))
    return done(r, false);
  e->header = header;
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t EntityRequests::create_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  ScenarioStore& store = state_.store;
  if (r.objectType == PI_GENERIC_DATA_TYPE)
  {
    Entity* e = store.editEntity(r.entityId);
    const auto* item = static_cast<const PIData::PIGenericDataPoint*>(r.pointer2);
    if (!e || !item)
    {
      r.entityId = 0;
      return done(r, false);
    }
    insertReplacing(e->generic, *item, [](const auto& a, const auto& b) {
      return a.time < b.time || (a.time == b.time && a.tag < b.tag);
    });
    store.dataChanged({e->id});
    return done(r, true);
  }
  EntityHeader header;
  const UniqueID_t id = readHeader(r.objectType, r.pointer1, header) ? store.createEntity(header, r.secondId) : 0;
  r.entityId = id;
  if (!id)
    return done(r, false);
  Entity* e = store.editEntity(id);
  if (r.pointer2)
  {
    if (r.objectType == PI_PLATFORM_TYPE)
      e->platformPoints.insert(
          PlatformPointFrame::fromRecord(*static_cast<const PIData::PIPlatformPoint*>(r.pointer2), store.properties()));
    else if (r.objectType == PI_BEAM_TYPE)
      e->beamPoints.insert(*static_cast<const PIData::PIBeamPoint*>(r.pointer2));
    else if (r.objectType == PI_GATE_TYPE)
      e->gatePoints.insert(*static_cast<const PIData::PIGatePoint*>(r.pointer2));
  }
  return done(r, true);
}

std::int64_t EntityRequests::deleteGeneric_(void* record)
{
  auto& r = *static_cast<PI_DATA_STRUCT*>(record);
  Entity* e = state_.store.editEntity(r.entityId);
  if (!e)
    return done(r, false);
  auto& g = e->generic;
  g.erase(std::remove_if(g.begin(), g.end(), [&](const auto& item) { return item.tag == r.text; }), g.end());
  state_.store.dataChanged({e->id});
  return done(r, true);
}

std::int64_t EntityRequests::categories_(void* record)
{
  auto& r = *static_cast<PI_DATA_CATCHALL*>(record);
  const UniqueID_t id = static_cast<UniqueID_t>(r.integerAt(2));
  // Retrievals read the entity; only a change takes it to change, which journals it.
  const Entity* e = state_.store.entity(id);
  void* pointer = r.pointerAt(0);
  auto finish = [&r](bool ok) {
    if (r.integers.size() > 1)
      r.integers[1] = ok ? 0 : 1;
    return ok ? 0 : 1;
  };
  if (!e || !pointer)
    return finish(false);
  const auto& items = e->categories;
  const auto less = [](const PIData::PICategoryDataPoint& a, const PIData::PICategoryDataPoint& b) {
    return a.time < b.time || (a.time == b.time && a.name < b.name);
  };
  switch (r.integerAt(0))
  {
  case PISelector::CATEGORY_ADD:
    insertReplacing(state_.store.editEntity(id)->categories, *static_cast<const PIData::PICategoryDataPoint*>(pointer),
                    less);
    state_.store.dataChanged({id});
    return finish(true);
  case PISelector::CATEGORY_REMOVE: {
    const auto& gone = *static_cast<const PIData::PICategoryDataPoint*>(pointer);
    auto it = std::find_if(items.begin(), items.end(), [&](const auto& c) {
      return c.time == gone.time && c.name == gone.name && c.value == gone.value;
    });
    if (it == items.end())
      return finish(false);
    auto& changed = state_.store.editEntity(id)->categories;
    changed.erase(changed.begin() + (it - items.begin()));
    state_.store.dataChanged({id});
    return finish(true);
  }
  case PISelector::CATEGORY_RETRIEVE_ALL:
    *static_cast<std::vector<PIData::PICategoryDataPoint>*>(pointer) = items;
    return finish(true);
  case PISelector::CATEGORY_RETRIEVE_CURRENT: {
    // For each name, the last value at or before the time; a static value counts at any time.
    const double time = r.doubleAt(0);
    std::map<std::string, PIData::PICategoryDataPoint> current;
    for (const auto& c : items)
      if (c.time <= time || c.time == -1.0)
        current[c.name] = c;
    auto& out = *static_cast<std::vector<PIData::PICategoryDataPoint>*>(pointer);
    out.clear();
    for (const auto& [name, c] : current)
      out.push_back(c);
    return finish(true);
  }
  default:
    return finish(false);
  }
}

} // namespace kelvor
