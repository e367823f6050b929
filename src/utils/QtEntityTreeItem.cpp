#include "utils/QtEntityTreeItem.h"

#include "host/PIData.h"
#include "plugin/ActionUtilities.h"

#include <algorithm>

#include <tuple>

namespace PluginUtils
{

namespace
{

struct TypeNames
{
  const char* full;
  const char* abbreviated;
};

TypeNames typeNames(PIScenarioObjectType_t type)
{
  switch (type)
  {
  case PI_PLATFORM_TYPE: return {"Platform", "P"};
  case PI_BEAM_TYPE: return {"Beam", "B"};
  case PI_GATE_TYPE: return {"Gate", "G"};
  case PI_LASER_TYPE: return {"Laser", "L"};
  case PI_LOB_GROUP_TYPE: return {"LOB Group", "LOB"};
  case PI_PROJECTOR_TYPE: return {"Projector", "PJ"};
  case PI_CUSTOM_RENDERING_TYPE: return {"Custom Rendering", "CR"};
  default: return {"Scenario", ""};
  }
}

} // namespace

QtEntityTreeItem::QtEntityTreeItem(UniqueID_t id, PIScenarioObjectType_t type, QtEntityTreeItem* parent)
  : id_(id), type_(type), parent_(parent)
{
}

QtEntityTreeItem::~QtEntityTreeItem() = default;

void QtEntityTreeItem::appendChild(QtEntityTreeItem* child)
{
  children_.emplace_back(child);
}

void QtEntityTreeItem::removeChild(int row)
{
  if (row >= 0 && row < childCount())
    children_.erase(children_.begin() + row);
}

QtEntityTreeItem* QtEntityTreeItem::child(int row) const
{
  return (row >= 0 && row < childCount()) ? children_[row].get() : nullptr;
}

int QtEntityTreeItem::row() const
{
  if (!parent_)
    return 0;
  const auto& siblings = parent_->children_;
  const auto found = std::find_if(siblings.begin(), siblings.end(), [this](const auto& s) { return s.get() == this; });
  return static_cast<int>(found - siblings.begin());
}

std::vector<UniqueID_t> QtEntityTreeItem::getChildrenIds() const
{
  std::vector<UniqueID_t> ids;
  for (const auto& child : children_)
  {
    ids.push_back(child->id());
    const std::vector<UniqueID_t> below = child->getChildrenIds();
    ids.insert(ids.end(), below.begin(), below.end());
  }
  return ids;
}

bool QtEntityTreeItem::refresh()
{
  const auto cached = [this] {
    return std::make_tuple(name_, alias_, originalId_, startTime_, endTime_, numberOfPoints_, typeString_);
  };
  const auto before = cached();
  readFromHost_();
  return cached() != before;
}

void QtEntityTreeItem::readFromHost_()
{
  const TypeNames names = typeNames(type_);
  typeString_ = names.full;
  abbreviatedTypeString_ = names.abbreviated;
  name_ = id() == 0 ? std::string("Scenario") : QtSep::getEntityHeaderName(id());
  if (id() == 0)
  {
    alias_.clear();
    originalId_ = 0;
    startTime_ = endTime_ = -1.0;
    numberOfPoints_ = -1;
    return;
  }
  alias_ = PIData::getObjectAlias(id());
  originalId_ = PIData::getOriginalId(id());
  numberOfPoints_ = static_cast<long long>(PIData::getNumberDataPoints(id()));
  refreshTimes();
}

void QtEntityTreeItem::refreshTimes()
{
  if (type_ != PI_LASER_TYPE)
  {
    startTime_ = PIData::getEarliestTime(id());
    endTime_ = PIData::getLatestTime(id());
    return;
  }
  // A laser's span is that of its orientation records within the scenario's time.
  std::vector<PIData::PILaserPoint> points;
  PIData::getDataPoints(id(), PIData::clockGetBegin(), PIData::clockGetEnd(), &points);
  startTime_ = points.empty() ? -1.0 : points.front().time;
  endTime_ = points.empty() ? -1.0 : points.back().time;
}

} // namespace PluginUtils
