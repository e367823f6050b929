#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

namespace kelvor
{

struct ServerState;

/// Serves the scenario-wide properties, its frame and the clock.
class ScenarioRequests
{
public:
  explicit ScenarioRequests(ServerState& state) : state_(state) {}
  /// @return true for the families this serves.
  static bool serves(PIServerFunctions_t family);
  /// Serves one request. @return 0 for success, else a failure status
  std::int64_t serve(PIServerFunctions_t family, void* record);

private:
  std::int64_t initialized_(void* record);
  std::int64_t frame_(void* record);
  std::int64_t clock_(void* record);

  ServerState& state_;
};

} // namespace kelvor
