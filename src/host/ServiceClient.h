#pragma once

#include "host/BindableInterface.h"

#include <string>

namespace PICommon
{

/// Binds to a named host service (family 322) and is told when it is there.
class ServiceClient : public BindingClient
{
public:
  ~ServiceClient() override;
  /// Binds to the service. @return true when it exists; binding to a missing service is no error
  bool bind(const std::string& name);
  /// Drops the binding, if any.
  void unbind();
  /// @return the bound service, null when none.
  BindableInterface* service() const { return service_; }

  void onServiceConnected(BindableInterface* service) override { service_ = service; }
  void onServiceDisconnected() override { service_ = nullptr; }

private:
  BindableInterface* service_ = nullptr;
};

/// A client of a service of interface T.
template <typename T>
class BasicClient : public ServiceClient
{
public:
  /// @return the bound service as T, null when none.
  T* serviceInterface() const { return static_cast<T*>(service()); }
};

} // namespace PICommon
