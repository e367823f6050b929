#pragma once

/**
 * @file
 * Selectors inside the request families that serve several operations, and the layout of
 * each operation's record. Both the plug-in's wrappers and KELVOR Lite's server use them.
 *
 * Catch-all records: integers [selector, status, arguments...], doubles, strings and
 * pointers in the order given. Entity records (PIData::PI_DATA_STRUCT) name their fields.
 * A status is 0 for success.
 */

namespace PISelector
{

/// PISF_GET_DATA_POINTS: integers [sel, status, id]; doubles [begin, end];
/// pointers [std::vector<record>*, PICoordReferenceFrame* (platforms only)].
enum DataPoints
{
  POINTS_PLATFORM = 0,
  POINTS_BEAM = 1,
  POINTS_GATE = 2,
  POINTS_LASER = 3,
  POINTS_LASER_WIDTHS = 4,    ///< std::vector<std::pair<double, int>>
  POINTS_LASER_MAX_RANGE = 5, ///< std::vector<std::pair<double, double>>
  POINTS_LASER_OFFSETS = 6,
  POINTS_LOB = 7,
  POINTS_LOB_DRAW_STYLES = 8,
  POINTS_PROJECTOR = 9,
  POINTS_PROJECTOR_ON_OFF = 10 ///< std::vector<std::pair<double, int>>
};

/// PISF_LASER_DATA: integers [sel, status, id, width]; doubles [time, value]; pointers [record*].
enum LaserData
{
  LASER_ORIENTATION = 1,
  LASER_MAX_RANGE = 2,
  LASER_WIDTH = 3,
  LASER_OFFSET = 4
};

/// PISF_PROJECTOR_DATA: integers [sel, status, id, on]; doubles [time, field of view].
enum ProjectorData
{
  PROJECTOR_FOV = 3,
  PROJECTOR_ON_OFF = 4
};

/// PISF_FLUSH_ENTITY_DATA: integers [1, status, flush type]; pointers [UniqueID_t*].
constexpr int FLUSH = 1;

/// PISF_CLOCK: integers [sel, status, mode]; doubles [argument or result, second argument].
enum Clock
{
  CLOCK_SET_MODE = 1,
  CLOCK_GET_MODE = 2,
  CLOCK_GET_TIME = 3,
  CLOCK_SET_TIME = 4,
  CLOCK_GET_VISUAL_TIME = 5,
  CLOCK_IS_PLAYING = 7,
  CLOCK_STOP = 8,
  CLOCK_PLAY = 9,
  CLOCK_AUTO_CONFIGURE = 10,
  CLOCK_GET_BEGIN = 12,
  CLOCK_SET_BEGIN = 13,
  CLOCK_GET_END = 14,
  CLOCK_SET_END = 15,
  CLOCK_GET_USER_CONTROLS_DISABLED = 18,
  CLOCK_GET_TIME_FORMAT = 20,
  CLOCK_SET_TIME_FORMAT = 21,
  CLOCK_IS_VISUAL_TIME_ACTIVE = 25
};

/// PISF_SCENARIO_INITIALIZED: integers [sel, status (out: 1 when initialised), port, protocol]; strings [host].
enum ScenarioInitialized
{
  SCENARIO_IS_INITIALIZED = 0,
  SCENARIO_INITIALIZE = 1
};

/// PISF_SCENARIO_FRAME: integers [sel, status]; doubles [values...]; pointers [PICoordReferenceFrame*].
enum ScenarioFrame
{
  FRAME_GET_ALTITUDE_ORIGIN = 0,
  FRAME_SET_ORIGIN_LLA = 2,
  FRAME_SET_TANGENT_PLANE = 3,
  FRAME_GET_TP_OFFSET_X = 4,
  FRAME_GET_TP_OFFSET_Y = 5,
  FRAME_GET_TP_ANGLE = 6,
  FRAME_GET_COORD_REFERENCE_FRAME = 7,
  FRAME_SET_COORD_REFERENCE_FRAME = 8
};

/// PISF_CATEGORY_DATA: integers [sel, status, id]; doubles [time]; pointers [record* or vector*].
enum CategoryData
{
  CATEGORY_ADD = 0,
  CATEGORY_REMOVE = 1,
  CATEGORY_RETRIEVE_ALL = 2,
  CATEGORY_RETRIEVE_CURRENT = 3
};

/// PISF_DATA_TABLE: integers [sel, status, table, column, entity]; doubles [begin, end];
/// strings [name]; pointers [arguments and out-parameters, in the operation's order].
/// Status is 1 for success of add, find and remove, 0 for success of the rest.
enum DataTable
{
  TABLE_ADD = 1,
  TABLE_FIND = 2,
  TABLE_REMOVE = 3,
  TABLE_SET_COLUMN_UNITS = 4,
  TABLE_ADD_ROW = 6,
  TABLE_FOR_EACH_ROW = 7,
  TABLE_GET_COLUMN_NAME = 18,
  TABLE_GET_COLUMN_UNITS = 19,
  TABLE_GET_COLUMN_STORAGE_TYPE = 20,
  TABLE_ADD_COLUMN = 34,
  TABLE_GET_ALL_IDS = 35,
  TABLE_GET_NAME = 36,
  TABLE_GET_COLUMNS = 37,
  TABLE_GET_COLUMN_VALUE_ITERATOR = 39
};

/// PISF_SERVICE: integers [sel, status]; strings [service name]; pointers [client].
enum Service
{
  SERVICE_BIND = 0,
  SERVICE_UNBIND = 1
};

/// PISF_APPLICATION: integers [sel, status (out: the answer)]; pointers [out].
enum Application
{
  APPLICATION_ID = 0,
  APPLICATION_BEGIN_WAIT_CURSOR = 1,
  APPLICATION_END_WAIT_CURSOR = 2,
  APPLICATION_MAIN_WINDOW = 3
};

/// PISF_NOTIFY: integers [sel, status, severity or duration]; strings [text].
enum Notify
{
  NOTIFY_LINE = 0,
  NOTIFY_TOAST = 1
};

/// PISF_REGISTRY: integers [sel, status (out: 0 when found)]; strings [key, value...];
/// pointers [std::string* or std::vector<std::string>* out].
enum Registry
{
  REGISTRY_SET_VALUE = 0,
  REGISTRY_GET_VALUE = 1,
  REGISTRY_SET_STRING_VECTOR = 2,
  REGISTRY_GET_STRING_VECTOR = 3
};

/// PISF_CONTEXT_MENU: integers [sel, status, weight, enabled]; strings [text];
/// pointers [menu, functor or callback, icon]; sub-menus come back in pointers[0].
enum ContextMenu
{
  MENU_REGISTER_CALLBACK = 0,
  MENU_REMOVE_CALLBACK = 1,
  MENU_ADD_ITEM = 2,
  MENU_ADD_SUB_MENU = 3,
  MENU_ADD_SEPARATOR = 4
};

/// PISF_MENU_ITEM: integers [sel, status, enabled]; strings [text or PNG bytes];
/// pointers [parent menu, functor or icon handle, PIObject*]; handles come back in pointers[0].
enum MenuItem
{
  ITEM_CREATE = 0,
  ITEM_SET_ICON = 1,
  ITEM_SET_ENABLED = 2,
  ICON_LOAD_PNG = 3
};

/// PISF_PROGRESS_DIALOG: integers [sel, status (out: the answer), value]; strings [title, label];
/// pointers [dialog handle]; a new dialog's handle comes back in pointers[0].
enum ProgressDialog
{
  PROGRESS_CREATE = 0,
  PROGRESS_SHOW = 1,
  PROGRESS_SET_MAXIMUM = 2,
  PROGRESS_SET_VALUE = 3,
  PROGRESS_IS_CANCELED = 4,
  PROGRESS_RUN_WHILE_EVENTS = 5
};

/// PISF_VIEW: integers [sel, status, id or flag]; doubles [values]; strings [names].
enum View
{
  VIEW_GET_MOUSE_CURSOR_LLA = 0,   ///< doubles out [lat, lon, alt]; integers[2] the viewport kind
  VIEW_CREATE_ANIMATED_LINE = 1,   ///< doubles [lat1, lon1, alt1, lat2, lon2, alt2]; integers [.., .., colour, width]; out integers[1] the line id
  VIEW_REMOVE_ANIMATED_LINE = 2,   ///< integers[2] the line id
  VIEW_GET_CURRENT_VIEWPORT = 3,   ///< strings out [name]
  VIEW_TETHER_CAMERA = 4,          ///< strings [viewport]; integers[2] the entity
  VIEW_GET_USE_ALIAS = 5,          ///< integers[2] the entity; out integers[1] 1 when the alias shows
  VIEW_GRAB_MOUSE = 6,
  VIEW_RELEASE_MOUSE = 7,
  VIEW_GET_OBJECT_ALIAS = 8        ///< integers[2] the entity; strings out [alias]
};

/// PISF_PREFERENCES: integers [sel, status, entity, flag]; strings [rule or flag name]; pointers [out].
enum Preferences
{
  PREF_ADD_RULE = 0,       ///< strings [rule text]; integers[2] the persistence; out integers[1] the rule id
  PREF_REMOVE_RULE = 1,    ///< integers[2] the rule id
  PREF_SET_DRAW_FLAG = 2,  ///< integers [.., .., entity, on]; strings [flag]
  PREF_GET_BOOL = 3,       ///< integers[2] the entity; strings [preference name]; out integers[3] 1 when on
  PREF_SET_DRAW = 4        ///< integers [.., .., entity, draw, with its children]
};

/// PISF_GOG: integers [sel, status, entity]; strings [file]; pointers [std::vector<std::string>* out].
enum Gog
{
  GOG_GET_ATTACHED = 0,
  GOG_LOAD = 1
};

} // namespace PISelector
