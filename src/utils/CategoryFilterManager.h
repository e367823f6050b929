#pragma once

#include "host/PIApplicationEvents.h"
#include "host/UniqueID.h"
#include "utils/CategoryManager.h"

#include <vector>

namespace PUCategoryFilter
{

/**
 * @brief Keeps the category names and values of the scenario in a CategoryManager, in step with
 * the scenario as the host's events report it, and tells its listeners when they change.
 *
 * A reset of the scenario reads every platform's category data again; a platform added and data
 * changed read only the platforms concerned, adding what is new, so that the frequent data
 * events cost the changed platforms only.
 */
class Manager
{
public:
  /// Told after the lists were read again.
  class Listener
  {
  public:
    virtual ~Listener() = default;
    /// The manager's names and values may have been renumbered or grown.
    virtual void syncedToScenario() = 0;
  };

  /// The category names and values, numbered.
  CategoryManager& categoryManager() { return manager_; }
  const CategoryManager& categoryManager() const { return manager_; }

  /// Adds a listener; it outlives the manager or is removed first.
  void addListener(Listener* listener);
  void removeListener(Listener* listener);

  /**
   * Reads every name and value that the scenario's platforms hold, when a scenario is loaded.
   * @param force tell the listeners even when the lists came out as they were
   * \returns true when the lists changed
   */
  bool syncListsToScenario(bool force);

  /**
   * Adds the names and values these platforms hold; the listeners hear of it when any is new.
   * \returns true when the lists grew
   */
  bool addFromPlatforms(const std::vector<UniqueID_t>& ids);

  /// Follows the host's events: reset, platform added, entity data changed.
  void listenToEvents(PIApplicationEvents_t event, void* data);

private:
  /// Adds one platform's names and values. \returns true when any was new
  bool addPlatform_(UniqueID_t id);
  void fireSyncedToScenario_();

  CategoryManager manager_;
  std::vector<Listener*> listeners_;
};

} // namespace PUCategoryFilter
