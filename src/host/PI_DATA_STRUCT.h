#pragma once

#include "host/PI_DATA_BASE_CLASS.h"
#include "host/UniqueID.h"

#include <cstdint>
#include <string>

namespace PIData
{

/// The record of every server request that names one entity.
class PI_DATA_STRUCT : public PI_DATA_BASE_CLASS
{
public:
  UniqueID_t entityId = 0;                 ///< the entity; for a create request the new id on return
  UniqueID_t secondId = 0;                 ///< the host of a new entity, or a target id
  std::string text;                        ///< a name or text argument
  double double1 = PI_INVALID_DOUBLE;      ///< spare numeric argument
  double double2 = PI_INVALID_DOUBLE;      ///< spare numeric argument
  double double3 = PI_INVALID_DOUBLE;      ///< spare numeric argument
  void* pointer1 = nullptr;                ///< header record, or the frame of a platform point request
  void* pointer2 = nullptr;                ///< point record, or a vector that receives records
  std::int32_t status = 0;                 ///< in: retrieval method or -1; out: result status
  std::uint32_t value = 0;                 ///< colour, visibility or tracking status
  double time = 0.0;                       ///< time argument or result, seconds
  std::int32_t objectType = 0;             ///< PIScenarioObjectType_t mask of the addressed kind
};

} // namespace PIData
