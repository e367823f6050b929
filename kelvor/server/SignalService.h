#pragma once

#include "host/SignalInterface.h"

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
  }

private:
  Receiver receiver_;
};

} // namespace kelvor
