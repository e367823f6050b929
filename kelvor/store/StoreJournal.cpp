#include "store/StoreJournal.h"

namespace kelvor
{

void StoreJournal::beginStep(const std::string& name)
{
  endStep();
  open_ = std::make_unique<Step>();
  open_->name = name;
}

void StoreJournal::endStep()
{
  if (!open_)
    return;
  if (!open_->empty())
  {
    if (closer_)
      closer_(*open_);
    open_->bytes = measure_(*open_);
    bytes_ += open_->bytes;
    undo_.push_back(std::move(open_));
    // A new change makes what was undone before unreachable.
    for (const auto& step : redo_)
      drop_(*step);
    redo_.clear();
    keepWithinBudget_();
  }
  open_.reset();
}

void StoreJournal::file_(std::vector<std::unique_ptr<Step>>& steps, std::unique_ptr<Step> step)
{
  // After an exchange a step holds what it replaced, which may differ in size from before.
  step->bytes = measure_(*step);
  bytes_ += step->bytes;
  steps.push_back(std::move(step));
  keepWithinBudget_();
}

void StoreJournal::drop_(const Step& step)
{
  bytes_ -= step.bytes;
  if (&step == clean_)
    cleanReachable_ = false;
}

void StoreJournal::markClean()
{
  endStep();
  clean_ = undo_.empty() ? nullptr : undo_.back().get();
  cleanReachable_ = true;
}

void StoreJournal::markUnsaved()
{
  endStep();
  cleanReachable_ = false;
}

bool StoreJournal::isClean() const
{
  if (!cleanReachable_ || (open_ && !open_->empty()))
    return false;
  return (undo_.empty() ? nullptr : undo_.back().get()) == clean_;
}

void StoreJournal::setBudget(std::size_t bytes)
{
  budget_ = bytes;
  keepWithinBudget_();
}

void StoreJournal::keepWithinBudget_()
{
  // The steps next to the present stay whatever their size: the last edit can always be taken
  // back, and the one just undone made again. The oldest go first, then the farthest to redo.
  while (bytes_ > budget_ && (undo_.size() > 1 || redo_.size() > 1))
  {
    std::vector<std::unique_ptr<Step>>& from = undo_.size() > 1 ? undo_ : redo_;
    // The state with nothing to undo goes with the oldest step to undo.
    if (&from == &undo_ && clean_ == nullptr)
      cleanReachable_ = false;
    drop_(*from.front());
    from.erase(from.begin());
    cut_ = true;
  }
}

std::size_t StoreJournal::approximateBytes(const Entity& e)
{
  std::size_t bytes = sizeof(Entity);
  bytes += e.platformPoints.size() * sizeof(StoredPlatformPoint) + e.beamPoints.size() * sizeof(PIData::PIBeamPoint) +
           e.gatePoints.size() * sizeof(PIData::PIGatePoint) + e.laserPoints.size() * sizeof(PIData::PILaserPoint) +
           e.laserOffsets.size() * sizeof(PIData::PILaserOffset) +
           e.laserMaxRange.size() * sizeof(TimedValue<double>) + e.laserWidths.size() * sizeof(TimedValue<int>) +
           e.lobPoints.size() * sizeof(PIData::PILobPoint) + e.lobDrawStyles.size() * sizeof(PIData::PILobDrawStyle) +
           e.projectorFov.size() * sizeof(PIData::PIProjectorPoint) +
           e.projectorOnOff.size() * sizeof(TimedValue<int>) + e.colors.size() * sizeof(TimedValue<unsigned int>) +
           e.states.size() * sizeof(TimedValue<int>) + e.targets.size() * sizeof(TimedValue<UniqueID_t>);
  for (const auto& item : e.categories)
    bytes += sizeof(item) + item.name.size() + item.value.size();
  for (const auto& item : e.generic)
    bytes += sizeof(item) + item.tag.size() + item.value.size();
  return bytes;
}

std::size_t StoreJournal::approximateBytes(const DataTable& table)
{
  // A row holds a time and its cells; a cell about a pointer, an id and its value.
  constexpr std::size_t CELL = 48;
  std::size_t bytes = sizeof(DataTable);
  for (const auto& [time, row] : table.rows())
    bytes += sizeof(row) + row.cells().size() * CELL;
  return bytes;
}

std::size_t StoreJournal::measure_(const Step& step)
{
  std::size_t bytes = sizeof(Step);
  for (const auto& [id, image] : step.entities)
    bytes += image ? approximateBytes(*image) : sizeof(id);
  for (const auto& [id, image] : step.tables)
    bytes += image ? approximateBytes(*image) : sizeof(id);
  return bytes;
}

StoreJournal::Step& StoreJournal::current()
{
  if (!open_)
  {
    open_ = std::make_unique<Step>();
    open_->name = implicitName_;
    open_->implicit = true;
  }
  return *open_;
}

std::unique_ptr<StoreJournal::Step> StoreJournal::takeUndo() { return take_(undo_); }

std::unique_ptr<StoreJournal::Step> StoreJournal::takeRedo() { return take_(redo_); }

std::unique_ptr<StoreJournal::Step> StoreJournal::take_(std::vector<std::unique_ptr<Step>>& steps)
{
  endStep();
  if (steps.empty())
    return nullptr;
  std::unique_ptr<Step> step = std::move(steps.back());
  steps.pop_back();
  bytes_ -= step->bytes;
  return step;
}

void StoreJournal::clear()
{
  open_.reset();
  undo_.clear();
  redo_.clear();
  bytes_ = 0;
  cut_ = false;
  clean_ = nullptr;
  cleanReachable_ = true;
}

} // namespace kelvor
