#include "store/ScenarioStore.h"

#include "store/StoreListener.h"

#include <algorithm>

namespace kelvor
{

ScenarioStore::ScenarioStore() = default;
ScenarioStore::~ScenarioStore() = default;

bool ScenarioStore::canHost_(UniqueID_t host, PIScenarioObjectType_t kind) const
{
  if (kind == PI_PLATFORM_TYPE)
    return host == 0;
  // A custom rendering may also stand by itself in the scenario.
  if (kind == PI_CUSTOM_RENDERING_TYPE && host == 0)
    return true;
  const Entity* parent = entity(host);
  if (!parent)
    return false;
  switch (kind)
  {
  case PI_GATE_TYPE:
    return parent->kind == PI_BEAM_TYPE;
  case PI_CUSTOM_RENDERING_TYPE:
  case PI_PROJECTOR_TYPE:
    return parent->kind == PI_PLATFORM_TYPE || parent->kind == PI_BEAM_TYPE;
  default:
    return parent->kind == PI_PLATFORM_TYPE;
  }
}

UniqueID_t ScenarioStore::createEntity(const EntityHeader& header, UniqueID_t host)
{
  const PIScenarioObjectType_t kind = kindOfHeader(header);
  if (!canHost_(host, kind))
    return 0;
  auto e = std::make_unique<Entity>();
  e->id = nextId_++;
  e->kind = kind;
  e->host = host;
  e->header = header;
  const UniqueID_t id = e->id;
  if (journal_)
  {
    journal_->current().entities[id] = nullptr;
    keepEntity_(host);
    // The scenario's settings change only when this is its first entity.
    if (!properties_.initialized)
      keepScenario_();
  }
  entities_[id] = std::move(e);
  if (host)
    entities_[host]->children.push_back(id);
  properties_.initialized = true;
  if (listener_)
    listener_->entityAdded(id, kind);
  return id;
}

bool ScenarioStore::removeEntity(UniqueID_t id)
{
  Entity* e = editEntity(id);
  if (!e)
    return false;
  if (e->host)
  {
    if (Entity* parent = editEntity(e->host))
      parent->children.erase(std::remove(parent->children.begin(), parent->children.end(), id), parent->children.end());
  }
  removeOne_(id);
  forgetTargets_(id);
  return true;
}

void ScenarioStore::forgetTargets_(UniqueID_t removed)
{
  // What aimed at a removed entity aims at nothing from then on, so no command names an
  // entity the scenario no longer has (and a save loses none of them).
  std::set<UniqueID_t> changed;
  for (auto& [id, entity] : entities_)
  {
    if (journal_ && entity->aimsAt(removed))
      keepEntity_(id);
    if (entity->retarget(removed))
      changed.insert(id);
  }
  if (listener_ && !changed.empty())
    listener_->dataChanged(changed);
}

void ScenarioStore::removeOne_(UniqueID_t id)
{
  const std::vector<UniqueID_t> children = entities_.at(id)->children;
  for (UniqueID_t child : children)
    removeOne_(child);
  if (listener_)
    listener_->entityRemoving(id);
  keepEntity_(id);
  if (drawFlags_.count(id) || gogFiles_.count(id))
    keepScenario_();
  for (long table : entities_.at(id)->tables)
  {
    keepTable_(table);
    tables_.erase(table);
  }
  drawFlags_.erase(id);
  gogFiles_.erase(id);
  entities_.erase(id);
}

void ScenarioStore::clearEntities()
{
  // Another scenario, or none: nothing of the steps before applies.
  if (journal_)
    journal_->clear();
  entities_.clear();
  tables_.clear();
  rules_.clear();
  drawFlags_.clear();
  gogFiles_.clear();
}

void ScenarioStore::reset()
{
  if (listener_)
    listener_->scenarioClosing();
  clearEntities();
  nextId_ = 1;
  nextTableId_ = 1;
  nextRuleId_ = 1;
  properties_ = ScenarioProperties();
  clock_.reset();
}

void ScenarioStore::startScenario()
{
  reset();
  properties_.initialized = true;
}

void ScenarioStore::replaceWith(ScenarioStore& other)
{
  if (listener_)
    listener_->scenarioClosing();
  entities_.swap(other.entities_);
  std::swap(nextId_, other.nextId_);
  tables_.swap(other.tables_);
  std::swap(nextTableId_, other.nextTableId_);
  std::swap(properties_, other.properties_);
  std::swap(clock_, other.clock_);
  rules_.swap(other.rules_);
  std::swap(nextRuleId_, other.nextRuleId_);
  drawFlags_.swap(other.drawFlags_);
  gogFiles_.swap(other.gogFiles_);
  other.reset();
  if (journal_)
    journal_->clear();
  if (listener_)
    listener_->scenarioReset();
}

Entity* ScenarioStore::editEntity(UniqueID_t id)
{
  // Whoever takes an entity to change may change it: its state before goes to the journal.
  keepEntity_(id);
  auto it = entities_.find(id);
  return it == entities_.end() ? nullptr : it->second.get();
}

const Entity* ScenarioStore::entity(UniqueID_t id) const
{
  auto it = entities_.find(id);
  return it == entities_.end() ? nullptr : it->second.get();
}

std::vector<UniqueID_t> ScenarioStore::list(int kinds, UniqueID_t parent) const
{
  std::vector<UniqueID_t> ids;
  const bool every = (kinds & PI_ALL_TYPES) != 0;
  auto wanted = [&](const Entity& e) { return every || (kinds & e.kind) != 0; };
  if (parent)
  {
    if (const Entity* p = entity(parent))
      for (UniqueID_t child : p->children)
        if (wanted(*entities_.at(child)))
          ids.push_back(child);
    return ids;
  }
  for (const auto& [id, e] : entities_)
    if (wanted(*e))
      ids.push_back(id);
  return ids;
}

UniqueID_t ScenarioStore::findPlatform(const std::string& name) const
{
  for (const auto& [id, e] : entities_)
    if (e->kind == PI_PLATFORM_TYPE && nameOfHeader(e->header) == name)
      return id;
  return 0;
}

bool ScenarioStore::flush(UniqueID_t id, PIData::FlushType type)
{
  keepEntityForFlush_(id, type);
  Entity* e = editEntity(id);
  if (!e)
    return false;
  e->clearPoints();
  if (type == PIData::FLUSH_ALL || type == PIData::FLUSH_POINTS_AND_COMMANDS)
    e->clearCommands();
  if (type == PIData::FLUSH_ALL)
  {
    e->categories.clear();
    e->generic.clear();
  }
  return true;
}

std::size_t ScenarioStore::pointCount() const
{
  std::size_t points = 0;
  for (const auto& [id, e] : entities_)
    points += e->pointCount();
  return points;
}

double ScenarioStore::earliestTime(UniqueID_t id) const
{
  if (id)
  {
    const Entity* e = entity(id);
    return e ? e->earliestTime() : -1.0;
  }
  // The scenario's span is that of its timed data; static points have no time.
  double earliest = -1.0;
  for (const auto& [eid, e] : entities_)
  {
    const double firstTimed = e->earliestTimedTime();
    if (firstTimed >= 0.0 && (earliest < 0.0 || firstTimed < earliest))
      earliest = firstTimed;
  }
  return earliest;
}

double ScenarioStore::latestTime(UniqueID_t id) const
{
  if (id)
  {
    const Entity* e = entity(id);
    return e ? e->latestTime() : -1.0;
  }
  double latest = -1.0;
  for (const auto& [eid, e] : entities_)
    latest = std::max(latest, e->latestTime());
  return latest;
}

void ScenarioStore::autoConfigureClock()
{
  const double begin = earliestTime(0);
  const double end = latestTime(0);
  if (begin < 0.0)
    clock_.setSpan(0.0, 0.0);
  else
    clock_.setSpan(begin, std::max(begin, end));
}

long ScenarioStore::addTable(UniqueID_t owner, const std::string& name)
{
  Entity* e = editEntity(owner);
  if (!e)
    return 0;
  const long id = nextTableId_++;
  if (journal_)
    journal_->current().tables[id] = nullptr;
  tables_[id] = std::make_unique<DataTable>(id, owner, name);
  e->tables.push_back(id);
  return id;
}

DataTable* ScenarioStore::editTable(long id)
{
  keepTable_(id);
  auto it = tables_.find(id);
  return it == tables_.end() ? nullptr : it->second.get();
}

const DataTable* ScenarioStore::table(long id) const
{
  auto it = tables_.find(id);
  return it == tables_.end() ? nullptr : it->second.get();
}

bool ScenarioStore::removeTable(long id)
{
  keepTable_(id);
  auto it = tables_.find(id);
  if (it == tables_.end())
    return false;
  if (Entity* e = editEntity(it->second->owner()))
    e->tables.erase(std::remove(e->tables.begin(), e->tables.end(), id), e->tables.end());
  tables_.erase(it);
  return true;
}

long ScenarioStore::addPreferenceRule(const std::string& text, bool saved)
{
  keepScenario_();
  rules_.push_back(PreferenceRule{nextRuleId_, text, saved});
  return nextRuleId_++;
}

bool ScenarioStore::removePreferenceRule(long id)
{
  keepScenario_();
  auto it = std::find_if(rules_.begin(), rules_.end(), [id](const PreferenceRule& r) { return r.id == id; });
  if (it == rules_.end())
    return false;
  rules_.erase(it);
  return true;
}

void ScenarioStore::setDrawFlag(UniqueID_t id, const std::string& flag, bool on)
{
  keepScenario_();
  if (on)
    drawFlags_[id].insert(flag);
  else if (drawFlags_.count(id))
    drawFlags_[id].erase(flag);
}

std::vector<std::string> ScenarioStore::drawFlags(UniqueID_t id) const
{
  auto it = drawFlags_.find(id);
  return it == drawFlags_.end() ? std::vector<std::string>() : std::vector<std::string>(it->second.begin(), it->second.end());
}

bool ScenarioStore::drawFlag(UniqueID_t id, const std::string& flag) const
{
  auto it = drawFlags_.find(id);
  return it != drawFlags_.end() && it->second.count(flag) > 0;
}

void ScenarioStore::attachGogFile(UniqueID_t id, const std::string& file)
{
  keepScenario_();
  auto& files = gogFiles_[id];
  if (std::find(files.begin(), files.end(), file) == files.end())
    files.push_back(file);
}

std::vector<std::string> ScenarioStore::attachedGogFiles(UniqueID_t id) const
{
  auto it = gogFiles_.find(id);
  return it == gogFiles_.end() ? std::vector<std::string>() : it->second;
}

void ScenarioStore::dataChanged(const std::set<UniqueID_t>& ids)
{
  if (listener_ && !ids.empty())
    listener_->dataChanged(ids);
}

void ScenarioStore::referenceYearChanged()
{
  if (listener_)
    listener_->referenceYearChanged();
}

void ScenarioStore::clockModeChanged()
{
  if (listener_)
    listener_->clockModeChanged();
}

void ScenarioStore::timeChanged()
{
  if (listener_)
    listener_->timeChanged();
}

void ScenarioStore::scenarioReset()
{
  if (listener_)
    listener_->scenarioReset();
}

void ScenarioStore::keepJournal(bool keep)
{
  if (!keep)
    journal_.reset();
  else if (!journal_)
  {
    journal_ = std::make_unique<StoreJournal>();
    journal_->setCloser([this](StoreJournal::Step& step) { trimToChanges_(step); });
  }
}

void ScenarioStore::keepEntity_(UniqueID_t id)
{
  if (!journal_ || journal_->holdsEntity(id))
    return;
  auto it = entities_.find(id);
  if (it != entities_.end())
    journal_->current().entities[id] = std::make_unique<Entity>(*it->second);
}

void ScenarioStore::keepEntityForFlush_(UniqueID_t id, PIData::FlushType type)
{
  if (!journal_ || journal_->holdsEntity(id))
    return;
  auto it = entities_.find(id);
  if (it == entities_.end())
    return;
  // The series a flush empties go to the journal as they are; what stays is copied back.
  Entity& present = *it->second;
  auto before = std::make_unique<Entity>(std::move(present));
  present = Entity();
  present.id = before->id;
  present.kind = before->kind;
  present.host = before->host;
  present.header = before->header;
  present.children = before->children;
  present.alias = before->alias;
  present.useAlias = before->useAlias;
  present.tables = before->tables;
  if (type != PIData::FLUSH_ALL && type != PIData::FLUSH_POINTS_AND_COMMANDS)
  {
    present.colors = before->colors;
    present.states = before->states;
    present.targets = before->targets;
  }
  if (type != PIData::FLUSH_ALL)
  {
    present.categories = before->categories;
    present.generic = before->generic;
  }
  journal_->current().entities[id] = std::move(before);
}

void ScenarioStore::keepTable_(long id)
{
  if (!journal_ || journal_->holdsTable(id))
    return;
  auto it = tables_.find(id);
  if (it != tables_.end())
    journal_->current().tables[id] = std::make_unique<DataTable>(*it->second);
}

void ScenarioStore::keepScenario_()
{
  if (!journal_ || journal_->holdsScenario())
    return;
  StoreJournal::Step& step = journal_->current();
  step.scenario = std::make_unique<StoreJournal::Scenario>(
    StoreJournal::Scenario{properties_, rules_, drawFlags_, gogFiles_});
  step.hasScenario = true;
}

void ScenarioStore::trimToChanges_(StoreJournal::Step& step)
{
  // A small edit of a long track keeps the items it replaced, not the whole track.
  for (auto& [id, image] : step.entities)
  {
    auto present = entities_.find(id);
    if (!image || present == entities_.end())
      continue;
    std::vector<SeriesCut> cuts;
    bool cut = false;
    forEachSeries(*image, *present->second, [&](auto& before, auto& after, std::size_t) {
      cuts.push_back(SeriesCut::trim(before, after));
      cut = cut || !cuts.back().whole();
    });
    if (cut)
      step.cuts[id] = std::move(cuts);
  }
}

void ScenarioStore::exchange_(StoreJournal::Step& step)
{
  // Those told of a removal find the entity still in the store, children before their host.
  if (listener_)
  {
    for (auto it = step.entities.rbegin(); it != step.entities.rend(); ++it)
    {
      if (!it->second && entities_.count(it->first))
        listener_->entityRemoving(it->first);
    }
  }
  std::vector<UniqueID_t> added;
  std::set<UniqueID_t> changed;
  for (auto& [id, image] : step.entities)
  {
    auto it = entities_.find(id);
    std::unique_ptr<Entity> present = it == entities_.end() ? nullptr : std::move(it->second);
    if (image && present)
      changed.insert(id);
    else if (image)
      added.push_back(id);
    if (image)
      entities_[id] = std::move(image);
    else if (it != entities_.end())
      entities_.erase(it);
    image = std::move(present);
    if (auto cuts = step.cuts.find(id); cuts != step.cuts.end())
    {
      forEachSeries(*entities_[id], *image, [&cuts](auto& middle, auto& whole, std::size_t index) {
        cuts->second[index].exchange(middle, whole);
      });
    }
  }
  for (auto& [id, image] : step.tables)
  {
    auto it = tables_.find(id);
    std::unique_ptr<DataTable> present = it == tables_.end() ? nullptr : std::move(it->second);
    const DataTable* either = image ? image.get() : present.get();
    if (either && entities_.count(either->owner()))
      changed.insert(either->owner());
    if (image)
      tables_[id] = std::move(image);
    else if (it != tables_.end())
      tables_.erase(it);
    image = std::move(present);
  }
  const bool yearChanged = step.hasScenario && exchangeScenario_(*step.scenario);
  tellExchanged_(added, changed, step.hasScenario, yearChanged);
}

bool ScenarioStore::exchangeScenario_(StoreJournal::Scenario& image)
{
  const int year = properties_.referenceYear;
  StoreJournal::Scenario present{std::move(properties_), std::move(rules_), std::move(drawFlags_), std::move(gogFiles_)};
  properties_ = std::move(image.properties);
  rules_ = std::move(image.rules);
  drawFlags_ = std::move(image.drawFlags);
  gogFiles_ = std::move(image.gogFiles);
  image = std::move(present);
  return properties_.referenceYear != year;
}

void ScenarioStore::tellExchanged_(const std::vector<UniqueID_t>& added, std::set<UniqueID_t> changed,
                                   bool settingsChanged, bool yearChanged)
{
  if (!listener_)
    return;
  // In id order, a host before its children.
  for (UniqueID_t id : added)
  {
    listener_->entityAdded(id, entities_.at(id)->kind);
    changed.erase(id);
  }
  if (!changed.empty())
    listener_->dataChanged(changed);
  if (yearChanged)
    listener_->referenceYearChanged();
  // Rules, draw flags, overlays and properties have no events of their own.
  if (settingsChanged)
    listener_->scenarioReset();
}

bool ScenarioStore::undo() { return replay_(true); }

bool ScenarioStore::redo() { return replay_(false); }

bool ScenarioStore::replay_(bool back)
{
  if (!journal_)
    return false;
  std::unique_ptr<StoreJournal::Step> step = back ? journal_->takeUndo() : journal_->takeRedo();
  if (!step)
    return false;
  exchange_(*step);
  // The step now holds what it replaced: the way to where it was taken from.
  if (back)
    journal_->pushRedo(std::move(step));
  else
    journal_->pushUndo(std::move(step));
  return true;
}

} // namespace kelvor
