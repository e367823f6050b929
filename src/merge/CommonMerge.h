#pragma once

#include "host/PIPlatformPoint.h"
#include "host/UniqueID.h"
#include "merge/DropOut.h"

#include <cstdint>
#include <string>
#include <vector>

/**
 * @file What every joining of tracks shares: finding where a track has no data (dropouts),
 * copying another platform's points into those holes, colouring the copied stretches, and
 * recording which source each stretch came from. Times are seconds since the reference year;
 * colours are 32-bit RGBA. Sources are given as a priority list whose first entry is the primary.
 */
namespace CommonMerge
{

/// Appended to the primary platform's name to name the merged platform, and to child names.
static const std::string MergeSuffix = "_Merge";
/// Category whose values tell where a platform's data came from.
static const std::string SourceCategoryName = "Source";
/// Category a merge writes, one entry per change of source.
static const std::string MergeSourceCategoryName = "Merge_Source";

/// How far inside a hole every stretch boundary lies, so that filled data never lands on an existing point; seconds.
constexpr double TIME_EPSILON = 5e-7;

/// Makes a platform with the header of id under name, and no points. @return its id, 0 for failure
UniqueID_t CreateEmptyPlatform(UniqueID_t id, const std::string& name);
/**
 * Replaces every point of a platform.
 * @param refreshClock true to fit the clock to the data and redraw
 * @return 0, 1 when the old points could not be removed, 2 when the new could not be added
 */
int ReplaceDataPoints(UniqueID_t id, const std::vector<PIData::PIPlatformPoint>& points, bool refreshClock);
/// @return the platform's header name, "N/A" when it cannot be read
std::string GetPlatformCallSign(UniqueID_t id);
/// Writes name into the platform's header. @return 0 for success
int SetPlatformCallSign(UniqueID_t id, const std::string& name);
/// Sets the track colour from time on, as a generic data item.
void SetColor(UniqueID_t id, double time, std::uint32_t color);
/// @return the track colour in force at time; 0xFF00FF when none is set
std::uint32_t GetColorFromGeneric(UniqueID_t id, double time);

/**
 * Copies the points of source in [start, end] into a new temporary platform, coloured.
 * @param outId set to the new platform, left alone on failure
 * @param extend true to repeat the last point at end when the slice stops before it
 * @return false when source has no points there or the platform cannot be made
 */
bool FillTrack(UniqueID_t& outId, UniqueID_t source, double start, double end, std::uint32_t color, bool extend);
/// Copies the points of source in [start, end] into target, optionally coloured. @return false when there were none
bool BackFillPartial(UniqueID_t target, UniqueID_t source, double start, double end, bool colorize, std::uint32_t color);
/// Copies the points of source into the holes of target within [start, end]; target's own points win.
void BackFillSegment(UniqueID_t target, UniqueID_t source, double start, double end, bool colorize, std::uint32_t color);
/**
 * Fills every dropout of target over the clock's span from each lower source in turn.
 * @param gap seconds without points that make a dropout @param colors colour k for source k, the last for the rest; not empty
 * @return the dropouts seen, added up over the passes
 */
std::uint32_t BackFillTrack(UniqueID_t target, const std::vector<UniqueID_t>& sources, double gap, bool colorize,
                            const std::vector<std::uint32_t>& colors);

/**
 * Appends the stretches of more than gap seconds without points of id within [start, end].
 * A hole across which the platform did not move is not one. @return false when id has no points there
 */
bool GenerateDropOuts(UniqueID_t id, double start, double end, double gap, std::vector<QtSep::DropOut>& out);
/// As BackFillPartial, point by point, appending each piece between the source's own holes to dropouts.
bool CalculateBackFillPartial(UniqueID_t target, UniqueID_t source, double start, double end, double gap,
                              std::vector<QtSep::DropOut>& dropouts, bool colorize, std::uint32_t color);
/// As BackFillSegment, recording the pieces.
void CalculateBackFillSegment(UniqueID_t target, UniqueID_t source, double start, double end, double gap,
                              std::vector<QtSep::DropOut>& dropouts, bool colorize, std::uint32_t color);
/**
 * Fills the dropouts of target, which holds the primary's slice, from the lower sources in
 * priority order, and lists every filled piece and every gap left open, joined per source.
 */
void CalculateBackFillTrack(UniqueID_t target, const std::vector<UniqueID_t>& sources, double start, double end,
                            double gap, std::vector<QtSep::DropOut>& dropouts, bool colorize,
                            const std::vector<std::uint32_t>& colors);
/// Joins neighbouring stretches of in (by start time) that came from one source, appending to out.
void MergeContiguousDropOuts(UniqueID_t id, std::vector<QtSep::DropOut>& in, std::vector<QtSep::DropOut>& out,
                             double start, double end);
/// Records at time, in the "Merge_Source" category of target, where source's data came from.
void MergePlatformSourceCategoryData(UniqueID_t target, UniqueID_t source, double time);

} // namespace CommonMerge
