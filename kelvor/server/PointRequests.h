#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

namespace kelvor
{

struct ServerState;

/// Serves every time series: points, commands, laser, LOB and projector series, flush and time bounds.
class PointRequests
{
public:
  explicit PointRequests(ServerState& state) : state_(state) {}
  /// @return true for the families this serves.
  static bool serves(PIServerFunctions_t family);
  /// Serves one request. @return 0 for success, else a failure status
  std::int64_t serve(PIServerFunctions_t family, void* record);

private:
  std::int64_t addPoint_(void* record);
  std::int64_t addPoints_(void* record);
  std::int64_t getPoint_(void* record);
  std::int64_t getGeneric_(void* record);
  std::int64_t getPoints_(void* record);
  std::int64_t getCommands_(PIServerFunctions_t family, void* record);
  std::int64_t laser_(void* record);
  std::int64_t projector_(void* record);
  std::int64_t flush_(void* record);

  ServerState& state_;
};

} // namespace kelvor
