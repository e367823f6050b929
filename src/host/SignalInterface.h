#pragma once

#include "host/BindableInterface.h"
#include "host/UniqueID.h"

#include <vector>

namespace PluginClient
{
namespace Interfaces
{

/// Name of the host's signal service.
constexpr const char* SIGNAL_SERVICE_NAME = "kelvorhost/PluginClient/SignalService/1.0";
/// Name of its signal that data was appended.
constexpr const char* APPEND_DATA_SIGNAL = "kelvorhost/PluginClient/SignalService/AppendData/1.0";

/// The host's signal service: plug-ins tell it what they changed.
class SignalInterface : public PICommon::BindableInterface
{
public:
  enum Signal
  {
    ENTITY_DATA_MODIFIED = 0 ///< the entities' data changed; the host refreshes and tells plug-ins
  };

  /// Hears every signal sent to the service.
  class Listener
  {
  public:
    virtual ~Listener() = default;
    /// @param signal what happened @param ids the entities concerned
    virtual void callback(Signal signal, const std::vector<UniqueID_t>& ids) = 0;
  };

  std::string serviceName() const override { return SIGNAL_SERVICE_NAME; }
  /// Sends a signal about entities. @param ids the entities concerned
  virtual void sendSignal(Signal signal, const std::vector<UniqueID_t>& ids) = 0;
  /// Has listener hear every later signal, once. @param listener not owned; removed before it goes
  virtual void addListener(Listener* listener) = 0;
  virtual void removeListener(Listener* listener) = 0;
};

} // namespace Interfaces
} // namespace PluginClient

namespace PIKELVOR
{
/// Name of the host's service of clicks in its GOG list.
constexpr const char* CLICKED_GUI_GOG_LIST_NAME = "kelvorhost/PIKELVOR/ClickedGuiGogList/1.0";
/// Name of the host's service of clicks in its bookmark list.
constexpr const char* CLICKED_GUI_BOOKMARK_LIST_NAME = "kelvorhost/PIKELVOR/ClickedGuiBookmarkList/1.0";
} // namespace PIKELVOR
