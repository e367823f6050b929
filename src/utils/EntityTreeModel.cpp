#include "utils/EntityTreeModel.h"

#include "host/PIApplicationEvents.h"
#include "host/PIData.h"
#include "kelCore/TimeFormat.h"
#include "utils/QtEntityTreeItem.h"
#include "utils/TimeString.h"

#include <QTimer>

#include <cstdint>
#include <set>

// Resources of a static library are registered by hand; this also keeps them linked in.
static void initEntityTreeResources()
{
  Q_INIT_RESOURCE(QtEntityTreeModel);
}

namespace PluginUtils
{

namespace
{

const int BATCH_MILLISECONDS = 100;

// Lists of children by kind; a host's list call for that kind.
using ChildLister = void (*)(UniqueID_t, std::vector<UniqueID_t>*);

struct ChildKind
{
  PIScenarioObjectType_t type;
  ChildLister list;
};

std::vector<ChildKind> childKindsOf(PIScenarioObjectType_t hostType)
{
  switch (hostType)
  {
  case PI_PLATFORM_TYPE:
    return {{PI_BEAM_TYPE, PIData::getBeamList}, {PI_CUSTOM_RENDERING_TYPE, PIData::getCustomRenderingList},
      {PI_LASER_TYPE, PIData::getLaserList}, {PI_LOB_GROUP_TYPE, PIData::getLobList},
      {PI_PROJECTOR_TYPE, PIData::getProjectorList}};
  case PI_BEAM_TYPE:
    // A beam may host a custom rendering too, such as a drawn cone.
    return {{PI_GATE_TYPE, PIData::getGateList}, {PI_PROJECTOR_TYPE, PIData::getProjectorList},
      {PI_CUSTOM_RENDERING_TYPE, PIData::getCustomRenderingList}};
  default:
    return {};
  }
}

} // namespace

EntityTreeModel::EntityTreeModel(QObject* parent)
  : kelQt::AbstractEntityTreeModel(parent),
    rootItem_(std::make_unique<QtEntityTreeItem>(0, PI_NONE_TYPE, nullptr)),
    batchTimer_(new QTimer(this))
{
  initEntityTreeResources();
  batchTimer_->setSingleShot(true);
  batchTimer_->setInterval(BATCH_MILLISECONDS);
  connect(batchTimer_, &QTimer::timeout, this, &EntityTreeModel::commitDelayedEntities_);
  const QString folder = ":/QtEntityTreeModel/images/";
  icons_[PI_PLATFORM_TYPE] = QIcon(folder + "platform.png");
  icons_[PI_BEAM_TYPE] = QIcon(folder + "beam.png");
  icons_[PI_CUSTOM_RENDERING_TYPE] = QIcon(folder + "CustomRender.png");
  icons_[PI_GATE_TYPE] = QIcon(folder + "gate.png");
  icons_[PI_LASER_TYPE] = QIcon(folder + "laser.png");
  icons_[PI_LOB_GROUP_TYPE] = QIcon(folder + "lob.png");
  icons_[PI_PROJECTOR_TYPE] = QIcon(folder + "projector.png");
}

EntityTreeModel::~EntityTreeModel() = default;

QtEntityTreeItem* EntityTreeModel::itemOf_(const QModelIndex& index) const
{
  return index.isValid() ? static_cast<QtEntityTreeItem*>(index.internalPointer()) : rootItem_.get();
}

QModelIndex EntityTreeModel::indexOfItem_(QtEntityTreeItem* item) const
{
  if (!item || item == rootItem_.get())
    return QModelIndex();
  return createIndex(item->row(), 0, item);
}

QModelIndex EntityTreeModel::index(int row, int column, const QModelIndex& parent) const
{
  if (column < 0 || column >= COLUMN_COUNT)
    return QModelIndex();
  QtEntityTreeItem* child = itemOf_(parent)->child(row);
  return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex EntityTreeModel::parent(const QModelIndex& child) const
{
  if (!child.isValid())
    return QModelIndex();
  return indexOfItem_(itemOf_(child)->parent());
}

int EntityTreeModel::rowCount(const QModelIndex& parent) const
{
  if (parent.isValid() && parent.column() != 0)
    return 0;
  return itemOf_(parent)->childCount();
}

int EntityTreeModel::columnCount(const QModelIndex&) const
{
  return COLUMN_COUNT;
}

QVariant EntityTreeModel::data(const QModelIndex& index, int role) const
{
  if (!index.isValid())
    return QVariant();
  const QtEntityTreeItem& item = *itemOf_(index);
  switch (role)
  {
  case Qt::DisplayRole:
  case Qt::EditRole:
    return displayText_(item, index.column());
  case Qt::DecorationRole:
    return (useEntityIcons_ && index.column() == TYPE_COLUMN) ? icon_(item.type()) : QVariant();
  case Qt::TextAlignmentRole:
    return index.column() == NAME_COLUMN ? int(Qt::AlignLeft | Qt::AlignVCenter) : int(Qt::AlignRight | Qt::AlignVCenter);
  case Qt::ToolTipRole:
    if (index.column() == NAME_COLUMN)
      return QString("Name: %1\nAlias: %2\nType: %3\nOriginal ID: %4")
        .arg(QString::fromStdString(item.name()), QString::fromStdString(item.alias()),
          QString::fromStdString(item.typeString()))
        .arg(item.originalId());
    if (index.column() == ID_COLUMN)
      return QString("Original ID");
    return QVariant();
  default:
    return QVariant();
  }
}

QVariant EntityTreeModel::displayText_(const QtEntityTreeItem& item, int column) const
{
  switch (column)
  {
  case NAME_COLUMN: return QString::fromStdString(item.name());
  case TYPE_COLUMN:
    if (useEntityIcons_ || item.id() == 0)
      return QVariant();
    return QString::fromStdString(item.abbreviatedTypeString());
  case ID_COLUMN: return QString::number(item.originalId());
  case POINTS_COLUMN: return item.numberOfPoints() < 0 ? QString() : QString::number(item.numberOfPoints());
  case START_COLUMN: return formatTime_(item.startTime(), PIData::clockGetTimeFormat());
  case END_COLUMN: return formatTime_(item.endTime(), PIData::clockGetTimeFormat());
  default: return QVariant();
  }
}

QVariant EntityTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
  static const char* const TITLES[COLUMN_COUNT] = {"Name", "Type", "ID", "# Points", "Start Time", "End Time"};
  if (orientation != Qt::Horizontal || section < 0 || section >= COLUMN_COUNT)
    return QVariant();
  if (role == Qt::DisplayRole)
    return QString(TITLES[section]);
  if (role == Qt::TextAlignmentRole)
    return int(Qt::AlignCenter);
  return QVariant();
}

QString EntityTreeModel::formatTime_(double time, int format) const
{
  if (time < 0.0)
    return "Static";
  return QString::fromStdString(
    UTILS::getTimeString(PIData::getReferenceYear(), time, static_cast<kelCore::TimeFormat>(format), 3));
}

QModelIndex EntityTreeModel::indexOf(unsigned long id) const
{
  const auto found = itemsById_.find(id);
  return found == itemsById_.end() ? QModelIndex() : indexOfItem_(found->second);
}

unsigned long EntityTreeModel::uniqueId(const QModelIndex& index) const
{
  return index.isValid() ? itemOf_(index)->id() : 0;
}

void EntityTreeModel::listenToEvents(int event, const void* data)
{
  switch (event)
  {
  case PI_EVENT_REFERENCE_YEAR_CHANGED:
  case PI_EVENT_CLOCK_MODE_CHANGED:
    for (const auto& entry : itemsById_)
      refreshEntity(entry.first);
    break;
  case PI_EVENT_SCENARIO_RESET:
    forceRefresh();
    break;
  case PI_EVENT_ENTITY_REMOVED:
    removeEntity_(*static_cast<const std::uint64_t*>(data));
    break;
  case PI_EVENT_PLATFORM_ADDED:
  case PI_EVENT_BEAM_ADDED:
  case PI_EVENT_GATE_ADDED:
  case PI_EVENT_LASER_ADDED:
  case PI_EVENT_LOB_GROUP_ADDED:
  case PI_EVENT_PROJECTOR_ADDED:
  case PI_EVENT_CUSTOM_RENDERING_ADDED:
    addEntity_(*static_cast<const std::uint64_t*>(data));
    break;
  case PI_EVENT_ENTITY_DATA_CHANGED:
    for (std::uint64_t id : *static_cast<const std::set<std::uint64_t>*>(data))
      refreshEntity(id);
    break;
  default:
    break;
  }
}

void EntityTreeModel::addEntity_(UniqueID_t id)
{
  if (waitingIds_.empty())
    batchTimer_->start();
  waitingIds_.push_back(id);
}

void EntityTreeModel::commitDelayedEntities_()
{
  for (UniqueID_t id : waitingIds_)
  {
    const PIScenarioObjectType_t type = PIData::getObjectType(id);
    if (type == PI_NONE_TYPE)
      continue; // removed while it waited
    const UniqueID_t host = type == PI_PLATFORM_TYPE ? 0 : PIData::getObjectHost(id);
    if (host == 0 && type != PI_PLATFORM_TYPE && type != PI_CUSTOM_RENDERING_TYPE)
      continue;
    addTreeItem_(id, type, host);
  }
  waitingIds_.clear();
}

void EntityTreeModel::addTreeItem_(UniqueID_t id, PIScenarioObjectType_t type, UniqueID_t host)
{
  if (itemsById_.count(id))
    return;
  const auto hostItem = itemsById_.find(host);
  QtEntityTreeItem* parentItem = (host != 0 && treeView_ && hostItem != itemsById_.end()) ? hostItem->second : rootItem_.get();
  const QModelIndex parentIndex = indexOfItem_(parentItem);
  auto* item = new QtEntityTreeItem(id, type, parentItem);
  item->refresh();
  beginInsertRows(parentIndex, parentItem->childCount(), parentItem->childCount());
  parentItem->appendChild(item);
  itemsById_[id] = item;
  endInsertRows();
}

void EntityTreeModel::removeEntity_(UniqueID_t id)
{
  const auto found = itemsById_.find(id);
  if (found == itemsById_.end())
    return;
  QtEntityTreeItem* item = found->second;
  QtEntityTreeItem* parentItem = item->parent();
  const QModelIndex parentIndex = indexOfItem_(parentItem);
  const int row = item->row();
  beginRemoveRows(parentIndex, row, row);
  for (UniqueID_t below : item->getChildrenIds())
    itemsById_.erase(below);
  itemsById_.erase(found);
  parentItem->removeChild(row);
  endRemoveRows();
}

void EntityTreeModel::refreshEntity(UniqueID_t id)
{
  const auto found = itemsById_.find(id);
  if (found == itemsById_.end())
    return;
  found->second->refresh();
  reportChanged_(found->second);
}

void EntityTreeModel::reportChanged_(QtEntityTreeItem* item)
{
  const int row = item->row();
  emit dataChanged(createIndex(row, NAME_COLUMN, item), createIndex(row, END_COLUMN, item));
}

void EntityTreeModel::synchronizeToScenario()
{
  std::vector<UniqueID_t> gone;
  for (const auto& entry : itemsById_)
  {
    if (entry.first != 0 && PIData::getObjectType(entry.first) == PI_NONE_TYPE)
      gone.push_back(entry.first);
  }
  for (UniqueID_t id : gone)
    removeEntity_(id);

  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  addMissing_(PI_PLATFORM_TYPE, platforms, 0);
  std::vector<UniqueID_t> renderings;
  PIData::getCustomRenderingList(&renderings);
  addMissing_(PI_CUSTOM_RENDERING_TYPE, renderings, 0);

  for (const auto& entry : itemsById_)
  {
    if (entry.second->refresh())
      reportChanged_(entry.second);
  }
}

void EntityTreeModel::addMissing_(PIScenarioObjectType_t type, const std::vector<UniqueID_t>& ids, UniqueID_t host)
{
  for (UniqueID_t id : ids)
  {
    // Hosted renderings are reached through their host.
    if (host == 0 && type == PI_CUSTOM_RENDERING_TYPE && PIData::getObjectHost(id) != 0)
      continue;
    addTreeItem_(id, type, host);
    for (const ChildKind& kind : childKindsOf(type))
    {
      std::vector<UniqueID_t> children;
      kind.list(id, &children);
      addMissing_(kind.type, children, id);
    }
  }
}

void EntityTreeModel::forceRefresh()
{
  beginResetModel();
  rootItem_ = std::make_unique<QtEntityTreeItem>(0, PI_NONE_TYPE, nullptr);
  waitingIds_.clear();
  itemsById_.clear();
  if (includeScenario_)
  {
    auto* scenario = new QtEntityTreeItem(0, PI_NONE_TYPE, rootItem_.get());
    scenario->refresh();
    rootItem_->appendChild(scenario);
    itemsById_[0] = scenario;
  }
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  buildTree_(PI_PLATFORM_TYPE, platforms, nullptr);
  std::vector<UniqueID_t> renderings;
  PIData::getCustomRenderingList(&renderings);
  std::vector<UniqueID_t> unhosted;
  for (UniqueID_t id : renderings)
  {
    if (PIData::getObjectHost(id) == 0)
      unhosted.push_back(id);
  }
  buildTree_(PI_CUSTOM_RENDERING_TYPE, unhosted, nullptr);
  endResetModel();
}

void EntityTreeModel::buildTree_(PIScenarioObjectType_t type, const std::vector<UniqueID_t>& ids, QtEntityTreeItem* parent)
{
  QtEntityTreeItem* under = (parent && treeView_) ? parent : rootItem_.get();
  for (UniqueID_t id : ids)
  {
    if (itemsById_.count(id))
      continue;
    auto* item = new QtEntityTreeItem(id, type, under);
    item->refresh();
    under->appendChild(item);
    itemsById_[id] = item;
    buildChildren_(id, type, item);
  }
}

void EntityTreeModel::buildChildren_(UniqueID_t id, PIScenarioObjectType_t type, QtEntityTreeItem* item)
{
  for (const ChildKind& kind : childKindsOf(type))
  {
    std::vector<UniqueID_t> children;
    kind.list(id, &children);
    buildTree_(kind.type, children, item);
  }
}

void EntityTreeModel::toggleTreeView(bool useTree)
{
  if (treeView_ == useTree)
    return;
  treeView_ = useTree;
  forceRefresh();
}

QVariant EntityTreeModel::icon_(PIScenarioObjectType_t type) const
{
  const auto found = icons_.find(type);
  return found == icons_.end() ? QVariant() : QVariant(found->second);
}

void EntityTreeModel::setUseEntityIcons(bool useIcons)
{
  if (useEntityIcons_ == useIcons)
    return;
  useEntityIcons_ = useIcons;
  reportColumnChanged_(QModelIndex(), TYPE_COLUMN);
}

void EntityTreeModel::reportColumnChanged_(const QModelIndex& parent, int column)
{
  // Views listen per parent: every level that has rows hears of its own.
  const int rows = rowCount(parent);
  if (rows == 0)
    return;
  emit dataChanged(index(0, column, parent), index(rows - 1, column, parent));
  for (int row = 0; row < rows; ++row)
    reportColumnChanged_(index(row, 0, parent), column);
}

void EntityTreeModel::setIncludeScenario(bool value)
{
  if (includeScenario_ == value)
    return;
  includeScenario_ = value;
  if (value)
    addTreeItem_(0, PI_NONE_TYPE, 0);
  else
    removeEntity_(0);
}

} // namespace PluginUtils
