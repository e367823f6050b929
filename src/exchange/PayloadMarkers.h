#pragma once

/**
 * @file The texts of an entity payload: its MIME type, which is also its version, and the
 * markers that open and close its records and sections.
 */
namespace QtSep
{

inline constexpr const char* CP_VERSION = "application/asi.1.0";
inline constexpr const char* CP_PLATFORM = "Platform Definition";
inline constexpr const char* CP_BEAM = "Beam Definition";
inline constexpr const char* CP_GATE = "Gate Definition";
inline constexpr const char* CP_LASER = "Laser Definition";
inline constexpr const char* CP_LOB = "LOB Definition";
inline constexpr const char* CP_PROJECTOR = "Projector Definition";
inline constexpr const char* CP_CUSTOM_RENDERING = "Custom Rendering Definition";
inline constexpr const char* CP_CHILDREN = "Children Definition";
inline constexpr const char* CP_CATEGORY_DATA = "Category Data Definition";
inline constexpr const char* CP_GENERIC_DATA = "Generic Data Definition";
inline constexpr const char* CP_DATA_TABLES = "Data Tables Definition";
inline constexpr const char* CP_DATA_TABLE = "Data Table Definition";
inline constexpr const char* CP_COLUMNS = "Columns Definition";
inline constexpr const char* CP_DEFINITION_END = "Definition End";
/// Tables whose name starts so belong to the host or to a kind's own series, not to the user.
inline constexpr const char* INTERNAL_TABLE_PREFIX = "__Internal_";

} // namespace QtSep
