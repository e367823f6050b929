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
    undo_.push_back(std::move(open_));
    // A new change makes what was undone before unreachable.
    redo_.clear();
  }
  open_.reset();
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

std::unique_ptr<StoreJournal::Step> StoreJournal::takeUndo()
{
  endStep();
  if (undo_.empty())
    return nullptr;
  std::unique_ptr<Step> step = std::move(undo_.back());
  undo_.pop_back();
  return step;
}

std::unique_ptr<StoreJournal::Step> StoreJournal::takeRedo()
{
  endStep();
  if (redo_.empty())
    return nullptr;
  std::unique_ptr<Step> step = std::move(redo_.back());
  redo_.pop_back();
  return step;
}

void StoreJournal::clear()
{
  open_.reset();
  undo_.clear();
  redo_.clear();
}

} // namespace kelvor
