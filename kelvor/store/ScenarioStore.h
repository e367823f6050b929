#pragma once

#include "host/FlushType.h"
#include "store/DataTable.h"
#include "store/Entity.h"
#include "store/PreferenceRule.h"
#include "store/ScenarioClock.h"
#include "store/ScenarioProperties.h"
#include "store/StoreJournal.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kelvor
{

class StoreListener;

/**
 * @brief The scenario KELVOR Lite holds: entities and their data, tables, properties, clock,
 * preference rules, draw flags and attached overlays. The single source of truth of the host;
 * plug-ins reach it only through the server.
 */
class ScenarioStore
{
public:
  ScenarioStore();
  ~ScenarioStore();

  /// Sets who hears of changes; null for no one. Not owned.
  void setListener(StoreListener* listener) { listener_ = listener; }

  /**
   * Makes an entity.
   * @param host the parent: 0 for a platform; a platform for beams, lasers, LOB groups and
   * projectors; a beam for gates; a platform or beam for custom renderings and projectors
   * @return the new id, 0 when the host does not exist or cannot hold that kind
   */
  UniqueID_t createEntity(const EntityHeader& header, UniqueID_t host);
  /// Removes an entity and its children, each told before it goes. @return false for an unknown id
  bool removeEntity(UniqueID_t id);
  /// Removes every entity, table, rule and overlay; keeps the properties and the clock.
  void clearEntities();
  /// Empties the store for a new scenario: clearEntities, new properties and clock.
  void reset();
  /// Starts a new, empty scenario: reset, and the scenario is initialised. Nothing to undo.
  void startScenario();
  /// Takes over everything other holds, as when a file is opened; the listener hears the old
  /// scenario close and the new one arrive. other is left empty.
  void replaceWith(ScenarioStore& other);

  /// @return the entity to change, null for an unknown id; its state before goes to the journal
  Entity* editEntity(UniqueID_t id);
  const Entity* entity(UniqueID_t id) const;
  /// @return the number of entities.
  std::size_t entityCount() const { return entities_.size(); }

  /**
   * Lists entities in id order.
   * @param kinds a PIScenarioObjectType_t mask; PI_ALL_TYPES for every kind
   * @param parent 0 for the whole scenario, else that entity's children only
   */
  std::vector<UniqueID_t> list(int kinds, UniqueID_t parent = 0) const;
  /// @return the first platform of that name in id order, 0 when none.
  UniqueID_t findPlatform(const std::string& name) const;

  /// Removes what the flush type says from the entity. @return false for an unknown id
  bool flush(UniqueID_t id, PIData::FlushType type);
  /// @return the points of every entity, each of its own kind (Entity::pointCount): what the
  /// Data Browser lists, the window reports on opening a file and kelvor-edit info counts.
  std::size_t pointCount() const;
  /// @return the earliest point time of the entity, of the scenario for 0; -1 when there is none.
  double earliestTime(UniqueID_t id) const;
  /// @return the latest point time of the entity, of the scenario for 0; -1 when there is none.
  double latestTime(UniqueID_t id) const;
  /// Sets the clock's span to the scenario's data.
  void autoConfigureClock();

  /// Adds an empty table under an entity. @return its id, 0 when the entity does not exist
  long addTable(UniqueID_t owner, const std::string& name);
  /// @return the table to change, null for an unknown id; its state before goes to the journal
  DataTable* editTable(long id);
  const DataTable* table(long id) const;
  /// Removes a table. @return false for an unknown id
  bool removeTable(long id);

  /// @return the properties to change; their state before goes to the journal
  ScenarioProperties& editProperties()
  {
    keepScenario_();
    return properties_;
  }
  const ScenarioProperties& properties() const { return properties_; }
  ScenarioClock& clock() { return clock_; }
  const ScenarioClock& clock() const { return clock_; }

  /**
   * Adds a preference rule. @param saved false for a rule of the session only, which the
   * scenario file does not keep @return its id
   */
  long addPreferenceRule(const std::string& text, bool saved = true);
  /// @return false for an unknown id
  bool removePreferenceRule(long id);
  const std::vector<PreferenceRule>& preferenceRules() const { return rules_; }
  /// Sets a named draw flag of an entity (0 for the scenario).
  void setDrawFlag(UniqueID_t id, const std::string& flag, bool on);
  /// @return the draw flags set on an entity (0 for the scenario), in name order.
  std::vector<std::string> drawFlags(UniqueID_t id) const;
  /// @return the draw flag, false when never set.
  bool drawFlag(UniqueID_t id, const std::string& flag) const;

  /// Attaches an overlay file to an entity (0 for the scenario), once.
  void attachGogFile(UniqueID_t id, const std::string& file);
  /// @return the overlay files of an entity, in the order attached.
  std::vector<std::string> attachedGogFiles(UniqueID_t id) const;
  /// @return every entity (0 for the scenario) with overlay files.
  const std::map<UniqueID_t, std::vector<std::string>>& allGogFiles() const { return gogFiles_; }

  /// Tells the listener that the entities' data changed.
  void dataChanged(const std::set<UniqueID_t>& ids);
  /// Tells the listener the reference year changed.
  void referenceYearChanged();
  /// Tells the listener the clock's mode changed.
  void clockModeChanged();
  /// Tells the listener the clock's time changed.
  void timeChanged();
  /// Tells the listener that everything may have changed.
  void scenarioReset();

  /**
   * Starts or stops keeping a journal of changes: while it is kept, every change through the
   * store (the mutable accessors included) leaves the state before it in the open step, so
   * that undo() can restore it. Stopping forgets the steps.
   */
  void keepJournal(bool keep);
  /// @return the journal; null while none is kept
  StoreJournal* journal() { return journal_.get(); }
  /**
   * Restores the state before the newest step. The listener hears of each entity the step's
   * undoing removes, adds or changes, and of a changed reference year; a step that changed the
   * scenario's own settings (properties, rules, draw flags, overlays) ends with a scenario reset.
   * @return false when there is nothing to undo
   */
  bool undo();
  /// Makes the newest undone step again. @return false when there is nothing to redo
  bool redo();

private:
  bool canHost_(UniqueID_t host, PIScenarioObjectType_t kind) const;
  void removeOne_(UniqueID_t id);
  /// Points every target command and target beam that aimed at a removed entity at none.
  void forgetTargets_(UniqueID_t removed);
  /// Leaves the entity's state before its first change in the open step, when a journal is kept.
  void keepEntity_(UniqueID_t id);
  /// As keepEntity_, moving out the series that a flush of that type empties instead of copying them.
  void keepEntityForFlush_(UniqueID_t id, PIData::FlushType type);
  void keepTable_(long id);
  void keepScenario_();
  /// Undoes (back) or redoes the next step. @return false when there is none
  bool replay_(bool back);
  /// Cuts a closing step's entity pre-images down to the items that differ from the present.
  void trimToChanges_(StoreJournal::Step& step);
  /// Exchanges a step's pre-images with the present state; the step then holds what it replaced.
  /// Tells the listener what the exchange removed (before it), added and changed (after it).
  void exchange_(StoreJournal::Step& step);
  /// Exchanges the scenario's own settings with a pre-image. @return whether the reference year changed
  bool exchangeScenario_(StoreJournal::Scenario& image);
  void tellExchanged_(const std::vector<UniqueID_t>& added, std::set<UniqueID_t> changed, bool settingsChanged,
                      bool yearChanged);

  std::map<UniqueID_t, std::unique_ptr<Entity>> entities_;
  UniqueID_t nextId_ = 1;
  std::map<long, std::unique_ptr<DataTable>> tables_;
  long nextTableId_ = 1;
  ScenarioProperties properties_;
  ScenarioClock clock_;
  std::vector<PreferenceRule> rules_;
  long nextRuleId_ = 1;
  std::map<UniqueID_t, std::set<std::string>> drawFlags_;
  std::map<UniqueID_t, std::vector<std::string>> gogFiles_;
  StoreListener* listener_ = nullptr;
  std::unique_ptr<StoreJournal> journal_;
};

} // namespace kelvor
