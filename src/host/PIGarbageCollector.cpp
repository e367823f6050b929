#include "host/PIGarbageCollector.h"

#include "host/PIObject.h"

#include <algorithm>

PIGarbageCollector::~PIGarbageCollector()
{
  destroying_ = true;
  for (auto it = objects_.rbegin(); it != objects_.rend(); ++it)
  {
    PIObject* object = *it;
    if (!object)
      continue;
    // The host ends its own counterparts at unload; asking it now would reach a host
    // that may already be tearing down.
    object->setHostOwnsCounterpart(false);
    delete object;
  }
  objects_.clear();
}

void PIGarbageCollector::remove(PIObject* object)
{
  objects_.erase(std::remove(objects_.begin(), objects_.end(), object), objects_.end());
}
