#pragma once

#include <string>

namespace PICommon
{

/// A service of the host that a plug-in binds to by name.
class BindableInterface
{
public:
  virtual ~BindableInterface() = default;
  /// @return the service's name, as "kelvorhost/PluginClient/SignalService/1.0".
  virtual std::string serviceName() const = 0;
};

/// The plug-in's side of a binding: told when the service is there.
class BindingClient
{
public:
  virtual ~BindingClient() = default;
  /// The service exists and is bound.
  virtual void onServiceConnected(BindableInterface* service) = 0;
  /// The service went away or was unbound.
  virtual void onServiceDisconnected() = 0;
};

} // namespace PICommon
