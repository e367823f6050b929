#include "host/PIDataEntities.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

void list(int kinds, UniqueID_t parent, std::vector<UniqueID_t>* ids)
{
  if (!ids)
    return;
  auto r = PIRequest::entity(parent, kinds);
  r.pointer2 = ids;
  handle(PISF_GET_ENTITY_LIST, &r);
}

template <typename Header>
int headerRequest(PIServerFunctions_t family, UniqueID_t id, int kind, const Header* header)
{
  if (!header)
    return 1;
  auto r = PIRequest::entity(id, kind);
  r.pointer1 = const_cast<Header*>(header);
  return PIRequest::send(family, r);
}

UniqueID_t create(int kind, UniqueID_t host, const void* header, const void* first, bool flag = false)
{
  auto r = PIRequest::entity(0, kind);
  r.secondId = host;
  r.pointer1 = const_cast<void*>(header);
  r.pointer2 = const_cast<void*>(first);
  r.value = flag ? 1 : 0;
  handle(PISF_CREATE_ENTITY, &r);
  return r.status == 0 ? r.entityId : 0;
}

UniqueID_t secondIdOf(PIServerFunctions_t family, UniqueID_t id)
{
  auto r = PIRequest::entity(id);
  handle(family, &r);
  return r.secondId;
}

} // namespace

void getPlatformList(std::vector<UniqueID_t>* ids) { list(PI_PLATFORM_TYPE, 0, ids); }
void getObjectList(std::vector<UniqueID_t>* ids) { list(PI_ALL_TYPES, 0, ids); }
void getBeamList(std::vector<UniqueID_t>* ids) { list(PI_BEAM_TYPE, 0, ids); }
void getBeamList(UniqueID_t parent, std::vector<UniqueID_t>* ids) { list(PI_BEAM_TYPE, parent, ids); }
void getGateList(std::vector<UniqueID_t>* ids) { list(PI_GATE_TYPE, 0, ids); }
void getGateList(UniqueID_t parent, std::vector<UniqueID_t>* ids) { list(PI_GATE_TYPE, parent, ids); }
void getLaserList(std::vector<UniqueID_t>* ids) { list(PI_LASER_TYPE, 0, ids); }
void getLaserList(UniqueID_t parent, std::vector<UniqueID_t>* ids) { list(PI_LASER_TYPE, parent, ids); }
void getLobList(std::vector<UniqueID_t>* ids) { list(PI_LOB_GROUP_TYPE, 0, ids); }
void getLobList(UniqueID_t parent, std::vector<UniqueID_t>* ids) { list(PI_LOB_GROUP_TYPE, parent, ids); }
void getProjectorList(std::vector<UniqueID_t>* ids) { list(PI_PROJECTOR_TYPE, 0, ids); }
void getProjectorList(UniqueID_t parent, std::vector<UniqueID_t>* ids) { list(PI_PROJECTOR_TYPE, parent, ids); }
void getCustomRenderingList(std::vector<UniqueID_t>* ids) { list(PI_CUSTOM_RENDERING_TYPE, 0, ids); }
void getCustomRenderingList(UniqueID_t parent, std::vector<UniqueID_t>* ids)
{
  list(PI_CUSTOM_RENDERING_TYPE, parent, ids);
}
void getChildList(UniqueID_t parent, int kinds, std::vector<UniqueID_t>* ids)
{
  if (parent)
    list(kinds, parent, ids);
  else if (ids)
    ids->clear();
}

PIScenarioObjectType_t getObjectType(UniqueID_t id)
{
  auto r = PIRequest::entity(id);
  handle(PISF_GET_OBJECT_TYPE, &r);
  return static_cast<PIScenarioObjectType_t>(r.objectType);
}

UniqueID_t getObjectHost(UniqueID_t id) { return secondIdOf(PISF_GET_OBJECT_HOST, id); }

UniqueID_t findPlatform(const std::string& name)
{
  auto r = PIRequest::entity(0, PI_PLATFORM_TYPE);
  r.text = name;
  handle(PISF_FIND_PLATFORM, &r);
  return r.entityId;
}

UniqueID_t getOriginalId(UniqueID_t id) { return secondIdOf(PISF_GET_ORIGINAL_ID, id); }

unsigned long getNumberDataPoints(UniqueID_t id)
{
  return static_cast<unsigned long>(secondIdOf(PISF_GET_NUMBER_DATA_POINTS, id));
}

std::string getObjectAlias(UniqueID_t id)
{
  auto r = PIRequest::catchAll(PISelector::VIEW_GET_OBJECT_ALIAS, {static_cast<std::int64_t>(id)});
  handle(PISF_VIEW, &r);
  return r.strings.empty() ? std::string() : r.strings[0];
}

int getHeader(UniqueID_t id, PIPlatformHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_PLATFORM_TYPE, h); }
int getHeader(UniqueID_t id, PIBeamHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_BEAM_TYPE, h); }
int getHeader(UniqueID_t id, PIGateHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_GATE_TYPE, h); }
int getHeader(UniqueID_t id, PILaserHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_LASER_TYPE, h); }
int getHeader(UniqueID_t id, PILobHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_LOB_GROUP_TYPE, h); }
int getHeader(UniqueID_t id, PIProjectorHeader* h) { return headerRequest(PISF_GET_HEADER, id, PI_PROJECTOR_TYPE, h); }
int getHeader(UniqueID_t id, PICustomRenderingHeader* h)
{
  return headerRequest(PISF_GET_HEADER, id, PI_CUSTOM_RENDERING_TYPE, h);
}

int updateHeader(UniqueID_t id, const PIPlatformHeader* h)
{
  return headerRequest(PISF_UPDATE_HEADER, id, PI_PLATFORM_TYPE, h);
}
int updateHeader(UniqueID_t id, const PIBeamHeader* h) { return headerRequest(PISF_UPDATE_HEADER, id, PI_BEAM_TYPE, h); }
int updateHeader(UniqueID_t id, const PIGateHeader* h) { return headerRequest(PISF_UPDATE_HEADER, id, PI_GATE_TYPE, h); }
int updateHeader(UniqueID_t id, const PILobHeader* h)
{
  return headerRequest(PISF_UPDATE_HEADER, id, PI_LOB_GROUP_TYPE, h);
}
int updateHeader(UniqueID_t id, const PIProjectorHeader* h)
{
  return headerRequest(PISF_UPDATE_HEADER, id, PI_PROJECTOR_TYPE, h);
}
int updateHeader(UniqueID_t id, const PICustomRenderingHeader* h)
{
  return headerRequest(PISF_UPDATE_HEADER, id, PI_CUSTOM_RENDERING_TYPE, h);
}

UniqueID_t createPlatform(const PIPlatformHeader* header, const PIPlatformPoint* first)
{
  return create(PI_PLATFORM_TYPE, 0, header, first);
}
UniqueID_t createBeam(UniqueID_t host, const PIBeamHeader* header, const PIBeamPoint* first, bool flag)
{
  return create(PI_BEAM_TYPE, host, header, first, flag);
}
UniqueID_t createGate(UniqueID_t host, const PIGateHeader* header, const PIGatePoint* first, bool flag)
{
  return create(PI_GATE_TYPE, host, header, first, flag);
}
UniqueID_t createLaser(UniqueID_t host, const PILaserHeader* header, UniqueID_t reference)
{
  auto r = PIRequest::entity(0, PI_LASER_TYPE);
  r.secondId = host;
  r.pointer1 = const_cast<PILaserHeader*>(header);
  r.time = static_cast<double>(reference); // the only spare field wide enough
  handle(PISF_CREATE_ENTITY, &r);
  return r.status == 0 ? r.entityId : 0;
}
UniqueID_t createLob(UniqueID_t host, const PILobHeader* header) { return create(PI_LOB_GROUP_TYPE, host, header, nullptr); }
UniqueID_t createProjector(UniqueID_t host, const PIProjectorHeader* header)
{
  return create(PI_PROJECTOR_TYPE, host, header, nullptr);
}
UniqueID_t createCustomRendering(UniqueID_t host, const PICustomRenderingHeader* header)
{
  return create(PI_CUSTOM_RENDERING_TYPE, host, header, nullptr);
}
UniqueID_t createGenericData(UniqueID_t id, const PIGenericDataPoint* item)
{
  auto r = PIRequest::entity(id, PI_GENERIC_DATA_TYPE);
  r.pointer2 = const_cast<PIGenericDataPoint*>(item);
  handle(PISF_CREATE_ENTITY, &r);
  return r.status == 0 ? r.entityId : 0;
}

int removeEntity(UniqueID_t id, bool flag)
{
  auto r = PIRequest::entity(id);
  r.value = flag ? 1 : 0;
  return PIRequest::send(PISF_REMOVE_ENTITY, r);
}

int deleteScenario() { return handle(PISF_DELETE_SCENARIO, nullptr) == 0 ? 0 : 1; }

int deleteGenericData(UniqueID_t id, const std::string& tag)
{
  auto r = PIRequest::entity(id);
  r.text = tag;
  return PIRequest::send(PISF_DELETE_GENERIC_DATA, r);
}

} // namespace PIData
