#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

namespace kelvor
{

struct ServerState;

/// Serves the data tables: tables, columns, rows and column iterators.
class TableRequests
{
public:
  explicit TableRequests(ServerState& state) : state_(state) {}
  /// @return true for the families this serves.
  static bool serves(PIServerFunctions_t family) { return family == PISF_DATA_TABLE; }
  /// Serves one request. @return its status: for add, find and remove 1 is success
  std::int64_t serve(void* record);

private:
  ServerState& state_;
};

} // namespace kelvor
