#pragma once

#include "store/DataTable.h"
#include "store/Entity.h"
#include "store/PreferenceRule.h"
#include "store/ScenarioProperties.h"
#include "store/SeriesCut.h"

#include <functional>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief What undoes and redoes the scenario's changes, step by step: each step keeps, for every
 * entity, table and for the scenario's own settings it changed, the state they had before the
 * step's first change to them (a pre-image; none for what the step made). Undoing a step swaps
 * the pre-images with the present state, which then serves to redo it, so undo and redo cost
 * what the step touched, not the scenario.
 *
 * The store keeps the journal: it hands every unit over before it changes it.
 */
class StoreJournal
{
public:
  /// The scenario's own settings apart from its entities and tables.
  struct Scenario
  {
    ScenarioProperties properties;
    std::vector<PreferenceRule> rules;
    std::map<UniqueID_t, std::set<std::string>> drawFlags;
    std::map<UniqueID_t, std::vector<std::string>> gogFiles;
  };

  /// One user action's changes. A null pre-image stands for a unit that did not exist.
  struct Step
  {
    std::string name;
    std::map<UniqueID_t, std::unique_ptr<Entity>> entities;
    /// For an entity listed, the cut of each of its series (in forEachSeries order): its
    /// pre-image's series hold only the items between, those the step replaced.
    std::map<UniqueID_t, std::vector<SeriesCut>> cuts;
    std::map<long, std::unique_ptr<DataTable>> tables;
    std::unique_ptr<Scenario> scenario;
    bool hasScenario = false;
    bool implicit = false; ///< opened by a change, not by a command
    std::size_t bytes = 0; ///< about what the pre-images take, counted when the step closes

    bool empty() const { return entities.empty() && tables.empty() && !hasScenario; }
  };

  /// Opens a step of that name, closing the one open. Steps to redo are dropped once it changes anything.
  void beginStep(const std::string& name);
  /// Closes the open step: a step that changed nothing is forgotten.
  void endStep();
  /// @return whether a step is open
  bool stepOpen() const { return open_ != nullptr; }
  /// @return whether the open step was opened by a change rather than by a command
  bool implicitStepOpen() const { return open_ && open_->implicit; }
  /// The name of the step opened by a change when none is open.
  void setImplicitName(const std::string& name) { implicitName_ = name; }

  /// Sets what a step goes through as it closes, before it is measured: the store cuts its
  /// pre-images down to what changed.
  void setCloser(std::function<void(Step&)> closer) { closer_ = std::move(closer); }

  /// @return the step that takes the next pre-image, opened under the implicit name when none is open
  Step& current();
  /// @return whether the open step already holds a pre-image of the entity
  bool holdsEntity(UniqueID_t id) const { return open_ && open_->entities.count(id) > 0; }
  bool holdsTable(long id) const { return open_ && open_->tables.count(id) > 0; }
  bool holdsScenario() const { return open_ && open_->hasScenario; }

  /// @return the steps that can be undone, oldest first; the open step is not among them
  const std::vector<std::unique_ptr<Step>>& undoSteps() const { return undo_; }
  /// @return the steps that can be redone, the next to redo last
  const std::vector<std::unique_ptr<Step>>& redoSteps() const { return redo_; }

  /// Takes the newest step to undo, closing the open one first. @return null when there is none
  std::unique_ptr<Step> takeUndo();
  /// Takes the next step to redo. @return null when there is none
  std::unique_ptr<Step> takeRedo();
  /// Files a step that was undone, to redo.
  void pushRedo(std::unique_ptr<Step> step) { file_(redo_, std::move(step)); }
  /// Files a step that was redone, to undo again.
  void pushUndo(std::unique_ptr<Step> step) { file_(undo_, std::move(step)); }

  /// Forgets every step, as when a scenario is opened or closed.
  void clear();

  /// The memory the closed steps may take; past it the oldest are dropped. 1 GiB unless set.
  void setBudget(std::size_t bytes);
  std::size_t budget() const { return budget_; }
  /// @return about what the closed steps' pre-images take, bytes
  std::size_t bytes() const { return bytes_; }
  /// @return whether older steps were dropped to stay within the budget since the journal was cleared
  bool cut() const { return cut_; }

  /// Marks the present state as the saved one.
  void markClean();
  /// Marks the present state as unsaved, with no saved state to come back to by undo or redo
  /// (a scenario made by an import, not read from its file).
  void markUnsaved();
  /// @return whether the present state is the one last marked clean (or the opened one, if none)
  bool isClean() const;

  /// @return about the memory an entity's data take, bytes
  static std::size_t approximateBytes(const Entity& entity);
  /// @return about the memory a table's rows take, bytes
  static std::size_t approximateBytes(const DataTable& table);

private:
  /// Drops the oldest steps to undo, then to redo, while the steps take more than the budget.
  void keepWithinBudget_();
  void file_(std::vector<std::unique_ptr<Step>>& steps, std::unique_ptr<Step> step);
  /// Takes the newest of the steps, closing the open one first. @return null when there is none
  std::unique_ptr<Step> take_(std::vector<std::unique_ptr<Step>>& steps);
  /// Forgets a step for good, noting when the clean state goes with it.
  void drop_(const Step& step);
  static std::size_t measure_(const Step& step);

  std::unique_ptr<Step> open_;
  std::function<void(Step&)> closer_;
  std::size_t budget_ = std::size_t(1) << 30;
  std::size_t bytes_ = 0;
  bool cut_ = false;
  /// The step to undo last in the clean state; null for the state with nothing to undo.
  const Step* clean_ = nullptr;
  /// False once the clean state cannot be reached again: its step was dropped.
  bool cleanReachable_ = true;
  std::string implicitName_ = "Edit";
  std::vector<std::unique_ptr<Step>> undo_;
  std::vector<std::unique_ptr<Step>> redo_;
};

} // namespace kelvor
