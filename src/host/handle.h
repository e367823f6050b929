#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

/**
 * Passes one server request to the host, under the overriding identity if one is pushed,
 * else under g_This. Without a support map it writes the call path's failure text to
 * standard error and returns 0.
 * @param family the request family
 * @param record the family's record, filled in place by the host
 * @return what the host returns
 */
std::int64_t handle(PIServerFunctions_t family, void* record);

/// Writes the two-line text of a call made without a support map to standard error.
void reportMissingSupportMap();
