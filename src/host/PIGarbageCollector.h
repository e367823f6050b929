#pragma once

#include <vector>

class PIObject;

/// Owns the window wrappers that the plug-in deletes itself at clean-up.
class PIGarbageCollector
{
public:
  PIGarbageCollector() = default;
  /// Deletes the objects from the last to the first, without asking the host to destroy them.
  virtual ~PIGarbageCollector();

  PIGarbageCollector(const PIGarbageCollector&) = delete;
  PIGarbageCollector& operator=(const PIGarbageCollector&) = delete;

  /// Takes object into the collection.
  void add(PIObject* object) { objects_.push_back(object); }
  /// Drops object from the collection without deleting it.
  void remove(PIObject* object);
  /// @return true while the destructor runs.
  bool destroying() const { return destroying_; }
  /// @return the objects collected, in the order they came.
  const std::vector<PIObject*>& objects() const { return objects_; }

private:
  std::vector<PIObject*> objects_;
  bool destroying_ = false;
};
