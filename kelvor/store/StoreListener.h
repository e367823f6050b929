#pragma once

#include "host/UniqueID.h"

#include <set>

namespace kelvor
{

/// Hears of the store's changes, so that the host can refresh views and tell plug-ins.
class StoreListener
{
public:
  virtual ~StoreListener() = default;
  /// A new entity of kind (a PIScenarioObjectType_t).
  virtual void entityAdded(UniqueID_t id, int kind) = 0;
  /// An entity is about to be removed; it is still in the store.
  virtual void entityRemoving(UniqueID_t id) = 0;
  /// Data of these entities changed.
  virtual void dataChanged(const std::set<UniqueID_t>& ids) = 0;
  /// Everything may have changed: a scenario was opened or replaced.
  virtual void scenarioReset() = 0;
  /// The scenario is about to be cleared; its data is still there.
  virtual void scenarioClosing() = 0;
  /// The reference year changed.
  virtual void referenceYearChanged() = 0;
  /// The clock's mode changed.
  virtual void clockModeChanged() = 0;
  /// The clock's time changed.
  virtual void timeChanged() = 0;
};

} // namespace kelvor
