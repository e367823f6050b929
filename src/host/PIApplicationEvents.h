#pragma once

/// Events that the host sends a plug-in through listenToEvents, with the data each carries.
enum PIApplicationEvents_t : int
{
  PI_EVENT_TIME_CHANGED = 0,            ///< null
  PI_EVENT_PLAY_STATE_CHANGED = 1,      ///< null
  PI_EVENT_REFERENCE_YEAR_CHANGED = 2,  ///< null
  PI_EVENT_SCENARIO_RESET = 3,          ///< null: everything may have changed
  PI_EVENT_ENTITY_REMOVED = 4,          ///< const uint64_t* id, sent before the entity goes
  PI_EVENT_PLATFORM_ADDED = 5,          ///< const uint64_t* id
  PI_EVENT_BEAM_ADDED = 6,              ///< const uint64_t* id
  PI_EVENT_GATE_ADDED = 7,              ///< const uint64_t* id
  PI_EVENT_VIEW_CHANGED = 8,            ///< null
  PI_EVENT_VIEWPORT_ADDED = 9,          ///< null
  PI_EVENT_VIEWPORT_REMOVED = 10,       ///< null
  PI_EVENT_VIEW_SELECTION_CHANGED = 11, ///< null
  PI_EVENT_LASER_ADDED = 12,            ///< const uint64_t* id
  PI_EVENT_PREFERENCES_CHANGED = 13,    ///< null
  PI_EVENT_LOB_GROUP_ADDED = 14,        ///< const uint64_t* id
  PI_EVENT_CLOCK_MODE_CHANGED = 15,     ///< null
  PI_EVENT_SCENARIO_CLOSING = 16,       ///< null, sent before the data goes
  PI_EVENT_ENTITY_DATA_CHANGED = 17,    ///< const std::set<uint64_t>* ids
  PI_EVENT_PROJECTOR_ADDED = 18,        ///< const uint64_t* id
  PI_EVENT_CUSTOM_RENDERING_ADDED = 19  ///< const uint64_t* id
};
