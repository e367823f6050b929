#pragma once

namespace UTILS
{

/// Storage type of a data table column.
enum VariableType_t : int
{
  VT_UNKNOWN = 0, ///< unknown
  VT_UINT8 = 1,   ///< unsigned 8-bit
  VT_INT8 = 2,    ///< signed 8-bit
  VT_UINT16 = 3,  ///< unsigned 16-bit
  VT_INT16 = 4,   ///< signed 16-bit
  VT_UINT32 = 5,  ///< unsigned 32-bit
  VT_INT32 = 6,   ///< signed 32-bit
  VT_UINT64 = 7,  ///< unsigned 64-bit
  VT_INT64 = 8,   ///< signed 64-bit
  VT_FLOAT = 9,   ///< float
  VT_DOUBLE = 10, ///< double
  VT_STRING = 11, ///< text (std::string)
  VT_BLOB = 12    ///< blob (UTILS::Blob)
};

} // namespace UTILS
