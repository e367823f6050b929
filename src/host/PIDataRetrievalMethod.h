#pragma once

/// How a one-point read picks its point relative to the time asked; the editor uses 5 and 6.
enum PIDataRetrievalMethod_t : int
{
  PI_RETRIEVE_EXACT = 0,         ///< the point at exactly that time
  PI_RETRIEVE_FIRST = 1,         ///< the first point of the entity
  PI_RETRIEVE_LAST = 2,          ///< the last point of the entity
  PI_RETRIEVE_BEFORE = 3,        ///< the last point strictly before the time
  PI_RETRIEVE_AFTER = 4,         ///< the first point strictly after the time
  PI_RETRIEVE_AT_OR_AFTER = 5,   ///< the first point at or after the time
  PI_RETRIEVE_AT_OR_BEFORE = 6   ///< the last point at or before the time
};
