#pragma once

#include "host/FlushType.h"
#include "host/PIBeamPoint.h"
#include "host/PIDataRetrievalMethod.h"
#include "host/PIGatePoint.h"
#include "host/PIGenericDataPoint.h"
#include "host/PILaserOffset.h"
#include "host/PILaserPoint.h"
#include "host/PILobDrawStyle.h"
#include "host/PILobPoint.h"
#include "host/PIPlatformPoint.h"
#include "host/PIProjectorPoint.h"
#include "host/PIVisibilityStatus.h"

#include <utility>
#include <vector>

/// @file Scenario access: reading and writing every time series, flushing, time bounds.

namespace PIData
{

/**
 * Reads a platform's points with begin <= time <= end, in time order, converted to frame.
 * @return 0 for success
 */
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PIPlatformPoint>* points,
                  PICoordReferenceFrame frame = PICoordReferenceFrame());
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PIBeamPoint>* points);
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PIGatePoint>* points);
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PILaserPoint>* points);
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PILobPoint>* points);
int getDataPoints(UniqueID_t id, double begin, double end, std::vector<PIProjectorPoint>* points);
/// Pairs of time and width (pixels).
int getLaserWidths(UniqueID_t id, double begin, double end, std::vector<std::pair<double, int>>* widths);
/// Pairs of time and maximum range (metres).
int getLaserMaxRange(UniqueID_t id, double begin, double end, std::vector<std::pair<double, double>>* ranges);
int getLaserOffsets(UniqueID_t id, double begin, double end, std::vector<PILaserOffset>* offsets);
int getLobDrawStyles(UniqueID_t id, double begin, double end, std::vector<PILobDrawStyle>* styles);
/// Pairs of time and on (1) or off (0).
int getProjectorOnOff(UniqueID_t id, double begin, double end, std::vector<std::pair<double, int>>* states);

/**
 * Reads one point chosen by method relative to time (5: first at or after, 6: last at or before).
 * @return 0 for success; 1, leaving point alone, when there is none
 */
int getDataPoint(UniqueID_t id, double time, PIPlatformPoint* point, PIDataRetrievalMethod_t method,
                 PICoordReferenceFrame frame = PICoordReferenceFrame());
int getDataPoint(UniqueID_t id, double time, PIBeamPoint* point, PIDataRetrievalMethod_t method);
int getDataPoint(UniqueID_t id, double time, PIGatePoint* point, PIDataRetrievalMethod_t method);
int getDataPoint(UniqueID_t id, double time, PILaserPoint* point, PIDataRetrievalMethod_t method);
int getDataPoint(UniqueID_t id, double time, PILobPoint* point, PIDataRetrievalMethod_t method);
int getDataPoint(UniqueID_t id, double time, PIProjectorPoint* point, PIDataRetrievalMethod_t method);

/// Reads every item of generic data of the entity. @return 0 for success
int getDataPoints(UniqueID_t id, std::vector<PIGenericDataPoint>* items);
/// Reads the items of generic data in force at time: begun, not expired, and the latest of each tag. @return 0 for success
int getDataPoints(UniqueID_t id, double time, std::vector<PIGenericDataPoint>* items);

/// Target commands as pairs of time and target id. @return 0 for success
int getTargets(UniqueID_t id, double begin, double end, std::vector<std::pair<double, UniqueID_t>>* targets);
/// State commands as pairs of time and PIVisibilityStatus_t. @return 0 for success
int getStates(UniqueID_t id, double begin, double end, std::vector<std::pair<double, int>>* states);
/// Colour commands as pairs of time and RGBA. @return 0 for success
int getColors(UniqueID_t id, double begin, double end, std::vector<std::pair<double, unsigned int>>* colors);

/// Adds a point; one at a time already held replaces it. @return 0 for success
int addDataPoint(UniqueID_t id, const PIPlatformPoint* point);
int addDataPoint(UniqueID_t id, const PIBeamPoint* point);
int addDataPoint(UniqueID_t id, const PIGatePoint* point);
int addDataPoint(UniqueID_t id, const PILobPoint* point);
/// Adds many platform points in one call. @return 0 for success
int addDataPoints(UniqueID_t id, const std::vector<PIPlatformPoint>* points);
int addLaserOriDataPoint(UniqueID_t id, const PILaserPoint* point);
/// @param range metres
int addLaserMaxRangeDataPoint(UniqueID_t id, double time, double range);
/// @param width pixels
int addLaserWidthDataPoint(UniqueID_t id, double time, int width);
int addLaserOffsetDataPoint(UniqueID_t id, const PILaserOffset* offset);
int addLobDrawStyle(UniqueID_t id, const PILobDrawStyle* style);
/// @param fieldOfView radians
int addProjectorFOV(UniqueID_t id, double time, double fieldOfView);
int addProjectorOnOff(UniqueID_t id, double time, bool on);

/// Adds a state command at time. @return 0 for success
int setStatus(UniqueID_t id, PIVisibilityStatus_t status, double time);
/// Adds a colour command (RGBA) at time. @return 0 for success
int setColor(UniqueID_t id, unsigned int color, double time);
/// Adds a target command at time. @return 0 for success
int setTarget(UniqueID_t id, UniqueID_t target, double time);

/// Removes what type says of the entity, at once. @return 0 for success
int flushEntityData(UniqueID_t id, FlushType type);

/// @return the earliest time of the entity, of the scenario for 0; -1 without data,
/// -999999999 when no host answered.
double getEarliestTime(UniqueID_t id);
/// @return the latest time of the entity, of the scenario for 0; -1 without data.
double getLatestTime(UniqueID_t id);

} // namespace PIData
