#pragma once

#include "host/SignalInterface.h"

#include <algorithm>
#include <functional>

namespace kelvor
{

/// The host's signal service; what plug-ins send reaches the receiver the host set.
class SignalService : public PluginClient::Interfaces::SignalInterface
{
public:
  using Receiver = std::function<void(Signal, const std::vector<UniqueID_t>&)>;

  void setReceiver(Receiver receiver) { receiver_ = std::move(receiver); }
  void sendSignal(Signal signal, const std::vector<UniqueID_t>& ids) override
  {
    if (receiver_)
      receiver_(signal, ids);
    // A listener may remove itself while it is told.
    const std::vector<Listener*> listeners = listeners_;
    for (Listener* listener : listeners)
    {
      if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end())
        listener->callback(signal, ids);
    }
  }
  void addListener(Listener* listener) override
  {
    if (std::find(listeners_.begin(), listeners_.end(), listener) == listeners_.end())
      listeners_.push_back(listener);
  }
  void removeListener(Listener* listener) override
  {
    listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), listener), listeners_.end());
  }

private:
  Receiver receiver_;
  std::vector<Listener*> listeners_;
};

} // namespace kelvor
