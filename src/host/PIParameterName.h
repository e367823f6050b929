#pragma once

/// Keys of the argument and result maps of one client message.
enum PIParameterName_t : int
{
  PIPN_RESULT = 0,                   ///< integer result; the Name() result in the string map
  PIPN_DESCRIPTIVE_STRING = 3,       ///< string result of the descriptive operations
  PIPN_LOCATION = 5,                 ///< string: network location
  PIPN_PORT = 6,                     ///< integer: port
  PIPN_PROTOCOL = 7,                 ///< integer: PINetworkProtocol_t
  PIPN_CONFIG_KEY = 8,               ///< string: configuration option name
  PIPN_CONFIG_VALUE = 9,             ///< string: configuration option value
  PIPN_CONFIG_OPTIONS = 10,          ///< pointer: std::vector<std::string>* that receives options
  PIPN_EVENT = 11,                   ///< integer: event or mouse event type
  PIPN_EVENT_DATA = 12,              ///< pointer: event data or PIMouseEvent*
  PIPN_VIEW_X = 13,                  ///< integer: first drawing argument
  PIPN_VIEW_Y = 14,                  ///< integer: second drawing argument
  PIPN_ARGUMENT_VECTOR = 15,         ///< pointer: std::vector<std::string>* of an older host
  PIPN_TERRAIN_INITIALIZE = 16,      ///< pointer: terrain hook argument
  PIPN_TERRAIN_PARSE_TOKEN = 17,     ///< pointer: terrain hook argument
  PIPN_TERRAIN_TOKEN_STRING = 18,    ///< pointer: terrain hook argument
  PIPN_TERRAIN_NODE = 19,            ///< pointer: terrain hook argument
  PIPN_TERRAIN_DEREFERENCE = 20,     ///< pointer: terrain hook argument
  PIPN_TERRAIN_INFO = 21,            ///< pointer: terrain hook argument
  PIPN_COMMAND_LINE_REGISTRATION = 22, ///< pointer: PIApp::CommandLineRegistration*
  PIPN_COMMAND_LINE_ARGUMENTS = 23   ///< pointer: PIApp::CommandLineArguments*
};
