#include "merge/AutomaticMergeWidget.h"

#include "host/PICommon.h"
#include "host/PIDataEntities.h"
#include "merge/AutoMerge.h"
#include "merge/MergeInfo.h"
#include "plugin/ActionUtilities.h"
#include "ui_AutomaticMergeWidget.h"
#include "widgets/FormatTooltip.h"
#include "widgets/GuardedDialog.h"

#include <QMessageBox>

#include <algorithm>
#include <set>

namespace QtSep
{

namespace
{

const int ORIGINAL_ID_COLUMN = 1;

} // namespace

AutomaticMergeWidget::AutomaticMergeWidget(QWidget* parent)
  : TabWidget(parent), ui_(std::make_unique<Ui::AutomaticMergeWidget>())
{
  ui_->setupUi(this);
  ui_->compareCheckBox->setToolTip(
    kelQt::formatTooltip("Compare Original ID", "If checked, the Original IDs of the platforms must match."));
  ui_->detectPushButton->setToolTip(
    kelQt::formatTooltip("Detect", "Find and display platforms that match the criteria for automatic merge."));
  ui_->checkAllButton->setToolTip(kelQt::formatTooltip("Check All", "Check all detected platforms to be merged."));
  ui_->uncheckAllButton->setToolTip(
    kelQt::formatTooltip("Uncheck All", "Uncheck all detected platforms so none are merged."));
  ui_->acceptPushButton->setToolTip(kelQt::formatTooltip("Accept", "Merge the selected platforms."));
  ui_->cancelPushButton->setToolTip(kelQt::formatTooltip("Cancel", "Remove all entries from the list."));
  connect(ui_->detectPushButton, &QPushButton::clicked, this, &AutomaticMergeWidget::detectPlatformMatches_);
  connect(ui_->acceptPushButton, &QPushButton::clicked, this, &AutomaticMergeWidget::mergePlatforms_);
  connect(ui_->cancelPushButton, &QPushButton::clicked, this, &AutomaticMergeWidget::cancel_);
  connect(ui_->checkAllButton, &QPushButton::clicked, this, &AutomaticMergeWidget::checkAll_);
  connect(ui_->uncheckAllButton, &QPushButton::clicked, this, &AutomaticMergeWidget::uncheckAll_);
  updateEnable_();
}

AutomaticMergeWidget::~AutomaticMergeWidget() = default;

void AutomaticMergeWidget::warn_(const QString& text)
{
  // Every caller returns after the warning, which may outlive this tab.
  kelQt::GuardedDialog<QMessageBox>(QMessageBox::Warning, tr("Merge Error"), text, QMessageBox::Ok, this).exec();
}

void AutomaticMergeWidget::clearGroups_()
{
  ui_->treeWidget->clear();
  groups_.clear();
  updateEnable_();
}

void AutomaticMergeWidget::detectPlatformMatches_()
{
  clearGroups_();
  AutoMerge autoMerge; // one header cache for the whole pass
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  if (platforms.size() < 2)
  {
    warn_("Insufficient platforms");
    return;
  }
  const bool compareOriginalId = ui_->compareCheckBox->isChecked();
  groups_ = autoMerge.detectGroups(compareOriginalId);
  if (groups_.empty())
  {
    warn_("No matches");
    return;
  }
  ui_->treeWidget->setColumnHidden(ORIGINAL_ID_COLUMN, !compareOriginalId);
  for (const auto& group : groups_)
  {
    auto* row = new QTreeWidgetItem(ui_->treeWidget, {QString::fromStdString(group->name),
                                                      QString::number(group->originalId),
                                                      QString::number(group->ids.size())});
    row->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    row->setCheckState(0, Qt::Checked);
  }
  updateEnable_();
}

void AutomaticMergeWidget::mergePlatforms_()
{
  merging_ = true;
  PICommon::beginWaitCursor();
  AutoMerge autoMerge;
  for (std::size_t i = 0; i < groups_.size(); ++i)
  {
    const QTreeWidgetItem* row = ui_->treeWidget->topLevelItem(static_cast<int>(i));
    const std::vector<UniqueID_t>& ids = groups_[i]->ids;
    if (row && row->checkState(0) == Qt::Checked)
      autoMerge.mergeAndRemove(ids);
  }
  cancel_();
  updateEnable_();
  PICommon::endWaitCursor();
  merging_ = false;
}

void AutomaticMergeWidget::cancel_()
{
  clearGroups_();
}

void AutomaticMergeWidget::setAllChecked_(Qt::CheckState state)
{
  // The rows are the record of the user's choice.
  for (int i = 0; i < ui_->treeWidget->topLevelItemCount(); ++i)
    ui_->treeWidget->topLevelItem(i)->setCheckState(0, state);
}

void AutomaticMergeWidget::checkAll_()
{
  setAllChecked_(Qt::Checked);
}

void AutomaticMergeWidget::uncheckAll_()
{
  setAllChecked_(Qt::Unchecked);
}

void AutomaticMergeWidget::updateEnable_()
{
  const bool listed = !groups_.empty();
  ui_->acceptPushButton->setEnabled(listed);
  ui_->cancelPushButton->setEnabled(listed);
  ui_->checkAllButton->setEnabled(listed);
  ui_->uncheckAllButton->setEnabled(listed);
}

void AutomaticMergeWidget::listenToEvents(PIApplicationEvents_t event, void* data)
{
  if (event != PI_EVENT_ENTITY_REMOVED || merging_ || groups_.empty() || !data)
    return;
  const auto removed = static_cast<UniqueID_t>(*static_cast<const std::uint64_t*>(data));
  const bool listed = std::any_of(groups_.begin(), groups_.end(), [removed](const auto& group) {
    return std::find(group->ids.begin(), group->ids.end(), removed) != group->ids.end();
  });
  if (!listed)
    return;
  clearGroups_();
  warn_("A platform that was part of the automatic merge was deleted, clearing merge list.");
}

} // namespace QtSep
