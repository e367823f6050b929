#include "datasources/PointEditorWidget.h"

#include "datasources/AvoidNoopEditsDelegate.h"
#include "datasources/CategoryDataSource.h"
#include "datasources/DataTableDataSource.h"
#include "datasources/EntityDataModel.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/FilterWidget.h"
#include "datasources/GenericDataSource.h"
#include "datasources/KeySortFilter.h"
#include "host/PIDataClock.h"
#include "host/PIDataScenario.h"
#include "host/PURegistry.h"
#include "plugin/ActionUtilities.h"
#include "plugin/UnitsWidget.h"
#include "ui_PointEditorWidget.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "units/Units.h"
#include "units/UnitsRegistry.h"
#include "widgets/EntityTreeComposite.h"
#include "widgets/FormatTooltip.h"
#include "widgets/GuardedDialog.h"

#include <QMenu>
#include <QMessageBox>

#include <algorithm>
#include <set>

namespace QtSep
{

namespace
{

/// Columns are as wide as their contents and this much more, pixels.
constexpr int COLUMN_MARGIN = 10;

const kelCore::UnitsRegistry& unitsRegistry()
{
  static const kelCore::UnitsRegistry registry = [] {
    kelCore::UnitsRegistry all;
    all.registerDefaultUnits();
    return all;
  }();
  return registry;
}

const kelCore::Units& unitsSetting(const char* key, const kelCore::Units& fallback)
{
  const kelCore::Units& found = unitsRegistry().unitsByName(PURegistry::loadReg(fallback.name(), key));
  return found.isValid() ? found : fallback;
}

/// The types offered, by the order of EditType; only those with a source are listed.
struct OfferedType
{
  int type;
  const char* name;
};
const OfferedType OFFERED_TYPES[] = {{PointEditorWidget::POINT_DATA, "Point Data"},
                                     {PointEditorWidget::CATEGORY_DATA, "Category Data"},
                                     {PointEditorWidget::GENERIC_DATA, "Generic Data"},
                                     {PointEditorWidget::DATA_TABLES, "Data Tables"}};

/// Asks a question of the tab. \returns true for Yes; false for No, or when the tab went meanwhile
bool askYes(QWidget* parent, const QString& title, const QString& text)
{
  kelQt::GuardedDialog<QMessageBox> question(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No,
                                            parent);
  return question.exec() == QMessageBox::Yes;
}

} // namespace

PointEditorWidget::PointEditorWidget(kelQt::EntityTreeComposite& tree, QWidget* parent)
  : TabWidget(parent),
    tree_(tree),
    ui_(std::make_unique<Ui_PointEditorWidget>()),
    units_(std::make_unique<kelCore::UnitContextAdapter>()),
    formatter_(std::make_unique<kelCore::UnitContextFormatter>(*units_)),
    model_(new EntityDataModel(this)),
    filter_(new KeySortFilter(this))
{
  units_->setReferenceYear(PIData::getReferenceYear());
  ui_->setupUi(this);
  // Each kind of keyed data brings its own key filter, shown with its controls.
  ui_->filterWidget->hide();
  for (const OfferedType& offered : OFFERED_TYPES)
    ui_->typeComboBox->addItem(tr(offered.name), offered.type);
  ui_->typeComboBox->setToolTip(kelQt::formatTooltip(tr("Selects the type of data to edit.")));
  ui_->findPushButton->setToolTip(kelQt::formatTooltip(tr("Highlight the data row closest to the current scenario time.")));
  ui_->addPushButton->setToolTip(kelQt::formatTooltip(tr("Add a new row.")));
  ui_->resetPushButton->setToolTip(kelQt::formatTooltip(tr("Discard all changes.")));
  ui_->deletePushButton->setToolTip(kelQt::formatTooltip(tr("Delete the selected rows.")));
  ui_->applyPushButton->setToolTip(
    kelQt::formatTooltip(tr("Push the changes to KELVOR.  This action cannot be undone.")));

  filter_->setSourceModel(model_);
  ui_->treeView->setModel(filter_);
  ui_->treeView->setSortingEnabled(true);
  ui_->treeView->sortByColumn(0, Qt::AscendingOrder);
  filter_->setSortRole(EntityDataModel::RAW_ROLE);
  ui_->treeView->setItemDelegate(new AvoidNoopEditsDelegate(ui_->treeView));
  ui_->treeView->setContextMenuPolicy(Qt::CustomContextMenu);

  connect(ui_->typeComboBox, QOverload<int>::of(&QComboBox::activated), this,
          [this](int index) { setEditType_(ui_->typeComboBox->itemData(index).toInt()); });
  connect(ui_->treeView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &PointEditorWidget::updateEnables_);
  connect(ui_->treeView, &QTreeView::customContextMenuRequested, this, &PointEditorWidget::displayRightClickMenu_);
  connect(model_, &QAbstractItemModel::dataChanged, this, &PointEditorWidget::updateEnables_);
  connect(model_, &QAbstractItemModel::modelReset, this, &PointEditorWidget::updateEnables_);
  connect(model_, &QAbstractItemModel::rowsMoved, this, &PointEditorWidget::updateView_);
  connect(ui_->findPushButton, &QPushButton::clicked, this, &PointEditorWidget::findAtCurrentTime_);
  connect(ui_->addPushButton, &QPushButton::clicked, this, &PointEditorWidget::addRow_);
  connect(ui_->resetPushButton, &QPushButton::clicked, this, &PointEditorWidget::resetModel);
  connect(ui_->deletePushButton, &QPushButton::clicked, this, &PointEditorWidget::deleteRows_);
  connect(ui_->applyPushButton, &QPushButton::clicked, this, &PointEditorWidget::applyModel_);

  setEditType_(POINT_DATA);
  applyUnitsChange();
}

PointEditorWidget::~PointEditorWidget()
{
  // The source's controls are the source's: out of the tab before Qt deletes the tab's children.
  model_->setDataSource(nullptr);
  clearCustomWidget_();
}

unsigned long PointEditorWidget::uniqueId() const { return model_->uniqueId(); }

bool PointEditorWidget::dirty() const { return model_->isDirty(); }

int PointEditorWidget::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  return source_ && source_->handleMouseEvent(type, event) ? 1 : 0;
}

void PointEditorWidget::setReferenceYear(int year) { units_->setReferenceYear(year); }

void PointEditorWidget::listenToEvents(PIApplicationEvents_t event, void* data)
{
  if (event == PI_EVENT_REFERENCE_YEAR_CHANGED)
    setReferenceYear(PIData::getReferenceYear());
  else if (event == PI_EVENT_ENTITY_REMOVED && data && *static_cast<const std::uint64_t*>(data) == uniqueId())
  {
    model_->setUniqueId(0);
    updateEnables_();
  }
}

void PointEditorWidget::applyUnitsChange()
{
  units_->setTimeFormat(UnitsWidget::timeFormat());
  units_->setTimePrecision(UnitsWidget::timePrecision());
  units_->setGeodeticFormat(
    static_cast<kelCore::GeodeticFormat>(PURegistry::loadReg(0, UnitsWidget::GEODETIC_FORMAT_KEY)));
  units_->setGeodeticPrecision(PURegistry::loadReg(7, UnitsWidget::GEODETIC_PRECISION_KEY));
  units_->setDistanceUnits(unitsSetting(UnitsWidget::DISTANCE_UNITS_KEY, kelCore::Units::METERS));
  units_->setDistancePrecision(PURegistry::loadReg(3, UnitsWidget::DISTANCE_PRECISION_KEY));
  units_->setAltitudeUnits(unitsSetting(UnitsWidget::ALTITUDE_UNITS_KEY, kelCore::Units::METERS));
  units_->setAltitudePrecision(PURegistry::loadReg(3, UnitsWidget::ALTITUDE_PRECISION_KEY));
  units_->setAngleUnits(unitsSetting(UnitsWidget::ANGLE_UNITS_KEY, kelCore::Units::DEGREES));
  units_->setAnglePrecision(PURegistry::loadReg(3, UnitsWidget::ANGLE_PRECISION_KEY));
  units_->setSpeedUnits(unitsSetting(UnitsWidget::SPEED_UNITS_KEY, kelCore::Units::METERS_PER_SECOND));
  units_->setSpeedPrecision(PURegistry::loadReg(3, UnitsWidget::SPEED_PRECISION_KEY));
  units_->setGenericPrecision(PURegistry::loadReg(3, UnitsWidget::GENERIC_PRECISION_KEY));
  units_->setCoordinateSystem(static_cast<kelCore::CoordinateSystem>(
    PURegistry::loadReg(static_cast<int>(kelCore::CoordinateSystem::LLA), UnitsWidget::COORDINATE_SYSTEM_KEY)));
  model_->applyUnitsChange();
}

void PointEditorWidget::setEditType_(int type)
{
  if (type == editType_)
    return;
  if (model_->isDirty() &&
      !askYes(this, tr("Unsaved Changes"), tr("Switching types will result in loss of unsaved changes.  Still switch type?")))
  {
    ui_->typeComboBox->setCurrentIndex(ui_->typeComboBox->findData(editType_));
    return;
  }
  editType_ = type;
  const unsigned long id = model_->uniqueId();
  model_->setDataSource(nullptr);
  filter_->setKey(QString());
  clearCustomWidget_();
  source_ = makeSource_(type);
  model_->setDataSource(source_.get());
  model_->setUniqueId(id);
  if (QWidget* controls = source_->widget())
    ui_->customWidget->layout()->addWidget(controls);
  ui_->typeComboBox->setCurrentIndex(ui_->typeComboBox->findData(type));
  applyUnitsChange();
}

std::unique_ptr<DataSource> PointEditorWidget::makeSource_(int type)
{
  if (type == CATEGORY_DATA || type == GENERIC_DATA)
  {
    std::unique_ptr<KeyValueDataSource> items;
    if (type == CATEGORY_DATA)
      items = std::make_unique<CategoryDataSource>(*formatter_);
    else
      items = std::make_unique<GenericDataSource>(*formatter_);
    connect(&items->filterWidget(), &FilterWidget::currentKeyChanged, filter_, &KeySortFilter::setKey);
    return items;
  }
  if (type == DATA_TABLES)
  {
    // A change of the table shown restructures the model.
    auto tables = std::make_unique<DataTableDataSource>(*formatter_);
    connect(tables.get(), &DataTableDataSource::beginLayoutChanged, model_, &EntityDataModel::requestBeginResetModel);
    connect(tables.get(), &DataTableDataSource::endLayoutChanged, model_, &EntityDataModel::requestEndResetModel);
    return tables;
  }
  auto proxy = std::make_unique<EntityDataSourceProxy>(*formatter_, *units_);
  connect(proxy.get(), &EntityDataSourceProxy::selectedTimes, this, &PointEditorWidget::setSelectedTimes_);
  return proxy;
}

void PointEditorWidget::clearCustomWidget_()
{
  QLayout* layout = ui_->customWidget->layout();
  while (QLayoutItem* item = layout->takeAt(0))
  {
    if (QWidget* controls = item->widget())
      controls->setParent(nullptr);
    delete item;
  }
}

void PointEditorWidget::setTabActive(bool active)
{
  if (active == tabActive_)
    return;
  tabActive_ = active;
  if (active)
  {
    connectTree_(true);
    setEntity_(tree_.selectedItems());
    return;
  }
  // Away from the tab it holds no data; unsaved edits go without a question.
  model_->setUniqueId(0);
  connectTree_(false);
}

void PointEditorWidget::connectTree_(bool on)
{
  if (on)
    connect(&tree_, &kelQt::EntityTreeComposite::itemsSelected, this, &PointEditorWidget::setEntity_,
            Qt::UniqueConnection);
  else
    disconnect(&tree_, &kelQt::EntityTreeComposite::itemsSelected, this, &PointEditorWidget::setEntity_);
}

void PointEditorWidget::setEntity_(const QList<unsigned long>& ids)
{
  QPointer<PointEditorWidget> self(this);
  if (model_->isDirty() && model_->isValid())
  {
    const bool save = askYes(this, tr("Save Changes"), tr("Save changes before switching?"));
    if (!self)
      return;
    if (save)
      applyModel_();
  }
  else if (model_->isDirty())
  {
    const bool abandon =
      askYes(this, tr("Abandon Changes"), tr("Current changes are invalid. Switch without saving?"));
    if (!self)
      return;
    if (!abandon)
    {
      // The tree goes back to the entity edited, without coming here again.
      connectTree_(false);
      tree_.setSelected(model_->uniqueId());
      connectTree_(true);
      return;
    }
  }
  model_->setUniqueId(ids.isEmpty() ? 0UL : ids.front());
  resizeColumns_();
  updateEnables_();
}

void PointEditorWidget::resizeColumns_()
{
  for (int column = 0; column < filter_->columnCount(); ++column)
  {
    ui_->treeView->resizeColumnToContents(column);
    ui_->treeView->setColumnWidth(column, ui_->treeView->columnWidth(column) + COLUMN_MARGIN);
  }
}

void PointEditorWidget::updateEnables_()
{
  ui_->findPushButton->setEnabled(model_->rowCount() > 0);
  ui_->resetPushButton->setEnabled(model_->isDirty());
  ui_->deletePushButton->setEnabled(model_->canDeleteRow() &&
                                    !ui_->treeView->selectionModel()->selectedRows().isEmpty());
  ui_->applyPushButton->setEnabled(model_->isDirty() && model_->isValid());
}

void PointEditorWidget::resetModel()
{
  if (suppressReset_)
    return;
  model_->setUniqueId(model_->uniqueId());
  updateEnables_();
}

void PointEditorWidget::applyModel_()
{
  model_->commitChanges();
  updateEnables_();
  // The change notice comes back to the window; the view just read anew stays as it is.
  suppressReset_ = true;
  fireChangeCallback(model_->uniqueId());
  suppressReset_ = false;
  PIData::clockSetTime(PIData::clockGetTime(), 0.0);
}

void PointEditorWidget::addRow_()
{
  const QModelIndexList selected = ui_->treeView->selectionModel()->selectedRows();
  const int row = selected.isEmpty() ? -1 : filter_->mapToSource(selected.front()).row();
  const int added = model_->copyRow(row);
  if (added < 0)
    return;
  const QModelIndex shown = filter_->mapFromSource(model_->index(added, 0));
  ui_->treeView->selectionModel()->select(shown, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  updateEnables_();
}

void PointEditorWidget::deleteRows_()
{
  std::vector<int> rows;
  for (const QModelIndex& index : ui_->treeView->selectionModel()->selectedRows())
    rows.push_back(filter_->mapToSource(index).row());
  std::sort(rows.begin(), rows.end());
  model_->deleteRows(rows);
  updateEnables_();
}

void PointEditorWidget::findAtCurrentTime_()
{
  const int rows = filter_->rowCount();
  if (rows == 0)
    return;
  const double now = PIData::clockGetTime();
  int found = rows - 1;
  for (int row = 0; row < rows; ++row)
  {
    if (filter_->index(row, 0).data(EntityDataModel::TIME_ROLE).toDouble() >= now)
    {
      found = row;
      break;
    }
  }
  ui_->treeView->selectionModel()->select(filter_->index(found, 0),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void PointEditorWidget::updateView_(const QModelIndex&, int, int, const QModelIndex&, int row)
{
  // The row just re-timed stays in sight. The moved row's new number is the destination, or one
  // less when it moved down.
  ui_->treeView->scrollTo(filter_->mapFromSource(model_->index(row, 0)));
}

void PointEditorWidget::setSelectedTimes_(const std::vector<double>& times)
{
  if (times.empty())
    return;
  std::vector<std::pair<QModelIndex, QModelIndex>> picked;
  std::size_t next = 0;
  for (int row = 0; row < model_->rowCount() && next < times.size(); ++row)
  {
    const double time = model_->index(row, 0).data(EntityDataModel::TIME_ROLE).toDouble();
    while (next < times.size() && times[next] < time)
      ++next;
    if (next < times.size() && times[next] == time)
    {
      const QModelIndex shown = filter_->mapFromSource(model_->index(row, 0));
      picked.emplace_back(shown.parent(), shown);
    }
  }
  // Ordered as the view shows the rows, so that runs of neighbours merge.
  std::sort(picked.begin(), picked.end(), [](const auto& a, const auto& b) { return a.second.row() < b.second.row(); });
  picked.erase(std::unique(picked.begin(), picked.end()), picked.end());
  if (picked.empty())
    return;
  ui_->treeView->selectionModel()->select(convertIndexesToSelections_(picked),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  ui_->treeView->scrollTo(picked.front().second);
}

QItemSelection PointEditorWidget::convertIndexesToSelections_(const std::vector<std::pair<QModelIndex, QModelIndex>>& indexes)
{
  QItemSelection selection;
  std::size_t first = 0;
  for (std::size_t i = 1; i <= indexes.size(); ++i)
  {
    const bool runGoesOn = i < indexes.size() && indexes[i].first == indexes[i - 1].first &&
                           indexes[i].second.row() == indexes[i - 1].second.row() + 1;
    if (runGoesOn)
      continue;
    selection.select(indexes[first].second, indexes[i - 1].second);
    first = i;
  }
  return selection;
}

void PointEditorWidget::displayRightClickMenu_(const QPoint& pos)
{
  const QModelIndex index = ui_->treeView->indexAt(pos);
  if (!index.isValid())
    return;
  rightClicked_ = filter_->mapToSource(index);
  QMenu menu(this);
  const double time = index.data(EntityDataModel::TIME_ROLE).toDouble();
  if (time >= PIData::clockGetBegin() && time <= PIData::clockGetEnd())
    menu.addAction(tr("Set Scenario Time to Row Time"), this, &PointEditorWidget::setScenarioTimeToRowTime_);
  if (index.data(EntityDataModel::DIRTY_ROLE).toBool())
    menu.addAction(tr("Revert Field"), this, &PointEditorWidget::revertField_);
  if (isLineDirty_(rightClicked_))
    menu.addAction(tr("Revert Line"), this, &PointEditorWidget::revertLine_);
  if (!menu.actions().isEmpty())
    menu.exec(ui_->treeView->viewport()->mapToGlobal(pos));
}

bool PointEditorWidget::isLineDirty_(const QModelIndex& index) const
{
  for (int column = 0; column < model_->columnCount(); ++column)
  {
    if (column != index.column() && model_->index(index.row(), column).data(EntityDataModel::DIRTY_ROLE).toBool())
      return true;
  }
  return false;
}

void PointEditorWidget::revertField_()
{
  if (!rightClicked_.isValid())
    return;
  model_->revert(rightClicked_);
  updateEnables_();
}

void PointEditorWidget::revertLine_()
{
  if (!rightClicked_.isValid())
    return;
  // A reverted time may move the row: follow it by its persistent index.
  const QPersistentModelIndex line = rightClicked_;
  for (int column = 0; column < model_->columnCount() && line.isValid(); ++column)
    model_->revert(model_->index(line.row(), column));
  updateEnables_();
}

void PointEditorWidget::setScenarioTimeToRowTime_()
{
  if (!rightClicked_.isValid())
    return;
  const double time = rightClicked_.data(EntityDataModel::TIME_ROLE).toDouble();
  if (time >= 0.0)
    PIData::clockSetTime(time, 0.0);
}

} // namespace QtSep
