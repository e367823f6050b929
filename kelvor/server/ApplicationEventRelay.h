#pragma once

#include "store/StoreListener.h"

#include <functional>

namespace kelvor
{

/**
 * @brief Turns the store's changes into the application events plug-ins receive through
 * listenToEvents, each with its data: an id for additions and removals, the set of ids for
 * changed data, nothing for the rest.
 */
class ApplicationEventRelay : public StoreListener
{
public:
  /// Receives one event (a PIApplicationEvents_t) and its data, valid during the call.
  using Sink = std::function<void(int event, void* data)>;

  explicit ApplicationEventRelay(Sink sink) : sink_(std::move(sink)) {}

  void entityAdded(UniqueID_t id, int kind) override;
  void entityRemoving(UniqueID_t id) override;
  void dataChanged(const std::set<UniqueID_t>& ids) override;
  void scenarioReset() override;
  void scenarioClosing() override;
  void referenceYearChanged() override;
  void clockModeChanged() override;
  void timeChanged() override;

  /// @return the event of a new entity of kind (a PIScenarioObjectType_t), -1 for none.
  static int additionEvent(int kind);

private:
  Sink sink_;
};

} // namespace kelvor
