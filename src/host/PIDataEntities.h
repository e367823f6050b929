#pragma once

#include "host/PIBeamHeader.h"
#include "host/PIBeamPoint.h"
#include "host/PICustomRenderingHeader.h"
#include "host/PIGateHeader.h"
#include "host/PIGatePoint.h"
#include "host/PIGenericDataPoint.h"
#include "host/PILaserHeader.h"
#include "host/PILobHeader.h"
#include "host/PIPlatformHeader.h"
#include "host/PIPlatformPoint.h"
#include "host/PIProjectorHeader.h"
#include "host/PIScenarioObjectType.h"

#include <string>
#include <vector>

/// @file Scenario access: listing, identity, headers, creation and removal of entities.

namespace PIData
{

/// Fills ids with every platform. The list-only kind PI_ALL_TYPES is getObjectList.
void getPlatformList(std::vector<UniqueID_t>* ids);
/// Fills ids with every entity of every kind.
void getObjectList(std::vector<UniqueID_t>* ids);
/// Fills ids with the beams of the scenario, or of parent.
void getBeamList(std::vector<UniqueID_t>* ids);
void getBeamList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
void getGateList(std::vector<UniqueID_t>* ids);
void getGateList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
void getLaserList(std::vector<UniqueID_t>* ids);
void getLaserList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
void getLobList(std::vector<UniqueID_t>* ids);
void getLobList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
void getProjectorList(std::vector<UniqueID_t>* ids);
void getProjectorList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
void getCustomRenderingList(std::vector<UniqueID_t>* ids);
void getCustomRenderingList(UniqueID_t parent, std::vector<UniqueID_t>* ids);
/// Fills ids with the children of parent of the kinds in the mask (PI_ALL_TYPES for all).
void getChildList(UniqueID_t parent, int kinds, std::vector<UniqueID_t>* ids);

/// @return the kind of the entity, PI_NONE_TYPE for an unknown id.
PIScenarioObjectType_t getObjectType(UniqueID_t id);
/// @return the parent of the entity, 0 for a platform or an unknown id.
UniqueID_t getObjectHost(UniqueID_t id);
/// @return the first platform of that name, 0 when none.
UniqueID_t findPlatform(const std::string& name);
/// @return the id the entity's source assigned.
UniqueID_t getOriginalId(UniqueID_t id);
/// @return the number of points of the entity.
unsigned long getNumberDataPoints(UniqueID_t id);
/// @return the alias of the entity, empty when none.
std::string getObjectAlias(UniqueID_t id);

/// Reads a header. @return 0 for success; 1, leaving header alone, for an id of another kind
int getHeader(UniqueID_t id, PIPlatformHeader* header);
int getHeader(UniqueID_t id, PIBeamHeader* header);
int getHeader(UniqueID_t id, PIGateHeader* header);
int getHeader(UniqueID_t id, PILaserHeader* header);
int getHeader(UniqueID_t id, PILobHeader* header);
int getHeader(UniqueID_t id, PIProjectorHeader* header);
int getHeader(UniqueID_t id, PICustomRenderingHeader* header);

/// Changes a header's fields, so its name. @return 0 for success; 1 for an id of another kind
int updateHeader(UniqueID_t id, const PIPlatformHeader* header);
int updateHeader(UniqueID_t id, const PIBeamHeader* header);
int updateHeader(UniqueID_t id, const PIGateHeader* header);
int updateHeader(UniqueID_t id, const PILobHeader* header);
int updateHeader(UniqueID_t id, const PIProjectorHeader* header);
int updateHeader(UniqueID_t id, const PICustomRenderingHeader* header);

/// Makes a platform holding its first point. @return the new id, 0 for failure
UniqueID_t createPlatform(const PIPlatformHeader* header, const PIPlatformPoint* first);
/// Makes a beam on a platform. @return the new id, 0 for failure
UniqueID_t createBeam(UniqueID_t host, const PIBeamHeader* header, const PIBeamPoint* first, bool flag);
/// Makes a gate on a beam. @return the new id, 0 for failure
UniqueID_t createGate(UniqueID_t host, const PIGateHeader* header, const PIGatePoint* first, bool flag);
/// Makes a laser on a platform. @param reference carried to the host; 0 for the add action
UniqueID_t createLaser(UniqueID_t host, const PILaserHeader* header, UniqueID_t reference);
UniqueID_t createLob(UniqueID_t host, const PILobHeader* header);
UniqueID_t createProjector(UniqueID_t host, const PIProjectorHeader* header);
UniqueID_t createCustomRendering(UniqueID_t host, const PICustomRenderingHeader* header);
/// Adds an item of generic data. @return the entity's id, 0 for failure
UniqueID_t createGenericData(UniqueID_t id, const PIGenericDataPoint* item);

/// Removes an entity and its children. @return 0 for success
int removeEntity(UniqueID_t id, bool flag);
/// Removes everything of the scenario. @return 0 for success
int deleteScenario();
/// Removes every item of generic data with that tag. @return 0 for success
int deleteGenericData(UniqueID_t id, const std::string& tag);

} // namespace PIData
