#pragma once

/**
 * @file
 * Helpers of the request wrappers: make a record, send it, read the answer.
 */

#include "host/PI_DATA_CATCHALL.h"
#include "host/PI_DATA_STRUCT.h"
#include "host/handle.h"

#include <string>
#include <vector>

namespace PIRequest
{

/// An entity record for one entity of a kind.
inline PIData::PI_DATA_STRUCT entity(UniqueID_t id, int objectType = 0)
{
  PIData::PI_DATA_STRUCT r;
  r.entityId = id;
  r.objectType = objectType;
  return r;
}

/// Sends an entity record. @return 0 when the host answered success, else 1
inline int send(PIServerFunctions_t family, PIData::PI_DATA_STRUCT& r)
{
  handle(family, &r);
  return r.status == 0 ? 0 : 1;
}

/// A catch-all record with a selector, a status slot and integer arguments.
inline PI_DATA_CATCHALL catchAll(std::int64_t selector, std::initializer_list<std::int64_t> integers = {})
{
  PI_DATA_CATCHALL r = PI_DATA_CATCHALL::withSelector(selector);
  r.integers.insert(r.integers.end(), integers.begin(), integers.end());
  return r;
}

/// Sends a catch-all record. @return the status slot: 0 for success
inline int send(PIServerFunctions_t family, PI_DATA_CATCHALL& r)
{
  handle(family, &r);
  return static_cast<int>(r.integerAt(1));
}

} // namespace PIRequest
