#pragma once

/// Kind of an entity, a bit mask; the numbers also order entities in sorted lists.
enum PIScenarioObjectType_t : int
{
  PI_NONE_TYPE = 0,              ///< unknown id
  PI_PLATFORM_TYPE = 1,          ///< platform
  PI_BEAM_TYPE = 2,              ///< beam
  PI_GATE_TYPE = 4,              ///< gate
  PI_ALL_TYPES = 8,              ///< every object (list queries only)
  PI_GENERIC_DATA_TYPE = 16,     ///< generic data
  PI_LASER_TYPE = 32,            ///< laser
  PI_LOB_GROUP_TYPE = 64,        ///< line-of-bearing group
  PI_PROJECTOR_TYPE = 128,       ///< projector
  PI_CUSTOM_RENDERING_TYPE = 256 ///< custom rendering
};
