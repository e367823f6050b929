#pragma once

#include "host/PIServerFunctions.h"

#include <cstdint>

namespace kelvor
{

struct ServerState;

/// Serves listing, identity, headers, creation, removal, category and generic data.
class EntityRequests
{
public:
  explicit EntityRequests(ServerState& state) : state_(state) {}
  /// @return true for the families this serves.
  static bool serves(PIServerFunctions_t family);
  /// Serves one request. @return 0 for success, else a failure status
  std::int64_t serve(PIServerFunctions_t family, void* record);

private:
  std::int64_t list_(void* record);
  std::int64_t getHeader_(void* record);
  std::int64_t updateHeader_(void* record);
  std::int64_t create_(void* record);
  std::int64_t categories_(void* record);
  std::int64_t deleteGeneric_(void* record);

  ServerState& state_;
};

} // namespace kelvor
