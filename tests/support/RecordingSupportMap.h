#pragma once

#include "host/PISupportFunctionMap.h"
#include "host/PI_DATA_CATCHALL.h"

#include <vector>

/**
 * A support map for tests of the call path itself: it records every request it receives.
 * Like a host, it keeps the identity override stack (family 16) and answers the garbage
 * requests (family 168) with a status the test chooses.
 */
class RecordingSupportMap : public PISupportFunctionMap
{
public:
  /// One request as received.
  struct Request
  {
    void* identity;
    PIServerFunctions_t family;
    void* record;
    long long selector; ///< integer 0 of a catch-all record, -1 for other records
    void* pointer0;     ///< pointer 0 of a catch-all record
  };

  std::vector<Request> requests;       ///< every request, in order
  std::vector<void*> overrideStack;    ///< the host's identity stack
  int garbageStatus = 0;               ///< status written into family 168 requests
  std::int64_t result = 0;             ///< value returned for every other family

  std::int64_t operator()(void* identity, PIServerFunctions_t family, void* record) override
  {
    const bool catchAll = family == PISF_OVERRIDE_THIS_POINTER || family == PISF_SERVER_GARBAGE;
    auto* catchall = catchAll ? static_cast<PI_DATA_CATCHALL*>(record) : nullptr;
    requests.push_back(Request{identity, family, record, catchall ? catchall->integerAt(0) : -1,
                               catchall ? catchall->pointerAt(0) : nullptr});
    if (family == PISF_OVERRIDE_THIS_POINTER)
      return serveOverride_(*catchall);
    if (family == PISF_SERVER_GARBAGE)
      catchall->integers.at(1) = garbageStatus;
    return result;
  }

  /// @return the requests of one family, in order.
  std::vector<Request> ofFamily(PIServerFunctions_t family) const
  {
    std::vector<Request> found;
    for (const Request& r : requests)
      if (r.family == family)
        found.push_back(r);
    return found;
  }

private:
  std::int64_t serveOverride_(PI_DATA_CATCHALL& record)
  {
    switch (record.integerAt(0))
    {
    case 0:
      record.pointers.at(0) = overrideStack.empty() ? nullptr : overrideStack.back();
      break;
    case 1:
      overrideStack.push_back(record.pointerAt(0));
      record.integers.at(1) = 0;
      break;
    case 2:
      record.integers.at(1) = overrideStack.empty() ? 1 : 0;
      if (!overrideStack.empty())
        overrideStack.pop_back();
      break;
    }
    return 0;
  }
};
