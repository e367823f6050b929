#pragma once

/**
 * @brief Base of the host-side window wrappers.
 *
 * Both sides keep book of a wrapper: the host in its garbage list, the plug-in in
 * g_PI_GarbageCollector, so that either can end the plug-in's windows.
 */
class PIObject
{
public:
  /// Registers the wrapper in the host's garbage list, and in the collector when the host says so.
  PIObject();
  /// Destroys the host counterpart if the host owns one, and leaves both garbage lists.
  virtual ~PIObject();

  PIObject(const PIObject&) = delete;
  PIObject& operator=(const PIObject&) = delete;

  /// @return the host's handle of the counterpart, null until the host fills it.
  void* hostHandle() const { return hostHandle_; }
  /// Sets the host's handle of the counterpart.
  void setHostHandle(void* handle) { hostHandle_ = handle; }
  /// @return true when the host holds a counterpart that the destructor must destroy.
  bool hostOwnsCounterpart() const { return hostOwnsCounterpart_; }
  /// Sets whether the destructor asks the host to destroy the counterpart.
  void setHostOwnsCounterpart(bool owns) { hostOwnsCounterpart_ = owns; }

private:
  void* hostHandle_ = nullptr;
  bool hostOwnsCounterpart_ = true;
};
