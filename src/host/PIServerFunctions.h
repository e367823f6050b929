#pragma once

/**
 * @file
 * Families of server requests: the number that every request to the host carries.
 *
 * Numbers up to 999 are the host API's own. Services that the API reaches by numbers this
 * project does not know are assigned here, from 1000 on, for both the plug-in and KELVOR Lite.
 */

/// Family of a server request.
enum PIServerFunctions_t : int
{
  PISF_OVERRIDE_THIS_POINTER = 16,   ///< push, pop and read the identity override stack
  PISF_DESTROY_WINDOW = 142,         ///< destroy the host counterpart of a window wrapper
  PISF_SERVER_GARBAGE = 168,         ///< add to (0) or remove from (1) the host's garbage list
  PISF_SCENARIO_INITIALIZED = 200,   ///< is the scenario initialised; initialise it
  PISF_GET_DESCRIPTION = 201,
  PISF_SET_DESCRIPTION = 202,
  PISF_GET_CLASSIFICATION = 203,
  PISF_SET_CLASSIFICATION = 204,
  PISF_GET_CLASSIFICATION_COLOR = 205,
  PISF_SET_CLASSIFICATION_COLOR = 206,
  PISF_GET_REFERENCE_YEAR = 207,
  PISF_SET_REFERENCE_YEAR = 208,
  PISF_GET_LATITUDE_ORIGIN = 209,
  PISF_GET_LONGITUDE_ORIGIN = 211,
  PISF_FIND_PLATFORM = 215,
  PISF_GET_ENTITY_LIST = 220,
  PISF_GET_OBJECT_HOST = 223,
  PISF_GET_EARLIEST_TIME = 224,
  PISF_GET_LATEST_TIME = 225,
  PISF_SET_STATUS = 227,
  PISF_SET_COLOR = 231,
  PISF_SET_TARGET = 233,
  PISF_GET_WIND_SPEED = 234,
  PISF_SET_WIND_SPEED = 235,
  PISF_GET_WIND_DIRECTION = 236,
  PISF_SET_WIND_DIRECTION = 237,
  PISF_GET_OBJECT_TYPE = 242,
  PISF_CLOCK = 246,
  PISF_CATEGORY_DATA = 247,
  PISF_CREATE_ENTITY = 248,
  PISF_UPDATE_HEADER = 249,
  PISF_GET_HEADER = 250,
  PISF_DELETE_SCENARIO = 251,
  PISF_SCENARIO_FRAME = 252,          ///< altitude origin, origin, tangent plane, frame
  PISF_REMOVE_ENTITY = 253,
  PISF_ADD_DATA_POINT = 255,
  PISF_GET_DATA_POINT = 256,
  PISF_PROJECTOR_DATA = 260,
  PISF_DATA_TABLE = 261,
  PISF_GET_NUMBER_DATA_POINTS = 266,
  PISF_ADD_DATA_POINTS = 269,
  PISF_GET_TARGETS = 270,
  PISF_GET_STATES = 271,
  PISF_GET_COLORS = 272,
  PISF_GET_DATA_POINTS = 273,
  PISF_LASER_DATA = 274,
  PISF_FLUSH_ENTITY_DATA = 276,
  PISF_ADD_LOB_DRAW_STYLE = 277,
  PISF_GET_ORIGINAL_ID = 278,
  PISF_DELETE_GENERIC_DATA = 279,
  PISF_SERVICE = 322,                 ///< bind and unbind named host services

  // Families assigned by this project for the host services of the editor.
  PISF_APPLICATION = 1000,            ///< application id, wait cursor, main window
  PISF_NOTIFY = 1001,                 ///< the notification stream and toasts
  PISF_REGISTRY = 1002,               ///< the settings registry
  PISF_CONTEXT_MENU = 1003,           ///< context-menu callbacks, items, sub-menus, separators
  PISF_MENU_ITEM = 1004,              ///< plug-in menu items and their icons
  PISF_PROGRESS_DIALOG = 1005,        ///< the progress dialog
  PISF_VIEW = 1006,                   ///< mouse cursor, animated lines, camera, aliases
  PISF_PREFERENCES = 1007,            ///< preference rules and draw flags
  PISF_GOG = 1008                     ///< attached and loaded GOG overlays
};
