#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

/**
 * @brief The host's support function map: the one door through which a plug-in reaches its
 * host. The host derives from it; the plug-in receives a pointer at initialisation.
 *
 * Its call operation is the second virtual slot, after the destructor.
 */
class PISupportFunctionMap
{
public:
  virtual ~PISupportFunctionMap() = default;

  /**
   * Serves one server request in the calling thread, writing results into the record.
   * @param identity the plug-in the request comes from (its g_This, or an override)
   * @param family the request family
   * @param record the marshalling record of the family, or a pointer to a plain value
   * @return the family's result; 0 for success where the family answers a status
   */
  virtual std::int64_t operator()(void* identity, PIServerFunctions_t family, void* record) = 0;
};
