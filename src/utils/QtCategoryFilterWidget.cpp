#include "utils/QtCategoryFilterWidget.h"

#include "host/Notify.h"
#include "utils/QtCategoryFilter.h"

#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace PluginUtils
{

namespace
{

/// What an item of the tree stands for.
enum Role
{
  KIND_ROLE = Qt::UserRole,
  VALUE_ROLE
};

enum Kind
{
  ROOT,
  CATEGORY,
  VALUE
};

const char* const UNLISTED_TEXT = "Unlisted Value";
const char* const NO_VALUE_TEXT = "No Value";

Qt::CheckState checkOf(bool on)
{
  return on ? Qt::Checked : Qt::Unchecked;
}

} // namespace

QtCategoryFilterWidget::QtCategoryFilterWidget(QtCategoryFilter* filter, QWidget* parent)
  : QWidget(parent), filter_(filter), tree_(new QTreeWidget)
{
  auto* column = new QVBoxLayout(this);
  column->setObjectName("CategoryFilterWidgetVBox");
  column->addWidget(new QLabel("Category Data Filter:"));
  tree_->setObjectName("CategoryFilterTree");
  tree_->setHeaderHidden(true);
  column->addWidget(tree_);
  connect(tree_, &QTreeWidget::itemChanged, this, &QtCategoryFilterWidget::categoryFilterClicked_);
  connect(tree_, &QTreeWidget::itemExpanded, this, &QtCategoryFilterWidget::updateCollapsedState_);
  connect(tree_, &QTreeWidget::itemCollapsed, this, &QtCategoryFilterWidget::updateCollapsedState_);
  if (!filter_)
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "Unexpected NULL.\n";
    return;
  }
  updateTree();
}

void QtCategoryFilterWidget::updateTree()
{
  if (!filter_)
    return;
  building_ = true;
  tree_->clear();
  auto* root = new QTreeWidgetItem(tree_, {"All Categories"});
  root->setData(0, KIND_ROLE, ROOT);
  root->setFlags(root->flags() | Qt::ItemIsUserCheckable);
  const CategoryManager& manager = filter_->matchFilter().manager();
  for (const auto& [number, strings] : manager.categories())
  {
    auto* category = new QTreeWidgetItem(root, {QString::fromStdString(strings.name())});
    category->setData(0, KIND_ROLE, CATEGORY);
    category->setFlags(category->flags() | Qt::ItemIsUserCheckable);
    std::vector<std::pair<QString, int>> entries;
    for (int value : strings.values())
      entries.emplace_back(QString::fromStdString(strings.getCategoryValueString(value)), value);
    if (filter_->showUnlisted())
      entries.emplace_back(UNLISTED_TEXT, PUCategoryFilter::UNLISTED_VALUE);
    if (filter_->showNoValue())
      entries.emplace_back(NO_VALUE_TEXT, PUCategoryFilter::NO_VALUE);
    for (const auto& [text, value] : entries)
    {
      auto* item = new QTreeWidgetItem(category, {text});
      item->setData(0, KIND_ROLE, VALUE);
      item->setData(0, VALUE_ROLE, value);
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    }
    category->setExpanded(!filter_->collapsedCategories().contains(category->text(0)));
  }
  root->setExpanded(true);
  building_ = false;
  updateChecks_();
}

void QtCategoryFilterWidget::updateChecks_()
{
  QTreeWidgetItem* root = tree_->topLevelItem(0);
  if (!root)
    return;
  building_ = true;
  const PUCategoryFilter::CategoryMatchFilter& match = filter_->matchFilter();
  const CategoryManager& manager = match.manager();
  bool allChecked = true;
  for (int c = 0; c < root->childCount(); ++c)
  {
    QTreeWidgetItem* category = root->child(c);
    const auto check = match.checks().find(manager.findCategory(category->text(0).toStdString()));
    const auto isOn = [&](int value) {
      if (check == match.checks().end() || !check->second.checked)
        return true; // a category not filtered on lets everything pass
      const auto entry = check->second.values.find(value);
      return entry != check->second.values.end() && entry->second;
    };
    bool categoryOn = true;
    for (int v = 0; v < category->childCount(); ++v)
    {
      QTreeWidgetItem* item = category->child(v);
      const bool on = isOn(item->data(0, VALUE_ROLE).toInt());
      item->setCheckState(0, checkOf(on));
      categoryOn = categoryOn && on;
    }
    category->setCheckState(0, checkOf(categoryOn));
    allChecked = allChecked && categoryOn;
  }
  root->setCheckState(0, checkOf(allChecked));
  building_ = false;
}

void QtCategoryFilterWidget::categoryFilterClicked_(QTreeWidgetItem* item, int)
{
  if (building_)
    return;
  if (!item || !filter_)
  {
    PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected NULL\n";
    return;
  }
  const bool on = item->checkState(0) == Qt::Checked;
  PUCategoryFilter::CategoryMatchFilter& match = filter_->matchFilter();
  switch (item->data(0, KIND_ROLE).toInt())
  {
  case ROOT: match.checkAll(on); break;
  case CATEGORY: match.checkCategory(item->text(0).toStdString(), on); break;
  case VALUE: {
    if (!item->parent())
    {
      PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected failure to find item\n";
      return;
    }
    const std::string category = item->parent()->text(0).toStdString();
    const int value = item->data(0, VALUE_ROLE).toInt();
    if (value == PUCategoryFilter::UNLISTED_VALUE || value == PUCategoryFilter::NO_VALUE)
      match.checkReserved(category, value, on);
    else
      match.checkValue(category, item->text(0).toStdString(), on);
    break;
  }
  default: PICommon::Notify(PICommon::NOTIFY_ERROR) << "ERROR:  Unexpected value\n"; return;
  }
  // Qt is still inside this item's change: the items stay, only their check states follow.
  updateChecks_();
  emit categoryFilterChanged();
}

void QtCategoryFilterWidget::updateCollapsedState_(QTreeWidgetItem* item)
{
  if (building_ || !filter_ || !item || item->data(0, KIND_ROLE).toInt() != CATEGORY)
    return;
  QStringList collapsed = filter_->collapsedCategories();
  collapsed.removeAll(item->text(0));
  if (!item->isExpanded())
    collapsed << item->text(0);
  filter_->setCollapsedCategories(collapsed);
}

} // namespace PluginUtils
