#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

namespace kelvor
{

struct ServerState;

/**
 * Serves the host services: the identity override stack, window garbage, named services,
 * notifications, the registry, menus, icons, the progress dialog, the 3-D view, preference
 * rules and overlays.
 */
class ServiceRequests
{
public:
  explicit ServiceRequests(ServerState& state) : state_(state) {}
  /// @return true for the families this serves.
  static bool serves(PIServerFunctions_t family);
  /// Serves one request. @return 0 for success, else a failure status
  std::int64_t serve(PIServerFunctions_t family, void* record);

private:
  std::int64_t override_(void* record);
  std::int64_t destroyWindow_(void* handle);
  std::int64_t garbage_(void* record);
  std::int64_t service_(void* record);
  std::int64_t application_(void* record);
  std::int64_t notify_(void* record);
  std::int64_t registry_(void* record);
  std::int64_t contextMenu_(void* record);
  std::int64_t menuItem_(void* record);
  std::int64_t progress_(void* record);
  std::int64_t view_(void* record);
  std::int64_t preferences_(void* record);
  std::int64_t gog_(void* record);

  ServerState& state_;
};

} // namespace kelvor
