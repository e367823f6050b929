#include "merge/ManualMergeWidget.h"

#include "actions/TimeSliceDialog.h"
#include "host/PICommon.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "host/PIKELVOR.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "merge/CommonMerge.h"
#include "merge/ManualMerge.h"
#include "plugin/ActionUtilities.h"
#include "plugin/UnitsWidget.h"
#include "utils/TimeString.h"
#include "widgets/ColorWidget.h"
#include "widgets/EntityTreeComposite.h"
#include "widgets/FormatTooltip.h"
#include "widgets/GuardedDialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace QtSep
{

const char* const ManualMergeWidget::RULES[] = {"ruleName=TracksDrawMode ruleValue=\"bridge\"",
                                                "ruleName=TracksLength ruleValue=\"-1\"",
                                                "ruleName=TracksWidth ruleValue=\"3\"", ""};

const std::vector<std::uint32_t> ManualMergeWidget::DEFAULT_COLORS = {
  0xFF00FF00, 0xFF0000FF, 0xFFFF0000, 0xFFFFFFFF, 0xFF00FFFF, 0xFFFF00FF,
  0xFF8500FF, 0xFFFFFF00, 0xFF000000, 0xFF105050, 0xFF0080FF, 0xFF808080};

namespace
{

// Columns of the ordered list.
const int NAME_COLUMN = 0;
// Columns of the dropout list.
const int USE_COLUMN = 0;
const int START_COLUMN = 1;
const int DURATION_COLUMN = 2;
const int SOURCE_COLUMN = 3;

const double SECONDS_PER_DAY = 86400.0;
const int GAP_MINIMUM = 1;
const int GAP_MAXIMUM = 120;
const int GAP_DEFAULT = 15;

// The list's colours keep red in the low byte and alpha in the high one.
QColor colorOf(std::uint32_t abgr)
{
  return QColor(abgr & 0xFF, (abgr >> 8) & 0xFF, (abgr >> 16) & 0xFF, (abgr >> 24) & 0xFF);
}

std::uint32_t abgrOf(const QColor& color)
{
  return static_cast<std::uint32_t>(color.red()) | (static_cast<std::uint32_t>(color.green()) << 8) |
         (static_cast<std::uint32_t>(color.blue()) << 16) | (static_cast<std::uint32_t>(color.alpha()) << 24);
}

QToolButton* iconButton(const QString& icon, const QString& title, const QString& body)
{
  auto* button = new QToolButton;
  button->setIcon(QIcon(icon));
  button->setToolTip(kelQt::formatTooltip(title, body));
  return button;
}

QPushButton* pushButton(const QString& text, const QString& icon, const QString& title, const QString& body)
{
  auto* button = new QPushButton(text);
  if (!icon.isEmpty())
    button->setIcon(QIcon(icon));
  button->setToolTip(kelQt::formatTooltip(title, body));
  return button;
}

QLabel* valueLabel(const QString& title, const QString& body)
{
  auto* label = new QLabel("N/A");
  label->setToolTip(kelQt::formatTooltip(title, body));
  return label;
}

std::string formatTime(double seconds, kelCore::TimeFormat format, int precision)
{
  static const kelCore::TimeFormatterRegistry registry;
  const int year = PIData::getReferenceYear();
  return registry.toString(format, kelCore::TimeStamp(year, seconds), year, static_cast<unsigned short>(precision));
}

} // namespace

ManualMergeWidget::ManualMergeWidget(kelQt::EntityTreeComposite& entityTree, QWidget* parent)
  : TabWidget(parent), entityTree_(entityTree), colors_(DEFAULT_COLORS)
{
  buildUi_();
  connectUi_();
  updateEnables_();
}

ManualMergeWidget::~ManualMergeWidget()
{
  removePreview_();
  // With the editor going, no removal event reaches this tab: the clean-up runs here.
  if (previewId_ != 0)
    previewRemovalCleanup_();
}

void ManualMergeWidget::buildUi_()
{
  addToolButton_ = iconButton(":/QtScenarioEditor/images/Collapse Right.png", "Add",
                              "Add the selected platform in the Entity List to the Ordered Priority Merge List.");
  removeToolButton_ = iconButton(":/QtScenarioEditor/images/Collapse Left.png", "Remove",
                                 "Remove the selected platforms in the Ordered Priority Merge List from the list.");
  upToolButton_ = iconButton(":/QtScenarioEditor/images/Collapse Up.png", "Move Up",
                             "Move up by one the selected platforms in the Ordered Priority Merge List.");
  downToolButton_ = iconButton(":/QtScenarioEditor/images/Collapse Down.png", "Move Down",
                               "Move down by one the selected platforms in the Ordered Priority Merge List.");
  orderedTreeWidget_ = new QTreeWidget;
  orderedTreeWidget_->setHeaderLabels({"Name", "Original ID", "# Pts"});
  orderedTreeWidget_->setRootIsDecorated(false);
  orderedTreeWidget_->setSelectionMode(QAbstractItemView::SingleSelection);

  startTimeLabel_ = valueLabel("Start Time", "The start time to begin looking for possible merge data.");
  endTimeLabel_ = valueLabel("End Time", "The end time to stop looking for possible merge data.");
  durationLabel_ = valueLabel("Duration", "The delta between the Start Time and the End Time.");
  dropoutColorWidget_ = new kelQt::ColorWidget;
  dropoutColorWidget_->setText("Dropout Color");
  dropoutColorWidget_->setDialogTitle("Choose Dropout Color");
  dropoutColorWidget_->setToolTip(kelQt::formatTooltip("Dropout Color", "Used to color code the preview display."));
  selectTimePushButton_ = pushButton("Select Time Slice...", QString(), "Select Time Slice",
                                     "Display a dialog to modify the Start Time and/or the End Time.");
  gapSpinBox_ = new QSpinBox;
  gapSpinBox_->setRange(GAP_MINIMUM, GAP_MAXIMUM);
  gapSpinBox_->setValue(GAP_DEFAULT);
  gapSpinBox_->setSuffix(" secs");
  gapSpinBox_->setToolTip(kelQt::formatTooltip("Dropout Gap", "Defines the time span of missing TSPI data to trigger fill-in."));
  detectPushButton_ = pushButton("Detect", QString(), "Detect",
    "Detect gaps as least as long as the Dropout Gap value between the Start Time and End Time.");
  includeNoOriginalIdCheckBox_ = new QCheckBox("Include Platforms with no Original ID");
  includeNoOriginalIdCheckBox_->setToolTip(
    kelQt::formatTooltip("No Original ID", "Detect gaps in platforms without an defined Original ID."));
  dropoutTreeWidget_ = new QTreeWidget;
  dropoutTreeWidget_->setHeaderLabels({"Use", "Start Time", "Duration", "Name", "Original ID", "# Pts"});
  dropoutTreeWidget_->setRootIsDecorated(false);
  clearPushButton_ = pushButton("Clear", ":/QtScenarioEditor/images/Delete.png", "Clear", "Discard any changes.");
  previewPushButton_ = pushButton("Preview", ":/QtScenarioEditor/images/Search.png", "Preview",
                                  "Create a temporary platform based on the drop list above.");
  previewPushButton_->setCheckable(true);
  mergePushButton_ = pushButton("Merge", ":/QtScenarioEditor/images/DNA.png", "Merge",
                                "Create a new permanent platform based on the drop list above.");
  nameWidgets_();

  auto* order = new QVBoxLayout;
  order->addStretch();
  order->addWidget(upToolButton_);
  order->addWidget(downToolButton_);
  order->addStretch();
  auto* move = new QVBoxLayout;
  move->addStretch();
  move->addWidget(addToolButton_);
  move->addWidget(removeToolButton_);
  move->addStretch();
  auto* list = new QHBoxLayout;
  list->addLayout(move);
  list->addWidget(orderedTreeWidget_, 1);
  list->addLayout(order);

  auto* times = new QGridLayout;
  times->addWidget(new QLabel("Start Time:"), 0, 0);
  times->addWidget(startTimeLabel_, 0, 1);
  times->addWidget(new QLabel("End Time:"), 1, 0);
  times->addWidget(endTimeLabel_, 1, 1);
  times->addWidget(new QLabel("Duration:"), 2, 0);
  times->addWidget(durationLabel_, 2, 1);
  times->addWidget(dropoutColorWidget_, 0, 2);
  times->addWidget(selectTimePushButton_, 1, 2);
  times->setColumnStretch(1, 1);

  auto* detect = new QHBoxLayout;
  detect->addWidget(new QLabel("Dropout Gap:"));
  detect->addWidget(gapSpinBox_);
  detect->addWidget(detectPushButton_);
  detect->addWidget(includeNoOriginalIdCheckBox_);
  detect->addStretch();

  auto* found = new QGroupBox("Detected Dropouts");
  auto* foundLayout = new QVBoxLayout(found);
  foundLayout->addWidget(dropoutTreeWidget_);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(clearPushButton_);
  buttons->addWidget(previewPushButton_);
  buttons->addWidget(mergePushButton_);

  auto* column = new QVBoxLayout(this);
  column->addWidget(new QLabel("Ordered Priority Merge List"));
  column->addLayout(list, 1);
  column->addLayout(times);
  column->addLayout(detect);
  column->addWidget(found, 2);
  column->addLayout(buttons);
}

void ManualMergeWidget::nameWidgets_()
{
  const std::pair<QWidget*, const char*> names[] = {
    {addToolButton_, "addToolButton"}, {removeToolButton_, "removeToolButton"}, {upToolButton_, "upToolButton"},
    {downToolButton_, "downToolButton"}, {orderedTreeWidget_, "orderedTreeWidget"},
    {startTimeLabel_, "startTimeLabel"}, {endTimeLabel_, "endTimeLabel"}, {durationLabel_, "durationLabel"},
    {dropoutColorWidget_, "dropoutColorWidget"}, {selectTimePushButton_, "selectTimePushButton"},
    {gapSpinBox_, "gapSpinBox"}, {detectPushButton_, "detectPushButton"},
    {includeNoOriginalIdCheckBox_, "includeNoOriginalIdCheckBox"}, {dropoutTreeWidget_, "dropoutTreeWidget"},
    {clearPushButton_, "clearPushButton"}, {previewPushButton_, "previewPushButton"},
    {mergePushButton_, "mergePushButton"}};
  for (const auto& [widget, name] : names)
    widget->setObjectName(name);
}

void ManualMergeWidget::connectUi_()
{
  connect(dropoutColorWidget_, &kelQt::ColorWidget::colorChanged, this, &ManualMergeWidget::setDropoutColor_);
  connect(orderedTreeWidget_, &QTreeWidget::itemSelectionChanged, this, &ManualMergeWidget::updateDropoutColorWidget_);
  connect(orderedTreeWidget_, &QTreeWidget::currentItemChanged, this, &ManualMergeWidget::updateEnables_);
  connect(addToolButton_, &QToolButton::clicked, this, &ManualMergeWidget::addSelectedPlatforms);
  connect(removeToolButton_, &QToolButton::clicked, this, &ManualMergeWidget::removePlatform_);
  connect(upToolButton_, &QToolButton::clicked, this, &ManualMergeWidget::raisePlatform_);
  connect(downToolButton_, &QToolButton::clicked, this, &ManualMergeWidget::lowerPlatform_);
  connect(selectTimePushButton_, &QPushButton::clicked, this, &ManualMergeWidget::showTimeEditor_);
  connect(detectPushButton_, &QPushButton::clicked, this, &ManualMergeWidget::detectDropouts_);
  connect(clearPushButton_, &QPushButton::clicked, this, &ManualMergeWidget::clearAll);
  connect(previewPushButton_, &QPushButton::clicked, this, &ManualMergeWidget::previewDropouts_);
  connect(mergePushButton_, &QPushButton::clicked, this, &ManualMergeWidget::mergeDropouts_);
  connect(gapSpinBox_, qOverload<int>(&QSpinBox::valueChanged), this, &ManualMergeWidget::setDirty_);
  connect(includeNoOriginalIdCheckBox_, &QCheckBox::clicked, this, &ManualMergeWidget::setDirty_);
  connect(dropoutTreeWidget_, &QTreeWidget::itemDoubleClicked, this, &ManualMergeWidget::setScenarioTimeAndView_);
  connect(&entityTree_, &kelQt::EntityTreeComposite::itemsSelected, this, &ManualMergeWidget::updateEnables_);
}

std::vector<UniqueID_t> ManualMergeWidget::platformIds() const
{
  std::vector<UniqueID_t> ids;
  for (int row = 0; row < orderedTreeWidget_->topLevelItemCount(); ++row)
    ids.push_back(orderedTreeWidget_->topLevelItem(row)->data(NAME_COLUMN, Qt::UserRole).toULongLong());
  return ids;
}

bool ManualMergeWidget::isDuplicateId_(UniqueID_t id) const
{
  const std::vector<UniqueID_t> ids = platformIds();
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool ManualMergeWidget::atLeastOneUnique_() const
{
  const QList<unsigned long> selected = entityTree_.selectedItems();
  if (selected.isEmpty())
    return false;
  const bool allPlatforms = std::all_of(selected.begin(), selected.end(), [](unsigned long id) {
    return PIData::getObjectType(id) == PI_PLATFORM_TYPE;
  });
  return allPlatforms &&
         std::any_of(selected.begin(), selected.end(), [this](unsigned long id) { return !isDuplicateId_(id); });
}

void ManualMergeWidget::addSelectedPlatforms()
{
  for (unsigned long id : entityTree_.selectedItems())
  {
    PIData::PIPlatformHeader header;
    if (isDuplicateId_(id) || PIData::getHeader(id, &header) != 0)
      continue;
    auto* row = new QTreeWidgetItem(orderedTreeWidget_, {QString::fromStdString(header.name),
                                                         QString::number(header.originalId),
                                                         QString::number(PIData::getNumberDataPoints(id))});
    row->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    row->setData(NAME_COLUMN, Qt::UserRole, QVariant::fromValue<qulonglong>(id));
  }
  setDirty_();
}

void ManualMergeWidget::removePlatform_()
{
  const int row = orderedTreeWidget_->indexOfTopLevelItem(orderedTreeWidget_->currentItem());
  if (row < 0)
    return;
  delete orderedTreeWidget_->takeTopLevelItem(row);
  setDirty_();
}

void ManualMergeWidget::raisePlatform_()
{
  moveCurrentPlatform_(-1);
}

void ManualMergeWidget::lowerPlatform_()
{
  moveCurrentPlatform_(1);
}

void ManualMergeWidget::moveCurrentPlatform_(int delta)
{
  const int row = orderedTreeWidget_->indexOfTopLevelItem(orderedTreeWidget_->currentItem());
  const int target = row + delta;
  if (row < 0 || target < 0 || target >= orderedTreeWidget_->topLevelItemCount())
    return;
  QTreeWidgetItem* item = orderedTreeWidget_->takeTopLevelItem(row);
  orderedTreeWidget_->insertTopLevelItem(target, item);
  orderedTreeWidget_->setCurrentItem(item);
  item->setSelected(true);
  setDirty_();
}

void ManualMergeWidget::setDirty_()
{
  dirty_ = true;
  removePreview_();
  updateEnables_();
}

void ManualMergeWidget::clearDirty_()
{
  dirty_ = false;
  updateEnables_();
}

void ManualMergeWidget::updateEnables_()
{
  const int row = orderedTreeWidget_->indexOfTopLevelItem(orderedTreeWidget_->currentItem());
  const int count = orderedTreeWidget_->topLevelItemCount();
  addToolButton_->setEnabled(atLeastOneUnique_());
  removeToolButton_->setEnabled(row >= 0);
  upToolButton_->setEnabled(row >= 1);
  downToolButton_->setEnabled(row >= 0 && row < count - 1);
  detectPushButton_->setEnabled(dirty_ && count > 1);
  const bool detected = dropoutTreeWidget_->topLevelItemCount() > 0 && !dirty_;
  previewPushButton_->setEnabled(detected);
  mergePushButton_->setEnabled(detected);
  dropoutTreeWidget_->setEnabled(detected);
  dropoutColorWidget_->setEnabled(row >= 0);
  selectTimePushButton_->setEnabled(count >= 1);
  updateTimes_();
}

void ManualMergeWidget::updateTimes_()
{
  // A new primary brings the scenario's whole span back as the slice.
  const std::vector<UniqueID_t> ids = platformIds();
  if (!ids.empty() && ids.front() != primaryId_)
  {
    startTime_ = PIData::clockGetBegin();
    endTime_ = PIData::clockGetEnd();
    primaryId_ = ids.front();
  }
  updateTimeLabels_();
}

void ManualMergeWidget::updateTimeLabels_()
{
  if (orderedTreeWidget_->topLevelItemCount() == 0)
  {
    for (QLabel* label : {startTimeLabel_, endTimeLabel_, durationLabel_})
      label->setText("N/A");
    return;
  }
  const kelCore::TimeFormat format = UnitsWidget::timeFormat();
  const int precision = UnitsWidget::timePrecision();
  startTimeLabel_->setText(QString::fromStdString(formatTime(startTime_, format, precision)));
  endTimeLabel_->setText(QString::fromStdString(formatTime(endTime_, format, precision)));
  durationLabel_->setText(QString::fromStdString(
    formatTime(endTime_ - startTime_, UnitsWidget::durationFormat(), UnitsWidget::durationPrecision())));
}

void ManualMergeWidget::applyUnitsChange()
{
  updateTimes_();
}

void ManualMergeWidget::setTimeSlice(double start, double end)
{
  startTime_ = start;
  endTime_ = end;
  setDirty_();
}

void ManualMergeWidget::showTimeEditor_()
{
  kelQt::GuardedDialog<TimeSliceDialog> dialog(PIData::getReferenceYear(), this);
  dialog->setScenarioTimeRange(PIData::clockGetBegin(), PIData::clockGetEnd());
  dialog->setTimeSliceRange(startTime_, endTime_);
  if (dialog.exec() != QDialog::Accepted)
    return;
  double start = startTime_;
  double end = endTime_;
  dialog->getTimeSliceRange(start, end);
  setTimeSlice(start, end);
}

std::uint32_t ManualMergeWidget::colorAt_(std::size_t position) const
{
  return colors_[std::min(position, colors_.size() - 1)];
}

void ManualMergeWidget::updateDropoutColorWidget_()
{
  const int row = orderedTreeWidget_->indexOfTopLevelItem(orderedTreeWidget_->currentItem());
  if (row < 0)
    return;
  // Showing a row's colour is not a change of it.
  const QSignalBlocker blocker(dropoutColorWidget_);
  dropoutColorWidget_->setColor(colorOf(colorAt_(static_cast<std::size_t>(row))));
}

void ManualMergeWidget::setDropoutColor_(const QColor& color)
{
  const int row = orderedTreeWidget_->indexOfTopLevelItem(orderedTreeWidget_->currentItem());
  if (row < 0)
    return;
  colors_[std::min(static_cast<std::size_t>(row), colors_.size() - 1)] = abgrOf(color);
  setDirty_();
}

void ManualMergeWidget::detectDropouts_()
{
  removePreview_();
  dropouts_.clear();
  dropoutTreeWidget_->clear();
  const std::vector<UniqueID_t> ids = platformIds();
  if (ids.empty())
  {
    updateEnables_();
    return;
  }
  PICommon::beginWaitCursor();
  if (ManualMerge::detect(ids, startTime_, endTime_, static_cast<double>(gapSpinBox_->value()), colors_, dropouts_))
  {
    for (const DropOut& dropout : dropouts_)
      addDropoutRow_(dropout);
    for (int column = 0; column < dropoutTreeWidget_->columnCount(); ++column)
      dropoutTreeWidget_->resizeColumnToContents(column);
  }
  PICommon::endWaitCursor();
  clearDirty_();
}

void ManualMergeWidget::addDropoutRow_(const DropOut& dropout)
{
  // A stretch from a platform without an original ID is offered only when the user asks.
  const bool shown = dropout.originalId != 0 || includeNoOriginalIdCheckBox_->isChecked();
  const int year = PIData::getReferenceYear();
  auto* row = new QTreeWidgetItem(dropoutTreeWidget_);
  row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
  row->setCheckState(USE_COLUMN, shown ? Qt::Checked : Qt::Unchecked);
  row->setText(START_COLUMN, QString::fromStdString(UTILS::getTimeString(
    year, std::fmod(dropout.gapStart, SECONDS_PER_DAY), kelCore::TimeFormat::HOURS, 2, false, false, UTILS::BASE_DECIMAL)));
  row->setData(START_COLUMN, Qt::UserRole, dropout.gapStart);
  row->setText(DURATION_COLUMN, QString::fromStdString(UTILS::getTimeString(
    year, dropout.gapDuration, kelCore::TimeFormat::MINUTES, 2, false, false, UTILS::BASE_DECIMAL)));
  if (shown)
  {
    row->setText(SOURCE_COLUMN, QString::fromStdString(dropout.sourceName));
    row->setText(SOURCE_COLUMN + 1, QString::number(dropout.originalId));
    row->setText(SOURCE_COLUMN + 2, QString::number(dropout.numberOfPoints));
  }
  row->setData(SOURCE_COLUMN, Qt::UserRole, QVariant::fromValue<qulonglong>(dropout.sourceId));
}

bool ManualMergeWidget::rowChecked_(std::size_t row) const
{
  const QTreeWidgetItem* item = dropoutTreeWidget_->topLevelItem(static_cast<int>(row));
  return item && item->checkState(USE_COLUMN) == Qt::Checked;
}

void ManualMergeWidget::previewDropouts_()
{
  if (previewId_ == 0)
    preview_();
  else
    removePreview_();
  // A preview that could not be made leaves the button up.
  previewPushButton_->setChecked(previewId_ != 0);
}

void ManualMergeWidget::preview_()
{
  const std::vector<UniqueID_t> ids = platformIds();
  if (ids.empty())
    return;
  UniqueID_t preview = 0;
  if (!CommonMerge::FillTrack(preview, ids.front(), startTime_, endTime_, colors_.front(), false))
    return;
  previewId_ = preview;
  for (std::size_t k = 0; k < dropouts_.size(); ++k)
  {
    if (!rowChecked_(k))
      continue;
    const DropOut& stretch = dropouts_[k];
    CommonMerge::BackFillSegment(previewId_, stretch.sourceId, stretch.startTime, stretch.endTime, true,
                                 colorAt_(stretch.colorIndex));
  }
  hiddenId_ = ids.front();
  PIKELVOR::setPrefDrawFlag(hiddenId_, false, true);
  addRules_(previewId_);
}

std::string ManualMergeWidget::escapeForRegex(const std::string& text)
{
  // The backslash goes first, so that the escapes added later are not escaped again.
  static const std::string special = "\\+?|{[()^$.#";
  std::string escaped = text;
  for (char c : special)
  {
    for (std::size_t at = escaped.find(c); at != std::string::npos; at = escaped.find(c, at + 2))
      escaped.insert(at, 1, '\\');
  }
  return escaped;
}

void ManualMergeWidget::addRules_(UniqueID_t id)
{
  PIData::PIPlatformHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  const std::string names = " nameExpression=\"^" + escapeForRegex(header.name) + "$\" categoryFilters=\" \"";
  for (const char* const* rule = RULES; **rule != '\0'; ++rule)
  {
    long ruleId = 0;
    if (PIKELVOR::addPrefRule(*rule + names, PIKELVOR::PREF_RULE_SESSION, &ruleId) == 0)
      ruleIds_.push_back(ruleId);
  }
}

void ManualMergeWidget::removeRules_()
{
  for (auto it = ruleIds_.rbegin(); it != ruleIds_.rend(); ++it)
    PIKELVOR::removePrefRule(*it);
  ruleIds_.clear();
}

void ManualMergeWidget::removePreview_()
{
  // The host's removal event runs the clean-up.
  if (previewId_ != 0)
    PIData::removeEntity(previewId_, false);
}

void ManualMergeWidget::previewRemovalCleanup_()
{
  previewPushButton_->setChecked(false);
  previewId_ = 0;
  removeRules_();
  // The platform the preview hid shows again, even when the list has changed since.
  if (hiddenId_ != 0)
    PIKELVOR::setPrefDrawFlag(hiddenId_, true, true);
  hiddenId_ = 0;
}

void ManualMergeWidget::mergeDropouts_()
{
  removePreview_();
  const std::vector<UniqueID_t> ids = platformIds();
  if (ids.empty())
    return;
  std::vector<bool> used;
  for (std::size_t k = 0; k < dropouts_.size(); ++k)
    used.push_back(rowChecked_(k));
  PICommon::beginWaitCursor();
  const UniqueID_t merged = ManualMerge::merge(ids, startTime_, endTime_, dropouts_, used);
  PICommon::endWaitCursor();
  if (merged == 0)
    return;
  fireChangeCallback(merged);
  clearAll();
}

void ManualMergeWidget::clearAll()
{
  dropouts_.clear();
  primaryId_ = 0;
  orderedTreeWidget_->clear();
  dropoutTreeWidget_->clear();
  removePreview_();
  dirty_ = true;
  updateEnables_();
}

void ManualMergeWidget::setScenarioTimeAndView_(QTreeWidgetItem* item, int column)
{
  if (!item)
    return;
  const double time = item->data(START_COLUMN, Qt::UserRole).toDouble();
  if (time >= PIData::getEarliestTime(0) && time <= PIData::getLatestTime(0))
    PIData::clockSetTime(time, 0.0);
  if (column != SOURCE_COLUMN)
    return;
  const auto id = static_cast<UniqueID_t>(item->data(SOURCE_COLUMN, Qt::UserRole).toULongLong());
  if (id != 0)
    PIKELVOR::tetherCamera(PIKELVOR::getCurrentViewport(), id);
}

void ManualMergeWidget::forgetScenario_()
{
  // The store dropped every entity and display rule itself; none of them may be touched.
  previewId_ = 0;
  hiddenId_ = 0;
  ruleIds_.clear();
  previewPushButton_->setChecked(false);
  clearAll();
}

void ManualMergeWidget::listenToEvents(PIApplicationEvents_t event, void* data)
{
  if (event == PI_EVENT_SCENARIO_RESET)
  {
    forgetScenario_();
    return;
  }
  if (event != PI_EVENT_ENTITY_REMOVED || !data)
    return;
  const auto removed = static_cast<UniqueID_t>(*static_cast<const std::uint64_t*>(data));
  for (int row = 0; row < orderedTreeWidget_->topLevelItemCount(); ++row)
  {
    if (orderedTreeWidget_->topLevelItem(row)->data(NAME_COLUMN, Qt::UserRole).toULongLong() != removed)
      continue;
    delete orderedTreeWidget_->takeTopLevelItem(row);
    setDirty_();
    break;
  }
  if (removed == hiddenId_)
    hiddenId_ = 0; // nothing is left to show again
  if (removed != 0 && removed == previewId_)
    previewRemovalCleanup_();
}

} // namespace QtSep
