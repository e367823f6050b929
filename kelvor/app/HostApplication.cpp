#include "app/HostApplication.h"

#include "host/PIApplicationEvents.h"
#include "ui/ClockBar.h"
#include "ui/GlobeWidget.h"

namespace kelvor
{

/// Turns store changes into view refreshes and plug-in events.
class HostApplication::Listener : public StoreListener
{
public:
  explicit Listener(HostApplication& app)
    : app_(app), relay_([&app](int event, void* data) { app.loader().sendEvent(event, data); })
  {
  }

  void entityAdded(UniqueID_t id, int kind) override
  {
    relay_.entityAdded(id, kind);
    changed_();
  }
  void entityRemoving(UniqueID_t id) override
  {
    relay_.entityRemoving(id);
    changed_();
  }
  // Data changes refresh the views; plug-ins hear of them through the signal service, once
  // for a whole edit, not once for every point written.
  void dataChanged(const std::set<UniqueID_t>&) override { changed_(); }
  void scenarioReset() override
  {
    relay_.scenarioReset();
    app_.window().scheduleRefresh();
  }
  void scenarioClosing() override { relay_.scenarioClosing(); }
  void referenceYearChanged() override
  {
    relay_.referenceYearChanged();
    changed_();
  }
  void clockModeChanged() override
  {
    relay_.clockModeChanged();
    app_.window().scheduleRefresh();
  }
  void timeChanged() override { relay_.timeChanged(); }

private:
  void changed_()
  {
    app_.window().setModified(true);
    app_.window().scheduleRefresh();
  }

  HostApplication& app_;
  ApplicationEventRelay relay_;
};

HostApplication::HostApplication(const std::string& registryFile)
  : registry_(registryFile), server_(store_, services_, registry_), window_(std::make_unique<MainWindow>(store_, server_))
{
  services_.setWindow(window_.get());
  loader_ = std::make_unique<PluginLoader>(server_, services_);
  listener_ = std::make_unique<Listener>(*this);
  store_.setListener(listener_.get());
  window_->globe()->setMouseHandler(
      [this](PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) { return loader_->sendMouseEvent(type, event); });
  server_.signalService().setReceiver([this](auto, const std::vector<UniqueID_t>& ids) {
    std::set<UniqueID_t> changed(ids.begin(), ids.end());
    window_->setModified(true);
    window_->scheduleRefresh();
    loader_->sendEvent(PI_EVENT_ENTITY_DATA_CHANGED, &changed);
  });
  QObject::connect(window_->clockBar(), &ClockBar::modeChanged, [this]() { window_->scheduleRefresh(); });
}

HostApplication::~HostApplication()
{
  store_.setListener(nullptr);
  loader_->closeAll();
}

std::size_t HostApplication::loadPlugins(const std::vector<std::string>& folders,
                                         const PIApp::CommandLineArguments& arguments)
{
  const std::size_t count = loader_->loadAll(folders, arguments);
  window_->rebuildPluginMenu();
  return count;
}

std::string HostApplication::builtPluginFolder() { return KELVOR_BUILT_PLUGIN_DIR; }

} // namespace kelvor
